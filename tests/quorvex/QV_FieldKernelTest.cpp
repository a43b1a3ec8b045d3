#include "quorvex/QV_FieldKernel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;
using Level = QV_InstructionSet::Level;

std::vector<Level> levels()
{
    std::vector<Level> available;
    for (const Level level : {QV_InstructionSet::PLAIN, QV_InstructionSet::BASELINE,
                              QV_InstructionSet::AVX2, QV_InstructionSet::AVX512}) {
        if (QV_InstructionSet::isAvailable(level)) {
            available.push_back(level);
        }
    }
    return available;
}

/// Numbers of all kinds, the same at each start: signed zeros, denormals, and magnitudes from 1e-3 to 1e3.
class Numbers
{
public:
    double next()
    {
        mState = mState * 6364136223846793005UL + 1442695040888963407UL;
        const auto bits = static_cast<unsigned>(mState >> 33);
        const double fraction = static_cast<double>(bits % 1000003U) / 1000003.0 - 0.5;
        switch (bits % 11U) {
        case 0:
            return 0.0;
        case 1:
            return -0.0;
        case 2:
            return fraction * std::numeric_limits<double>::min();
        case 3:
            return -std::numeric_limits<double>::denorm_min();
        case 4:
            return fraction * 1e3;
        case 5:
            return fraction * 1e-3;
        default:
            return fraction;
        }
    }
    Values many(unsigned long count)
    {
        Values values(count);
        for (double& value : values) {
            value = next();
        }
        return values;
    }

private:
    unsigned long mState = 2463534242UL;
};

bool isSame(const Values& a, const Values& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

/// Two fields that start at any place of their arrays, with a margin on both sides that nobody may touch.
struct Mesh
{
    Mesh(unsigned long lines, unsigned long components, unsigned long shift)
        : mLines(lines)
        , mComponents(components)
        , mShift(shift)
    {
        Numbers numbers;
        mE = numbers.many((lines + 1) * components + 2 * margin + shift);
        mB = numbers.many(lines * components + 2 * margin + shift);
        mTerms = numbers.many((lines + 1) * components);
    }
    QV_FieldKernel::Fields fields()
    {
        return {mE.data() + margin + mShift, mB.data() + margin + mShift, mLines, mComponents};
    }
    double& e(unsigned long i, unsigned long j) { return fields().mE[i * mComponents + j]; }
    double& b(unsigned long i, unsigned long j) { return fields().mB[i * mComponents + j]; }
    bool operator==(const Mesh& other) const
    {
        return isSame(mE, other.mE) && isSame(mB, other.mB);
    }

    static constexpr unsigned long margin = 8;
    unsigned long mLines;
    unsigned long mComponents;
    unsigned long mShift;
    Values mE;
    Values mB;
    Values mTerms;
};

// The definitions, one value at a time.

double signOf(unsigned long j)
{
    return j % 2 == 0 ? 1.0 : -1.0;
}

void faradayByDefinition(Mesh& mesh, double r)
{
    for (unsigned long i = 0; i < mesh.mLines; ++i) {
        for (unsigned long j = 0; j < mesh.mComponents; ++j) {
            mesh.b(i, (j + 1) % mesh.mComponents) -=
                signOf(j) * r * (mesh.e(i + 1, j) - mesh.e(i, j));
        }
    }
}

void ampereByDefinition(Mesh& mesh, unsigned long first, unsigned long last, double r)
{
    for (unsigned long i = first; i <= last; ++i) {
        for (unsigned long j = 0; j < mesh.mComponents; ++j) {
            const unsigned long next = (j + 1) % mesh.mComponents;
            mesh.e(i, j) -= signOf(j) * r * (mesh.b(i, next) - mesh.b(i - 1, next));
        }
    }
}

void ampereWithSourceByDefinition(Mesh& mesh, unsigned long first, unsigned long last, double r,
                                  double dt)
{
    for (unsigned long i = first; i <= last; ++i) {
        for (unsigned long j = 0; j < mesh.mComponents; ++j) {
            const unsigned long next = (j + 1) % mesh.mComponents;
            const double after = i < mesh.mLines ? mesh.b(i, next) : 0.0;
            const double before = i > 0 ? mesh.b(i - 1, next) : 0.0;
            mesh.e(i, j) = mesh.e(i, j)
                           - (signOf(j) * r * (after - before)
                              + dt * mesh.mTerms[(i - first) * mesh.mComponents + j]);
        }
    }
}

/// All sizes up to beyond two of the widest vectors, and a mesh of real size.
std::vector<unsigned long> sizes()
{
    std::vector<unsigned long> all;
    for (unsigned long size = 0; size <= 18; ++size) {
        all.push_back(size);
    }
    all.push_back(5000);
    return all;
}

/// Sweeps meshes of one, two or three components.
class QV_FieldKernelTest : public testing::TestWithParam<unsigned long>
{
protected:
    static constexpr double r = 0.7;
    static constexpr double dt = 0.3;

    /// Runs `kernel` with every instruction set and start, and `definition` beside it.
    template <typename Kernel, typename Definition>
    static void compare(unsigned long lines, Kernel kernel, Definition definition)
    {
        for (unsigned long shift = 0; shift < 4; ++shift) {
            const Mesh start(lines, GetParam(), shift);
            Mesh expected = start;
            definition(expected);
            for (const Level level : levels()) {
                Mesh mesh = start;
                kernel(level, mesh);
                EXPECT_TRUE(mesh == expected) << QV_InstructionSet::getName(level) << ", " << lines
                                              << " lines, shifted by " << shift;
            }
        }
    }
};

} // namespace

