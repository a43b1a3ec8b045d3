#include "quorvex/QV_1DMaxwell.h"

#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_ClassFactory.h"
#include "quorvex/QV_Field.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Values = std::vector<double>;

constexpr unsigned char NO_SHAPE = 7; ///< Leaves the source as the test has set it.

/// Numbers between -1 and 1, the same at each start.
class Numbers
{
public:
    double next()
    {
        mState = mState * 6364136223846793005UL + 1442695040888963407UL;
        return static_cast<double>(mState >> 11) / 4503599627370496.0 - 1.0;
    }

private:
    unsigned long mState = 88172645463325252UL;
};

/// The leapfrog written out node by node and component by component.
struct Leapfrog
{
    unsigned long mComponents;
    unsigned long mLines;
    double mDz;
    long mFirst;
    long mLast;
    bool mIsLaser;
    bool mIsReflexive;
    double mR;
    std::vector<Values> mE;
    std::vector<Values> mB;
    Values mMoving;
    Values mE1Old;
    Values mEn1Old;

    static double sign(unsigned long j) { return j % 2 == 0 ? 1.0 : -1.0; }
    unsigned long next(unsigned long j) const { return (j + 1) % mComponents; }

    void faraday(double dt, const Values& source)
    {
        const double r1 = dt / mDz;
        for (unsigned long i = 0; i < mLines; ++i) {
            for (unsigned long j = 0; j < mComponents; ++j) {
                mB[i][next(j)] -= sign(j) * r1 * (mE[i + 1][j] - mE[i][j]);
            }
        }
        for (unsigned long j = 0; j < mComponents; ++j) {
            mB[0][next(j)] += sign(j) * r1 * source[j];
        }
    }
    /// `terms` holds the polarization of the active nodes.
    void ampere(double dt, const std::vector<Values>& terms)
    {
        const double r1 = dt / mDz;
        for (long i = mFirst; i <= mLast; ++i) {
            const auto node = static_cast<unsigned long>(i);
            for (unsigned long j = 0; j < mComponents; ++j) {
                const double after = node < mLines ? mB[node][next(j)] : 0.0;
                const double before = node > 0 ? mB[node - 1][next(j)] : 0.0;
                mE[node][j] = mE[node][j]
                              - (sign(j) * r1 * (after - before)
                                 + dt * terms[static_cast<unsigned long>(i - mFirst)][j]);
            }
        }
        ampereOutside(dt, true);
    }
    void ampereOutside(double dt, bool isFromAmpere)
    {
        const double r1 = dt / mDz;
        const double coef = (1.0 - r1) / (1.0 + r1);
        for (unsigned long i = 1; i < mLines; ++i) {
            const auto node = static_cast<long>(i);
            for (unsigned long j = 0; (node < mFirst || node > mLast) && j < mComponents; ++j) {
                mE[i][j] -= sign(j) * r1 * (mB[i][next(j)] - mB[i - 1][next(j)]);
            }
        }
        const bool isAbsorbing = !mIsLaser && !mIsReflexive;
        for (unsigned long j = 0; j < mComponents; ++j) {
            const double Es = mMoving[j];
            const double Enew = Es - sign(j) * r1 * (mB[1][next(j)] - mB[0][next(j)]);
            const double scattered = (mE[0][j] - mE[1][j] + Enew) * coef;
            if (isAbsorbing) {
                mE[0][j] = mE1Old[j] - Es + scattered;
            } else {
                mE[0][j] = mR * mE[0][j] + mE1Old[j] - Es + scattered;
            }
            if (mIsReflexive || (mIsLaser && isFromAmpere)) {
                mE[mLines][j] = mR * mE[mLines][j];
            }
            mMoving[j] = Enew;
            mE1Old[j] = mE[1][j];
        }
        for (unsigned long j = 0; isAbsorbing && j < mComponents; ++j) {
            mE[mLines][j] = (mE[mLines][j] - mE[mLines - 1][j]) * coef + mEn1Old[j];
            mEn1Old[j] = mE[mLines - 1][j];
        }
    }
};

