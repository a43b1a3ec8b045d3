#include "quorvex/QV_RelaxKernel.h"

#include "support/TestNumbers.h"

#include <gtest/gtest.h>

#include <complex>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace {

using Complex = std::complex<double>;

constexpr Complex I{0.0, 1.0};
constexpr double step = 0.1;
constexpr double field = 0.7;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// One class of atoms without any symmetry.
struct Matter
{
    explicit Matter(unsigned long levels, unsigned long seed = 1)
        : n(levels)
    {
        TestNumbers numbers(seed);
        for (unsigned long i = 0; i < n * n; ++i) {
            P.push_back(numbers.next());
            Nu.push_back(numbers.nextComplex());
        }
    }

    QV_Atoms atoms() const
    {
        return {
            n,       1,   P.data(), nullptr, nullptr, reinterpret_cast<const double*>(Nu.data()),
            nullptr, 0.0, 0.0,      rate,    limit};
    }

    unsigned long n;
    std::vector<double> P;
    std::vector<Complex> Nu;
    double rate = 1e-6;
    unsigned long limit = 50;
};

/// A node, and what an advance leaves there.
struct Node
{
    static Node random(unsigned long levels, unsigned long seed, bool isHermitian)
    {
        Node node;
        TestNumbers numbers(seed);
        for (unsigned long i = 0; i < levels * levels; ++i) {
            node.rho.push_back(numbers.nextComplex());
        }
        for (unsigned long a = 0; isHermitian && a < levels; ++a) {
            node.rho[a * levels + a].imag(0.0);
            for (unsigned long b = 0; b < a; ++b) {
                node.rho[b * levels + a] = std::conj(node.rho[a * levels + b]);
            }
        }
        return node;
    }

    std::vector<Complex> rho;
    unsigned long iterations = 77;
};

Node advanced(const Matter& matter, Node node, std::vector<double>& work, double E = field,
              double dt = step)
{
    node.iterations = QV_RelaxKernel::advanceCoherences(
        matter.atoms(), dt, E, reinterpret_cast<double*>(node.rho.data()), work);
    return node;
}

Node advanced(const Matter& matter, const Node& node, double E = field, double dt = step)
{
    std::vector<double> work;
    return advanced(matter, node, work, E, dt);
}

/// The equations of the scheme with std::complex.
Node byTheEquations(const Matter& matter, const Node& node)
{
    const unsigned long n = matter.n;
    const auto P = [&](unsigned long a, unsigned long b) { return matter.P[a * n + b]; };
    const auto rho = [&](unsigned long a, unsigned long b) { return node.rho[a * n + b]; };
    std::vector<Complex> R = node.rho;
    for (unsigned long a = 0; a < n; ++a) {
        R[a * n + a] = 0.0;
    }
    double norm0 = 1.0;
    double acc = 0.0;
    unsigned long iterations = 0;
    if (matter.limit != 0 && norm0 * matter.rate < 1.0) {
        do {
            ++iterations;
            const std::vector<Complex> old = R;
            const auto Rp = [&](unsigned long a, unsigned long b) { return old[a * n + b]; };
            acc = 0.0;
            for (unsigned long a = 0; a < n; ++a) {
                for (unsigned long b = 0; b <= a; ++b) {
                    Complex C1 = P(a, b) * Rp(b, b);
                    Complex C2 = Rp(a, a) * P(a, b);
                    for (unsigned long j = 0; j < n; ++j) {
                        C1 += j == b ? 0.0 : P(a, j) * (Rp(j, b) + rho(j, b));
                        C2 += j == a ? 0.0 : (Rp(a, j) + rho(a, j)) * P(j, b);
                    }
                    const Complex Z = a == b ? 0.0 : rho(a, b);
                    const Complex G =
                        0.5 * (C1 - C2) + P(a, b) * rho(b, b).real() - P(a, b) * rho(a, a).real();
                    R[a * n + b] = Z + ((I * step) * field) * G
                                   - (matter.Nu[a * n + b] * step * 0.5) * (Rp(a, b) + Z);
                }
                const Complex d = R[a * n + a] - Rp(a, a);
                acc += std::real(d * d);
            }
            for (unsigned long a = 0; a < n; ++a) {
                for (unsigned long c = 0; c < a; ++c) {
                    R[c * n + a] = std::conj(R[a * n + c]);
                    acc += 2.0 * std::real((R[c * n + a] - Rp(c, a)) * (R[a * n + c] - Rp(a, c)));
                }
            }
            if (iterations == 1) {
                norm0 = acc;
            }
        } while (iterations < matter.limit && norm0 * matter.rate < acc);
    }
    for (unsigned long a = 0; a < n; ++a) {
        R[a * n + a] += rho(a, a);
    }
    return {R, iterations};
}

void expectEquations(const Matter& matter, const Node& node)
{
    const Node expected = byTheEquations(matter, node);
    const Node found = advanced(matter, node);
    EXPECT_EQ(found.iterations, expected.iterations) << matter.n << " levels";
    for (unsigned long i = 0; i < node.rho.size(); ++i) {
        // Sums of a few dozen terms near 1.
        EXPECT_LT(std::abs(found.rho[i] - expected.rho[i]), 1e-12) << matter.n << " levels, " << i;
    }
}

bool isSame(const Node& a, const Node& b)
{
    return a.iterations == b.iterations && a.rho.size() == b.rho.size()
           && std::memcmp(a.rho.data(), b.rho.data(), a.rho.size() * sizeof(Complex)) == 0;
}