TEST_P(QV_FieldKernelTest, FaradayIsItsDefinitionToTheLastBit)
{
    for (const unsigned long lines : sizes()) {
        compare(
            lines,
            [](Level level, Mesh& mesh) { QV_FieldKernel::faraday(level, mesh.fields(), r); },
            [](Mesh& mesh) { faradayByDefinition(mesh, r); });
    }
}

TEST_P(QV_FieldKernelTest, AmpereInTheEmptyZonesIsItsDefinitionToTheLastBit)
{
    for (const unsigned long lines : sizes()) {
        for (const unsigned long first : {1UL, 2UL, lines / 2}) {
            for (const unsigned long last : {1UL, lines / 2, lines - 1}) {
                if (first < 1 || first > last || last >= lines) {
                    continue; // no such nodes in this mesh
                }
                compare(
                    lines,
                    [first, last](Level level, Mesh& mesh) {
                        QV_FieldKernel::ampere(level, mesh.fields(), static_cast<long>(first),
                                               static_cast<long>(last), r);
                    },
                    [first, last](Mesh& mesh) { ampereByDefinition(mesh, first, last, r); });
            }
        }
    }
}

TEST_P(QV_FieldKernelTest, AmpereWithASourceIsItsDefinitionToTheLastBit)
{
    for (const unsigned long lines : sizes()) {
        for (const unsigned long first : {0UL, 1UL, lines / 2, lines}) {
            for (const unsigned long last : {0UL, lines / 2, lines - 1, lines}) {
                if (first > last || last > lines) {
                    continue;
                }
                compare(
                    lines,
                    [first, last](Level level, Mesh& mesh) {
                        QV_FieldKernel::ampereWithSource(
                            level, mesh.fields(), static_cast<long>(first), static_cast<long>(last),
                            r, dt, mesh.mTerms.data());
                    },
                    [first, last](Mesh& mesh) {
                        ampereWithSourceByDefinition(mesh, first, last, r, dt);
                    });
            }
        }
    }
}

TEST_P(QV_FieldKernelTest, NodesThatRunBackwardsAreNoneWhereverTheyLie)
{
    compare(
        5,
        [](Level level, Mesh& mesh) {
            QV_FieldKernel::ampere(level, mesh.fields(), 1, -2, r);
            QV_FieldKernel::ampere(level, mesh.fields(), 1000000, 999999, r);
            QV_FieldKernel::ampereWithSource(level, mesh.fields(), 2, 1, r, dt, nullptr);
            QV_FieldKernel::ampereWithSource(level, mesh.fields(), 0, -1, r, dt, nullptr);
        },
        [](Mesh&) {});
}

INSTANTIATE_TEST_SUITE_P(Components, QV_FieldKernelTest, testing::Values(1, 2, 3),
                         [](const auto& components) { return std::to_string(components.param); });

// ---------------------------------------------------------------- examples by hand

TEST(QV_FieldKernel, OneComponentDrivesItself)
{
    Values E{1.0, 3.0, 7.0};
    Values B{10.0, 20.0};
    QV_FieldKernel::faraday(QV_InstructionSet::best(), {E.data(), B.data(), 2, 1}, 0.5);
    EXPECT_EQ(B, (Values{9.0, 18.0}));
    QV_FieldKernel::ampere(QV_InstructionSet::best(), {E.data(), B.data(), 2, 1}, 1, 1, 0.5);
    EXPECT_EQ(E, (Values{1.0, -1.5, 7.0}));
}