/// A problem with cells of 1 and fields that tests set and look at.
class QV_1DMaxwellTest : public testing::Test
{
protected:
    /// Makes the mesh and zero fields. The active zone goes from node `first` to node `last`.
    void makeMesh(unsigned long nodes, long first, long last, unsigned long components = 1)
    {
        const auto position = [nodes](long node) {
            return 100.0 * (static_cast<double>(node) + 1.5) / static_cast<double>(nodes);
        };
        mProblem.milieu().setCaracteristicLength(20.0);
        mProblem.milieu().setLength(static_cast<double>(nodes) + 0.5);
        mProblem.milieu().setStartingPosition(position(first));
        mProblem.milieu().setEndingPosition(position(last));
        maxwell().setDimension(components);
        printedBy([this] {
            mProblem.milieu().create();
            maxwell().initialize(1.0);
        });
        ASSERT_EQ(mProblem.milieu().getBoundaryLocation(QV_Milieu::FIRST_NODE), first);
        ASSERT_EQ(mProblem.milieu().getBoundaryLocation(QV_Milieu::LAST_NODE), last);
        setSource(Values(components, 0.0));
    }
    /// The incident wave has these values at every time.
    void setSource(const Values& values) const
    {
        const COM_Scoped source(LA_RealVector::New(0));
        source->setValues(values);
        mProblem.wave().setIncidentField(*source);
        mProblem.wave().setIncidentFieldsType(NO_SHAPE);
    }
    QV_1DMaxwell& maxwell() const { return mProblem.maxwell(); }
    QV_Field& E() const { return *maxwell().getField(QV_Maxwell::E_FIELD); }
    QV_Field& B() const { return *maxwell().getField(QV_Maxwell::B_FIELD); }
    static void set(QV_Field& field, const Values& values)
    {
        ASSERT_EQ(values.size(), field.getSize() * field.getDimension());
        std::copy(values.begin(), values.end(), field.getValues());
    }
    static Values valuesOf(const QV_Field& field)
    {
        return {field.getValues(), field.getValues() + field.getSize() * field.getDimension()};
    }
    /// The description of the vector that the system keeps under a key.
    std::string keptVector(const std::string& key) const
    {
        const COM_Scoped factory(QV_ClassFactory::New());
        const COM_Scoped node(MM_Class::New());
        node->setId("system");
        factory->addToMetaClasses(*node);
        maxwell().saveToMetaClass(*node);
        std::string identity;
        node->getFromMetaFields(key)->getFromMetaValue(identity);
        return Description::textOf(*factory->getFromMetaClasses(identity));
    }

    TestProblem mProblem;
};

} // namespace

// ---------------------------------------------------------------- Faraday

TEST_F(QV_1DMaxwellTest, FaradayTakesTheDifferenceOfItsEndsAndTheSourceAtTheFirstLine)
{
    makeMesh(4, 1, 2);
    set(E(), {1.0, 3.0, 7.0, 15.0});
    set(B(), {10.0, 20.0, 30.0});
    setSource({0.5});
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.25));
    EXPECT_EQ(valuesOf(B()),
              (Values{10.0 - 0.25 * 2.0 + 0.25 * 0.5, 20.0 - 0.25 * 4.0, 30.0 - 0.25 * 8.0}));
    EXPECT_EQ(valuesOf(E()), (Values{1.0, 3.0, 7.0, 15.0}));
}

TEST_F(QV_1DMaxwellTest, FaradayOfTwoComponentsCrossesThemWithOppositeSigns)
{
    makeMesh(3, 1, 1, 2);
    set(E(), {1.0, 2.0, 3.0, 6.0, 7.0, 14.0});
    set(B(), {100.0, 200.0, 300.0, 400.0});
    setSource({8.0, 16.0});
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.5));
    EXPECT_EQ(valuesOf(B()), (Values{100.0 + 0.5 * 4.0 - 0.5 * 16.0, 200.0 - 0.5 * 2.0 + 0.5 * 8.0,
                                     300.0 + 0.5 * 8.0, 400.0 - 0.5 * 4.0}));
}

TEST_F(QV_1DMaxwellTest, FaradayOfThreeComponentsGoesRoundWithAlternatingSigns)
{
    makeMesh(3, 1, 1, 3);
    set(E(), {0.0, 0.0, 0.0, 1.0, 2.0, 4.0, 1.0, 2.0, 4.0});
    setSource({8.0, 16.0, 32.0});
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.5));
    EXPECT_EQ(valuesOf(B()), (Values{-0.5 * 4.0 + 0.5 * 32.0, -0.5 * 1.0 + 0.5 * 8.0,
                                     0.5 * 2.0 - 0.5 * 16.0, 0.0, 0.0, 0.0}));
}

TEST_F(QV_1DMaxwellTest, FaradayAsksTheWaveForTheValueOfItsTime)
{
    makeMesh(4, 1, 2);
    mProblem.wave().resetIncidentField();
    mProblem.wave().setIncidentFieldsType(QV_IncidentFields::MARCHE_TYPE);
    mProblem.wave().setWavePackageDuration(2.0);
    mProblem.wave().adimensionize(1.0);
    maxwell().solveFaraday(2.0, 0.5);
    EXPECT_EQ(valuesOf(B()), Values(3, 0.0));
    maxwell().solveFaraday(2.5, 0.5);
    EXPECT_EQ(valuesOf(B()), (Values{0.5, 0.0, 0.0}));
}

TEST_F(QV_1DMaxwellTest, FaradayWithoutAWaveIsTheDifferenceAlone)
{
    makeMesh(3, 1, 1);
    maxwell().resetIncidentFields();
    set(E(), {1.0, 3.0, 7.0});
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.5));
    EXPECT_EQ(valuesOf(B()), (Values{-1.0, -2.0}));
}

