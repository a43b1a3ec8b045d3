#include "quorvex/QV_IterationKernel.h"

#include "quorvex/QV_FieldKernel.h"
#include "support/TestNumbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Scheme = QV_IterationKernel::Scheme;
using Level = QV_InstructionSet::Level;

constexpr Scheme schemes[] = {Scheme::CRANK, Scheme::P, Scheme::ZIOLKO, Scheme::PRED_CORR,
                              Scheme::RELAX_DIAG};
constexpr Complex I{0.0, 1.0};
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::string nameOf(Scheme scheme)
{
    switch (scheme) {
    case Scheme::CRANK:
        return "Crank";
    case Scheme::P:
        return "P";
    case Scheme::ZIOLKO:
        return "Ziolko";
    case Scheme::PRED_CORR:
        return "PredCorr";
    default:
        return "RelaxDiag";
    }
}

bool isFieldAdvanced(Scheme scheme)
{
    return scheme != Scheme::CRANK && scheme != Scheme::RELAX_DIAG;
}

/// One class of atoms without any symmetry, so that no index can stand for another unnoticed.
struct Matter
{
    explicit Matter(unsigned long levels, unsigned long seed = 1)
        : n(levels)
    {
        TestNumbers numbers(seed);
        for (unsigned long i = 0; i < n * n; ++i) {
            P.push_back(numbers.next());
            W.push_back(0.5 * numbers.next());
            D.push_back(0.5 * numbers.next());
            Nu.push_back(numbers.nextComplex());
        }
        for (unsigned long i = 0; i < n; ++i) {
            omega.push_back(numbers.next());
        }
    }

    QV_Atoms atoms() const
    {
        return {n,
                1,
                P.data(),
                W.data(),
                D.data(),
                reinterpret_cast<const double*>(Nu.data()),
                omega.data(),
                gamma,
                dzeta,
                rate,
                limit};
    }

    /// Matter as physics has it: a symmetric dipole that couples no level to itself, coherences whose decay and
    /// rotation are conjugates. `chain` leaves the dipoles between neighbouring levels alone, and no rates but
    /// those between neighbours.
    static Matter symmetric(unsigned long levels, unsigned long seed, bool chain)
    {
        Matter matter(levels, seed);
        for (unsigned long a = 0; a < levels; ++a) {
            matter.P[a * levels + a] = 0.0;
            matter.Nu[a * levels + a] = 0.0;
            for (unsigned long c = 0; c < a; ++c) {
                const bool isDropped = chain && a != c + 1;
                double& dipole = matter.P[a * levels + c];
                dipole = isDropped ? 0.0 : dipole;
                matter.P[c * levels + a] = dipole;
                matter.Nu[c * levels + a] = std::conj(matter.Nu[a * levels + c]);
                if (isDropped) {
                    matter.W[a * levels + c] = 0.0;
                    matter.D[c * levels + a] = 0.0;
                }
            }
            if (chain) {
                matter.W[a * levels + a] = 0.0;
            }
        }
        return matter;
    }

    unsigned long n;
    std::vector<double> P;
    std::vector<double> W;
    std::vector<double> D;
    std::vector<Complex> Nu;
    std::vector<double> omega;
    double gamma = 0.3;
    double dzeta = 0.2;
    double rate = 1e-6;
    unsigned long limit = 50;
};

/// A row of nodes, and what an advance leaves there.
struct Mesh
{
    Mesh(unsigned long levels, unsigned long nodes)
        : n(levels)
        , count(nodes)
        , rho(nodes * levels * levels)
        , E(nodes)
        , aux(nodes)
        , iterations(nodes, 77)
        , terms(nodes, 77.0)
    {}

    static Mesh random(unsigned long levels, unsigned long nodes, unsigned long seed,
                       bool isHermitian)
    {
        Mesh mesh(levels, nodes);
        TestNumbers numbers(seed);
        for (unsigned long j = 0; j < nodes; ++j) {
            for (unsigned long a = 0; a < levels; ++a) {
                for (unsigned long b = 0; b < levels; ++b) {
                    mesh.at(j, a, b) = numbers.nextComplex();
                }
            }
            for (unsigned long a = 0; isHermitian && a < levels; ++a) {
                mesh.at(j, a, a).imag(0.0);
                for (unsigned long b = 0; b < a; ++b) {
                    mesh.at(j, b, a) = std::conj(mesh.at(j, a, b));
                }
            }
            mesh.E[j] = numbers.next();
            mesh.aux[j] = 0.1 * numbers.next();
        }
        return mesh;
    }

    Complex* node(unsigned long j) { return rho.data() + j * n * n; }
    Complex& at(unsigned long j, unsigned long a, unsigned long b) { return node(j)[a * n + b]; }

    unsigned long n;
    unsigned long count;
    std::vector<Complex> rho;
    std::vector<double> E;
    std::vector<double> aux;
    std::vector<unsigned long> iterations;
    std::vector<double> terms;
    unsigned long largest = 0;
};

constexpr double step = 0.1;
constexpr double dz2 = 0.25;

Mesh advanced(Level level, Scheme scheme, const Matter& matter, Mesh mesh, double dt = step)
{
    std::vector<double> work;
    const QV_IterationKernel::Nodes nodes{mesh.count,
                                          reinterpret_cast<double*>(mesh.rho.data()),
                                          mesh.E.data(),
                                          scheme == Scheme::CRANK ? nullptr : mesh.aux.data(),
                                          mesh.iterations.data(),
                                          mesh.terms.data()};
    mesh.largest =
        QV_IterationKernel::advance(level, {scheme, matter.atoms(), dt}, dz2, nodes, work);
    return mesh;
}

