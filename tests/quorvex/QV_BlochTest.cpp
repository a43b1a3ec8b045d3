#include "quorvex/QV_Bloch.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Vertex.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_ClassFactory.h"
#include "quorvex/QV_Maxwell.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <cstdio>
#include <iostream>
#include <limits>
#include <string>
#include <sys/resource.h>
#include <utility>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Values = std::vector<double>;
using Complexes = std::vector<Complex>;
using Names = std::vector<std::string>;

constexpr double hbarOverK = 7.63649529326575e-12;
constexpr double infinite = std::numeric_limits<double>::infinity();

template <typename Matrix>
auto valuesOf(const Matrix* matrix)
{
    using T = std::remove_cvref_t<decltype(*matrix->getValues())>;
    return std::vector<T>(matrix->getValues(),
                          matrix->getValues()
                              + matrix->getLinesNumber() * matrix->getColumnsNumber());
}

Values valuesOf(const LA_RealVector* vector)
{
    return {vector->getValues(), vector->getValues() + vector->getDimension()};
}

/// A matrix as many rows as columns, or a given number of lines.
LA_RealMatrix* newMatrix(unsigned long lines, const Values& values)
{
    auto* const matrix = LA_RealMatrix::New(1, 1);
    matrix->setValues(values, lines, values.size() / lines);
    return matrix;
}

LA_ComplexMatrix* newDensity(unsigned long lines, const Complexes& values)
{
    auto* const matrix = LA_ComplexMatrix::New(1, 1);
    matrix->setValues(values, lines, values.size() / lines);
    return matrix;
}

LA_RealVector* newVector(const Values& values)
{
    auto* const vector = LA_RealVector::New(0);
    vector->setValues(values);
    return vector;
}

void expectNear(const Values& found, const Values& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (unsigned long i = 0; i < found.size(); ++i) {
        EXPECT_DOUBLE_EQ(found[i], expected[i]) << i;
    }
}

void expectNear(const Complexes& found, const Complexes& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (unsigned long i = 0; i < found.size(); ++i) {
        EXPECT_DOUBLE_EQ(found[i].real(), expected[i].real()) << i;
        EXPECT_DOUBLE_EQ(found[i].imag(), expected[i].imag()) << i;
    }
}

class QV_BlochTest : public testing::Test
{
protected:
    QV_BlochTest() { QV_Bloch::resetShared(); }
    ~QV_BlochTest() override { QV_Bloch::resetShared(); }

    /// An instance in a node of its own, for loading.
    static std::string loadedFrom(const MM_Class& node, QV_Bloch& bloch)
    {
        return printedBy([&] { bloch.loadFromMetaClass(node); });
    }
    /// A problem whose mesh has ten nodes.
    static QV_1DProblem* newSmallProblem()
    {
        auto* const problem = QV_1DProblem::New();
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem->getMilieu());
        milieu.setCaracteristicLength(2e-6);
        milieu.setDiscretizationNumber(2);
        milieu.setLength(10.5e-6);
        printedBy([&] { milieu.create(); });
        return problem;
    }
    static QV_Bloch& firstOf(QV_Problem& problem) { return (*problem.getBlochEquations())[0]; }
    static void initialize(QV_Bloch& bloch, double omegac = 2.0, double muc = 3.0,
                           double Emax = 5.0)
    {
        printedBy([&] { bloch.initialize(omegac, muc, Emax); });
    }
};

const Names keysOfAll = {"mAtomsNumber",
                         "mBeta",
                         "mConvergenceRate",
                         "mDensities",
                         "mDz",
                         "mDzeta",
                         "mExpA",
                         "mIFirst",
                         "mILast",
                         "mInitialDensity",
                         "mIterMax",
                         "mIterationsMaxNumber",
                         "mLevelsNumber",
                         "mOmega",
                         "mOmegaAdim",
                         "mPMax",
                         "mPPower",
                         "mProblem",
                         "mPs",
                         "mPsAdim",
                         "mRelaxDiag",
                         "mRelaxNut",
                         "mRelaxationType",
                         "mRhoE",
                         "mSplitType",
                         "mTemperature",
                         "mTrPPower",
                         "mTransversalRelaxation",
                         "mTransversalRelaxationAdim",
                         "mW",
                         "mWAdim"};

} // namespace

// ---------------------------------------------------------------- defaults

TEST_F(QV_BlochTest, TheSharedValuesAtProgramStartNeedNoInstance)
{
    EXPECT_EQ(QV_Bloch::getIterationsMaxNumber(), 50UL);
    EXPECT_EQ(QV_Bloch::getConvergenceRate(), 1e-6);
    EXPECT_EQ(QV_Bloch::getBeta(), hbarOverK / 300.0);
    EXPECT_EQ(QV_Bloch::getTemperature(), 300.0);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e12);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxationAdim(), 1e12);
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 2UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 0.0);
    EXPECT_EQ(QV_Bloch::getAtomsNumber(), 1e24);
    EXPECT_EQ(QV_Bloch::getSplitType(), 0);
    EXPECT_EQ(QV_Bloch::getRelaxationType(), 0);
    EXPECT_EQ(QV_Bloch::getInitialDensity(), nullptr);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation(), nullptr);
    EXPECT_EQ(QV_Bloch::getPolarizations(), nullptr);
    EXPECT_EQ(QV_Bloch::getEquilibriumDensity(), nullptr);
}

TEST_F(QV_BlochTest, TheConstantsAndNamesOfTheTypesAreFixed)
{
    EXPECT_EQ(QV_Bloch::HRN_SPLIT_TYPE, 0);
    EXPECT_EQ(QV_Bloch::RNH_SPLIT_TYPE, 1);
    EXPECT_EQ(QV_Bloch::HRNH_SPLIT_TYPE, 2);
    EXPECT_EQ(QV_Bloch::RNHRN_SPLIT_TYPE, 3);
    EXPECT_EQ(QV_Bloch::PAULI_RELAXATION_TYPE, 0);
    EXPECT_EQ(QV_Bloch::CASCADE_RELAXATION_TYPE, 1);
    EXPECT_EQ(QV_Bloch::EQUILIBRE_RELAXATION_TYPE, 2);
    EXPECT_EQ(Names(std::begin(QV_Bloch::mSplitTypesName), std::end(QV_Bloch::mSplitTypesName)),
              (Names{"", "hrn", "rnh", "hrnh", "rnhrn"}));
    EXPECT_EQ(QV_Bloch::mSplitTypesNameLength, 5UL);
    EXPECT_EQ(
        Names(std::begin(QV_Bloch::mRelaxationTypesName), std::end(QV_Bloch::mRelaxationTypesName)),
        (Names{"", "Pauli", "Cascade", "Equilibre"}));
    EXPECT_EQ(QV_Bloch::mRelaxationTypesNameLength, 4UL);
}

TEST_F(QV_BlochTest, TheFirstInstanceMakesTheSharedDefaults)
{
    const COM_Scoped bloch(QV_Bloch::New());
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), (Values{0.0, 1e-29, 1e-29, 0.0}));
    EXPECT_EQ(QV_Bloch::getPolarizations()->get(0)->getLinesNumber(), 2UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), (Values{1.303080409700614e-6, 1e8}));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{0.0, 1e8, 1e8, 0.0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{0.0, 0.0, 0.0, 1.0}));
}

TEST_F(QV_BlochTest, ANewInstanceIsUnlinkedAndHasNoScaledData)
{
    const COM_Scoped bloch(QV_Bloch::New());
    EXPECT_EQ(bloch->getTypes(), (Names{"COM_Object", "MM_Object", "QV_Object", "QV_Bloch"}));
    EXPECT_EQ(bloch->getReferenceCount(), 1);
    EXPECT_EQ(bloch->getProblem(), nullptr);
    EXPECT_EQ(bloch->getIterationsNumber(), 0UL);
    EXPECT_EQ(bloch->getFirstNode(), -1);
    EXPECT_EQ(bloch->getLastNode(), -1);
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequency()), (Values{0.0, 1.256e15}));
    ASSERT_EQ(bloch->getDensities()->size(), 1UL);
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), (Complexes{0.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(bloch->getDensity(1), nullptr);
    EXPECT_EQ(bloch->getLongitudinalRelaxationAdim(), nullptr);
    EXPECT_EQ(bloch->getLevelsFrequencyAdim(), nullptr);
    EXPECT_EQ(bloch->getPolarizationsAdim(), nullptr);
    EXPECT_EQ(bloch->getPopulationRelaxation(), nullptr);
    EXPECT_EQ(bloch->getCoherenceRelaxation(), nullptr);
    EXPECT_EQ(bloch->getPopulationPropagator(), nullptr);
    EXPECT_EQ(bloch->getPolarizationsPower()->size(), 0UL);
    EXPECT_EQ(bloch->getTracesPower(), Values{});
}

TEST_F(QV_BlochTest, FurtherInstancesLeaveTheSharedDataAndHaveTheirOwnFrequencies)
{
    const COM_Scoped first(QV_Bloch::New());
    QV_Bloch::getLongitudinalRelaxation()->setValue(0, 0, 7.0);
    QV_Bloch::setPolarizationsSize(3);
    (*first->getLevelsFrequency())[1] = 5.0;
    const COM_Scoped second(QV_Bloch::New());
    EXPECT_EQ((*QV_Bloch::getLongitudinalRelaxation())[0][0], 7.0);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 3UL);
    EXPECT_EQ(valuesOf(second->getLevelsFrequency()), (Values{0.0, 1.256e15}));
    EXPECT_NE(second->getDensity(0), first->getDensity(0));
}