TEST_F(QV_1DMaxwellTest, ASourceShorterThanTheFieldCountsAsZeroInWhatItLacks)
{
    makeMesh(3, 1, 1, 2);
    setSource({8.0});
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.5));
    EXPECT_EQ(valuesOf(B()), (Values{0.0, 4.0, 0.0, 0.0}));
}

// ---------------------------------------------------------------- the ends

namespace {

struct Ends
{
    std::string mName;
    bool mIsLaser;
    bool mIsReflexive;
    bool mIsFromAmpere;
    Values mFirstOfOne; ///< Node 0 after the first and the second step, one component.
    Values mLastOfOne;
    Values mFirstOfTwo; ///< The same for the second of two components.
    Values mLastOfTwo;

    friend std::ostream& operator<<(std::ostream& out, const Ends& tested)
    {
        return out << tested.mName;
    }
};

class QV_1DMaxwellEndsTest : public QV_1DMaxwellTest, public testing::WithParamInterface<Ends>
{
protected:
    /// Five nodes with one, empty, active node. A step of three cells, which no run would take, has the
    /// absorbing factor -1/2 and so gives round numbers.
    void makeEnds(unsigned long components)
    {
        makeMesh(5, 2, 2, components);
        QV_Bloch::setAtomsNumber(0.0);
        maxwell().setLaserType(GetParam().mIsLaser);
        maxwell().setReflexiveLaserType(GetParam().mIsReflexive);
        maxwell().setLaserReflectorFactor(0.25);
    }
    void step() const
    {
        if (GetParam().mIsFromAmpere) {
            EXPECT_TRUE(maxwell().solveAmpere(1.0, 3.0));
        } else {
            EXPECT_TRUE(maxwell().solveAmpereZiolko(1.0, 3.0));
        }
    }
};

} // namespace

TEST_P(QV_1DMaxwellEndsTest, OneComponentByHand)
{
    makeEnds(1);
    set(E(), {1.0, 2.0, 4.0, 8.0, 16.0});
    set(B(), {10.0, 20.0, 40.0, 80.0});
    const double middle = GetParam().mIsFromAmpere ? -3.0 * (40.0 - 20.0) : 0.0;
    step();
    EXPECT_EQ(valuesOf(E()), (Values{GetParam().mFirstOfOne[0], 2.0 - 30.0, 4.0 + middle,
                                     8.0 - 120.0, GetParam().mLastOfOne[0]}));
    step();
    EXPECT_EQ(valuesOf(E()), (Values{GetParam().mFirstOfOne[1], 2.0 - 60.0, 4.0 + 2.0 * middle,
                                     8.0 - 240.0, GetParam().mLastOfOne[1]}));
    EXPECT_EQ(valuesOf(B()), (Values{10.0, 20.0, 40.0, 80.0}));
}

TEST_P(QV_1DMaxwellEndsTest, TwoComponentsByHand)
{
    makeEnds(2);
    set(E(), {1.0, 1.0, 2.0, 2.0, 4.0, 4.0, 8.0, 8.0, 16.0, 16.0});
    // The first component of B drives the second of E, with the other sign.
    set(B(), {1.0, 10.0, 2.0, 20.0, 4.0, 40.0, 8.0, 80.0});
    const double middle = GetParam().mIsFromAmpere ? 3.0 : 0.0;
    for (unsigned long k = 0; k < 2; ++k) {
        step();
        const double steps = static_cast<double>(k) + 1.0;
        EXPECT_EQ(valuesOf(E()),
                  (Values{GetParam().mFirstOfOne[k], GetParam().mFirstOfTwo[k], 2.0 - 30.0 * steps,
                          2.0 + 3.0 * steps, 4.0 - 20.0 * middle * steps,
                          4.0 + 2.0 * middle * steps, 8.0 - 120.0 * steps, 8.0 + 12.0 * steps,
                          GetParam().mLastOfOne[k], GetParam().mLastOfTwo[k]}));
    }
}

// Absorbing, one component: E[1] = -28 and Enew = -30, so E[0] = (1 + 28 - 30) * -1/2, and
// E[4] = (16 + 112) * -1/2; then E[1] = -58, Es = -30, Enew = -60, so
// E[0] = -28 + 30 + (1/2 + 58 - 60) * -1/2 and E[4] = (-64 + 232) * -1/2 - 112.
INSTANTIATE_TEST_SUITE_P(
    Modes, QV_1DMaxwellEndsTest,
    testing::Values(
        Ends{"Absorbing", false, false, false, {0.5, 2.75}, {-64, -196}, {0.5, 2.75}, {2, 35}},
        Ends{"AbsorbingFromAmpere",
             false,
             false,
             true,
             {0.5, 2.75},
             {-64, -196},
             {0.5, 2.75},
             {2, 35}},
        Ends{"Laser", true, false, false, {0.75, 2.8125}, {16, 16}, {0.75, 2.8125}, {16, 16}},
        Ends{"LaserFromAmpere", true, false, true, {0.75, 2.8125}, {4, 1}, {0.75, 2.8125}, {4, 1}},
        Ends{"Reflexive", false, true, false, {0.75, 2.8125}, {4, 1}, {0.75, 2.8125}, {4, 1}},
        Ends{"ReflexiveFromAmpere",
             false,
             true,
             true,
             {0.75, 2.8125},
             {4, 1},
             {0.75, 2.8125},
             {4, 1}},
        Ends{"BothLasers", true, true, false, {0.75, 2.8125}, {4, 1}, {0.75, 2.8125}, {4, 1}},
        Ends{"BothLasersFromAmpere",
             true,
             true,
             true,
             {0.75, 2.8125},
             {4, 1},
             {0.75, 2.8125},
             {4, 1}}),
    [](const auto& ends) { return ends.param.mName; });