TEST(QV_FieldKernel, OfTwoComponentsEachDrivesTheOtherAndTheSecondWithTheOppositeSign)
{
    // Components side by side: E is (1, 2), (4, 8).
    Values E{1.0, 2.0, 4.0, 8.0, 0.0, 0.0};
    Values B{100.0, 200.0, 300.0, 400.0};
    QV_FieldKernel::faraday(QV_InstructionSet::best(), {E.data(), B.data(), 1, 2}, 0.5);
    EXPECT_EQ(B[1], 200.0 - 0.5 * (4.0 - 1.0));
    EXPECT_EQ(B[0], 100.0 + 0.5 * (8.0 - 2.0));
    EXPECT_EQ(B[2], 300.0);
    E = {1.0, 2.0, 4.0, 8.0, 0.0, 0.0};
    B = {100.0, 200.0, 300.0, 500.0};
    QV_FieldKernel::ampere(QV_InstructionSet::best(), {E.data(), B.data(), 2, 2}, 1, 1, 0.5);
    EXPECT_EQ(
        E, (Values{1.0, 2.0, 4.0 - 0.5 * (500.0 - 200.0), 8.0 + 0.5 * (300.0 - 100.0), 0.0, 0.0}));
}

TEST(QV_FieldKernel, TheCurlIsItsDefinitionToTheLastBitOnAnyStretch)
{
    for (unsigned long components = 1; components <= 3; ++components) {
        for (const unsigned long lines : {1UL, 2UL, 9UL, 40UL}) {
            Mesh mesh(lines, components, 1);
            for (unsigned long first = 0; first <= lines + 2; ++first) {
                for (unsigned long count = 0; first + count <= lines + 4; ++count) {
                    Values expected(count + 1, 7.0);
                    for (unsigned long i = 0; i < count; ++i) {
                        const unsigned long j = first + i;
                        const double after = j < lines ? mesh.b(j, 0) : 0.0;
                        const double before = j > 0 && j <= lines ? mesh.b(j - 1, 0) : 0.0;
                        expected[i] = -0.375 * (after - before);
                    }
                    for (const Level level : levels()) {
                        Values terms(count + 1, 7.0);
                        QV_FieldKernel::curl(level, mesh.fields(), first, count, 0.375,
                                             terms.data());
                        ASSERT_TRUE(isSame(terms, expected))
                            << QV_InstructionSet::getName(level) << ", " << lines << " lines, "
                            << components << " components, from " << first << ", " << count;
                    }
                }
            }
        }
    }
}

TEST(QV_FieldKernel, ALineBeyondTheMeshCountsAsZeroField)
{
    Values E{1.0, 2.0, 3.0};
    Values B{10.0, 20.0};
    const Values terms{0.25, 0.5, 1.0};
    QV_FieldKernel::ampereWithSource(QV_InstructionSet::best(), {E.data(), B.data(), 2, 1}, 0, 2,
                                     0.5, 2.0, terms.data());
    EXPECT_EQ(
        E, (Values{1.0 - (0.5 * 10.0 + 0.5), 2.0 - (0.5 * 10.0 + 1.0), 3.0 - (0.5 * -20.0 + 2.0)}));
}

// ---------------------------------------------------------------- polarization

namespace {

/// Atoms with made-up matrices, and densities for some nodes.
struct Atoms
{
    Atoms(unsigned long n, unsigned long components, unsigned long count, unsigned long shift)
        : mShift(shift)
    {
        Numbers numbers;
        mPs = numbers.many(components * n * n);
        mD = numbers.many(n * n);
        mNu = numbers.many(2 * n * n);
        mRho = numbers.many(2 * n * n * count + shift);
        mTerms = numbers.many(components * count + shift + 8);
        mAtoms = {n,       components, mPs.data(), nullptr, mD.data(), mNu.data(),
                  nullptr, 0.0,        1.75,       0.0,     0};
    }
    const double* rho() const { return mRho.data() + mShift; }

