#include "quorvex/QV_SplitKernel.h"

#include "quorvex/QV_FieldKernel.h"
#include "support/PlainMatrix.h"
#include "support/TestNumbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstring>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Matrix = PlainMatrix; // n by n, row after row
using Level = QV_InstructionSet::Level;

constexpr Complex I{0.0, 1.0};
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

Matrix adjoint(const Matrix& a, unsigned long n)
{
    Matrix result(n * n);
    for (unsigned long i = 0; i < n; ++i) {
        for (unsigned long j = 0; j < n; ++j) {
            result[j * n + i] = std::conj(a[i * n + j]);
        }
    }
    return result;
}

Complex trace(const Matrix& a, unsigned long n)
{
    Complex sum;
    for (unsigned long i = 0; i < n; ++i) {
        sum += a[i * n + i];
    }
    return sum;
}

/// The inverse, by elimination with pivots.
Matrix inverse(Matrix a, unsigned long n)
{
    Matrix result(n * n);
    for (unsigned long i = 0; i < n; ++i) {
        result[i * n + i] = 1.0;
    }
    for (unsigned long k = 0; k < n; ++k) {
        unsigned long pivot = k;
        for (unsigned long i = k; i < n; ++i) {
            pivot = std::abs(a[i * n + k]) > std::abs(a[pivot * n + k]) ? i : pivot;
        }
        for (unsigned long j = 0; j < n; ++j) {
            std::swap(a[k * n + j], a[pivot * n + j]);
            std::swap(result[k * n + j], result[pivot * n + j]);
        }
        const Complex scale = 1.0 / a[k * n + k];
        for (unsigned long j = 0; j < n; ++j) {
            a[k * n + j] *= scale;
            result[k * n + j] *= scale;
        }
        for (unsigned long i = 0; i < n; ++i) {
            const Complex f = i == k ? 0.0 : a[i * n + k];
            for (unsigned long j = 0; j < n; ++j) {
                a[i * n + j] -= f * a[k * n + j];
                result[i * n + j] -= f * result[k * n + j];
            }
        }
    }
    return result;
}

/// A class of atoms in a field of m components, with everything that a step reads.
struct Matter
{
    Matter(unsigned long levels, unsigned long components, unsigned long seed = 1)
        : n(levels)
        , m(components)
    {
        TestNumbers numbers(seed);
        for (unsigned long i = 0; i < m * n * n; ++i) {
            P.push_back(numbers.next());
        }
        for (unsigned long i = 0; i < n * n; ++i) {
            expA.push_back(numbers.next());
            decay.push_back(numbers.nextComplex());
        }
        for (unsigned long i = 0; i < n; ++i) {
            rhoE.push_back(numbers.next());
        }
        // No product of P: what stands in the third-order term is the caller's affair.
        for (unsigned long i = 0; i < m * m * m * n * n; ++i) {
            third.push_back(numbers.next());
        }
        for (unsigned long i = 0; i < n * n; ++i) {
            D.push_back(numbers.next());
            Nu.push_back(numbers.nextComplex());
        }
        formTables();
    }

    Matrix dipole(unsigned long p) const
    {
        return {P.begin() + static_cast<long>(p * n * n),
                P.begin() + static_cast<long>((p + 1) * n * n)};
    }

    void formTables()
    {
        traces2.clear();
        traces3.clear();
        traces4.clear();
        products2.clear();
        for (unsigned long p = 0; p < m; ++p) {
            for (unsigned long q = 0; q < m; ++q) {
                const Matrix pq = product(dipole(p), dipole(q), n);
                traces2.push_back(trace(pq, n).real());
                for (const Complex& value : pq) {
                    products2.push_back(value.real());
                }
                for (unsigned long r = 0; r < m; ++r) {
                    const Matrix pqr = product(pq, dipole(r), n);
                    traces3.push_back(trace(pqr, n).real());
                    for (unsigned long s = 0; s < m; ++s) {
                        traces4.push_back(trace(product(pqr, dipole(s), n), n).real());
                    }
                }
            }
        }
    }

    /// Symmetric dipoles without diagonal: U is as unitary as the level count allows.
    void makePhysical()
    {
        for (unsigned long p = 0; p < m; ++p) {
            for (unsigned long a = 0; a < n; ++a) {
                P[p * n * n + a * n + a] = 0.0;
                for (unsigned long b = 0; b < a; ++b) {
                    P[p * n * n + b * n + a] = P[p * n * n + a * n + b];
                }
            }
        }
        formTables();
    }