TEST_F(QV_1DMaxwellTest, AStepOfOneCellTakesTheNeighboursOfOneStepAgoToTheEnds)
{
    makeMesh(5, 2, 2);
    set(E(), {7.0, 2.0, 0.0, 8.0, 9.0});
    set(B(), {1.0, 3.0, 5.0, 4.0});
    maxwell().solveAmpereZiolko(1.0, 1.0);
    // Before the first step all three kept values are zero.
    EXPECT_EQ(valuesOf(E()), (Values{0.0, 0.0, 0.0, 9.0, 0.0}));
    maxwell().solveAmpereZiolko(2.0, 1.0);
    // E[1] was 0 and the incident wave -2; E[3] was 9.
    EXPECT_EQ(valuesOf(E()), (Values{2.0, -2.0, 0.0, 10.0, 9.0}));
}

TEST_F(QV_1DMaxwellTest, TheLaserDampsItsRightEndInAmpereAloneWhateverHasGoneBefore)
{
    makeMesh(5, 2, 2);
    maxwell().setLaserType(true);
    maxwell().setLaserReflectorFactor(0.25);
    E().initValues(16.0);
    maxwell().solveAmpere(1.0, 1.0);
    EXPECT_EQ(E()[4][0], 4.0);
    maxwell().solveAmpereZiolko(2.0, 1.0);
    EXPECT_EQ(E()[4][0], 4.0);
    maxwell().solveAmpere(3.0, 1.0);
    EXPECT_EQ(E()[4][0], 1.0);
}

TEST_F(QV_1DMaxwellTest, TheEndsNeverTouchTheActiveNodes)
{
    makeMesh(8, 2, 5);
    E().initValues(1.0);
    set(B(), {1.0, 3.0, 5.0, 4.0, 9.0, 7.0, 1.0});
    maxwell().solveAmpereZiolko(1.0, 0.5);
    for (unsigned long i = 2; i <= 5; ++i) {
        EXPECT_EQ(E()[i][0], 1.0) << i;
    }
    EXPECT_EQ(E()[1][0], 0.0);
    EXPECT_EQ(E()[6][0], 4.0);
}

TEST_F(QV_1DMaxwellTest, WithTheLastActiveNodeAtTheMeshsEndNothingLiesBehindIt)
{
    makeMesh(6, 2, 5);
    E().initValues(1.0);
    set(B(), {1.0, 3.0, 5.0, 4.0, 9.0});
    maxwell().solveAmpereZiolko(1.0, 1.0);
    // The end's own formula is the same in every mesh.
    EXPECT_EQ(valuesOf(E()), (Values{0.0, -1.0, 1.0, 1.0, 1.0, 0.0}));
}

// ---------------------------------------------------------------- all together

namespace {

struct Walk
{
    unsigned long mComponents;
    int mEnds; ///< Bit 0: laser, bit 1: reflexive.
    bool mIsWithAtoms;
    long mFirst;
    long mLast;