TEST_F(QV_BlochTest, TheSharedDataOutliveTheInstances)
{
    {
        const COM_Scoped bloch(QV_Bloch::New());
        QV_Bloch::getLongitudinalRelaxation()->setValue(0, 0, 7.0);
    }
    const COM_Scoped bloch(QV_Bloch::New());
    EXPECT_EQ((*QV_Bloch::getLongitudinalRelaxation())[0][0], 7.0);
}

TEST_F(QV_BlochTest, OneLevelHasNoDefaultButTheLowerPopulation)
{
    QV_Bloch::setLevelsNumber(1);
    const COM_Scoped bloch(QV_Bloch::New());
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequency()), Values{0.0});
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), Complexes{0.0});
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), Values{0.0});
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 0.0);
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), Values{1.303080409700614e-6});
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), Values{0.0});
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), Complexes{0.0});
}

TEST_F(QV_BlochTest, WithoutLevelsAllDefaultsAreEmpty)
{
    QV_Bloch::setLevelsNumber(0);
    const COM_Scoped bloch(QV_Bloch::New());
    EXPECT_EQ(bloch->getLevelsFrequency()->getDimension(), 0UL);
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), Complexes{});
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), Values{});
    EXPECT_EQ(QV_Bloch::getEquilibriumDensity()->getDimension(), 0UL);
    initialize(*bloch);
    EXPECT_EQ(valuesOf(bloch->getPopulationRelaxation()), Values{});
}

TEST_F(QV_BlochTest, FourLevelsHaveTheirDefaultsAtTheFirstTwo)
{
    QV_Bloch::setLevelsNumber(4);
    const COM_Scoped bloch(QV_Bloch::New());
    Values rates(16);
    rates[1] = rates[4] = 1e8;
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), rates);
    Complexes density(16);
    density[5] = 1.0;
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), density);
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), density);
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequency()), (Values{0.0, 1.256e15, 0.0, 0.0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()),
              (Values{1.303080409700614e-6, 1e8, 0.0, 0.0}));
}

TEST_F(QV_BlochTest, DefaultsCanBeMadeAnewOneByOne)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarizationsSize(4);
    QV_Bloch::getLongitudinalRelaxation()->setValue(0, 0, 7.0);
    QV_Bloch::getEquilibriumDensity()->setValue(0, 7.0);
    QV_Bloch::getInitialDensity()->setValue(0, 0, 7.0);
    QV_Bloch::initPolarizations();
    QV_Bloch::initLongitudinalRelaxation();
    QV_Bloch::initEquilibriumDensity();
    QV_Bloch::initInitialDensity();
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{0.0, 1e8, 1e8, 0.0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), (Values{1.303080409700614e-6, 1e8}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{0.0, 0.0, 0.0, 1.0}));
}

TEST_F(QV_BlochTest, ResetSharedPutsEverythingBackWhileInstancesLive)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setLevelsNumber(5);
    QV_Bloch::setIterationsMaxNumber(1);
    QV_Bloch::setConvergenceRate(1.0);
    QV_Bloch::setTemperature(1.0);
    QV_Bloch::setTransversalRelaxation(1.0);
    QV_Bloch::setAtomsNumber(1.0);
    QV_Bloch::setSplitType(3);
    QV_Bloch::setRelaxationType(3);
    QV_Bloch::setPolarizationsSize(9);
    initialize(*bloch);
    QV_Bloch::resetShared();
    EXPECT_EQ(QV_Bloch::getIterationsMaxNumber(), 50UL);
    EXPECT_EQ(QV_Bloch::getConvergenceRate(), 1e-6);
    EXPECT_EQ(QV_Bloch::getBeta(), hbarOverK / 300.0);
    EXPECT_EQ(QV_Bloch::getTemperature(), 300.0);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e12);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxationAdim(), 1e12);
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 2UL);
    EXPECT_EQ(QV_Bloch::getAtomsNumber(), 1e24);
    EXPECT_EQ(QV_Bloch::getSplitType(), 0);
    EXPECT_EQ(QV_Bloch::getRelaxationType(), 0);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{0.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(bloch->getLevelsFrequency()->getDimension(), 2UL);
}

TEST_F(QV_BlochTest, AfterResetSharedTheNextInstanceIsTheFirstAgain)
{
    {
        const COM_Scoped bloch(QV_Bloch::New());
        QV_Bloch::getLongitudinalRelaxation()->setValue(0, 0, 7.0);
    }
    QV_Bloch::resetShared();
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation(), nullptr);
    const COM_Scoped bloch(QV_Bloch::New());
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{0.0, 1e8, 1e8, 0.0}));
}

// ---------------------------------------------------------------- the registry

TEST_F(QV_BlochTest, TheRegistryKeepsNoInstanceAliveAndForgetsTheDead)
{
    const COM_Scoped survivor(QV_Bloch::New());
    {
        const COM_Scoped bloch(QV_Bloch::New());
        EXPECT_EQ(bloch->getReferenceCount(), 1);
    }
    // A dead instance in the registry would be written to here.
    QV_Bloch::setLevelsNumber(3);
    EXPECT_EQ(survivor->getLevelsFrequency()->getDimension(), 3UL);
}

// ---------------------------------------------------------------- the number of levels

TEST_F(QV_BlochTest, AnUnchangedLevelCountTouchesNothing)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::getLongitudinalRelaxation()->setDimensions(5, 5);
    QV_Bloch::setLevelsNumber(2);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getLinesNumber(), 5UL);
}

TEST_F(QV_BlochTest, GrowingKeepsTheOldEntriesInPlace)
{
    const COM_Scoped first(QV_Bloch::New());
    const COM_Scoped second(QV_Bloch::New());
    second->setDensity(*COM_Scoped(newDensity(2, {{1, 2}, 3, 4, 5})), 2);
    QV_Bloch::setPolarizationsSize(2);
    QV_Bloch::setLevelsNumber(3);
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL);
    EXPECT_EQ(valuesOf(first->getLevelsFrequency()), (Values{0.0, 1.256e15, 0.0}));
    EXPECT_EQ(valuesOf(second->getLevelsFrequency()), (Values{0.0, 1.256e15, 0.0}));
    EXPECT_EQ(valuesOf(first->getDensity(0)), (Complexes{0, 0, 0, 0, 1, 0, 0, 0, 0}));
    EXPECT_EQ(valuesOf(second->getDensity(0)), (Complexes{0, 0, 0, 0, 1, 0, 0, 0, 0}));
    EXPECT_EQ(second->getDensity(1), nullptr);
    EXPECT_EQ(valuesOf(second->getDensity(2)), (Complexes{{1, 2}, 3, 0, 4, 5, 0, 0, 0, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()),
              (Values{0, 1e8, 0, 1e8, 0, 0, 0, 0, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()),
              (Values{1.303080409700614e-6, 1e8, 0.0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{0, 0, 0, 0, 1, 0, 0, 0, 0}));
    for (unsigned long i = 0; i < 2; ++i) {
        EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(i)),
                  (Values{0, 1e-29, 0, 1e-29, 0, 0, 0, 0, 0}));
    }
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
}

TEST_F(QV_BlochTest, ShrinkingKeepsTheUpperLeftBlocksAndTheLargestDipole)
{
    QV_Bloch::setLevelsNumber(3);
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(3, {1, 2, 3, 4, 5, 6, 7, 8, 9})), 0);
    QV_Bloch::setLongitudinalRelaxation(*COM_Scoped(newMatrix(3, {1, 2, 3, 4, 5, 6, 7, 8, 9})));
    bloch->setDensity(*COM_Scoped(newDensity(3, {1, 2, 3, 4, 5, 6, 7, 8, {9, 9}})), 0);
    QV_Bloch::setLevelsNumber(2);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), (Values{1, 2, 4, 5}));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{1, 2, 4, 5}));
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), (Complexes{1, 2, 4, 5}));
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequency()), (Values{0.0, 1.256e15}));
    EXPECT_EQ(QV_Bloch::getEquilibriumDensity()->getDimension(), 2UL);
    EXPECT_EQ(QV_Bloch::getInitialDensity()->getLinesNumber(), 2UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 9.0);
}