/// Without iterations nothing may change.
void expectUntouched(const Matter& matter)
{
    Node node = Node::random(matter.n, 2, false);
    node.rho[0].real(-0.0);
    const Node found = advanced(matter, node);
    node.iterations = 0;
    EXPECT_TRUE(isSame(found, node));
}

} // namespace

TEST(QV_RelaxKernel, HermitianDensitiesFollowTheEquations)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (unsigned long seed = 0; seed < 20; ++seed) {
            expectEquations(Matter(n, seed), Node::random(n, 100 + seed, true));
        }
    }
}

TEST(QV_RelaxKernel, DensitiesWithoutSymmetryFollowTheEquations)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (unsigned long seed = 0; seed < 20; ++seed) {
            expectEquations(Matter(n, seed), Node::random(n, 200 + seed, false));
        }
    }
}

TEST(QV_RelaxKernel, EveryLimitAndRateEndsTheLoopWhereItShould)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (const double rate : {-1.0, 1e-30, 1e-3, 0.1, 0.9, 1.0, 1e9}) {
            for (const unsigned long limit : {0UL, 1UL, 2UL, 3UL, 7UL}) {
                Matter matter(n, 5);
                matter.rate = rate;
                matter.limit = limit;
                expectEquations(matter, Node::random(n, 6, true));
            }
        }
    }
}

TEST(QV_RelaxKernel, ALimitOfZeroLeavesTheNodeAsItIs)
{
    Matter matter(3);
    matter.limit = 0;
    expectUntouched(matter);
}

TEST(QV_RelaxKernel, ARateOfOneOrMoreLeavesTheNodeAsItIs)
{
    Matter matter(3);
    for (const double rate : {1.0, 2.5, notANumber}) {
        matter.rate = rate;
        expectUntouched(matter);
    }
}

TEST(QV_RelaxKernel, ANodeWhoseFirstResidualIsZeroTakesOneIteration)
{
    Node node;
    node.rho.assign(9, 0.0);
    const Node found = advanced(Matter(3), node);
    EXPECT_EQ(found.iterations, 1UL);
    EXPECT_EQ(found.rho, node.rho);
}

TEST(QV_RelaxKernel, ANotANumberEndsTheLoop)
{
    Node node = Node::random(3, 2, true);
    node.rho[4] = notANumber;
    EXPECT_EQ(advanced(Matter(3), node).iterations, 1UL);
}

TEST(QV_RelaxKernel, ARateThatIsNeverReachedTakesTheWholeLimit)
{
    Matter matter(2);
    matter.rate = -1.0;
    matter.limit = 13;
    EXPECT_EQ(advanced(matter, Node::random(2, 2, true)).iterations, 13UL);
}

TEST(QV_RelaxKernel, PopulationsOnlyChangePlacesWhenNothingIsLost)
{
    for (unsigned long n = 2; n <= 5; ++n) {
        Matter matter(n);
        for (unsigned long a = 0; a < n; ++a) {
            matter.Nu[a * n + a] = 0.0;
            for (unsigned long b = 0; b < a; ++b) {
                matter.P[b * n + a] = matter.P[a * n + b];
            }
        }
        const Node node = Node::random(n, 2, true);
        const Node found = advanced(matter, node);
        Complex change;
        for (unsigned long a = 0; a < n; ++a) {
            EXPECT_NE(found.rho[a * n + a], node.rho[a * n + a]);
            change += found.rho[a * n + a] - node.rho[a * n + a];
        }
        EXPECT_LT(std::abs(change), 1e-14); // a few roundings of numbers near 1
    }
}

TEST(QV_RelaxKernel, WithoutFieldCoherencesDecayByTheTrapezoidalRuleAndPopulationsStay)
{
    Matter matter(2);
    matter.Nu = {0.0, 0.0, {0.4, 0.9}, 0.0};
    matter.rate = 1e-33; // to the last bit
    const Node node = Node::random(2, 2, true);
    const Node found = advanced(matter, node, 0.0);
    const Complex x = matter.Nu[2] * step * 0.5;
    EXPECT_LT(std::abs(found.rho[2] - node.rho[2] * (1.0 - x) / (1.0 + x)), 1e-15);
    EXPECT_EQ(found.rho[1], std::conj(found.rho[2]));
    EXPECT_EQ(found.rho[0], node.rho[0]);
    EXPECT_EQ(found.rho[3], node.rho[3]);
}

TEST(QV_RelaxKernel, TheUpperCoherencesAreTakenFromTheLowerOnes)
{
    Node node;
    node.rho = {0.0, {5.0, 5.0}, {1.0, 0.0}, 0.0};
    Matter matter(2);
    matter.limit = 1;
    const Node found = advanced(matter, node, 0.0, 0.0);
    EXPECT_EQ(found.rho[1], Complex(1.0, 0.0));
    EXPECT_EQ(found.rho[2], Complex(1.0, 0.0));
}

TEST(QV_RelaxKernel, TheWorkOfAnotherLevelCountChangesNothing)
{
    std::vector<double> work;
    for (const unsigned long n : {5UL, 1UL, 3UL, 6UL, 2UL}) {
        const Node node = Node::random(n, n, true);
        EXPECT_TRUE(isSame(advanced(Matter(n), node, work), advanced(Matter(n), node)));
        work.assign(work.size(), notANumber);
    }
}