    std::string name() const
    {
        return std::to_string(mComponents) + "ComponentsEnds" + std::to_string(mEnds)
               + (mIsWithAtoms ? "Ampere" : "Ziolko") + std::to_string(mFirst) + "To"
               + std::to_string(mLast);
    }
    friend std::ostream& operator<<(std::ostream& out, const Walk& tested)
    {
        return out << tested.name();
    }
};

std::vector<Walk> walks()
{
    std::vector<Walk> all;
    for (unsigned long components = 1; components <= 3; ++components) {
        for (int ends = 0; ends < 4; ++ends) {
            for (const bool isWithAtoms : {false, true}) {
                all.push_back({components, ends, isWithAtoms, 3, 12});
            }
        }
        // An active zone that touches the ends, one node alone, and one that leaves no empty node.
        all.push_back({components, 0, true, 0, 12});
        all.push_back({components, 0, true, 3, 19});
        all.push_back({components, 0, true, 0, 19});
        all.push_back({components, 0, true, 7, 7});
        all.push_back({components, 0, true, 1, 18});
    }
    return all;
}

class QV_1DMaxwellWalkTest : public QV_1DMaxwellTest, public testing::WithParamInterface<Walk>
{
protected:
    /// Two systems with densities, weights 0.75 and 0.5, scaled data in round numbers.
    void makeAtoms()
    {
        mProblem.addSystem();
        const COM_Scoped factors(LA_RealVector::New(0));
        factors->setValues(0.75, 0.5, 1000.0); // the third belongs to nobody
        maxwell().setPolarizationTermFactors(*factors);
        QV_Bloch::setPolarizationsSize(GetParam().mComponents);
        for (unsigned long b = 0; b < 2; ++b) {
            printedBy([this, b] { mProblem.bloch(b).initialize(1e12, 1e-29, 1e9); });
            for (unsigned long i = 0; i < 20; ++i) {
                const COM_Scoped density(LA_ComplexMatrix::New(2, 2));
                for (unsigned long k = 0; k < 4; ++k) {
                    density->getValues()[k] = {mNumbers.next(), mNumbers.next()};
                }
                mProblem.bloch(b).setDensity(*density, i);
            }
        }
    }
    /// The weighted polarization at each active node.
    std::vector<Values> terms() const
    {
        std::vector<Values> all;
        for (long i = GetParam().mFirst; i <= GetParam().mLast; ++i) {
            Values sum(GetParam().mComponents, 0.0);
            const COM_Scoped term(LA_RealVector::New(GetParam().mComponents));
            for (unsigned long b = 0; b < mProblem->getBlochEquations()->size(); ++b) {
                const auto node = static_cast<unsigned long>(i);
                mProblem.bloch(b).computePolarizationTermAtIndex(node, E()[node], *term);
                for (unsigned long j = 0; j < sum.size(); ++j) {
                    sum[j] += (b == 0 ? 0.75 : 0.5) * (*term)[j];
                }
            }
            all.push_back(sum);
        }
        return all;
    }
    Leapfrog leapfrog()
    {
        const unsigned long p = GetParam().mComponents;
        Leapfrog expected{p,
                          19,
                          1.0,
                          GetParam().mFirst,
                          GetParam().mLast,
                          (GetParam().mEnds & 1) != 0,
                          (GetParam().mEnds & 2) != 0,
                          0.625,
                          std::vector<Values>(20, Values(p)),
                          std::vector<Values>(19, Values(p)),
                          Values(p, 0.0),
                          Values(p, 0.0),
                          Values(p, 0.0)};
        for (unsigned long i = 0; i < 20; ++i) {
            for (unsigned long j = 0; j < p; ++j) {
                expected.mE[i][j] = E()[i][j] = mNumbers.next();
                if (i < 19) {
                    expected.mB[i][j] = B()[i][j] = mNumbers.next();
                }
            }
        }
        return expected;
    }
    static Values flat(const std::vector<Values>& cells)
    {
        Values all;
        for (const Values& cell : cells) {
            all.insert(all.end(), cell.begin(), cell.end());
        }
        return all;
    }

    Numbers mNumbers;
};

} // namespace