TEST_F(QV_BlochTest, MatricesThatAreNotSquareAreDealtOutAlongBothLineCounts)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::getLongitudinalRelaxation()->setValues({1, 2, 3, 4, 5, 6}, 2, 3);
    QV_Bloch::setLevelsNumber(4);
    // Old index j + 2 i goes to new index j + 4 i, line after line, j up to 3 columns.
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()),
              (Values{1, 2, 3, 0, 3, 4, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(QV_BlochTest, ScaledDataKeepTheirSizeUntilTheNextInitialization)
{
    const COM_Scoped bloch(QV_Bloch::New());
    initialize(*bloch);
    QV_Bloch::setLevelsNumber(3);
    EXPECT_EQ(bloch->getPopulationRelaxation()->getLinesNumber(), 2UL);
    EXPECT_EQ(bloch->getPolarizationsAdim()->get(0)->getLinesNumber(), 2UL);
    initialize(*bloch);
    EXPECT_EQ(bloch->getPopulationRelaxation()->getLinesNumber(), 3UL);
    EXPECT_EQ(bloch->getPolarizationsAdim()->get(0)->getLinesNumber(), 3UL);
}

TEST_F(QV_BlochTest, AnEmptySlotAmongTheDipolesSurvivesAChangeOfLevels)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {1, 2, 3, 4})), 2);
    QV_Bloch::setLevelsNumber(1);
    EXPECT_EQ(QV_Bloch::getPolarizations()->get(1), nullptr);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(2)), Values{1});
}

// ---------------------------------------------------------------- dipoles

TEST_F(QV_BlochTest, APolarizationIsForcedToTheLevelsStoredAndCounted)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped P(newMatrix(3, {1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QV_Bloch::setPolarization(*P, 0);
    EXPECT_EQ(QV_Bloch::getPolarizations()->get(0), P.get());
    EXPECT_EQ(P->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(P.get()), (Values{1, 2, 4, 5}));
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 5.0);
    const COM_Scoped Q(newMatrix(2, {0, 2, 2, 0}));
    QV_Bloch::setPolarization(*Q, 0);
    EXPECT_EQ(P->getReferenceCount(), 1);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 2.0);
}

TEST_F(QV_BlochTest, APolarizationSetWithoutInstanceMakesTheArray)
{
    const COM_Scoped P(newMatrix(2, {0, 2, 2, 0}));
    QV_Bloch::setPolarization(*P, 1);
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 2UL);
    EXPECT_EQ(QV_Bloch::getPolarizations()->get(0), nullptr);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 2.0);
}

TEST_F(QV_BlochTest, APolarizationSetAgainInItsPlaceStays)
{
    const COM_Scoped bloch(QV_Bloch::New());
    LA_RealMatrix* const P = newMatrix(2, {0, 2, 2, 0});
    QV_Bloch::setPolarization(*P, 0);
    P->Delete(); // the array alone holds it now
    P->setValue(0, 0, 7.0);
    QV_Bloch::setPolarization(*P, 0);
    EXPECT_EQ(P->getReferenceCount(), 1);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 7.0);
}

TEST_F(QV_BlochTest, TheLargestDipoleIsThatOfAllMatrices)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 2, 2, 0})), 0);
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 1, 1, 0})), 1);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 2.0);
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 0, 0, 0.5})), 0);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1.0);
}

TEST_F(QV_BlochTest, NegativeDipolesAloneCountAsZero)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {-1, -2, -2, -1})), 0);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 0.0);
}

TEST_F(QV_BlochTest, AnAddedPolarizationIsAppendedOnce)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped P(newMatrix(3, {1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QV_Bloch::addToPolarizations(*P);
    QV_Bloch::addToPolarizations(*P);
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 2UL);
    EXPECT_EQ(QV_Bloch::getPolarizations()->get(1), P.get());
    EXPECT_EQ(P->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(P.get()), (Values{1, 2, 4, 5}));
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 5.0);
    QV_Bloch::addToPolarizations(*COM_Scoped(newMatrix(2, {0, 1, 1, 0})));
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 5.0);
}

TEST_F(QV_BlochTest, AddingKeepsALargestDipoleThatNoMatrixHasAnyMore)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 2, 2, 0})), 0);
    QV_Bloch::getPolarizations()->get(0)->multipliedBy(0.0);
    QV_Bloch::addToPolarizations(*COM_Scoped(newMatrix(2, {0, 1, 1, 0})));
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 2.0);
}

TEST_F(QV_BlochTest, AnAddedPolarizationWithoutInstanceMakesTheArray)
{
    QV_Bloch::addToPolarizations(*COM_Scoped(newMatrix(2, {0, 1, 1, 0})));
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1.0);
}

TEST_F(QV_BlochTest, RemovingAPolarizationFindsTheLargestDipoleAnew)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped P(newMatrix(2, {0, 2, 2, 0}));
    QV_Bloch::addToPolarizations(*P);
    QV_Bloch::removeFromPolarizations(*P);
    EXPECT_EQ(P->getReferenceCount(), 1);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
    QV_Bloch::addToPolarizations(*P);
    QV_Bloch::removeFromPolarizations(0UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 2.0);
    QV_Bloch::removeFromPolarizations(0UL);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 0UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 0.0);
    QV_Bloch::removeFromPolarizations(0UL);
    QV_Bloch::removeFromPolarizations(*P);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 0UL);
}

TEST_F(QV_BlochTest, RemovingWithoutArrayIsHarmless)
{
    QV_Bloch::removeFromPolarizations(0UL);
    QV_Bloch::removeFromPolarizations(*COM_Scoped(newMatrix(2, {0, 2, 2, 0})));
    EXPECT_EQ(QV_Bloch::getPolarizations(), nullptr);
}

TEST_F(QV_BlochTest, NewSlotsGetCopiesOfTheLastMatrix)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped P(newMatrix(2, {0, 2, 2, 0}));
    QV_Bloch::addToPolarizations(*P);
    QV_Bloch::setPolarizationsSize(4);
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 4UL);
    EXPECT_EQ(P->getReferenceCount(), 2);
    for (unsigned long i = 2; i < 4; ++i) {
        EXPECT_NE(QV_Bloch::getPolarizations()->get(i), P.get());
        EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(i)), (Values{0, 2, 2, 0}));
    }
    EXPECT_NE(QV_Bloch::getPolarizations()->get(2), QV_Bloch::getPolarizations()->get(3));
}

TEST_F(QV_BlochTest, SlotsBehindNothingGetZerosAndTheLargestDipoleStays)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarizationsSize(0);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 0UL);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
    QV_Bloch::setPolarizationsSize(2);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), (Values{0, 0, 0, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(1)), (Values{0, 0, 0, 0}));
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
}

TEST_F(QV_BlochTest, ASizeWithoutArrayMakesZeroMatricesForTheLevels)
{
    QV_Bloch::setLevelsNumber(3);
    QV_Bloch::setPolarizationsSize(1);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), Values(9));
}

TEST_F(QV_BlochTest, GapsAreFilledWithCopiesOfTheLastMatrix)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 2, 2, 0})), 2);
    QV_Bloch::setPolarizationsSize(3);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), (Values{0, 1e-29, 1e-29, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(1)), (Values{0, 2, 2, 0}));
}

TEST_F(QV_BlochTest, AGapIsFilledWithACopyOfTheLastMatrixThoughThatOneIsCutOff)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 2, 2, 0})), 2);
    QV_Bloch::setPolarizationsSize(2);
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 2UL);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(1)), (Values{0, 2, 2, 0}));
}

// ---------------------------------------------------------------- other shared data

TEST_F(QV_BlochTest, RatesAreForcedToTheLevelsAndCounted)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped W(newMatrix(3, {1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QV_Bloch::setLongitudinalRelaxation(*W);
    QV_Bloch::setLongitudinalRelaxation(*W);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation(), W.get());
    EXPECT_EQ(W->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(W.get()), (Values{1, 2, 4, 5}));
    QV_Bloch::setLongitudinalRelaxation(*COM_Scoped(newMatrix(2, {0, 0, 0, 0})));
    EXPECT_EQ(W->getReferenceCount(), 1);
}

TEST_F(QV_BlochTest, TheEquilibriumIsForcedToTheLevelsAndCounted)
{
    const COM_Scoped v(newVector({1, 2, 3}));
    QV_Bloch::setEquilibriumDensity(*v);
    EXPECT_EQ(QV_Bloch::getEquilibriumDensity(), v.get());
    EXPECT_EQ(v->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(v.get()), (Values{1, 2}));
}

TEST_F(QV_BlochTest, TheInitialDensityIsForcedToTheLevelsAndCounted)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped M(newDensity(1, {{1, 2}}));
    QV_Bloch::setInitialDensity(*M);
    EXPECT_EQ(QV_Bloch::getInitialDensity(), M.get());
    EXPECT_EQ(M->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(M.get()), (Complexes{{1, 2}, 0, 0, 0}));
}