    /// Physical, and no transitions but between levels of two parities: bit a of `parities` is that of
    /// level a. The third-order term of 4 levels is that of one component, 0.
    void makeTwoParities(unsigned long parities)
    {
        for (unsigned long i = 0; i < m * n * n; ++i) {
            if (((parities >> (i / n % n) ^ parities >> (i % n)) & 1UL) == 0) {
                P[i] = 0.0;
            }
        }
        third.assign(third.size(), 0.0);
        makePhysical();
    }

    /// Relaxation that changes nothing.
    void makeLossless()
    {
        expA.assign(n * n, 0.0);
        for (unsigned long a = 0; a < n; ++a) {
            expA[a * n + a] = 1.0;
        }
        decay.assign(n * n, 1.0);
        isShifted = false;
    }

    QV_Atoms atoms() const
    {
        return {
            n,       m,   P.data(), nullptr, D.data(), reinterpret_cast<const double*>(Nu.data()),
            nullptr, 0.0, 0.3,      0.0,     0};
    }

    QV_SplitKernel::Tables tables() const
    {
        return {order,
                tau,
                expA.data(),
                reinterpret_cast<const double*>(decay.data()),
                isShifted ? rhoE.data() : nullptr,
                traces2.data(),
                traces3.data(),
                traces4.data(),
                products2.data(),
                third.data()};
    }

    unsigned long n;
    unsigned long m;
    unsigned long order = QV_SplitKernel::HRN;
    double tau = 0.4;
    bool isShifted = false;
    std::vector<double> P;
    std::vector<double> expA;
    Matrix decay;
    std::vector<double> D;
    Matrix Nu;
    std::vector<double> rhoE;
    std::vector<double> third;
    std::vector<double> traces2;
    std::vector<double> traces3;
    std::vector<double> traces4;
    std::vector<double> products2;
};

struct Mesh
{
    Mesh(unsigned long levels, unsigned long components, unsigned long nodes)
        : n(levels)
        , m(components)
        , count(nodes)
        , rho(nodes * levels * levels)
        , E(nodes * components)
        , terms(nodes * components, 77.0)
    {}

    static Mesh random(const Matter& matter, unsigned long nodes, unsigned long seed,
                       bool isHermitian)
    {
        Mesh mesh(matter.n, matter.m, nodes);
        TestNumbers numbers(seed);
        for (Complex& value : mesh.rho) {
            value = numbers.nextComplex();
        }
        for (unsigned long j = 0; isHermitian && j < nodes; ++j) {
            Complex* const rho = mesh.node(j);
            for (unsigned long a = 0; a < mesh.n; ++a) {
                rho[a * mesh.n + a].imag(0.0);
                for (unsigned long b = 0; b < a; ++b) {
                    rho[b * mesh.n + a] = std::conj(rho[a * mesh.n + b]);
                }
            }
        }
        for (double& value : mesh.E) {
            value = numbers.next();
        }
        return mesh;
    }

    Complex* node(unsigned long j) { return rho.data() + j * n * n; }
    Matrix at(unsigned long j) const
    {
        return {rho.begin() + static_cast<long>(j * n * n),
                rho.begin() + static_cast<long>((j + 1) * n * n)};
    }

    unsigned long n;
    unsigned long m;
    unsigned long count;
    Matrix rho;
    std::vector<double> E;
    std::vector<double> terms;
};

Mesh advanced(Level level, const Matter& matter, Mesh mesh)
{
    std::vector<double> work;
    QV_SplitKernel::advance(level, matter.atoms(), matter.tables(), mesh.count,
                            reinterpret_cast<double*>(mesh.rho.data()), mesh.E.data(),
                            mesh.terms.data(), work);
    return mesh;
}

Mesh advanced(const Matter& matter, const Mesh& mesh)
{
    return advanced(QV_InstructionSet::PLAIN, matter, mesh);
}