// The same operations in the same order, so that both agree to the last bit.
TEST_P(QV_1DMaxwellWalkTest, TwentyStepsAreThoseOfTheFormulas)
{
    makeMesh(20, GetParam().mFirst, GetParam().mLast, GetParam().mComponents);
    maxwell().setLaserType((GetParam().mEnds & 1) != 0);
    maxwell().setReflexiveLaserType((GetParam().mEnds & 2) != 0);
    maxwell().setLaserReflectorFactor(0.625);
    if (GetParam().mIsWithAtoms) {
        makeAtoms();
    }
    Leapfrog expected = leapfrog();
    const double dt = 0.7;
    for (int step = 1; step <= 20; ++step) {
        const double t = step * dt;
        Values source;
        for (unsigned long j = 0; j < GetParam().mComponents; ++j) {
            source.push_back(mNumbers.next());
        }
        setSource(source);
        EXPECT_TRUE(maxwell().solveFaraday(t, dt));
        expected.faraday(dt, source);
        ASSERT_EQ(valuesOf(B()), flat(expected.mB)) << step;
        if (GetParam().mIsWithAtoms) {
            expected.ampere(dt, terms());
            EXPECT_TRUE(maxwell().solveAmpere(t, dt));
        } else {
            expected.ampereOutside(dt, false);
            EXPECT_TRUE(maxwell().solveAmpereZiolko(t, dt));
        }
        ASSERT_EQ(valuesOf(E()), flat(expected.mE)) << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Walks, QV_1DMaxwellWalkTest, testing::ValuesIn(walks()),
                         [](const auto& walk) { return walk.param.name(); });

// ---------------------------------------------------------------- weights

namespace {

/// Three systems of which system b has the polarization 2^b at the only active node.
class QV_1DMaxwellWeightsTest : public QV_1DMaxwellTest
{
protected:
    QV_1DMaxwellWeightsTest()
    {
        makeMesh(5, 2, 2);
        mProblem.addSystem();
        mProblem.addSystem();
        for (unsigned long b = 0; b < 3; ++b) {
            printedBy([this, b] { mProblem.bloch(b).initialize(1e12, 1e-29, 1e9); });
            const COM_Scoped density(LA_ComplexMatrix::New(2, 2));
            density->setValue(0, 1, 1.0);
            const COM_Scoped term(LA_RealVector::New(1));
            mProblem.bloch(b).computePolarizationTerm(*density, nullptr, *term);
            density->multipliedBy(static_cast<double>(1UL << b) / (*term)[0]);
            mProblem.bloch(b).setDensity(*density, 2);
            mProblem.bloch(b).computePolarizationTermAtIndex(2, nullptr, *term);
            // One rounding in the quotient and one in each product.
            EXPECT_NEAR((*term)[0], static_cast<double>(1UL << b), 4e-15);
        }
    }
    /// What one step of length 1 takes from the active node's field.
    double taken() const
    {
        E().initValues(0.0);
        maxwell().solveAmpere(1.0, 1.0);
        return -E()[2][0];
    }
    void setWeights(const Values& values) const
    {
        const COM_Scoped factors(LA_RealVector::New(0));
        factors->setValues(values);
        maxwell().setPolarizationTermFactors(*factors);
    }

    static constexpr double rounding = 1e-13;
};

} // namespace

TEST_F(QV_1DMaxwellWeightsTest, WithoutWeightsTheSystemsCountEqually)
{
    EXPECT_NEAR(taken(), (1.0 + 2.0 + 4.0) / 3.0, rounding);
    ASSERT_NE(maxwell().getPolarizationTermFactors(), nullptr);
    EXPECT_EQ(maxwell().getPolarizationTermFactors()->getReferenceCount(), 1);
    ASSERT_EQ(maxwell().getPolarizationTermFactors()->getDimension(), 3UL);
    for (unsigned long b = 0; b < 3; ++b) {
        EXPECT_EQ(maxwell().getPolarizationTermFactors()->getValue(b), 1.0 / 3.0);
    }
}

TEST_F(QV_1DMaxwellWeightsTest, WeightsAreNotNormalised)
{
    setWeights({10.0, 100.0, 1000.0});
    EXPECT_NEAR(taken(), 10.0 + 200.0 + 4000.0, 4e3 * rounding);
}

TEST_F(QV_1DMaxwellWeightsTest, WeightsBeyondTheSystemsAreNotRead)
{
    setWeights({1.0, 0.0, 0.0, 1e30});
    EXPECT_NEAR(taken(), 1.0, rounding);
}

TEST_F(QV_1DMaxwellWeightsTest, MissingWeightsAreZeroAndTheVectorStaysShort)
{
    setWeights({1.0, 1.0});
    EXPECT_NEAR(taken(), 3.0, rounding);
    EXPECT_EQ(maxwell().getPolarizationTermFactors()->getDimension(), 2UL);
    setWeights({});
    EXPECT_EQ(taken(), 0.0);
}

TEST_F(QV_1DMaxwellWeightsTest, TheDefaultWeightsStayWhenASystemIsAdded)
{
    taken();
    mProblem->removeLastBlochEquation();
    EXPECT_NEAR(taken(), (1.0 + 2.0) / 3.0, rounding);
}

TEST_F(QV_1DMaxwellWeightsTest, WithoutSystemsTheWeightsAreEmptyAndNothingIsTaken)
{
    mProblem->resetBlochEquations();
    EXPECT_EQ(taken(), 0.0);
    ASSERT_NE(maxwell().getPolarizationTermFactors(), nullptr);
    EXPECT_EQ(maxwell().getPolarizationTermFactors()->getDimension(), 0UL);
}

// ---------------------------------------------------------------- what is missing

TEST_F(QV_1DMaxwellTest, WithoutFieldsEveryStepIsTrueAndDoesNothing)
{
    const COM_Scoped maxwell(QV_1DMaxwell::New());
    EXPECT_TRUE(maxwell->solveFaraday(1.0, 0.1));
    EXPECT_TRUE(maxwell->solveAmpere(1.0, 0.1));
    EXPECT_TRUE(maxwell->solveAmpereZiolko(1.0, 0.1));
    EXPECT_EQ(maxwell->getDz(), -1.0);
    EXPECT_EQ(maxwell->getPolarizationTermFactors(), nullptr);
}

TEST_F(QV_1DMaxwellTest, WithoutLinesEveryStepIsTrueAndDoesNothing)
{
    const COM_Scoped E(QV_Field::New(1, 1));
    const COM_Scoped B(QV_Field::New(0, 1));
    E->initValues(5.0);
    maxwell().setField(QV_Maxwell::E_FIELD, *E);
    maxwell().setField(QV_Maxwell::B_FIELD, *B);
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.1));
    EXPECT_TRUE(maxwell().solveAmpere(1.0, 0.1));
    EXPECT_TRUE(maxwell().solveAmpereZiolko(1.0, 0.1));
    EXPECT_EQ(E->getValue(0, 0), 5.0);
    EXPECT_EQ(maxwell().getDz(), -1.0);
    EXPECT_EQ(maxwell().getFirstNode(), -1);
}