TEST_F(QV_BlochTest, TheTemperatureSetsItsInverse)
{
    QV_Bloch::setTemperature(77.0);
    EXPECT_EQ(QV_Bloch::getTemperature(), 77.0);
    EXPECT_EQ(QV_Bloch::getBeta(), hbarOverK / 77.0);
    QV_Bloch::setTemperature(0.0);
    EXPECT_EQ(QV_Bloch::getBeta(), infinite);
}

TEST_F(QV_BlochTest, PlainSettersStoreTheirArgument)
{
    QV_Bloch::setIterationsMaxNumber(7);
    QV_Bloch::setConvergenceRate(0.5);
    QV_Bloch::setTransversalRelaxation(3.0);
    QV_Bloch::setAtomsNumber(4.0);
    QV_Bloch::setSplitType(200);
    QV_Bloch::setRelaxationType(201);
    EXPECT_EQ(QV_Bloch::getIterationsMaxNumber(), 7UL);
    EXPECT_EQ(QV_Bloch::getConvergenceRate(), 0.5);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 3.0);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxationAdim(), 1e12);
    EXPECT_EQ(QV_Bloch::getAtomsNumber(), 4.0);
    EXPECT_EQ(QV_Bloch::getSplitType(), 200);
    EXPECT_EQ(QV_Bloch::getRelaxationType(), 201);
}

TEST_F(QV_BlochTest, SplitNamesStoreTheirPlaceOneAboveTheConstant)
{
    const std::pair<const char*, int> places[] = {
        {"hrn", 1}, {"rnh", 2}, {"hrnh", 3}, {"rnhrn", 4}, {"", 0}};
    for (const auto& [name, place] : places) {
        EXPECT_EQ(printedBy([name = name] { QV_Bloch::setSplitType(std::string(name)); }), "");
        EXPECT_EQ(QV_Bloch::getSplitType(), place) << name;
    }
}

TEST_F(QV_BlochTest, RelaxationNamesStoreTheirPlaceOneAboveTheConstant)
{
    const std::pair<const char*, int> places[] = {
        {"Pauli", 1}, {"Cascade", 2}, {"Equilibre", 3}, {"", 0}};
    for (const auto& [name, place] : places) {
        EXPECT_EQ(printedBy([name = name] { QV_Bloch::setRelaxationType(std::string(name)); }), "");
        EXPECT_EQ(QV_Bloch::getRelaxationType(), place) << name;
    }
}

TEST_F(QV_BlochTest, AnUnknownSplitNameIsAnnouncedWithTheChoiceAndChangesNothing)
{
    QV_Bloch::setSplitType(3);
    EXPECT_EQ(printedBy([] { QV_Bloch::setSplitType(std::string("HRN")); }),
              "warning split type  HRN unknown !!\n"
              "choose between:\n"
              "0\t \n"
              "1\t hrn\n"
              "2\t rnh\n"
              "3\t hrnh\n"
              "4\t rnhrn\n");
    EXPECT_EQ(QV_Bloch::getSplitType(), 3);
}

TEST_F(QV_BlochTest, AnUnknownRelaxationNameIsAnnouncedWithTheChoiceAndChangesNothing)
{
    QV_Bloch::setRelaxationType(3);
    EXPECT_EQ(printedBy([] { QV_Bloch::setRelaxationType(std::string("Pauli ")); }),
              "warning relaxation type  Pauli  unknown !!\n"
              "choose between:\n"
              "0\t \n"
              "1\t Pauli\n"
              "2\t Cascade\n"
              "3\t Equilibre\n");
    EXPECT_EQ(QV_Bloch::getRelaxationType(), 3);
}

// ---------------------------------------------------------------- one class of atoms

TEST_F(QV_BlochTest, FrequenciesAreForcedToTheLevelsAndCounted)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped omega(newVector({1, 2, 3}));
    bloch->setLevelsFrequency(*omega);
    EXPECT_EQ(bloch->getLevelsFrequency(), omega.get());
    EXPECT_EQ(omega->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(omega.get()), (Values{1, 2}));
    bloch->setLevelsFrequency(nullptr);
    EXPECT_EQ(bloch->getLevelsFrequency(), nullptr);
    EXPECT_EQ(omega->getReferenceCount(), 1);
}

TEST_F(QV_BlochTest, ADensityIsStoredAsACopyForcedToTheLevels)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped M(newDensity(3, {1, 2, 3, 4, {5, 6}, 6, 7, 8, 9}));
    bloch->setDensity(*M, 0);
    EXPECT_EQ(M->getReferenceCount(), 1);
    EXPECT_EQ(M->getLinesNumber(), 3UL);
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), (Complexes{1, 2, 4, {5, 6}}));
    M->setValue(0, 0, 99.0);
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), (Complexes{1, 2, 4, {5, 6}}));
}

TEST_F(QV_BlochTest, ADensityBeyondTheLastGrowsTheArray)
{
    const COM_Scoped bloch(QV_Bloch::New());
    bloch->setDensity(*COM_Scoped(newDensity(2, {1, 2, 3, 4})), 3);
    ASSERT_EQ(bloch->getDensities()->size(), 4UL);
    EXPECT_EQ(bloch->getDensity(1), nullptr);
    EXPECT_EQ(valuesOf(bloch->getDensity(3)), (Complexes{1, 2, 3, 4}));
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), (Complexes{0, 0, 0, 1}));
}

TEST_F(QV_BlochTest, ADensityMayBeStoredInItsOwnPlace)
{
    const COM_Scoped bloch(QV_Bloch::New());
    bloch->setDensity(*bloch->getDensity(0), 0);
    EXPECT_EQ(valuesOf(bloch->getDensity(0)), (Complexes{0, 0, 0, 1}));
    bloch->setDensity(*bloch->getDensity(0), 1);
    EXPECT_NE(bloch->getDensity(0), bloch->getDensity(1));
    EXPECT_EQ(valuesOf(bloch->getDensity(1)), (Complexes{0, 0, 0, 1}));
}

TEST_F(QV_BlochTest, EveryNodeOfTheMediumStartsFromACopyOfTheInitialDensity)
{
    const COM_Scoped problem(newSmallProblem());
    QV_Bloch& bloch = firstOf(*problem);
    QV_Bloch::setInitialDensity(*COM_Scoped(newDensity(2, {1, {0, 2}, 3, 4})));
    bloch.initDensities();
    ASSERT_EQ(bloch.getDensities()->size(), 10UL);
    for (unsigned long i = 0; i < 10; ++i) {
        EXPECT_NE(bloch.getDensity(i), QV_Bloch::getInitialDensity());
        EXPECT_EQ(valuesOf(bloch.getDensity(i)), (Complexes{1, {0, 2}, 3, 4}));
    }
    bloch.getDensity(4)->setValue(0, 0, 9.0);
    EXPECT_EQ(valuesOf(bloch.getDensity(5)), (Complexes{1, {0, 2}, 3, 4}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{1, {0, 2}, 3, 4}));
    bloch.initDensities();
    EXPECT_EQ(valuesOf(bloch.getDensity(4)), (Complexes{1, {0, 2}, 3, 4}));
}

TEST_F(QV_BlochTest, WithoutMediumThereAreNoDensities)
{
    const COM_Scoped bloch(QV_Bloch::New());
    bloch->initDensities();
    EXPECT_EQ(bloch->getDensities()->size(), 0UL);
    EXPECT_EQ(bloch->getDensity(0), nullptr);
}

TEST_F(QV_BlochTest, ADensityThatSomebodyHoldsOutlivesTheNodes)
{
    const COM_Scoped problem(newSmallProblem());
    QV_Bloch& bloch = firstOf(*problem);
    bloch.initDensities();
    LA_ComplexMatrix* const held = bloch.getDensity(7);
    held->addReference(nullptr);
    bloch.initDensities();
    EXPECT_EQ(held->getReferenceCount(), 1);
    EXPECT_EQ(valuesOf(held), (Complexes{0, 0, 0, 1}));
    held->Delete();
}