Mesh advanced(Scheme scheme, const Matter& matter, const Mesh& mesh, double dt = step)
{
    return advanced(QV_InstructionSet::PLAIN, scheme, matter, mesh, dt);
}

/// The terms that an advance leaves beside these densities.
std::vector<double> termsOf(Scheme scheme, const Matter& matter, const Mesh& mesh)
{
    if (!QV_IterationKernel::leavesTerms(scheme)) {
        return std::vector<double>(mesh.count, 77.0);
    }
    std::vector<double> terms(mesh.count);
    QV_FieldKernel::polarization(QV_InstructionSet::PLAIN, matter.atoms(), mesh.count,
                                 reinterpret_cast<const double*>(mesh.rho.data()), terms.data());
    return terms;
}

template <typename T>
bool isSame(const std::vector<T>& a, const std::vector<T>& b)
{
    return a.size() == b.size()
           && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}

/// Bit for bit, but for the signs of not-a-numbers.
bool isSameNumber(double a, double b)
{
    return std::memcmp(&a, &b, sizeof(double)) == 0 || (std::isnan(a) && std::isnan(b));
}

/// Densities, field, polarization terms and iterations.
testing::AssertionResult isSame(const Mesh& a, const Mesh& b)
{
    if (a.iterations != b.iterations || a.largest != b.largest) {
        return testing::AssertionFailure() << "other iterations";
    }
    for (unsigned long j = 0; j < a.count; ++j) {
        if (!isSameNumber(a.E[j], b.E[j])) {
            return testing::AssertionFailure()
                   << "field at " << j << ": " << a.E[j] << ", " << b.E[j];
        }
        if (!isSameNumber(a.terms[j], b.terms[j])) {
            return testing::AssertionFailure()
                   << "term at " << j << ": " << a.terms[j] << ", " << b.terms[j];
        }
        for (unsigned long i = j * a.n * a.n; i < (j + 1) * a.n * a.n; ++i) {
            if (!isSameNumber(a.rho[i].real(), b.rho[i].real())
                || !isSameNumber(a.rho[i].imag(), b.rho[i].imag())) {
                return testing::AssertionFailure()
                       << "density at " << j << ": " << a.rho[i] << ", " << b.rho[i];
            }
        }
    }
    return testing::AssertionSuccess();
}

/// The equations of the schemes with std::complex, element by element, without a thought for speed.
class Equations
{
public:
    Equations(Scheme scheme, const Matter& matter, double dt)
        : mScheme(scheme)
        , mMatter(matter)
        , mDt(dt)
    {}

    Mesh advance(Mesh mesh)
    {
        double norm0 = 1.0;
        for (unsigned long j = 0; j < mesh.count; ++j) {
            mesh.iterations[j] = advanceNode(mesh.node(j), mesh.E[j], mesh.aux[j], norm0);
            mesh.largest = std::max(mesh.largest, mesh.iterations[j]);
        }
        return mesh;
    }

private:
    double P(unsigned long a, unsigned long b) const { return mMatter.P[a * mMatter.n + b]; }
    double W(unsigned long a, unsigned long b) const { return mMatter.W[a * mMatter.n + b]; }
    double D(unsigned long a, unsigned long b) const { return mMatter.D[a * mMatter.n + b]; }
    Complex Nu(unsigned long a, unsigned long b) const { return mMatter.Nu[a * mMatter.n + b]; }
    Complex& R(unsigned long a, unsigned long b) { return mR[a * mMatter.n + b]; }
    Complex rho(unsigned long a, unsigned long b) const { return mRho[a * mMatter.n + b]; }
    Complex Rp(unsigned long a, unsigned long b) const { return mRp[a * mMatter.n + b]; }
    Complex sum(unsigned long a, unsigned long b) const { return Rp(a, b) + rho(a, b); }
    Complex commutator(unsigned long a, unsigned long b) const
    {
        Complex C;
        for (unsigned long k = 0; k < mMatter.n; ++k) {
            C += P(a, k) * sum(k, b) - P(k, b) * sum(a, k);
        }
        return C;
    }

    unsigned long advanceNode(Complex* density, double& E, double aux, double& norm0)
    {
        mRho.assign(density, density + mMatter.n * mMatter.n);
        mR = mRho;
        mE0 = E;
        mE = E;
        mAux = aux;
        unsigned long iterations = 0;
        if (mMatter.limit != 0 && norm0 * mMatter.rate < 1.0) {
            double residual = 0.0;
            do {
                ++iterations;
                mEp = mE;
                mRp = mR;
                residual = update();
                if (iterations == 1) {
                    norm0 = residual;
                }
            } while (iterations < mMatter.limit && mMatter.rate * norm0 < residual);
        }
        std::copy(mR.begin(), mR.end(), density);
        if (isFieldAdvanced(mScheme)) {
            E = mE;
        }
        return iterations;
    }

    double update()
    {
        switch (mScheme) {
        case Scheme::CRANK:
            return crank();
        case Scheme::RELAX_DIAG:
            return relaxDiag();
        default:
            return coupled();
        }
    }

    double crank()
    {
        double acc = 0.0;
        for (unsigned long a = 0; a < mMatter.n; ++a) {
            for (unsigned long b = 0; b <= a; ++b) {
                R(a, b) =
                    rho(a, b) + (mDt * 0.5) * ((I * mE0) * commutator(a, b) - Nu(a, b) * sum(a, b));
            }
            for (unsigned long k = 0; k < mMatter.n; ++k) {
                R(a, a) += (mDt * 0.5 * D(a, k)) * sum(k, k);
            }
            acc += diagonalResidual(a);
            for (unsigned long c = 0; c < a; ++c) {
                acc += mirror(a, c);
            }
        }
        return dz2 * acc;
    }