TEST_F(QV_1DMaxwellTest, FieldsThatDoNotFitEachOtherAreLeftAlone)
{
    makeMesh(5, 2, 2);
    const COM_Scoped shortE(QV_Field::New(4, 1));
    shortE->initValues(5.0);
    maxwell().setField(QV_Maxwell::E_FIELD, *shortE);
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.1));
    EXPECT_TRUE(maxwell().solveAmpere(1.0, 0.1));
    EXPECT_EQ(valuesOf(*shortE), Values(4, 5.0));
    const COM_Scoped otherE(QV_Field::New(5, 2));
    maxwell().setField(QV_Maxwell::E_FIELD, *otherE);
    EXPECT_TRUE(maxwell().solveAmpereZiolko(1.0, 0.1));
    EXPECT_EQ(valuesOf(B()), Values(4, 0.0));
}

TEST_F(QV_1DMaxwellTest, ASingleLineHasNoneBehindIt)
{
    makeMesh(3, 1, 1);
    const COM_Scoped E(QV_Field::New(2, 1));
    const COM_Scoped B(QV_Field::New(1, 1));
    set(*E, {1.0, 3.0});
    maxwell().setField(QV_Maxwell::E_FIELD, *E);
    maxwell().setField(QV_Maxwell::B_FIELD, *B);
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.5));
    EXPECT_EQ(valuesOf(*B), Values{-1.0});
    // Node 1 is active: 3 - 3 * (0 + 1). Then Enew = -3 * (0 + 1), E[0] = (1 - 0 - 3) * -1/2 and
    // E[1] = (0 - 1) * -1/2.
    EXPECT_TRUE(maxwell().solveAmpere(1.0, 3.0));
    EXPECT_EQ(valuesOf(*E), (Values{1.0, 0.5}));
}

// ---------------------------------------------------------------- what is kept

TEST_F(QV_1DMaxwellTest, TheFirstStepReadsTheMeshAndLaterOnesKeepIt)
{
    makeMesh(10, 2, 7);
    EXPECT_EQ(maxwell().getDz(), -1.0);
    maxwell().solveFaraday(1.0, 0.5);
    EXPECT_EQ(maxwell().getDz(), 1.0);
    EXPECT_EQ(maxwell().getFirstNode(), -1);
    maxwell().solveAmpereZiolko(1.0, 0.5);
    EXPECT_EQ(maxwell().getFirstNode(), 2);
    EXPECT_EQ(maxwell().getLastNode(), 7);
    mProblem.milieu().setDiscretizationNumber(40);
    printedBy([this] {
        mProblem.milieu().create();
        maxwell().initialize(1.0);
    });
    EXPECT_EQ(QV_Milieu::getCellLength(), 0.5);
    maxwell().solveFaraday(2.0, 0.5);
    maxwell().solveAmpere(2.0, 0.5);
    EXPECT_EQ(maxwell().getDz(), 1.0);
    EXPECT_EQ(maxwell().getFirstNode(), 2);
    EXPECT_EQ(maxwell().getLastNode(), 7);
    EXPECT_EQ(E().getSize(), 21UL);
}

TEST_F(QV_1DMaxwellTest, TheStateOfTheEndsOutlivesANewStart)
{
    makeMesh(5, 2, 2);
    set(E(), {7.0, 2.0, 0.0, 8.0, 9.0});
    set(B(), {1.0, 3.0, 5.0, 4.0});
    maxwell().solveAmpereZiolko(1.0, 1.0);
    EXPECT_EQ(valuesOf(E())[3], 9.0);
    printedBy([this] { maxwell().initialize(1.0); });
    // Zero fields, but E[1] was 0, E[3] was 9 and the wave outside node 0 was -2.
    maxwell().solveAmpereZiolko(1.0, 1.0);
    EXPECT_EQ(valuesOf(E()), (Values{2.0, 0.0, 0.0, 0.0, 9.0}));
}