TEST_F(QV_BlochTest, TheLinkToTheProblemHasTwoEnds)
{
    const COM_Scoped problem(QV_1DProblem::New());
    const COM_Scoped bloch(QV_Bloch::New());
    const long references = problem->getReferenceCount();
    bloch->setProblem(*problem);
    bloch->setProblem(*problem);
    EXPECT_EQ(bloch->getProblem(), problem.get());
    EXPECT_EQ(bloch->getReferenceCount(), 2);
    EXPECT_EQ(problem->getReferenceCount(), references + 1);
    EXPECT_EQ(problem->getBlochEquations()->size(), 2UL);
    bloch->resetProblem();
    bloch->resetProblem();
    EXPECT_EQ(bloch->getProblem(), nullptr);
    EXPECT_EQ(bloch->getReferenceCount(), 1);
    EXPECT_EQ(problem->getReferenceCount(), references);
    EXPECT_EQ(problem->getBlochEquations()->size(), 1UL);
}

TEST_F(QV_BlochTest, ASystemMovesFromOneProblemToAnother)
{
    const COM_Scoped one(QV_1DProblem::New());
    const COM_Scoped other(QV_1DProblem::New());
    QV_Bloch& bloch = firstOf(*one);
    bloch.setProblem(*other);
    EXPECT_EQ(one->getBlochEquations()->size(), 0UL);
    EXPECT_EQ(other->getBlochEquations()->size(), 2UL);
    EXPECT_EQ(bloch.getProblem(), other.get());
    bloch.addReference(nullptr);
    bloch.setProblem(nullptr);
    EXPECT_EQ(bloch.getProblem(), nullptr);
    EXPECT_EQ(other->getBlochEquations()->size(), 1UL);
    EXPECT_EQ(bloch.getReferenceCount(), 1);
    bloch.Delete();
}

TEST_F(QV_BlochTest, ASystemThatOnlyItsProblemHoldsGoesWhenItIsGivenNoOther)
{
    const COM_Scoped problem(QV_1DProblem::New());
    const long references = problem->getReferenceCount();
    firstOf(*problem).setProblem(nullptr);
    EXPECT_EQ(problem->getBlochEquations()->size(), 0UL);
    EXPECT_EQ(problem->getReferenceCount(), references - 1);
}

TEST_F(QV_BlochTest, ASystemThatOnlyItsProblemHoldsGoesWithTheLink)
{
    const COM_Scoped problem(QV_1DProblem::New());
    firstOf(*problem).resetProblem();
    EXPECT_EQ(problem->getBlochEquations()->size(), 0UL);
}

// ---------------------------------------------------------------- scaling

TEST_F(QV_BlochTest, InitializingTellsItsSteps)
{
    const COM_Scoped bloch(QV_Bloch::New());
    EXPECT_EQ(printedBy([&] { bloch->initialize(2.0, 3.0, 5.0); }),
              "\t init densities \n"
              "\t create adim values \n"
              "\t create the relax Diag and Relax Nut matrix \n"
              "\t dimensionize \n"
              "\t end adimensionize \n");
}

namespace {

/// Atoms that tell when their densities are made.
class TestBloch : public QV_Bloch
{
    COM_CLASS(TestBloch)
public:
    void initDensities() override { std::cout << "densities\n"; }

protected:
    TestBloch() { COM_TYPE(TestBloch); }
    ~TestBloch() override = default;
};

} // namespace

TEST_F(QV_BlochTest, DensitiesAreMadeByTheMostDerivedClassBetweenTheFirstTwoLines)
{
    const COM_Scoped bloch(TestBloch::New());
    const std::string said = printedBy([&] { bloch->initialize(2.0, 3.0, 5.0); });
    EXPECT_EQ(said.substr(0, said.find("\t create the")), "\t init densities \n"
                                                          "densities\n"
                                                          "\t create adim values \n");
}

TEST_F(QV_BlochTest, ScaledCopiesLeaveThePhysicalValues)
{
    QV_Bloch::setLevelsNumber(3);
    QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(3, {0, 6, 0, 6, 0, 3, 0, 3, 0})), 0);
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(3, {0, 0, 9, 0, 0, 0, 9, 0, 0})), 1);
    QV_Bloch::setLongitudinalRelaxation(*COM_Scoped(newMatrix(3, {1, 2, 3, 4, 5, 6, 7, 8, 9})));
    bloch->setLevelsFrequency(*COM_Scoped(newVector({1, 2, 4})));
    QV_Bloch::setTransversalRelaxation(7.0);
    QV_Bloch::setAtomsNumber(1e-10);
    initialize(*bloch, 2.0, 3.0, 5.0);
    ASSERT_EQ(bloch->getPolarizationsAdim()->size(), 2UL);
    EXPECT_EQ(valuesOf(bloch->getPolarizationsAdim()->get(0)), (Values{0, 2, 0, 2, 0, 1, 0, 1, 0}));
    EXPECT_EQ(valuesOf(bloch->getPolarizationsAdim()->get(1)), (Values{0, 0, 3, 0, 0, 0, 3, 0, 0}));
    EXPECT_EQ(valuesOf(bloch->getLongitudinalRelaxationAdim()),
              (Values{0.5, 1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5}));
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequencyAdim()), (Values{0.5, 1, 2}));
    EXPECT_EQ(QV_Bloch::getTransversalRelaxationAdim(), 3.5);
    EXPECT_EQ(bloch->getDzeta(), 3.0 * 1e-10 / 8.85e-12 / 5.0);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), (Values{0, 6, 0, 6, 0, 3, 0, 3, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequency()), (Values{1, 2, 4}));
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 7.0);
}

namespace {

/// Rates, frequencies and a temperature at which the Boltzmann factors differ from 1.
class QV_BlochRelaxation : public QV_BlochTest
{
protected:
    QV_BlochRelaxation()
    {
        QV_Bloch::setLevelsNumber(3);
        QV_Bloch::setLongitudinalRelaxation(
            *COM_Scoped(newMatrix(3, {11, 12, 13, 21, 22, 23, 31, 32, 33})));
        QV_Bloch::setTransversalRelaxation(1e3);
    }
    /// The decay that follows from the population losses and the dephasing.
    static Complexes nut(const Values& diagonal, const Values& omega, double omegac)
    {
        Complexes result(9);
        for (unsigned long a = 0; a < 3; ++a) {
            for (unsigned long b = 0; b < 3; ++b) {
                if (a != b) {
                    result[a * 3 + b] = {(-0.5 * (diagonal[b] + diagonal[a]) + 2.0 * 1e3) / omegac,
                                         (omega[a] - omega[b]) / omegac};
                }
            }
        }
        return result;
    }
    void start(unsigned char type)
    {
        QV_Bloch::setRelaxationType(type);
        mBloch->setLevelsFrequency(*COM_Scoped(newVector(mOmega)));
        initialize(*mBloch, 4.0);
    }

    const Values mOmega = {0.0, 2e13, 5e13};
    const COM_Scoped<QV_Bloch> mBloch{QV_Bloch::New()};
};

} // namespace

TEST_F(QV_BlochRelaxation, CascadeTakesTheRatesAsTheyAreAndLosesWhatOthersGain)
{
    // The first instance makes defaults, so the rates are set again.
    QV_Bloch::setLongitudinalRelaxation(
        *COM_Scoped(newMatrix(3, {11, 12, 13, 21, 22, 23, 31, 32, 33})));
    start(QV_Bloch::CASCADE_RELAXATION_TYPE);
    const Values D = {-52.0 / 4, 12.0 / 4, 13.0 / 4, 21.0 / 4, -44.0 / 4,
                      23.0 / 4,  31.0 / 4, 32.0 / 4, -36.0 / 4};
    EXPECT_EQ(valuesOf(mBloch->getPopulationRelaxation()), D);
    expectNear(valuesOf(mBloch->getCoherenceRelaxation()), nut({-52, -44, -36}, mOmega, 4.0));
}