    unsigned long mShift;
    Values mPs;
    Values mD;
    Values mNu;
    Values mRho;
    Values mTerms;
    QV_Atoms mAtoms;
};

/// The term of one component at one node, with complex numbers.
double polarizationByDefinition(const QV_Atoms& atoms, const double* rho, unsigned long p)
{
    const unsigned long n = atoms.mLevels;
    const auto* const density = reinterpret_cast<const std::complex<double>*>(rho);
    const auto* const nu = reinterpret_cast<const std::complex<double>*>(atoms.mNu);
    std::vector<std::complex<double>> X(n * n);
    for (unsigned long a = 0; a < n; ++a) {
        for (unsigned long b = 0; b < n; ++b) {
            X[a * n + b] = -nu[a * n + b] * density[a * n + b];
        }
        X[a * n + a] = 0.0;
        for (unsigned long k = 0; k < n; ++k) {
            X[a * n + a] += density[a * n + k] * atoms.mD[a * n + k];
        }
    }
    double sum = 0.0;
    for (unsigned long b = 0; b < n; ++b) {
        double column = 0.0;
        for (unsigned long k = 0; k < n; ++k) {
            column += (X[k * n + b] * atoms.mPs[(p * n + b) * n + k]).real();
        }
        sum += column;
    }
    return atoms.mDzeta * sum;
}

/// Sweeps atoms of some number of levels.
class QV_FieldKernelPolarizationTest : public testing::TestWithParam<unsigned long>
{
protected:
    /// Runs the kernel with every instruction set and start, and the definition beside it.
    static void compare(unsigned long components, unsigned long count)
    {
        const unsigned long n = GetParam();
        const double factor = 0.375;
        for (unsigned long shift = 0; shift < 3; ++shift) {
            const Atoms atoms(n, components, count, shift);
            Values expected = atoms.mTerms;
            for (unsigned long i = 0; i < count * components; ++i) {
                const double* const rho = atoms.rho() + 2 * n * n * (i / components);
                expected[shift + i] +=
                    factor * polarizationByDefinition(atoms.mAtoms, rho, i % components);
            }
            for (const Level level : levels()) {
                Values terms = atoms.mTerms;
                QV_FieldKernel::addPolarization(level, atoms.mAtoms, factor, count, atoms.rho(),
                                                terms.data() + shift);
                EXPECT_TRUE(isSame(terms, expected))
                    << QV_InstructionSet::getName(level) << ", " << components << " components, "
                    << count << " nodes, shifted by " << shift;
            }
        }
    }

    /// The terms themselves in place of what was there, and nothing beside them.
    static void compareAlone(unsigned long components, unsigned long count)
    {
        const Atoms atoms(GetParam(), components, count, 1);
        const double none = std::numeric_limits<double>::quiet_NaN();
        Values expected(count * components + 1, none);
        std::fill_n(expected.begin(), count * components, 0.0);
        QV_FieldKernel::addPolarization(QV_InstructionSet::PLAIN, atoms.mAtoms, 1.0, count,
                                        atoms.rho(), expected.data());
        for (const Level level : levels()) {
            Values terms(count * components + 1, none);
            QV_FieldKernel::polarization(level, atoms.mAtoms, count, atoms.rho(), terms.data());
            EXPECT_TRUE(isSame(terms, expected))
                << QV_InstructionSet::getName(level) << ", " << components << " components, "
                << count << " nodes";
        }
    }

    /// Known terms add what the densities that they came from do, and nothing beside them.
    static void compareKnown(unsigned long components, unsigned long count)
    {
        const Atoms atoms(GetParam(), components, count, 1);
        const double factor = 0.375;
        Values expected = atoms.mTerms;
        QV_FieldKernel::addPolarization(QV_InstructionSet::PLAIN, atoms.mAtoms, factor, count,
                                        atoms.rho(), expected.data());
        Values known(count * components);
        for (const Level level : levels()) {
            QV_FieldKernel::polarization(level, atoms.mAtoms, count, atoms.rho(), known.data());
            Values terms = atoms.mTerms;
            QV_FieldKernel::addTerms(level, factor, known.size(), known.data(), terms.data());
            EXPECT_TRUE(isSame(terms, expected))
                << QV_InstructionSet::getName(level) << ", " << components << " components, "
                << count << " nodes";
        }
    }
};

} // namespace

TEST_P(QV_FieldKernelPolarizationTest, IsItsDefinitionToTheLastBit)
{
    for (unsigned long components = 1; components <= 3; ++components) {
        for (const unsigned long count : sizes()) {
            compare(components, count);
        }
    }
}

TEST_P(QV_FieldKernelPolarizationTest, TheTermsAloneBeginWithZero)
{
    for (unsigned long components = 1; components <= 3; ++components) {
        for (const unsigned long count : sizes()) {
            compareAlone(components, count);
        }
    }
}