    double coupled()
    {
        const bool isPredCorr = mScheme == Scheme::PRED_CORR;
        double T = 0.0;
        for (unsigned long a = 0; a < mMatter.n; ++a) {
            for (unsigned long k = 0; k < mMatter.n; ++k) {
                if (mScheme == Scheme::ZIOLKO) {
                    T += std::real((P(a, k) * Nu(k, a)) * (R(k, a) + rho(k, a))) * mDt * 0.5;
                } else {
                    T += std::real(P(a, k) * (R(k, a) - rho(k, a)));
                }
            }
        }
        mE = (mE0 - T * mMatter.dzeta) + mAux;
        const Complex turn = (I * mDt * 0.25) * (mEp + mE0);
        double acc = 0.0;
        for (unsigned long a = 0; a < mMatter.n; ++a) {
            acc = 0.0;
            for (unsigned long c = 0; c < a; ++c) {
                const Complex z = isPredCorr
                                      ? I * (mMatter.omega[a] - mMatter.omega[c]) + mMatter.gamma
                                      : Nu(a, c);
                R(a, c) = rho(a, c) + turn * commutator(a, c) - (mDt * 0.5 * z) * sum(a, c);
                acc += mirror(a, c);
            }
            Complex v = turn * commutator(a, a);
            Complex gain;
            for (unsigned long k = 0; k < mMatter.n; ++k) {
                gain += isPredCorr ? W(a, k) * sum(k, k) - W(a, a) * sum(a, a)
                                   : (mDt * 0.5 * W(a, k)) * sum(k, k);
            }
            if (isPredCorr) {
                v += gain * mDt * 0.5;
                v += commutator(a, a) + rho(a, a);
            } else {
                v += gain + (mDt * 0.5 * D(a, a)) * sum(a, a) + rho(a, a);
            }
            R(a, a) = v.real();
            acc += diagonalResidual(a);
        }
        return ((mEp - mE) * (mEp - mE) + acc) * dz2;
    }

    double relaxDiag()
    {
        double acc = 0.0;
        for (unsigned long a = 0; a < mMatter.n; ++a) {
            Complex C1;
            Complex C2;
            Complex Q;
            for (unsigned long c = 0; c < mMatter.n; ++c) {
                if (c != a) {
                    C1 += P(a, c) * rho(c, a);
                    C2 += P(c, a) * rho(a, c);
                }
                Q += sum(c, c) * D(a, c);
            }
            R(a, a) = rho(a, a) + (mDt * 0.5) * ((I * (mAux + mE0)) * (C1 - C2) + Q);
            acc += diagonalResidual(a);
        }
        return acc;
    }

    double diagonalResidual(unsigned long a)
    {
        const Complex d = R(a, a) - Rp(a, a);
        return std::real(d * d);
    }

    double mirror(unsigned long a, unsigned long c)
    {
        R(c, a) = std::conj(R(a, c));
        return 2.0 * std::real((R(c, a) - Rp(c, a)) * (R(a, c) - Rp(a, c)));
    }

    Scheme mScheme;
    const Matter& mMatter;
    double mDt;
    std::vector<Complex> mRho;
    std::vector<Complex> mR;
    std::vector<Complex> mRp;
    double mE0 = 0.0;
    double mE = 0.0;
    double mEp = 0.0;
    double mAux = 0.0;
};

/// The sets wider than the plain form that this processor offers.
std::vector<Level> widerSets()
{
    std::vector<Level> levels;
    for (const Level level :
         {QV_InstructionSet::BASELINE, QV_InstructionSet::AVX2, QV_InstructionSet::AVX512}) {
        if (QV_InstructionSet::isAvailable(level)) {
            levels.push_back(level);
        }
    }
    return levels;
}

class QV_IterationKernelTest : public testing::TestWithParam<Scheme>
{};

class QV_IterationKernelEquations : public testing::TestWithParam<Scheme>
{
protected:
    /// Both ways from the same nodes, within the rounding of sums of a few dozen terms near 1.
    static void expectEquations(const Matter& matter, const Mesh& mesh)
    {
        const Mesh expected = Equations(GetParam(), matter, step).advance(mesh);
        const Mesh found = advanced(GetParam(), matter, mesh);
        const std::string where = std::to_string(matter.n) + " levels, limit "
                                  + std::to_string(matter.limit) + ", rate "
                                  + std::to_string(matter.rate);
        EXPECT_EQ(found.iterations, expected.iterations) << where;
        EXPECT_EQ(found.largest, expected.largest) << where;
        for (unsigned long i = 0; i < found.rho.size(); ++i) {
            ASSERT_LT(std::abs(found.rho[i] - expected.rho[i]), 1e-12) << where << ", " << i;
        }
        for (unsigned long j = 0; j < found.count; ++j) {
            ASSERT_NEAR(found.E[j], expected.E[j], 1e-12) << where << ", " << j;
        }
    }
};

class QV_IterationKernelBits : public testing::TestWithParam<Scheme>
{
protected:
    static void expectPlainBits(const Matter& matter, const Mesh& mesh)
    {
        const Mesh plain = advanced(QV_InstructionSet::PLAIN, GetParam(), matter, mesh);
        for (const Level level : widerSets()) {
            EXPECT_TRUE(isSame(advanced(level, GetParam(), matter, mesh), plain))
                << QV_InstructionSet::getName(level) << ", " << matter.n << " levels, "
                << mesh.count << " nodes, limit " << matter.limit << ", rate " << matter.rate;
        }
    }