TEST_F(QV_BlochRelaxation, EquilibreTakesTheDiagonalOfTheRatesAlone)
{
    QV_Bloch::setLongitudinalRelaxation(
        *COM_Scoped(newMatrix(3, {11, 12, 13, 21, 22, 23, 31, 32, 33})));
    start(QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
    EXPECT_EQ(valuesOf(mBloch->getPopulationRelaxation()),
              (Values{11.0 / 4, 0, 0, 0, 22.0 / 4, 0, 0, 0, 33.0 / 4}));
    expectNear(valuesOf(mBloch->getCoherenceRelaxation()), nut({11, 22, 33}, mOmega, 4.0));
}

TEST_F(QV_BlochRelaxation, PauliAndEveryOtherTypeAreInDetailedBalance)
{
    for (const int type : {0, 3, 4, 255}) {
        QV_Bloch::setLongitudinalRelaxation(
            *COM_Scoped(newMatrix(3, {11, 12, 13, 21, 22, 23, 31, 32, 33})));
        start(static_cast<unsigned char>(type));
        const double beta = hbarOverK / 300.0;
        // The rates above the diagonal follow from those below.
        const double w01 = std::exp((mOmega[0] - mOmega[1]) * beta) * 21;
        const double w02 = std::exp((mOmega[0] - mOmega[2]) * beta) * 31;
        const double w12 = std::exp((mOmega[1] - mOmega[2]) * beta) * 32;
        EXPECT_LT(w01, 20.0);
        const Values W = {11, w01, w02, 21, 22, w12, 31, 32, 33};
        const Values loss = {-(21.0 + 31.0), -(w01 + 32), -(w02 + w12)};
        Values adim = W;
        Values D = W;
        for (unsigned long i = 0; i < 9; ++i) {
            adim[i] /= 4.0;
            D[i] = (i % 4 == 0 ? loss[i / 4] : W[i]) / 4.0;
        }
        expectNear(valuesOf(mBloch->getLongitudinalRelaxationAdim()), adim);
        expectNear(valuesOf(mBloch->getPopulationRelaxation()), D);
        expectNear(valuesOf(mBloch->getCoherenceRelaxation()), nut(loss, mOmega, 4.0));
        EXPECT_EQ((*QV_Bloch::getLongitudinalRelaxation())[0][1], 12.0);
    }
}

TEST_F(QV_BlochTest, ASecondInitializationStartsFromThePhysicalValuesAgain)
{
    const COM_Scoped problem(newSmallProblem());
    QV_Bloch& bloch = firstOf(*problem);
    initialize(bloch, 2.0, 3.0, 5.0);
    const Values once = valuesOf(bloch.getPopulationRelaxation());
    bloch.getDensity(3)->setValue(0, 0, 9.0);
    bloch.setDensity(*COM_Scoped(newDensity(2, {1, 2, 3, 4})), 20);
    initialize(bloch, 2.0, 3.0, 5.0);
    EXPECT_EQ(valuesOf(bloch.getPopulationRelaxation()), once);
    EXPECT_EQ(valuesOf(bloch.getPolarizationsAdim()->get(0)),
              (Values{0, 1e-29 / 3.0, 1e-29 / 3.0, 0}));
    EXPECT_EQ(bloch.getDensities()->size(), 10UL);
    EXPECT_EQ(valuesOf(bloch.getDensity(3)), (Complexes{0, 0, 0, 1}));
    initialize(bloch, 4.0, 3.0, 5.0);
    EXPECT_EQ((*bloch.getPopulationRelaxation())[1][0], once[2] / 2.0);
}

TEST_F(QV_BlochTest, ARabiFrequencyOfZeroLeavesTheFrequenciesAndGivesInfinities)
{
    const COM_Scoped bloch(QV_Bloch::New());
    initialize(*bloch, 0.0, 1e-29, 0.0);
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequencyAdim()), (Values{0.0, 1.256e15}));
    EXPECT_EQ(QV_Bloch::getTransversalRelaxationAdim(), infinite);
    EXPECT_EQ((*bloch->getLongitudinalRelaxationAdim())[1][0], infinite);
    EXPECT_EQ((*bloch->getPopulationRelaxation())[1][0], infinite);
    EXPECT_EQ(bloch->getDzeta(), infinite);
}

TEST_F(QV_BlochTest, MissingFrequenciesCountAsZeros)
{
    const COM_Scoped bloch(QV_Bloch::New());
    bloch->setLevelsFrequency(nullptr);
    initialize(*bloch);
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequency()), (Values{0.0, 0.0}));
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequencyAdim()), (Values{0.0, 0.0}));
}

TEST_F(QV_BlochTest, AnEmptySlotAmongTheDipolesStaysEmptyWhenScaled)
{
    const COM_Scoped bloch(QV_Bloch::New());
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 6, 6, 0})), 2);
    initialize(*bloch);
    ASSERT_EQ(bloch->getPolarizationsAdim()->size(), 3UL);
    EXPECT_EQ(bloch->getPolarizationsAdim()->get(1), nullptr);
    EXPECT_EQ(valuesOf(bloch->getPolarizationsAdim()->get(2)), (Values{0, 2, 2, 0}));
}

TEST_F(QV_BlochTest, SharedDataThatSomebodyHasResizedDoNotBreakTheScaling)
{
    const COM_Scoped bloch(QV_Bloch::New());
    for (unsigned char type = 0; type < 4; ++type) {
        QV_Bloch::setRelaxationType(type);
        QV_Bloch::getLongitudinalRelaxation()->setDimensions(1, 1);
        bloch->getLevelsFrequency()->setDimension(1);
        QV_Bloch::getInitialDensity()->setDimensions(1, 1);
        QV_Bloch::getPolarizations()->get(0)->setDimensions(1, 1);
        initialize(*bloch);
        EXPECT_EQ(bloch->getPopulationRelaxation()->getLinesNumber(), 2UL);
        EXPECT_EQ(bloch->getCoherenceRelaxation()->getLinesNumber(), 2UL);
        EXPECT_EQ(bloch->getLevelsFrequencyAdim()->getDimension(), 2UL);
        EXPECT_EQ(bloch->getPolarizationsAdim()->get(0)->getLinesNumber(), 2UL);
    }
}

TEST_F(QV_BlochTest, AnInitialDensityThatSomebodyHasResizedFillsNodesOfTheLevels)
{
    const COM_Scoped problem(newSmallProblem());
    QV_Bloch& bloch = firstOf(*problem);
    QV_Bloch::setInitialDensity(*COM_Scoped(newDensity(2, {{1, 2}, 3, 4, 5})));
    QV_Bloch::getInitialDensity()->setDimensions(3, 3);
    bloch.initDensities();
    EXPECT_EQ(valuesOf(bloch.getDensity(9)), (Complexes{{1, 2}, 3, 4, 5}));
    QV_Bloch::getInitialDensity()->setDimensions(1, 1);
    bloch.initDensities();
    EXPECT_EQ(valuesOf(bloch.getDensity(9)), (Complexes{{1, 2}, 0, 0, 0}));
}

// ---------------------------------------------------------------- result files

TEST_F(QV_BlochTest, ALineHoldsTimeIterationsAndTheRealPartsOfTheDensity)
{
    const TestDirectory directory;
    const COM_Scoped problem(newSmallProblem());
    QV_Bloch& bloch = firstOf(*problem);
    bloch.setDensity(*COM_Scoped(newDensity(2, {0.5, {-1.25, 3}, {2, 4}, 0.25})), 7);
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    for (const long number : {2L, 7L}) {
        vertices->add(*COM_Scoped(GEO_Vertex::New(number)));
    }
    bloch.initSaving(directory.slashed(), vertices.get(), 3);
    bloch.save(0.5, 7, 1);
    bloch.save(1.0, 99, 1); // a node without density
    EXPECT_TRUE(bloch.closeSaving());
    EXPECT_EQ(directory.read("Rho_Bloch3_at_2.res"), "");
    EXPECT_EQ(directory.read("Rho_Bloch3_at_7.res"),
              "5.000000e-01 0 5.000000e-01 \t -1.250000e+00 \t 2.000000e+00 \t 2.500000e-01 \t \n"
              "1.000000e+00 0 0.000000e+00 \t 0.000000e+00 \t 0.000000e+00 \t 0.000000e+00 \t \n");
}

TEST_F(QV_BlochTest, ThePredictorCorrectorIsSavedFromATurningAndDecayingFrame)
{
    const TestDirectory directory;
    const COM_Scoped problem(newSmallProblem());
    problem->setMethod(QV_Problem::PRED_CORR_METHOD);
    QV_Bloch& bloch = firstOf(*problem);
    bloch.setLevelsFrequency(*COM_Scoped(newVector({1.0, 4.0})));
    QV_Bloch::setTransversalRelaxation(0.5);
    initialize(bloch, 2.0);
    const Complexes rho = {0.5, {-1.25, 3}, {2, 4}, 0.25};
    bloch.setDensity(*COM_Scoped(newDensity(2, rho)), 7);
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    vertices->add(*COM_Scoped(GEO_Vertex::New(7)));
    bloch.initSaving(directory.slashed(), vertices.get(), 0);
    const double t = 0.7;
    bloch.save(t, 7, 0);
    EXPECT_TRUE(bloch.closeSaving());
    std::string expected = "7.000000e-01 0 ";
    const double omega[] = {0.5, 2.0};
    for (unsigned long j = 0; j < 2; ++j) {
        for (unsigned long k = 0; k < 2; ++k) {
            const double d = omega[k] - omega[j];
            const Complex value =
                rho[j * 2 + k] * std::exp(-0.25 * t) * Complex(std::cos(d * t), std::sin(d * t));
            char text[32];
            std::snprintf(text, sizeof text, "%7.6e \t ", value.real());
            expected += text;
        }
    }
    EXPECT_EQ(directory.read("Rho_Bloch0_at_7.res"), expected + "\n");
}