/// The closed forms with std::complex, from traces and products of the table.
Matrix propagator(const Matter& matter, const double* E)
{
    const unsigned long n = matter.n;
    const unsigned long m = matter.m;
    const Complex c = I * matter.tau * 0.5;
    const double c2 = c.real() * c.real() - c.imag() * c.imag();
    const Complex c3 = c * c2;
    double s2 = 0.0;
    double s3 = 0.0;
    double s4 = 0.0;
    Matrix A(n * n);
    Matrix A2(n * n);
    Matrix T(n * n);
    for (unsigned long p = 0; p < m; ++p) {
        for (unsigned long i = 0; i < n * n; ++i) {
            A[i] += E[p] * matter.P[p * n * n + i];
        }
        for (unsigned long q = 0; q < m; ++q) {
            const unsigned long pq = p * m + q;
            s2 += E[p] * E[q] * matter.traces2[pq];
            for (unsigned long i = 0; i < n * n; ++i) {
                A2[i] += E[p] * E[q] * matter.products2[pq * n * n + i];
            }
            for (unsigned long r = 0; r < m; ++r) {
                const unsigned long pqr = pq * m + r;
                s3 += E[p] * E[q] * E[r] * matter.traces3[pqr];
                for (unsigned long i = 0; i < n * n; ++i) {
                    T[i] += E[p] * E[q] * E[r] * matter.third[pqr * n * n + i];
                }
                for (unsigned long s = 0; s < m; ++s) {
                    s4 += E[p] * E[q] * E[r] * E[s] * matter.traces4[pqr * m + s];
                }
            }
        }
    }
    const double d = 0.5 * c2 * s2;
    const Complex e = s3 * c3 / 3.0;
    const double f = 0.5 * d * d;
    const double g = c2 * c2 * s4;
    Matrix U(n * n);
    for (unsigned long i = 0; i < n * n; ++i) {
        const double one = i % (n + 1) == 0 ? 1.0 : 0.0;
        switch (n) {
        case 2:
            U[i] = ((1.0 + d) * one - 2.0 * c * A[i]) / (1.0 - d);
            break;
        case 3:
            U[i] = ((1.0 - d - e) * one - 2.0 * c * A[i] + 2.0 * c2 * A2[i]) / (1.0 - d + e);
            break;
        case 4:
            U[i] = ((1.0 - d - e - f + g / 4.0) * one - c * (2.0 - 2.0 * d) * A[i]
                    + 2.0 * c2 * A2[i] + c3 * T[i])
                   / (1.0 - d + e + f - g / 4.0);
            break;
        default:
            break;
        }
    }
    return U;
}

Matrix afterHamiltonian(const Matter& matter, const Matrix& rho, const double* E)
{
    const Matrix U = propagator(matter, E);
    return product(adjoint(U, matter.n), product(rho, U, matter.n), matter.n);
}

Matrix afterRelaxation(const Matter& matter, Matrix rho)
{
    const unsigned long n = matter.n;
    std::vector<double> populations(n);
    for (unsigned long a = 0; a < n; ++a) {
        for (unsigned long k = 0; k < n; ++k) {
            const double shift = matter.isShifted ? matter.rhoE[k] : 0.0;
            populations[a] += matter.expA[a * n + k] * (rho[k * n + k].real() - shift);
        }
    }
    for (unsigned long a = 0; a < n; ++a) {
        rho[a * n + a] = populations[a] + (matter.isShifted ? matter.rhoE[a] : 0.0);
        for (unsigned long c = 0; c < a; ++c) {
            rho[a * n + c] *= matter.decay[a * n + c];
            rho[c * n + a] = std::conj(rho[a * n + c]);
        }
    }
    return rho;
}

/// The steps that an order of splitting applies to one node: H or R each.
Matrix byTheFormulas(const Matter& matter, Matrix rho, const double* E, const std::string& steps)
{
    for (const char step : steps) {
        rho = step == 'H' ? afterHamiltonian(matter, rho, E) : afterRelaxation(matter, rho);
    }
    return rho;
}

void expectFormulas(const Matter& matter, const Mesh& mesh, const std::string& steps)
{
    const Mesh found = advanced(matter, mesh);
    for (unsigned long j = 0; j < mesh.count; ++j) {
        const Matrix expected =
            byTheFormulas(matter, mesh.at(j), mesh.E.data() + j * mesh.m, steps);
        for (unsigned long i = 0; i < expected.size(); ++i) {
            // Up to four products of matrices with entries of a few units.
            ASSERT_LT(std::abs(found.at(j)[i] - expected[i]), 1e-12)
                << matter.n << " levels, " << matter.m << " components, order " << matter.order
                << ", element " << i;
        }
    }
    EXPECT_EQ(std::memcmp(found.E.data(), mesh.E.data(), mesh.E.size() * sizeof(double)), 0);
}