    /// The same with the density of each node in turn so large that its residual keeps the next one from its loop.
    static void expectPlainBitsWithALargeNode(const Matter& matter, const Mesh& mesh)
    {
        for (unsigned long large = 0; large < mesh.count; ++large) {
            Mesh changed = mesh;
            std::for_each_n(changed.node(large), mesh.n * mesh.n, [](Complex& z) { z *= 1e9; });
            expectPlainBits(matter, changed);
        }
    }
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Schemes, QV_IterationKernelTest, testing::ValuesIn(schemes),
                         [](const auto& one) { return nameOf(one.param); });
INSTANTIATE_TEST_SUITE_P(Schemes, QV_IterationKernelEquations, testing::ValuesIn(schemes),
                         [](const auto& one) { return nameOf(one.param); });
INSTANTIATE_TEST_SUITE_P(Schemes, QV_IterationKernelBits, testing::ValuesIn(schemes),
                         [](const auto& one) { return nameOf(one.param); });

// ---------------------------------------------------------------- the equations

TEST_P(QV_IterationKernelEquations, HermitianDensitiesFollowTheEquations)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        expectEquations(Matter(n, 3), Mesh::random(n, 40, 4, true));
    }
}

TEST_P(QV_IterationKernelEquations, SymmetricDipolesFollowTheEquations)
{
    for (unsigned long n = 2; n <= 5; ++n) {
        for (const bool chain : {false, true}) {
            expectEquations(Matter::symmetric(n, 3, chain), Mesh::random(n, 40, 4, true));
        }
    }
}

TEST_P(QV_IterationKernelEquations, DensitiesWithoutSymmetryFollowTheEquations)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        expectEquations(Matter(n, 5), Mesh::random(n, 40, 6, false));
    }
}

TEST_P(QV_IterationKernelEquations, EveryLimitOfIterationsEndsTheLoopWhereItShould)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (const unsigned long limit : {0UL, 1UL, 2UL, 3UL, 7UL}) {
            Matter matter(n, 7);
            matter.limit = limit;
            matter.rate = 1e-30;
            expectEquations(matter, Mesh::random(n, 9, 8, true));
        }
    }
}

TEST_P(QV_IterationKernelEquations, EveryRateEndsTheLoopAsSoonAsItMay)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (const double rate : {0.3, 1e-2, 1e-3, -1.0, 1.0}) {
            Matter matter(n, 9);
            matter.rate = rate;
            expectEquations(matter, Mesh::random(n, 20, 10, false));
        }
    }
}

// ---------------------------------------------------------------- the loop at a node

TEST_P(QV_IterationKernelTest, WithoutNodesNothingHappens)
{
    std::vector<double> work;
    const QV_IterationKernel::Nodes none{0, nullptr, nullptr, nullptr, nullptr};
    for (const unsigned long n : {1UL, 2UL, 5UL}) {
        const Matter matter(n);
        EXPECT_EQ(QV_IterationKernel::advance(QV_InstructionSet::best(),
                                              {GetParam(), matter.atoms(), step}, dz2, none, work),
                  0UL);
    }
}

TEST_P(QV_IterationKernelTest, ALimitOfZeroLeavesEveryNodeAsItIs)
{
    Matter matter(3);
    matter.limit = 0;
    Mesh mesh = Mesh::random(3, 11, 2, false);
    const Mesh found = advanced(GetParam(), matter, mesh);
    mesh.iterations.assign(11, 0);
    mesh.terms = termsOf(GetParam(), matter, mesh);
    EXPECT_TRUE(isSame(found, mesh));
}

TEST_P(QV_IterationKernelTest, ARateOfOneOrMoreLeavesEveryNodeAsItIs)
{
    Mesh mesh = Mesh::random(3, 11, 2, false);
    for (const double rate : {1.0, 1.5, 1e300, notANumber}) {
        Matter matter(3);
        matter.rate = rate;
        const Mesh found = advanced(GetParam(), matter, mesh);
        mesh.iterations.assign(11, 0);
        mesh.terms = termsOf(GetParam(), matter, mesh);
        EXPECT_TRUE(isSame(found, mesh)) << rate;
    }
}

TEST_P(QV_IterationKernelTest, ALargeFirstResidualMakesAllLaterNodesSkipTheirLoops)
{
    const unsigned long large = 4;
    Matter matter(2);
    Mesh mesh = Mesh::random(2, 12, 2, true);
    for (unsigned long i = 0; i < 4; ++i) {
        mesh.node(large)[i] *= 1e8;
    }
    const Mesh found = advanced(GetParam(), matter, mesh);
    for (unsigned long j = 0; j < mesh.count; ++j) {
        const bool isSkipped = j > large;
        EXPECT_EQ(found.iterations[j] == 0, isSkipped) << j;
        EXPECT_EQ(std::memcmp(found.rho.data() + 4 * j, mesh.node(j), 4 * sizeof(Complex)) == 0,
                  isSkipped)
            << j;
        EXPECT_EQ(found.E[j] == mesh.E[j], isSkipped || !isFieldAdvanced(GetParam())) << j;
    }
}

TEST_P(QV_IterationKernelTest, ANodeWhoseFirstResidualIsZeroTakesOneIteration)
{
    Matter matter(3);
    Mesh mesh(3, 5);
    const Mesh found = advanced(GetParam(), matter, mesh);
    EXPECT_EQ(found.iterations, std::vector<unsigned long>(5, 1));
    EXPECT_EQ(found.largest, 1UL);
    EXPECT_TRUE(isSame(found.E, mesh.E));
    for (const Complex& value : found.rho) {
        EXPECT_EQ(value, 0.0);
    }
}