TEST_F(QV_BlochTest, TheTurnOfASavedElementIsFormedFactorByFactor)
{
    // Elements whose two parts all but cancel show the roundings of each product.
    const TestDirectory directory;
    const COM_Scoped problem(newSmallProblem());
    problem->setMethod(QV_Problem::PRED_CORR_METHOD);
    QV_Bloch& bloch = firstOf(*problem);
    bloch.setLevelsFrequency(*COM_Scoped(newVector({1.0, 4.0})));
    QV_Bloch::setTransversalRelaxation(0.5);
    initialize(bloch, 2.0);
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    vertices->add(*COM_Scoped(GEO_Vertex::New(7)));
    bloch.initSaving(directory.slashed(), vertices.get(), 0);
    const auto turned = [](const Complex& element, double t, double d) {
        const Complex value =
            element * std::exp(-0.25 * t) * Complex(std::cos(d * t), std::sin(d * t));
        char text[32];
        std::snprintf(text, sizeof text, "%7.6e \t ", value.real());
        return std::string(text);
    };
    std::string expected;
    for (int i = 1; i <= 20; ++i) {
        const double t = 0.3 * i;
        const Complex rho(std::sin(1.5 * t), std::cos(1.5 * t));
        bloch.setDensity(*COM_Scoped(newDensity(2, {0, rho, std::conj(rho), 0})), 7);
        bloch.save(t, 7, 0);
        char head[32];
        std::snprintf(head, sizeof head, "%7.6e 0 ", t);
        expected += head + turned(0, t, 0.0) + turned(rho, t, 1.5) + turned(std::conj(rho), t, -1.5)
                    + turned(0, t, 0.0) + "\n";
    }
    EXPECT_TRUE(bloch.closeSaving());
    EXPECT_EQ(directory.read("Rho_Bloch0_at_7.res"), expected);
}

TEST_F(QV_BlochTest, ADensityWithoutProblemIsSavedAsItIs)
{
    const TestDirectory directory;
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    vertices->add(*COM_Scoped(GEO_Vertex::New(7)));
    bloch->initSaving(directory.slashed(), vertices.get(), 0);
    bloch->save(0.5, 0, 0);
    EXPECT_TRUE(bloch->closeSaving());
    EXPECT_EQ(directory.read("Rho_Bloch0_at_7.res"),
              "5.000000e-01 0 0.000000e+00 \t 0.000000e+00 \t 0.000000e+00 \t 1.000000e+00 \t \n");
}

TEST_F(QV_BlochTest, AFileThatCannotBeMadeEndsTheProcess)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    vertices->add(*COM_Scoped(GEO_Vertex::New(7)));
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            bloch->initSaving("/nowhere/at/all/", vertices.get(), 1);
        },
        testing::ExitedWithCode(0),
        testing::Eq(std::string("FATAL ERROR: Problem of creation of file "
                                "/nowhere/at/all/Rho_Bloch1_at_7.res\n")));
}

// ---------------------------------------------------------------- persistence

TEST_F(QV_BlochTest, TheKeysOfANewInstanceLackWhatIsNotThereYet)
{
    const COM_Scoped bloch(QV_Bloch::New());
    Names expected;
    for (const std::string& key : keysOfAll) {
        if (key != "mExpA" && key != "mOmegaAdim" && key != "mProblem" && key != "mPsAdim"
            && key != "mRelaxDiag" && key != "mRelaxNut" && key != "mWAdim") {
            expected.push_back(key);
        }
    }
    EXPECT_EQ(Description(*bloch).keys(), expected);
}

TEST_F(QV_BlochTest, TheKeysOfAnInstanceInARunAreFrozen)
{
    const COM_Scoped problem(newSmallProblem());
    printedBy([&] {
        problem->initialize();
        firstOf(*problem).solveBlochSplitInit(0.0, 0.1);
    });
    EXPECT_EQ(Description(firstOf(*problem)).keys(), keysOfAll);
}

TEST_F(QV_BlochTest, ValuesAreSavedAsTexts)
{
    const COM_Scoped bloch(QV_Bloch::New());
    bloch->setLevelsFrequency(nullptr);
    const auto id = [](const COM_Object* object) { return object->getIdentityString(); };
    EXPECT_EQ(Description(*bloch).text(),
              "{mAtomsNumber=[1.000000e+24] mBeta=[2.545498e-14] "
              "mConvergenceRate=[1.000000e-06] mDensities=["
                  + id(bloch->getDensity(0))
                  + "] mDz=[-1.000000e+00] mDzeta=[0.000000e+00] mIFirst=[-1] mILast=[-1] "
                    "mInitialDensity=["
                  + id(QV_Bloch::getInitialDensity())
                  + "] mIterMax=[0] mIterationsMaxNumber=[50] mLevelsNumber=[2] "
                    "mPMax=[1.000000e-29] mPPower=[] mPs=["
                  + id(QV_Bloch::getPolarizations()->get(0)) + "] mRelaxationType=[0] mRhoE=["
                  + id(QV_Bloch::getEquilibriumDensity())
                  + "] mSplitType=[0] mTemperature=[3.000000e+02] mTrPPower=[] "
                    "mTransversalRelaxation=[1.000000e+12] "
                    "mTransversalRelaxationAdim=[1.000000e+12] mW=["
                  + id(QV_Bloch::getLongitudinalRelaxation()) + "]}");
}

TEST_F(QV_BlochTest, EveryMissingKeyIsAnnouncedInTheOrderOfLoadingAndChangesNothing)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const std::string before = Description(*bloch).text();
    const COM_Scoped node(MM_Class::New());
    node->setName("8QV_Bloch");
    std::string expected;
    for (const char* key :
         {"mIterMax", "mIFirst", "mILast", "mIterationsMaxNumber", "mConvergenceRate", "mBeta",
          "mTemperature", "mTransversalRelaxation", "mTransversalRelaxationAdim", "mLevelsNumber",
          "mAtomsNumber", "mDz", "mDzeta", "mSplitType", "mRelaxationType", "mPMax"}) {
        expected += std::string("no attribute ") + key + " stored in class 8QV_Bloch.\n";
    }
    for (const char* key :
         {"mTrPPower", "mInitialDensity", "mProblem", "mDensities", "mW", "mWAdim", "mOmega",
          "mOmegaAdim", "mPs", "mPsAdim", "mRhoE", "mRelaxDiag", "mRelaxNut", "mExpA", "mPPower"}) {
        expected += std::string("no field of name ") + key + " stored in class 8QV_Bloch. \n";
    }
    EXPECT_EQ(loadedFrom(*node, *bloch), expected);
    EXPECT_EQ(Description(*bloch).text(), before);
}

TEST_F(QV_BlochTest, AttributesComeBackFromTheirKeys)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped node(MM_Class::New());
    node->addAttributeToMetaFields("mIterMax", 11UL);
    node->addAttributeToMetaFields("mIFirst", 2L);
    node->addAttributeToMetaFields("mILast", 5L);
    node->addAttributeToMetaFields("mIterationsMaxNumber", 12UL);
    node->addAttributeToMetaFields("mConvergenceRate", 0.125);
    node->addAttributeToMetaFields("mBeta", 0.25);
    node->addAttributeToMetaFields("mTemperature", 10.0);
    node->addAttributeToMetaFields("mLevelsNumber", 3UL);
    node->addAttributeToMetaFields("mTransversalRelaxation", 4.0);
    node->addAttributeToMetaFields("mTransversalRelaxationAdim", 5.0);
    node->addAttributeToMetaFields("mAtomsNumber", 6.0);
    node->addAttributeToMetaFields("mDz", 7.0);
    node->addAttributeToMetaFields("mDzeta", 8.0);
    node->addAttributeToMetaFields("mSplitType", static_cast<unsigned char>(3));
    node->addAttributeToMetaFields("mRelaxationType", static_cast<unsigned char>(2));
    node->addAttributeToMetaFields("mPMax", 9.0);
    node->addAttributeToMetaFields("mTrPPower", Values{1, 2, 3});
    loadedFrom(*node, *bloch);
    EXPECT_EQ(bloch->getIterationsNumber(), 11UL);
    EXPECT_EQ(bloch->getFirstNode(), 2);
    EXPECT_EQ(bloch->getLastNode(), 5);
    EXPECT_EQ(QV_Bloch::getIterationsMaxNumber(), 12UL);
    EXPECT_EQ(QV_Bloch::getConvergenceRate(), 0.125);
    EXPECT_EQ(QV_Bloch::getBeta(), 0.25); // as stored, not from the temperature
    EXPECT_EQ(QV_Bloch::getTemperature(), 10.0);
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), 3UL);
    EXPECT_EQ(bloch->getLevelsFrequency()->getDimension(), 3UL);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 4.0);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxationAdim(), 5.0);
    EXPECT_EQ(QV_Bloch::getAtomsNumber(), 6.0);
    EXPECT_EQ(bloch->getDzeta(), 8.0);
    EXPECT_EQ(QV_Bloch::getSplitType(), 3);
    EXPECT_EQ(QV_Bloch::getRelaxationType(), 2);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 9.0);
    EXPECT_EQ(bloch->getTracesPower(), (Values{1, 2, 3}));
    EXPECT_NE(Description(*bloch).text().find("mDz=[7.000000e+00]"), std::string::npos);
}