TEST_P(QV_FieldKernelPolarizationTest, KnownTermsAddTheSame)
{
    for (unsigned long components = 1; components <= 3; ++components) {
        for (const unsigned long count : sizes()) {
            compareKnown(components, count);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Levels, QV_FieldKernelPolarizationTest, testing::Range(1UL, 7UL),
                         [](const auto& levelsNumber) {
                             return std::to_string(levelsNumber.param);
                         });

namespace {

/// Puts into each node in turn, at each of its places, a number that no population or coherence has.
void spoil(Values& rho, unsigned long shift)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double unusual[] = {std::numeric_limits<double>::quiet_NaN(),
                              infinity,
                              -infinity,
                              1e308,
                              -3e200,
                              2.0,
                              -1.9999999999999998};
    for (unsigned long i = 0; i + shift < rho.size(); i += 11) {
        rho[i + shift] = unusual[i / 11 % std::size(unusual)];
    }
}

/// Every not-a-number equals every other.
bool isSameOrNone(const Values& a, const Values& b)
{
    for (std::size_t i = 0; i < a.size(); ++i) {
        const bool isNone = std::isnan(a[i]) && std::isnan(b[i]);
        if (!isNone && std::memcmp(&a[i], &b[i], sizeof(double)) != 0) {
            return false;
        }
    }
    return a.size() == b.size();
}

} // namespace

TEST(QV_FieldKernel, AtomsWithoutPermanentDipolesAreNoExceptionToTheDefinition)
{
    constexpr double huge = 1e200;
    for (const bool isSpoilt : {false, true}) {
        for (const double rate : {1.0, 0.0, huge}) {
            for (const unsigned long count : {1UL, 8UL, 31UL, 64UL}) {
                Atoms atoms(2, 1, count, 1);
                atoms.mPs[0] = 0.0;
                atoms.mPs[3] = -0.0;
                atoms.mD[1] *= rate;
                atoms.mNu[3] *= rate;
                if (isSpoilt) {
                    spoil(atoms.mRho, 1);
                }
                Values expected = atoms.mTerms;
                QV_FieldKernel::addPolarization(QV_InstructionSet::PLAIN, atoms.mAtoms, 0.375,
                                                count, atoms.rho(), expected.data());
                if (!isSpoilt && rate < huge) {
                    EXPECT_EQ(expected[0],
                              atoms.mTerms[0]
                                  + 0.375 * polarizationByDefinition(atoms.mAtoms, atoms.rho(), 0));
                }
                for (const Level level : levels()) {
                    Values terms = atoms.mTerms;
                    QV_FieldKernel::addPolarization(level, atoms.mAtoms, 0.375, count, atoms.rho(),
                                                    terms.data());
                    EXPECT_TRUE(isSameOrNone(terms, expected))
                        << QV_InstructionSet::getName(level) << ", " << count << " nodes, rate "
                        << rate << (isSpoilt ? ", spoilt" : "");
                }
            }
        }
    }
}

TEST(QV_FieldKernel, ThePolarizationOfTwoLevelsByHand)
{
    const Values P{0.0, 2.0, 3.0, 0.0};
    const Values D{-1.0, 4.0, 1.0, -4.0};
    const Values Nu{0.0, 0.0, 0.5, 2.0, 0.5, -2.0, 0.0, 0.0};
    const Values rho{0.75, 0.0, 0.125, 0.25, 0.125, -0.25, 0.25, 0.0};
    const QV_Atoms atoms{2, 1, P.data(), nullptr, D.data(), Nu.data(), nullptr, 0.0, 0.5, 0.0, 0};
    // X[0][1] = -(0.5 * 0.125 - 2 * 0.25) = 0.4375, and X[1][0] is the same. The diagonal of X meets zeros
    // of P.
    Values terms{1.0};
    QV_FieldKernel::addPolarization(QV_InstructionSet::best(), atoms, 2.0, 1, rho.data(),
                                    terms.data());
    EXPECT_EQ(terms, Values{1.0 + 2.0 * 0.5 * (0.4375 * 2.0 + 0.4375 * 3.0)});
    // The first population's rate takes the coherence of its row: -1 * 0.75 + 4 * 0.125.
    const Values diagonal{1.0, 0.0, 0.0, 0.0};
    const QV_Atoms charged{2,   1, diagonal.data(), nullptr, D.data(), Nu.data(), nullptr, 0.0, 1.0,
                           0.0, 0};
    terms = {0.0};
    QV_FieldKernel::addPolarization(QV_InstructionSet::best(), charged, 1.0, 1, rho.data(),
                                    terms.data());
    EXPECT_EQ(terms, Values{-0.25});
}