TEST_P(QV_IterationKernelTest, TheResultIsTheLargestNumberOfIterations)
{
    Matter matter(3);
    matter.rate = 1e-4;
    Mesh mesh = Mesh::random(3, 30, 2, true);
    for (unsigned long j = 0; j < mesh.count; j += 2) {
        std::fill_n(mesh.node(j), 9, Complex());
        mesh.E[j] = 0.0;
        mesh.aux[j] = 0.0;
    }
    const Mesh found = advanced(GetParam(), matter, mesh);
    EXPECT_EQ(found.largest, *std::max_element(found.iterations.begin(), found.iterations.end()));
    EXPECT_GT(found.largest, 1UL);
    EXPECT_EQ(found.iterations[0], 1UL);
}

TEST_P(QV_IterationKernelTest, ANotANumberEndsItsLoopAndMakesTheLaterNodesSkipTheirs)
{
    Matter matter(2);
    matter.P = {0.0, 1.0, 1.0, 0.0}; // populations stay real, and residuals positive
    matter.Nu[0] = 0.0;
    matter.Nu[3] = 0.0;
    Mesh mesh = Mesh::random(2, 6, 2, true);
    mesh.at(2, 1, 1) = notANumber;
    const Mesh found = advanced(GetParam(), matter, mesh);
    EXPECT_GT(found.iterations[0], 1UL);
    EXPECT_GT(found.iterations[1], 1UL);
    EXPECT_EQ((std::vector<unsigned long>(found.iterations.begin() + 2, found.iterations.end())),
              (std::vector<unsigned long>{1, 0, 0, 0}));
    EXPECT_EQ(std::memcmp(found.rho.data() + 12, mesh.rho.data() + 12, 12 * sizeof(Complex)), 0);
}

TEST_P(QV_IterationKernelTest, TheWorkOfAnotherLevelCountChangesNothing)
{
    std::vector<double> work;
    for (const unsigned long n : {5UL, 2UL, 3UL, 1UL, 6UL}) {
        const Matter matter(n);
        const Mesh mesh = Mesh::random(n, 10, n, true);
        Mesh found = mesh;
        const QV_IterationKernel::Nodes nodes{10, reinterpret_cast<double*>(found.rho.data()),
                                              found.E.data(), found.aux.data(),
                                              found.iterations.data()};
        found.largest = QV_IterationKernel::advance(
            QV_InstructionSet::best(), {GetParam(), matter.atoms(), step}, dz2, nodes, work);
        found.terms = advanced(GetParam(), matter, mesh).terms; // not asked for
        EXPECT_TRUE(isSame(found, advanced(GetParam(), matter, mesh))) << n;
        work.assign(work.size(), notANumber);
    }
}

TEST_P(QV_IterationKernelTest, AStepOfNoLengthChangesAHermitianDensityNowhere)
{
    Matter matter(3);
    matter.limit = 1;
    Mesh mesh = Mesh::random(3, 7, 2, true);
    if (GetParam() == Scheme::PRED_CORR) {
        // Its populations gain the real part of the commutator, 0 for symmetric dipoles alone.
        matter.P = {0, 1, 2, 1, 0, 3, 2, 3, 0};
    }
    mesh.aux.assign(7, 0.0);
    const Mesh found = advanced(GetParam(), matter, mesh, 0.0);
    EXPECT_EQ(found.rho, mesh.rho);
    EXPECT_EQ(found.E, mesh.E);
}

// ---------------------------------------------------------------- single schemes

TEST(QV_IterationKernel, OneLevelRelaxesByTheTrapezoidalRuleInCrank)
{
    Matter matter(1);
    matter.Nu = {0.0};
    matter.D = {-0.8};
    matter.rate = 1e-33; // to the last bit
    Mesh mesh = Mesh::random(1, 3, 2, true);
    const Mesh found = advanced(Scheme::CRANK, matter, mesh);
    const double x = step * 0.5 * matter.D[0];
    for (unsigned long j = 0; j < 3; ++j) {
        EXPECT_NEAR(found.rho[j].real(), mesh.rho[j].real() * (1.0 + x) / (1.0 - x), 1e-15);
    }
}

TEST(QV_IterationKernel, CrankKeepsTheImaginaryPartOfThePopulationsAndTheOthersDropIt)
{
    Matter matter(2);
    Mesh mesh = Mesh::random(2, 1, 2, false);
    EXPECT_NE(advanced(Scheme::CRANK, matter, mesh).rho[0].imag(), 0.0);
    for (const Scheme scheme : {Scheme::P, Scheme::ZIOLKO, Scheme::PRED_CORR}) {
        const Mesh found = advanced(scheme, matter, mesh);
        EXPECT_EQ(found.rho[0].imag(), 0.0) << nameOf(scheme);
        EXPECT_EQ(found.rho[3].imag(), 0.0) << nameOf(scheme);
    }
}

TEST(QV_IterationKernel, CrankTakesTheFieldAsGiven)
{
    const Matter matter(3);
    const Mesh mesh = Mesh::random(3, 20, 2, true);
    EXPECT_TRUE(isSame(advanced(Scheme::CRANK, matter, mesh).E, mesh.E));
    EXPECT_TRUE(isSame(advanced(Scheme::RELAX_DIAG, matter, mesh).E, mesh.E));
}

TEST(QV_IterationKernel, CrankKeepsTheTraceWhenNoPopulationIsLost)
{
    Matter matter(4);
    matter.Nu.assign(16, {0.2, 0.5});
    for (unsigned long b = 0; b < 4; ++b) {
        matter.Nu[5 * b] = 0.0;
        matter.D[5 * b] = 0.0;
        for (unsigned long a = 0; a < 4; ++a) {
            matter.D[5 * b] -= a == b ? 0.0 : matter.D[a * 4 + b];
        }
    }
    const Mesh mesh = Mesh::random(4, 10, 2, true);
    const Mesh found = advanced(Scheme::CRANK, matter, mesh);
    for (unsigned long j = 0; j < 10; ++j) {
        double before = 0.0;
        double after = 0.0;
        for (unsigned long a = 0; a < 4; ++a) {
            before += mesh.rho[16 * j + 5 * a].real();
            after += found.rho[16 * j + 5 * a].real();
        }
        EXPECT_NEAR(after, before, 1e-14); // a few roundings of numbers near 1
    }
}