TEST_F(QV_BlochTest, AssociationsComeBackThroughTheirSetters)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const TestDirectory directory;
    const COM_Scoped bloch(QV_Bloch::New());
    bloch->setDensity(*COM_Scoped(newDensity(2, {1, {0, 2}, 3, 4})), 1);
    QV_Bloch::setPolarization(*COM_Scoped(newMatrix(2, {0, 6, 6, 0})), 1);
    bloch->setLevelsFrequency(*COM_Scoped(newVector({1, 2})));
    initialize(*bloch); // loses the densities, for want of a mesh
    bloch->setDensity(*COM_Scoped(newDensity(2, {1, {0, 2}, 3, 4})), 0);
    factory->save(directory.file("b.xml"), *bloch);
    QV_Bloch::setPolarizationsSize(5);
    QV_Bloch::getLongitudinalRelaxation()->multipliedBy(0.0);
    QV_Bloch::getEquilibriumDensity()->multipliedBy(0.0);
    QV_Bloch::getInitialDensity()->multipliedBy(0.0);
    const COM_Scoped root(factory->load(directory.file("b.xml")));
    const auto& found = dynamic_cast<QV_Bloch&>(*root);
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 2UL);
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(1)), (Values{0, 6, 6, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{0, 1e8, 1e8, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), (Values{1.303080e-6, 1e8}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{0, 0, 0, 1}));
    ASSERT_EQ(found.getDensities()->size(), 1UL);
    EXPECT_EQ(valuesOf(found.getDensity(0)), (Complexes{1, {0, 2}, 3, 4}));
    EXPECT_EQ(valuesOf(found.getLevelsFrequency()), (Values{1, 2}));
    EXPECT_EQ(valuesOf(found.getLevelsFrequencyAdim()), (Values{0.5, 1}));
    EXPECT_EQ(valuesOf(found.getPolarizationsAdim()->get(1)), (Values{0, 2, 2, 0}));
    EXPECT_EQ(found.getPopulationRelaxation()->getLinesNumber(), 2UL);
    EXPECT_EQ(found.getCoherenceRelaxation()->getLinesNumber(), 2UL);
    EXPECT_EQ(found.getProblem(), nullptr);
}

TEST_F(QV_BlochTest, TheLastInstanceLoadedSetsTheSharedValues)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped one(MM_Class::New());
    one->addAttributeToMetaFields("mAtomsNumber", 1.0);
    const COM_Scoped other(MM_Class::New());
    other->addAttributeToMetaFields("mAtomsNumber", 2.0);
    loadedFrom(*one, *bloch);
    loadedFrom(*other, *COM_Scoped(QV_Bloch::New()));
    EXPECT_EQ(QV_Bloch::getAtomsNumber(), 2.0);
}

TEST_F(QV_BlochTest, ALevelCountBeyondMemoryIsAnnouncedAndIgnored)
{
    const COM_Scoped bloch(QV_Bloch::New());
    const std::pair<const char*, const char*> counts[] = {
        {"-1", "18446744073709551615"},
        {"-9223372036854775808", "9223372036854775808"},
        {"9223372036854775807", "9223372036854775807"},
        {"4294967296", "4294967296"},
        {"100000", "100000"},
    };
    for (const auto& [text, number] : counts) {
        const COM_Scoped node(MM_Class::New());
        node->setName("8QV_Bloch");
        node->addAttributeToMetaFields("mLevelsNumber", std::string(text));
        const std::string said = loadedFrom(*node, *bloch);
        EXPECT_NE(said.find("size " + std::string(number) + " x " + number
                            + " of 8QV_Bloch is too large for its values: ignored.\n"),
                  std::string::npos)
            << said;
        EXPECT_EQ(QV_Bloch::getLevelsNumber(), 2UL);
        EXPECT_EQ(bloch->getLevelsFrequency()->getDimension(), 2UL);
    }
}

TEST_F(QV_BlochTest, ALevelCountThatTheStoredMatricesBearOutComesBackHoweverLargeItIs)
{
    const unsigned long n = 1001;
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("b");
    factory->addToMetaClasses(*node);
    node->addAttributeToMetaFields("mLevelsNumber", n);
    node->addAssociationToMetaFields("mW", *COM_Scoped(LA_RealMatrix::New(n, n)));
    loadedFrom(*node, *bloch);
    EXPECT_EQ(QV_Bloch::getLevelsNumber(), n);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getLinesNumber(), n);
}

TEST_F(QV_BlochTest, MatricesOfWrongSizesAreForcedToTheLevels)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped node(MM_Class::New());
    node->setName("8QV_Bloch");
    node->setId("b");
    factory->addToMetaClasses(*node);
    node->addAssociationToMetaFields("mInitialDensity", *COM_Scoped(newDensity(1, {7})));
    node->addAssociationToMetaFields("mW", *COM_Scoped(newMatrix(3, {1, 2, 3, 4, 5, 6, 7, 8, 9})));
    node->addAssociationToMetaFields("mOmega", *COM_Scoped(newVector({1, 2, 3})));
    node->addAssociationToMetaFields("mRhoE", *COM_Scoped(newVector({})));
    const COM_Scoped dipoles(COM_Array<LA_RealMatrix>::New());
    dipoles->add(*COM_Scoped(newMatrix(1, {5, 6, 7})));
    node->addAssociationToMetaFields("mPs", *dipoles);
    loadedFrom(*node, *bloch);
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{7, 0, 0, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{1, 2, 4, 5}));
    EXPECT_EQ(valuesOf(bloch->getLevelsFrequency()), (Values{1, 2}));
    EXPECT_EQ(valuesOf(QV_Bloch::getEquilibriumDensity()), (Values{0, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getPolarizations()->get(0)), (Values{5, 6, 7, 0}));
    // The largest dipole has a key of its own, which is missing here.
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
}

TEST_F(QV_BlochTest, ObjectsOfForeignClassesInAFileArePassedOver)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped bloch(QV_Bloch::New());
    const COM_Scoped stranger(newVector({1}));
    const std::string id = stranger->getIdentityString();
    const COM_Scoped node(MM_Class::New());
    node->setName("8QV_Bloch");
    node->setId("b");
    factory->addToMetaClasses(*node);
    const Names single = {"mInitialDensity", "mProblem", "mW",       "mWAdim",
                          "mRelaxDiag",      "mExpA",    "mRelaxNut"};
    for (const std::string& key : single) {
        node->addAssociationToMetaFields(key, *stranger);
    }
    const COM_Scoped strangers(COM_Array<LA_RealVector>::New());
    strangers->add(*stranger);
    const Names arrays = {"mDensities", "mPs", "mPsAdim", "mPPower"};
    for (const std::string& key : arrays) {
        node->addAssociationToMetaFields(key, *strangers);
    }
    const std::string said = loadedFrom(*node, *bloch);
    const std::string line =
        "impossible to create an instance of " + id + " from class 8QV_Bloch.\n";
    unsigned long lines = 0;
    for (std::size_t at = said.find(line); at != std::string::npos; at = said.find(line, at + 1)) {
        ++lines;
    }
    EXPECT_EQ(lines, arrays.size());
    EXPECT_EQ(bloch->getProblem(), nullptr);
    EXPECT_EQ(bloch->getPopulationRelaxation(), nullptr);
    EXPECT_EQ(valuesOf(QV_Bloch::getLongitudinalRelaxation()), (Values{0, 1e8, 1e8, 0}));
    EXPECT_EQ(valuesOf(QV_Bloch::getInitialDensity()), (Complexes{0, 0, 0, 1}));
    EXPECT_EQ(bloch->getDensities()->size(), 0UL);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 0UL);
}