/// Bit for bit. A not-a-number has no sign: which of two operands' signs the processor hands on is left
/// to the compiler.
bool isSame(double a, double b)
{
    return std::isnan(a) ? std::isnan(b) : std::memcmp(&a, &b, sizeof(double)) == 0;
}

testing::AssertionResult isSame(const Mesh& a, const Mesh& b)
{
    if (a.rho.size() != b.rho.size()) {
        return testing::AssertionFailure() << a.rho.size() << " values, " << b.rho.size();
    }
    for (unsigned long i = 0; i < a.rho.size(); ++i) {
        if (!isSame(a.rho[i].real(), b.rho[i].real())
            || !isSame(a.rho[i].imag(), b.rho[i].imag())) {
            return testing::AssertionFailure()
                   << "element " << i << ": " << a.rho[i] << ", " << b.rho[i];
        }
    }
    for (unsigned long i = 0; i < a.terms.size(); ++i) {
        if (!isSame(a.terms[i], b.terms[i])) {
            return testing::AssertionFailure()
                   << "term " << i << ": " << a.terms[i] << ", " << b.terms[i];
        }
    }
    return testing::AssertionSuccess();
}

void expectPlainBits(const Matter& matter, const Mesh& mesh)
{
    const Mesh plain = advanced(QV_InstructionSet::PLAIN, matter, mesh);
    for (const Level level :
         {QV_InstructionSet::BASELINE, QV_InstructionSet::AVX2, QV_InstructionSet::AVX512}) {
        if (QV_InstructionSet::isAvailable(level)) {
            EXPECT_TRUE(isSame(advanced(level, matter, mesh), plain))
                << QV_InstructionSet::getName(level) << ", " << matter.n << " levels, " << matter.m
                << " components, " << mesh.count << " nodes, order " << matter.order;
        }
    }
}

/// Step after step: the first one leaves the density as relaxation makes it, upper half from lower.
void expectPlainBitsOverSteps(const Matter& matter, Mesh mesh)
{
    for (int i = 0; i < 4; ++i) {
        expectPlainBits(matter, mesh);
        mesh = advanced(matter, mesh);
    }
}

/// Atoms with each number of levels in each way of two parities, as relaxation leaves them.
template <typename Body>
void eachTwoParities(const Body& body)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (unsigned long parities = 2; parities < (1UL << n); parities += 2) {
            Matter matter(n, 1, n);
            matter.makeTwoParities(parities);
            body(matter, advanced(matter, Mesh::random(matter, 19, parities, true)));
        }
    }
}

constexpr double oddNumbers[] = {
    0.0,   -0.0,  5e-324, -1e-310, 1e-160,  1e59, -1e61, 1e77, 1e102,    1e103,     -1e110,
    1e150, 1e155, 1e200,  -1e305,  1.7e308, 1.0,  -2.0,  0.5,  infinite, -infinite, notANumber};

} // namespace

// ---------------------------------------------------------------- the formulas

TEST(QV_SplitKernel, HamiltonianAndRelaxationFollowTheFormulasInEveryOrder)
{
    const std::pair<unsigned long, const char*> orders[] = {
        {QV_SplitKernel::HRN, "HR"},
        {QV_SplitKernel::RNH, "RH"},
        {QV_SplitKernel::HRNH, "HRH"},
        {QV_SplitKernel::RNHRN, "RHR"},
    };
    for (const auto& [order, steps] : orders) {
        for (unsigned long n = 1; n <= 5; ++n) {
            for (unsigned long m = 1; m <= 3; ++m) {
                for (const bool isShifted : {false, true}) {
                    Matter matter(n, m, n + m);
                    matter.order = order;
                    matter.isShifted = isShifted;
                    expectFormulas(matter, Mesh::random(matter, 6, 40, true), steps);
                    expectFormulas(matter, Mesh::random(matter, 6, 50, false), steps);
                }
            }
        }
    }
}

TEST(QV_SplitKernel, EveryOrderBeyondTheFourIsTheFirst)
{
    for (const unsigned long order : {4UL, 5UL, 255UL}) {
        Matter matter(3, 1);
        matter.order = order;
        expectFormulas(matter, Mesh::random(matter, 6, 40, true), "HR");
    }
}