TEST(QV_IterationKernel, TheFieldSchemesJudgeConvergenceByTheLastRowAndTheFieldAlone)
{
    // Only the coherence between the first two of three levels moves: Crank goes on until it rests,
    // the others see a first residual of zero.
    Matter matter(3);
    matter.P.assign(9, 0.0);
    matter.W.assign(9, 0.0);
    matter.D.assign(9, 0.0);
    Mesh mesh(3, 1);
    mesh.at(0, 1, 0) = 1.0;
    mesh.at(0, 0, 1) = 1.0;
    EXPECT_GT(advanced(Scheme::CRANK, matter, mesh).largest, 1UL);
    for (const Scheme scheme : {Scheme::P, Scheme::ZIOLKO, Scheme::PRED_CORR}) {
        const Mesh found = advanced(scheme, matter, mesh);
        EXPECT_EQ(found.largest, 1UL) << nameOf(scheme);
        EXPECT_NE(found.rho[3], mesh.rho[3]) << nameOf(scheme);
    }
}

TEST(QV_IterationKernel, PredCorrTakesTheSameLossForEveryLevelThatFeeds)
{
    // gain = sum over k of (W[0][k] s[k] - W[0][0] s[0]): with W[0][0] alone the terms cancel but
    // for those of k = 1 and 2.
    Matter matter(3);
    matter.P.assign(9, 0.0);
    matter.W.assign(9, 0.0);
    matter.W[0] = 0.5;
    matter.limit = 1;
    Mesh mesh(3, 1);
    mesh.at(0, 0, 0) = 1.0;
    EXPECT_DOUBLE_EQ(advanced(Scheme::PRED_CORR, matter, mesh).rho[0].real(),
                     1.0 - 2.0 * 0.5 * 2.0 * step * 0.5);
}

TEST(QV_IterationKernel, PredCorrTurnsCoherencesByTheFrequenciesAndDampsThemOnce)
{
    Matter matter(2);
    matter.P.assign(4, 0.0);
    matter.W.assign(4, 0.0);
    matter.limit = 1;
    Mesh mesh(2, 1);
    mesh.at(0, 1, 0) = 1.0;
    mesh.at(0, 0, 1) = 1.0;
    const Complex z(matter.gamma, matter.omega[1] - matter.omega[0]);
    EXPECT_LT(std::abs(advanced(Scheme::PRED_CORR, matter, mesh).rho[2] - (1.0 - step * z)), 1e-16);
}

TEST(QV_IterationKernel, RelaxDiagLeavesTheCoherences)
{
    const Matter matter(3);
    const Mesh mesh = Mesh::random(3, 9, 2, false);
    const Mesh found = advanced(Scheme::RELAX_DIAG, matter, mesh);
    for (unsigned long i = 0; i < mesh.rho.size(); ++i) {
        EXPECT_EQ(found.rho[i] == mesh.rho[i], i % 9 % 4 != 0) << i;
    }
}

TEST(QV_IterationKernel, OnlyTheResidualOfRelaxDiagDoesNotCountInCells)
{
    // A first residual of r makes the next node skip when r times the rate is 1 or more. With a
    // rate between 1 / r and 1 / (r dz2) the size of a cell tells.
    Matter matter(1);
    matter.Nu = {0.0};
    matter.D = {2.0 / step};
    matter.limit = 1;
    matter.rate = 0.05;
    Mesh mesh(1, 2);
    mesh.rho = {3.0, 3.0}; // R - Rp = 6, r = 36, r dz2 = 9
    EXPECT_EQ(advanced(Scheme::CRANK, matter, mesh).iterations[1], 1UL);
    EXPECT_EQ(advanced(Scheme::RELAX_DIAG, matter, mesh).iterations[1], 0UL);
}

// ---------------------------------------------------------------- instruction sets

TEST_P(QV_IterationKernelBits, EveryNumberOfNodesGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        const Matter matter(n, 20 + n);
        for (unsigned long count = 0; count <= 24; ++count) {
            expectPlainBits(matter, Mesh::random(n, count, 30 + count, true));
        }
        expectPlainBits(matter, Mesh::random(n, 1000, 60, true));
    }
}

TEST_P(QV_IterationKernelBits, DensitiesWithoutSymmetryGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (const unsigned long count : {1UL, 7UL, 8UL, 17UL, 100UL}) {
            expectPlainBits(Matter(n, 20 + n), Mesh::random(n, count, 70 + count, false));
        }
    }
}

TEST_P(QV_IterationKernelBits, EveryLimitAndRateGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (const unsigned long limit : {0UL, 1UL, 2UL, 3UL, 50UL}) {
            for (const double rate : {1e-12, 1e-6, 1e-2, 0.5, 1.0, 2.0, 0.0, -1.0, notANumber}) {
                Matter matter(n, 20 + n);
                matter.limit = limit;
                matter.rate = rate;
                expectPlainBits(matter, Mesh::random(n, 19, 80, true));
            }
        }
    }
}

TEST_P(QV_IterationKernelBits, ALargeResidualAnywhereGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 4; ++n) {
        expectPlainBitsWithALargeNode(Matter(n, 20 + n), Mesh::random(n, 20, 90, true));
    }
}