TEST_F(QV_1DMaxwellTest, TheKeptStateIsSavedAndGoesOnWhereItWas)
{
    makeMesh(5, 2, 2);
    set(E(), {7.0, 2.0, 0.0, 8.0, 9.0});
    set(B(), {1.0, 3.0, 5.0, 4.0});
    maxwell().solveAmpereZiolko(1.0, 1.0);
    const std::string file = mProblem.directory().file("project.xml");
    COM_Scoped(QV_ClassFactory::New())->save(file, *mProblem);
    const COM_Scoped restored(QV_1DProblem::New());
    printedBy([&] { COM_Scoped(QV_ClassFactory::New())->load(file, *restored); });
    auto& system = dynamic_cast<QV_1DMaxwell&>(*restored->getMaxwellSystem());
    EXPECT_NE(&system, &maxwell());
    EXPECT_EQ(system.getDz(), 1.0);
    EXPECT_EQ(system.getFirstNode(), 2);
    EXPECT_EQ(system.getLastNode(), 2);
    EXPECT_EQ(valuesOf(*system.getField(QV_Maxwell::E_FIELD)), valuesOf(E()));
    EXPECT_EQ(valuesOf(*system.getField(QV_Maxwell::B_FIELD)), valuesOf(B()));
    system.getField(QV_Maxwell::E_FIELD)->initValues(0.0);
    system.getField(QV_Maxwell::B_FIELD)->initValues(0.0);
    system.solveAmpereZiolko(2.0, 1.0);
    EXPECT_EQ(valuesOf(*system.getField(QV_Maxwell::E_FIELD)), (Values{2.0, 0.0, 0.0, 0.0, 9.0}));
}

TEST_F(QV_1DMaxwellTest, ACellSizeOfZeroIsReadAgain)
{
    makeMesh(5, 2, 2);
    printedBy([this] { mProblem.milieu().adimensionize(HUGE_VAL); });
    maxwell().solveFaraday(1.0, 0.5);
    EXPECT_EQ(maxwell().getDz(), 0.0);
    printedBy([this] {
        mProblem.milieu().create();
        maxwell().initialize(1.0);
    });
    maxwell().solveFaraday(1.0, 0.5);
    EXPECT_EQ(maxwell().getDz(), 1.0);
}

TEST_F(QV_1DMaxwellTest, AKeptZoneWithOneUnknownEndIsReadAgainAtBoth)
{
    const std::pair<long, long> zones[] = {{3, -1}, {-1, 5}};
    for (const auto& [first, last] : zones) {
        const COM_Scoped node(MM_Class::New());
        node->addAttributeToMetaFields("mIFirst", first);
        node->addAttributeToMetaFields("mILast", last);
        printedBy([&] { maxwell().loadFromMetaClass(*node); });
        ASSERT_EQ(maxwell().getFirstNode(), first);
        ASSERT_EQ(maxwell().getLastNode(), last);
        makeMesh(10, 2, 7);
        maxwell().solveAmpereZiolko(1.0, 0.5);
        EXPECT_EQ(maxwell().getFirstNode(), 2);
        EXPECT_EQ(maxwell().getLastNode(), 7);
    }
}

TEST_F(QV_1DMaxwellTest, AKeptZoneLargerThanTheNewMeshIsCutToIt)
{
    makeMesh(20, 3, 15);
    maxwell().solveAmpere(1.0, 0.5);
    makeMesh(8, 2, 5);
    E().initValues(1.0);
    B().initValues(1.0);
    EXPECT_TRUE(maxwell().solveFaraday(1.0, 0.5));
    EXPECT_TRUE(maxwell().solveAmpere(1.0, 0.5));
    EXPECT_TRUE(maxwell().solveAmpereZiolko(1.0, 0.5));
    EXPECT_EQ(maxwell().getFirstNode(), 3);
    EXPECT_EQ(maxwell().getLastNode(), 15);
    // Beyond the last node everything is empty zone again.
    makeMesh(3, 1, 1);
    E().initValues(1.0);
    set(B(), {1.0, 2.0});
    EXPECT_TRUE(maxwell().solveAmpere(1.0, 0.5));
    EXPECT_EQ(E()[1][0], 1.0 - 0.5 * 1.0);
}

TEST_F(QV_1DMaxwellTest, KeptStateOfFewerComponentsCountsAsZeroAndIsNotEnlarged)
{
    makeMesh(5, 2, 2, 1);
    maxwell().solveAmpereZiolko(1.0, 1.0);
    makeMesh(5, 2, 2, 2);
    E().initValues(5.0);
    set(B(), {0.0, 1.0, 1.0, 3.0, 1.0, 3.0, 1.0, 4.0});
    maxwell().solveAmpereZiolko(1.0, 1.0);
    EXPECT_EQ(E()[0][1], 0.0);
    EXPECT_EQ(E()[4][1], 0.0);
    maxwell().solveAmpereZiolko(1.0, 1.0);
    // The first component goes on with what it has kept; the second starts from zero each time.
    EXPECT_EQ(E()[0][0], 3.0 + 2.0);
    EXPECT_EQ(E()[0][1], 0.0);
    EXPECT_EQ(E()[4][0], 4.0);
    EXPECT_EQ(E()[4][1], 0.0);
    EXPECT_EQ(keptVector("mE1Old"), "{mDimension=[1] mValues=[1.000000e+00]}");
    EXPECT_EQ(keptVector("mEn1Old"), "{mDimension=[1] mValues=[3.000000e+00]}");
    EXPECT_EQ(keptVector("mMovingIncidentFieldValue"), "{mDimension=[1] mValues=[-4.000000e+00]}");
}