TEST(QV_SplitKernel, TwoAndThreeLevelsAreTheExactCayleyTransform)
{
    for (unsigned long n = 2; n <= 3; ++n) {
        for (unsigned long m = 1; m <= 3; ++m) {
            Matter matter(n, m);
            matter.makePhysical();
            matter.makeLossless();
            const Mesh mesh = Mesh::random(matter, 10, 60, true);
            const Mesh found = advanced(matter, mesh);
            for (unsigned long j = 0; j < mesh.count; ++j) {
                Matrix less(n * n);
                Matrix more(n * n);
                for (unsigned long i = 0; i < n * n; ++i) {
                    Complex A;
                    for (unsigned long p = 0; p < m; ++p) {
                        A += mesh.E[j * m + p] * matter.P[p * n * n + i];
                    }
                    const double one = i % (n + 1) == 0 ? 1.0 : 0.0;
                    less[i] = one - I * matter.tau * 0.5 * A;
                    more[i] = one + I * matter.tau * 0.5 * A;
                }
                const Matrix U = product(less, inverse(more, n), n);
                const Matrix expected = product(adjoint(U, n), product(mesh.at(j), U, n), n);
                for (unsigned long i = 0; i < n * n; ++i) {
                    EXPECT_LT(std::abs(found.at(j)[i] - expected[i]), 1e-13); // roundings near 1
                }
            }
        }
    }
}

TEST(QV_SplitKernel, TwoAndThreeLevelsKeepTraceAndPurityOverManySteps)
{
    for (unsigned long n = 2; n <= 3; ++n) {
        Matter matter(n, 2);
        matter.makePhysical();
        matter.makeLossless();
        matter.tau = 3.0; // unitary for any step
        Mesh mesh = Mesh::random(matter, 5, 70, true);
        const Mesh start = mesh;
        for (int i = 0; i < 100; ++i) {
            mesh = advanced(QV_InstructionSet::best(), matter, mesh);
        }
        for (unsigned long j = 0; j < mesh.count; ++j) {
            const auto purity = [n, j](const Mesh& at) {
                return trace(product(at.at(j), at.at(j), n), n);
            };
            // A step rounds about 20 times, by 1e-16 each, and the purity is a square.
            const double scale = std::abs(purity(start));
            EXPECT_LT(std::abs(trace(mesh.at(j), n) - trace(start.at(j), n)), 1e-12);
            EXPECT_LT(std::abs(purity(mesh) - purity(start)), 1e-12 * scale);
            EXPECT_GT(std::abs(mesh.at(j)[0] - start.at(j)[0]), 1e-3);
        }
    }
}

TEST(QV_SplitKernel, FourLevelsWithoutThirdOrderTermAreUnitaryToSecondOrderInTheField)
{
    // The trace of U^+ U: its distance from 4 falls with the fourth power of the field, or faster,
    // since terms of odd order cancel in it.
    Matter matter(4, 1);
    matter.makePhysical();
    matter.makeLossless();
    matter.third.assign(16, 0.0);
    double distance[2] = {};
    for (int i = 0; i < 2; ++i) {
        Mesh mesh(4, 1, 1);
        for (unsigned long a = 0; a < 4; ++a) {
            mesh.rho[5 * a] = 1.0;
        }
        mesh.E[0] = i == 0 ? 0.4 : 0.2;
        distance[i] = std::abs(trace(advanced(matter, mesh).at(0), 4) - 4.0);
    }
    EXPECT_GT(distance[0], 1e-8);
    EXPECT_GT(distance[0] / distance[1], 15.0);
}

TEST(QV_SplitKernel, LevelCountsThatAreNotTreatedLoseTheDensity)
{
    for (const unsigned long n : {1UL, 5UL, 6UL}) {
        Matter matter(n, 1);
        Mesh mesh = Mesh::random(matter, 9, 40, true);
        for (unsigned long order = 0; order < 4; ++order) {
            matter.order = order;
            for (const Complex& value : advanced(QV_InstructionSet::best(), matter, mesh).rho) {
                EXPECT_EQ(value, 0.0);
            }
        }
    }
}