TEST_P(QV_IterationKernelBits, FieldsOfZeroGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        Mesh mesh = Mesh::random(n, 21, 100, true);
        mesh.E.assign(21, 0.0);
        expectPlainBits(Matter(n, 20 + n), mesh);
        mesh.aux.assign(21, -0.0);
        expectPlainBits(Matter(n, 20 + n), mesh);
    }
}

TEST_P(QV_IterationKernelBits, SignedZerosAndDenormalsGiveTheBitsOfThePlainForm)
{
    TestNumbers numbers(110);
    for (unsigned long n = 1; n <= 5; ++n) {
        for (int i = 0; i < 10; ++i) {
            Mesh mesh(n, 23);
            for (Complex& value : mesh.rho) {
                value = {numbers.nextOdd(), numbers.nextOdd()};
            }
            for (unsigned long j = 0; j < mesh.count; ++j) {
                mesh.E[j] = numbers.nextOdd();
                mesh.aux[j] = numbers.nextOdd();
            }
            expectPlainBits(Matter(n, 20 + n), mesh);
        }
    }
}

TEST_P(QV_IterationKernelBits, ANotANumberAnywhereGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 4; ++n) {
        const Matter matter(n, 20 + n);
        for (unsigned long odd = 0; odd < 18; ++odd) {
            Mesh mesh = Mesh::random(n, 18, 120, true);
            mesh.E[odd] = notANumber;
            expectPlainBits(matter, mesh);
            mesh = Mesh::random(n, 18, 120, true);
            mesh.node(odd)[odd % (n * n)] = {notANumber, 1.0};
            expectPlainBits(matter, mesh);
            mesh = Mesh::random(n, 18, 120, true);
            mesh.aux[odd] = std::numeric_limits<double>::infinity();
            mesh.node(odd)[odd % (n * n)] = -std::numeric_limits<double>::infinity();
            expectPlainBits(matter, mesh);
        }
    }
}

// ---------------------------------------------------------------- Hermitian densities in symmetric dipoles

TEST_P(QV_IterationKernelBits, SymmetricDipolesGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 2; n <= 5; ++n) {
        for (unsigned long seed = 0; seed < 20; ++seed) {
            const Matter matter = Matter::symmetric(n, seed, seed % 2 == 0);
            for (const unsigned long count : {1UL, 8UL, 17UL, 100UL}) {
                expectPlainBits(matter, Mesh::random(n, count, 200 + seed, true));
                expectPlainBits(matter, Mesh::random(n, count, 200 + seed, false));
            }
        }
    }
}

TEST_P(QV_IterationKernelBits, AnyPairOfLevelsMayBeUncoupled)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (unsigned long coupled = 0; coupled < 1UL << (n * (n - 1) / 2); ++coupled) {
            Matter matter = Matter::symmetric(n, 5, false);
            unsigned long pair = 0;
            for (unsigned long a = 0; a < n; ++a) {
                for (unsigned long c = 0; c < a; ++c, ++pair) {
                    if ((coupled >> pair & 1) == 0) {
                        matter.P[a * n + c] = 0.0;
                        matter.P[c * n + a] = -0.0;
                    }
                }
            }
            expectPlainBits(matter, Mesh::random(n, 40, 210 + coupled, true));
        }
    }
}

TEST_P(QV_IterationKernelBits, AnyRateMayBeZero)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (unsigned long zero = 0; zero < n * n; ++zero) {
            Matter matter = Matter::symmetric(n, 6, false);
            matter.W[zero] = 0.0;
            matter.D[zero] = -0.0;
            matter.D[n * n - 1 - zero] = 0.0;
            expectPlainBits(matter, Mesh::random(n, 40, 220 + zero, true));
        }
    }
}

TEST_P(QV_IterationKernelBits, NearlySymmetricMatterGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (unsigned long i = 0; i < n * n; ++i) {
            for (const double odd : {0.01, notANumber, std::numeric_limits<double>::infinity()}) {
                Matter matter = Matter::symmetric(n, 7, false);
                matter.P[i] += odd;
                expectPlainBits(matter, Mesh::random(n, 24, 230, true));
                matter = Matter::symmetric(n, 7, false);
                matter.Nu[i] += Complex(0.0, odd);
                expectPlainBits(matter, Mesh::random(n, 24, 230, true));
                matter = Matter::symmetric(n, 7, false);
                matter.Nu[i] += odd;
                expectPlainBits(matter, Mesh::random(n, 24, 230, true));
                matter = Matter::symmetric(n, 7, true);
                matter.W[i] += odd;
                expectPlainBits(matter, Mesh::random(n, 24, 230, true));
                matter = Matter::symmetric(n, 7, true);
                matter.D[i] += odd;
                expectPlainBits(matter, Mesh::random(n, 24, 230, true));
            }
        }
    }
}

TEST_P(QV_IterationKernelBits, OddValuesAmongHermitianDensitiesGiveTheBitsOfThePlainForm)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const double odds[] = {0.0,   -0.0,   5e-324,     -5e-324,  1e-310,    1e-160,  1e154,
                           1e300, -1e308, notANumber, infinity, -infinity, -1e-308, 1.7e308};
    for (unsigned long n = 2; n <= 4; ++n) {
        const Matter matter = Matter::symmetric(n, 8, n == 3);
        for (const double odd : odds) {
            for (unsigned long i = 0; i < n * n; ++i) {
                Mesh mesh = Mesh::random(n, 24, 240, true);
                const unsigned long a = i / n;
                const unsigned long c = i % n;
                mesh.at(17, a, c).real(odd);
                expectPlainBits(matter, mesh); // not Hermitian off the diagonal
                mesh.at(17, c, a).real(odd);
                mesh.at(11, a, c).imag(odd);
                expectPlainBits(matter, mesh);
                mesh.at(11, c, a).imag(-odd);
                expectPlainBits(matter, mesh);
            }
            Mesh mesh = Mesh::random(n, 24, 241, true);
            mesh.E[9] = odd;
            expectPlainBits(matter, mesh);
            mesh.aux[9] = odd;
            expectPlainBits(matter, mesh);
            mesh.E[9] = -odd;
            mesh.aux[20] = odd;
            expectPlainBits(matter, mesh);
            mesh.E.assign(24, odd);
            expectPlainBits(matter, mesh);
        }
    }
}