TEST(QV_SplitKernel, PopulationsRelaxTowardsTheEquilibriumWhereThereIsOne)
{
    Matter matter(2, 1);
    matter.makeLossless();
    matter.expA = {0.5, 0.0, 0.0, 0.5};
    matter.rhoE = {0.25, 0.75};
    Mesh mesh(2, 1, 1);
    mesh.rho = {1.0, 0.0, 0.0, 0.0};
    EXPECT_EQ(advanced(matter, mesh).rho, (Matrix{0.5, 0.0, 0.0, 0.0}));
    matter.isShifted = true;
    EXPECT_EQ(advanced(matter, mesh).rho, (Matrix{0.625, 0.0, 0.0, 0.375}));
}

TEST(QV_SplitKernel, RelaxationTakesTheUpperCoherencesFromTheLowerOnesAndMakesPopulationsReal)
{
    Matter matter(2, 1);
    matter.makeLossless();
    matter.decay[2] = {0.0, 1.0};
    matter.order = QV_SplitKernel::HRN;
    Mesh mesh(2, 1, 1);
    mesh.rho = {{1.0, 2.0}, {7.0, 7.0}, {3.0, 4.0}, {5.0, 6.0}};
    EXPECT_EQ(advanced(matter, mesh).rho,
              (Matrix{1.0, {-4.0, -3.0}, {-4.0, 3.0}, 5.0})); // E = 0: U is the identity
}

TEST(QV_SplitKernel, WithoutNodesNothingHappens)
{
    for (const unsigned long n : {1UL, 2UL, 3UL, 4UL, 5UL}) {
        const Matter matter(n, 1);
        const Mesh none(n, 1, 0);
        EXPECT_EQ(advanced(QV_InstructionSet::best(), matter, none).rho.size(), 0UL);
    }
}

TEST(QV_SplitKernel, TheWorkOfOtherAtomsChangesNothing)
{
    std::vector<double> work;
    for (const unsigned long n : {5UL, 2UL, 4UL, 1UL, 3UL}) {
        for (const unsigned long m : {6UL, 1UL, 5UL}) {
            const Matter matter(n, m);
            const Mesh mesh = Mesh::random(matter, 9, 40, true);
            Mesh found = mesh;
            QV_SplitKernel::advance(QV_InstructionSet::best(), matter.atoms(), matter.tables(), 9,
                                    reinterpret_cast<double*>(found.rho.data()), found.E.data(),
                                    nullptr, work);
            found.terms = advanced(matter, mesh).terms; // not asked for
            EXPECT_TRUE(isSame(found, advanced(matter, mesh)));
            work.assign(work.size(), notANumber);
        }
    }
}

// ---------------------------------------------------------------- instruction sets

TEST(QV_SplitKernel, EveryNumberOfNodesGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        const Matter matter(n, 1, n);
        for (unsigned long count = 0; count <= 24; ++count) {
            expectPlainBits(matter, Mesh::random(matter, count, 30 + count, true));
        }
        expectPlainBits(matter, Mesh::random(matter, 1000, 60, true));
        expectPlainBits(matter, Mesh::random(matter, 1000, 61, false));
    }
}

TEST(QV_SplitKernel, EveryNumberOfComponentsGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (unsigned long m = 1; m <= 6; ++m) {
            const Matter matter(n, m, n + m);
            expectPlainBits(matter, Mesh::random(matter, 19, 30, false));
        }
    }
}

TEST(QV_SplitKernel, EveryOrderGivesTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        for (unsigned long order = 0; order <= 4; ++order) {
            for (const bool isShifted : {false, true}) {
                Matter matter(n, 2, n);
                matter.order = order;
                matter.isShifted = isShifted;
                expectPlainBits(matter, Mesh::random(matter, 21, 30, true));
            }
        }
    }
}

TEST(QV_SplitKernel, FieldsOfZeroGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        const Matter matter(n, 2, n);
        Mesh mesh = Mesh::random(matter, 21, 30, true);
        for (const double zero : {0.0, -0.0}) {
            mesh.E.assign(mesh.E.size(), zero);
            expectPlainBits(matter, mesh);
        }
    }
}

TEST(QV_SplitKernel, SignedZerosAndDenormalsGiveTheBitsOfThePlainForm)
{
    TestNumbers numbers(90);
    for (unsigned long n = 1; n <= 5; ++n) {
        for (int i = 0; i < 10; ++i) {
            Matter matter(n, 1, n);
            matter.isShifted = i % 2 == 0;
            Mesh mesh(n, 1, 23);
            for (Complex& value : mesh.rho) {
                value = {numbers.nextOdd(), numbers.nextOdd()};
            }
            for (double& value : mesh.E) {
                value = numbers.nextOdd();
            }
            expectPlainBits(matter, mesh);
        }
    }
}

TEST(QV_SplitKernel, ANotANumberAnywhereGivesTheBitsOfThePlainFormAndStaysAtItsNode)
{
    for (unsigned long n = 1; n <= 5; ++n) {
        const Matter matter(n, 1, n);
        for (unsigned long odd = 0; odd < 18; ++odd) {
            const Mesh clean = Mesh::random(matter, 18, 100, true);
            Mesh mesh = clean;
            mesh.node(odd)[odd % (n * n)] = {notANumber, 1.0};
            expectPlainBits(matter, mesh);
            mesh = clean;
            mesh.E[odd] = notANumber;
            expectPlainBits(matter, mesh);
            const Mesh found = advanced(QV_InstructionSet::best(), matter, mesh);
            const Mesh expected = advanced(matter, clean);
            for (unsigned long j = 0; j < 18; ++j) {
                if (j != odd) {
                    EXPECT_EQ(found.at(j), expected.at(j));
                }
            }
            mesh.E[odd] = infinite;
            expectPlainBits(matter, mesh);
        }
    }
}

// ---------------------------------------------------------------- levels of two parities

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainForm)
{
    eachTwoParities([](Matter matter, const Mesh& mesh) {
        for (matter.order = 0; matter.order <= 4; ++matter.order) {
            for (const bool isShifted : {false, true}) {
                matter.isShifted = isShifted;
                expectPlainBitsOverSteps(matter, mesh);
                expectPlainBitsOverSteps(matter, Mesh::random(matter, 19, 80, false));
            }
        }
    });
}