TEST_P(QV_IterationKernelBits, HermitianDensitiesOfZerosAndDenormalsGiveTheBitsOfThePlainForm)
{
    TestNumbers numbers(250);
    for (unsigned long n = 2; n <= 4; ++n) {
        for (int i = 0; i < 60; ++i) {
            Mesh mesh(n, 24);
            for (unsigned long j = 0; j < mesh.count; ++j) {
                for (unsigned long a = 0; a < n; ++a) {
                    // Adding 0.0 takes the sign of a zero, which most of the densities of a run have not.
                    mesh.at(j, a, a) = numbers.nextOdd() + (i % 2) * 0.0;
                    for (unsigned long c = 0; c < a; ++c) {
                        const Complex z(numbers.nextOdd() + 0.0, numbers.nextOdd() + 0.0);
                        mesh.at(j, a, c) = z;
                        mesh.at(j, c, a) = std::conj(z);
                    }
                }
                mesh.E[j] = numbers.nextOdd() + (i % 3 == 0 ? -0.0 : 0.0);
                mesh.aux[j] = numbers.nextOdd();
            }
            expectPlainBits(Matter::symmetric(n, 251, i % 4 < 2), mesh);
        }
    }
}

TEST_P(QV_IterationKernelBits, DivergingHermitianDensitiesGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (const double strength : {30.0, 1e3, 1e8, 1e60, 1e150}) {
            Matter matter = Matter::symmetric(n, 9, n == 4);
            for (double& dipole : matter.P) {
                dipole *= strength;
            }
            for (const double rate : {1e-300, -1.0, 0.0}) {
                matter.rate = rate;
                expectPlainBits(matter, Mesh::random(n, 40, 260, true));
            }
        }
    }
}

TEST_P(QV_IterationKernelBits, LimitsAndRatesOfHermitianDensitiesGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (const unsigned long limit : {0UL, 1UL, 2UL, 3UL, 50UL}) {
            for (const double rate : {1e-12, 1e-6, 1e-2, 0.5, 1.0, 2.0, 0.0, -1.0, notANumber}) {
                Matter matter = Matter::symmetric(n, 10, n == 3);
                matter.limit = limit;
                matter.rate = rate;
                expectPlainBits(matter, Mesh::random(n, 43, 270, true));
            }
        }
    }
}

TEST_P(QV_IterationKernelBits, ALargeResidualAmongHermitianDensitiesGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        expectPlainBitsWithALargeNode(Matter::symmetric(n, 11, n == 4),
                                      Mesh::random(n, 40, 280, true));
    }
}

// Densities of 2 or more, and tables so large that products with a dipole of zero are none, are not worked out from the
// lower triangle alone.
TEST_P(QV_IterationKernelBits, TheTermsOfLargeDensitiesAndTablesAreThoseOfThePlainForm)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (const double factor : {1.0, 1.9, 2.0, 1e9, 1e200, 1e300}) {
            for (unsigned long large = 0; large < n * n; ++large) {
                const Matter matter = Matter::symmetric(n, 13, true);
                Mesh mesh = Mesh::random(n, 19, 300 + large, true);
                Complex* const rho = mesh.node(5);
                rho[large] *= factor;
                rho[large % n * n + large / n] = std::conj(rho[large]);
                expectPlainBits(matter, mesh);
                Matter other = matter;
                other.D[large] *= factor;
                expectPlainBits(other, Mesh::random(n, 19, 320, true));
                other = matter;
                other.Nu[large] *= factor;
                other.Nu[large % n * n + large / n] = std::conj(other.Nu[large]);
                expectPlainBits(other, Mesh::random(n, 19, 330, true));
            }
        }
    }
}

TEST_P(QV_IterationKernelBits, TheTermsAreThePolarizationOfTheNewDensities)
{
    std::vector<Level> levels = widerSets();
    levels.push_back(QV_InstructionSet::PLAIN);
    for (const Level level : levels) {
        for (unsigned long n = 1; n <= 5; ++n) {
            for (const bool isChain : {false, true}) {
                const Matter matter = Matter::symmetric(n, 14, isChain);
                const Mesh found =
                    advanced(level, GetParam(), matter, Mesh::random(n, 21, 340, true));
                EXPECT_TRUE(isSame(found.terms, termsOf(GetParam(), matter, found)))
                    << QV_InstructionSet::getName(level) << ", " << n << " levels";
            }
        }
    }
}

TEST_P(QV_IterationKernelBits, ManyStepsGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        Matter matter = Matter::symmetric(n, 12, true);
        for (double& rate : matter.D) {
            rate *= 0.01;
        }
        Mesh plain = Mesh::random(n, 24, 290, true);
        Mesh found = plain;
        for (int i = 0; i < 20; ++i) {
            plain = advanced(QV_InstructionSet::PLAIN, GetParam(), matter, plain, 0.01);
            found = advanced(QV_InstructionSet::best(), GetParam(), matter, found, 0.01);
        }
        EXPECT_TRUE(isSame(found, plain)) << n;
    }
}