TEST(QV_SplitKernel, TheTermsAreThePolarizationOfTheNewDensities)
{
    std::vector<Level> levels = {QV_InstructionSet::PLAIN, QV_InstructionSet::BASELINE,
                                 QV_InstructionSet::AVX2, QV_InstructionSet::AVX512};
    std::erase_if(levels, [](Level level) { return !QV_InstructionSet::isAvailable(level); });
    for (const Level level : levels) {
        for (unsigned long n = 2; n <= 5; ++n) {
            for (unsigned long m = 1; m <= 3; ++m) {
                Matter matter(n, m, n);
                matter.makeTwoParities(2);
                const Mesh found = advanced(level, matter, Mesh::random(matter, 21, 50, true));
                Mesh expected = found;
                QV_FieldKernel::polarization(QV_InstructionSet::PLAIN, matter.atoms(), 21,
                                             reinterpret_cast<const double*>(found.rho.data()),
                                             expected.terms.data());
                EXPECT_TRUE(isSame(found, expected)) << QV_InstructionSet::getName(level);
                EXPECT_EQ(found.terms[0] != 0.0, n < 5); // densities of five levels are lost
            }
        }
    }
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormForEveryNumberOfNodes)
{
    eachTwoParities([](const Matter& matter, const Mesh& /*mesh*/) {
        for (unsigned long count = 0; count <= 17; ++count) {
            expectPlainBitsOverSteps(matter, Mesh::random(matter, count, 30 + count, true));
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesOfAtomsAtRestGiveTheBitsOfThePlainForm)
{
    eachTwoParities([](Matter matter, Mesh mesh) {
        for (const double sign : {1.0, -1.0}) {
            mesh.rho.assign(mesh.rho.size(), sign * 0.0);
            for (unsigned long j = 0; j < mesh.count; ++j) {
                mesh.node(j)[0] = 1.0;
                mesh.E[j] = j % 3 == 0 ? 0.5 : j % 3 == 1 ? 0.0 : -0.0;
            }
            for (matter.order = 0; matter.order < 4; ++matter.order) {
                expectPlainBitsOverSteps(matter, mesh);
            }
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormWithOneOddNumberInTheDensity)
{
    eachTwoParities([](Matter matter, const Mesh& mesh) {
        for (matter.order = 0; matter.order < 4; ++matter.order) {
            for (const double odd : oddNumbers) {
                for (unsigned long i = 0; i < 2 * matter.n * matter.n; ++i) {
                    Mesh changed = mesh;
                    reinterpret_cast<double*>(changed.node(i % mesh.count))[i] = odd;
                    expectPlainBits(matter, changed);
                }
            }
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormWithDensitiesOfOddNumbers)
{
    TestNumbers numbers(91);
    eachTwoParities([&numbers](Matter matter, Mesh mesh) {
        for (matter.order = 0; matter.order < 4; ++matter.order) {
            for (Complex& value : mesh.rho) {
                value = {numbers.nextOdd(), numbers.nextOdd()};
            }
            for (double& value : mesh.E) {
                value = numbers.nextOdd();
            }
            expectPlainBitsOverSteps(matter, mesh);
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormWhileTheDensityDiverges)
{
    eachTwoParities([](Matter matter, const Mesh& mesh) {
        for (matter.order = 0; matter.order < 4; ++matter.order) {
            Mesh changed = mesh;
            for (double& value : matter.expA) {
                value *= 1e40;
            }
            for (int i = 0; i < 10; ++i) { // some nodes later than others
                changed.node(2)[1] *= 1e30;
                expectPlainBits(matter, changed);
                changed = advanced(matter, changed);
            }
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormInOddFields)
{
    eachTwoParities([](Matter matter, const Mesh& mesh) {
        for (matter.order = 0; matter.order < 4; ++matter.order) {
            for (const double odd : oddNumbers) {
                Mesh changed = mesh;
                changed.E[3] = odd;
                expectPlainBits(matter, changed);
                changed.E.assign(changed.E.size(), odd);
                expectPlainBits(matter, changed);
                Matter slow = matter;
                slow.tau = 1e-100; // E^3 of 1e110 overflows, c^2 E^2 does not
                expectPlainBits(slow, changed);
            }
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormForOddSteps)
{
    eachTwoParities([](Matter matter, const Mesh& mesh) {
        for (const double odd : oddNumbers) {
            matter.tau = odd;
            expectPlainBits(matter, mesh);
            Mesh dark = mesh;
            dark.E.assign(dark.E.size(), 0.0);
            expectPlainBits(matter, dark);
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormWithOneOddNumberInATable)
{
    eachTwoParities([](const Matter& matter, const Mesh& mesh) {
        for (const double odd : oddNumbers) {
            for (unsigned long i = 0; i < matter.n * matter.n; ++i) {
                Matter changed = matter;
                changed.isShifted = true;
                changed.P[i] = odd; // with the tables of another one
                expectPlainBits(changed, mesh);
                changed.formTables();
                expectPlainBits(changed, mesh);
                for (std::vector<double> Matter::*const table :
                     {&Matter::expA, &Matter::D, &Matter::products2, &Matter::third}) {
                    changed = matter;
                    (changed.*table)[i] = odd;
                    expectPlainBits(changed, mesh);
                }
                for (Matrix Matter::*const table : {&Matter::decay, &Matter::Nu}) {
                    changed = matter;
                    (changed.*table)[i] = {odd, 1.0};
                    expectPlainBits(changed, mesh);
                    (changed.*table)[i] = {1.0, odd};
                    expectPlainBits(changed, mesh);
                }
            }
            Matter changed = matter;
            changed.isShifted = true;
            changed.rhoE[1] = odd;
            expectPlainBitsOverSteps(changed, mesh);
            for (std::vector<double> Matter::*const traces :
                 {&Matter::traces2, &Matter::traces3, &Matter::traces4}) {
                changed = matter;
                (changed.*traces)[0] = odd;
                expectPlainBits(changed, mesh);
            }
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesGiveTheBitsOfThePlainFormWhereThePropagatorHasAPole)
{
    eachTwoParities([](Matter matter, Mesh mesh) {
        matter.tau = 2.0;
        mesh.E[4] = 1.0;
        for (const double trace : {-2.0, -2.0 * (1.0 + 1e-15), -2.0 * (1.0 - 1e-15)}) {
            matter.traces2[0] = trace; // 1 - d is zero, or nearly
            matter.traces4[0] = -2.0;  // 1 - d + f - g / 4 with it
            expectPlainBits(matter, mesh);
        }
    });
}

TEST(QV_SplitKernel, TwoParitiesInTwoComponentsGiveTheBitsOfThePlainForm)
{
    for (unsigned long n = 2; n <= 4; ++n) {
        for (unsigned long parities = 2; parities < (1UL << n); parities += 2) {
            Matter matter(n, 2, n);
            matter.makeTwoParities(parities);
            expectPlainBitsOverSteps(matter, Mesh::random(matter, 19, parities, true));
        }
    }
}
