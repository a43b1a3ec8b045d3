#include "quorvex/QV_Problem.h"

#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_Volume.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_ClassFactory.h"
#include "quorvex/QV_Field.h"
#include "support/ChildProcess.h"
#include "support/Description.h"
#include "support/Locales.h"
#include "support/Printed.h"
#include "support/ResultFiles.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <string>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

namespace {

using Names = std::vector<std::string>;
using Values = std::vector<double>;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

/// The small problem with half its step: where each system advances the field, two of them are stable.
class StableProblem : public TestProblem
{
public:
    StableProblem() { wave().setCFL(0.4); }
};

/// What the words of one method are.
struct Method
{
    unsigned char mNumber;
    std::string mName;
    std::string mLine;     ///< Printed before the first step.
    unsigned long mFewest; ///< Steps that it can do, besides none.

    friend std::ostream& operator<<(std::ostream& out, const Method& tested)
    {
        return out << tested.mName;
    }
};

const std::vector<Method>& methods()
{
    static const std::vector<Method> all{
        {0, "CN_Z", " \t Crant Nicholson with dtP (Ziolkowski) discretrization\n", 10},
        {1, "CN_P", " \t Crant Nicholson with P computing \n", 10},
        {2, "CN_dtP", " \t Crant Nicholson with dtP discretization \n", 20},
        {3, "Relax", " \t Relaxation \n", 10},
        {4, "Split",
         " \t split method \nInit Bloch Splitting \ncompute TrPPower \ncomputePolarizationsPower "
         "\n",
         10},
        {5, "pc", " \t predictor corrector method \n", 10}};
    return all;
}

std::string nameOfMethod(const testing::TestParamInfo<Method>& method)
{
    return method.param.mName;
}

/// The log of the small problem up to the first step of `steps`, `line` being the method's.
std::string logBefore(const std::string& line, unsigned long steps = 20)
{
    char finalTime[40];
    std::snprintf(finalTime, sizeof finalTime, "%g",
                  static_cast<double>(steps) * (1.5e-6 * 0.4 / (20.0 * 2.997e8)));
    return "20 pas d'espace de longueur 7.5e-08\n"
           "nVertex saving:5 at 30\n"
           "nVertex saving:9 at 50\n"
           "nVertex saving:13 at 70\n"
           "Rabi Frequency:8.09501e+14\n"
           "adimensionize maxwell \n"
           "A_pulse/pi:6.47601\n"
           "adimensionize bloch equations.. \n"
           "\t init densities \n"
           "\t create adim values \n"
           "\t create the relax Diag and Relax Nut matrix \n"
           "\t dimensionize \n"
           "\t end adimensionize \n"
           "adimensionize the milieu \n"
           "adimensionize the time \n"
           "pas de temps:1.001e-16\n"
           "temps final:"
           + std::string(finalTime)
           + "\n"
             "pas de temps numerique:0.0810312\n"
             "solve..\n"
             " init Saving \n"
             " init Saving done\n"
           + line;
}

const char* const TIME_WORD = "execution time:";

/// The log without the number behind "execution time:".
std::string withoutTime(const std::string& log)
{
    const std::size_t word = log.find(TIME_WORD);
    const std::size_t end = log.find(" secondes.\n");
    if (word == std::string::npos || end == std::string::npos) {
        ADD_FAILURE() << "no execution time in " << log;
        return log;
    }
    return log.substr(0, word + std::string(TIME_WORD).size()) + log.substr(end);
}

std::string printed(const char* format, double value)
{
    char text[400];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

Names namesOf(const ResultFiles& files)
{
    Names names;
    for (const auto& file : files) {
        names.push_back(file.first);
    }
    return names;
}

long linesOf(const std::string& text)
{
    return std::count(text.begin(), text.end(), '\n');
}

Values valuesOf(const QV_Field* field)
{
    return field == nullptr ? Values{}
                            : Values(field->getValues(),
                                     field->getValues() + field->getSize() * field->getDimension());
}

Values valuesOf(const LA_RealVector* vector)
{
    return vector == nullptr
               ? Values{}
               : Values(vector->getValues(), vector->getValues() + vector->getDimension());
}

/// Fields and densities of a problem, one after the other.
Values stateOf(const StableProblem& problem)
{
    Values state = valuesOf(problem.maxwell().getField(QV_Maxwell::E_FIELD));
    const Values B = valuesOf(problem.maxwell().getField(QV_Maxwell::B_FIELD));
    state.insert(state.end(), B.begin(), B.end());
    for (unsigned long b = 0; b < problem->getBlochEquations()->size(); ++b) {
        const COM_Array<LA_ComplexMatrix>& densities = *problem.bloch(b).getDensities();
        for (unsigned long i = 0; i < densities.size(); ++i) {
            for (unsigned long k = 0; k < 4; ++k) {
                state.push_back(densities[i].getValues()[k].real());
                state.push_back(densities[i].getValues()[k].imag());
            }
        }
    }
    return state;
}

void setNoDipole()
{
    const COM_Scoped zero(LA_RealMatrix::New(2, 2));
    QV_Bloch::setPolarization(*zero, 0);
}

testing::Matcher<const std::string&> whole(const std::string& text)
{
    return testing::Eq(text);
}

class QV_ProblemTest : public testing::Test
{
protected:
    QV_ProblemTest()
    {
        // A child process shares the directory of the test, so that what it leaves there can be read.
        GTEST_FLAG_SET(death_test_style, "fast");
    }

    StableProblem mProblem;
};

class QV_ProblemMethodTest : public QV_ProblemTest, public testing::WithParamInterface<Method>
{
protected:
    QV_ProblemMethodTest() { mProblem->setMethod(GetParam().mNumber); }
};

} // namespace

// ---------------------------------------------------------------- data

TEST_F(QV_ProblemTest, TheConstantsOfPhysicsAreTheRoundedOnes)
{
    EXPECT_EQ(QV_Object::HBAR, 1.0546e-34);
    EXPECT_EQ(QV_Object::EPS0, 8.85e-12);
    EXPECT_EQ(QV_Object::C, 2.997e8);
}

TEST_F(QV_ProblemTest, TheMethodsHaveFixedNumbersAndNames)
{
    EXPECT_EQ(QV_Problem::CN_Z_METHOD, 0);
    EXPECT_EQ(QV_Problem::CN_P_METHOD, 1);
    EXPECT_EQ(QV_Problem::CN_dtP_METHOD, 2);
    EXPECT_EQ(QV_Problem::RELAX_METHOD, 3);
    EXPECT_EQ(QV_Problem::SPLIT_METHOD, 4);
    EXPECT_EQ(QV_Problem::PRED_CORR_METHOD, 5);
    EXPECT_EQ(QV_Problem::GAUSS_STATISTICAL_METHOD, 0);
    EXPECT_EQ(QV_Problem::RABBI_FREQUENCY_ERROR, -1);
    EXPECT_EQ(QV_Problem::mMethodsNameLength, 6UL);
    EXPECT_EQ(Names(std::begin(QV_Problem::mMethodsName), std::end(QV_Problem::mMethodsName)),
              (Names{"CN_Z", "CN_P", "CN_dtP", "Relax", "Split", "pc"}));
    EXPECT_EQ(QV_Problem::mStatisticalMethodsNameLength, 1UL);
    EXPECT_EQ(Names(std::begin(QV_Problem::mStatisticalMethodsName),
                    std::end(QV_Problem::mStatisticalMethodsName)),
              Names{"GAUSS"});
}

TEST_F(QV_ProblemTest, ANewProblemHasTheDefaults)
{
    const COM_Scoped problem(QV_1DProblem::New());
    EXPECT_EQ(problem->getSavingPath(), "resultats/");
    EXPECT_EQ(problem->getTimeStep(), 1.0);
    EXPECT_EQ(problem->getTimeStepNumber(), 0UL);
    EXPECT_EQ(problem->getMaxTimeStepsNumber(), 2000UL);
    EXPECT_EQ(problem->getRabiFrequency(), 0.0);
    EXPECT_EQ(problem->getMethod(), QV_Problem::CN_Z_METHOD);
    EXPECT_EQ(problem->getFrequenciesDistributionMethod(), QV_Problem::GAUSS_STATISTICAL_METHOD);
    EXPECT_EQ(problem->getFrequenciesDistributionDelta(), 0.0);
    EXPECT_EQ(problem->getFrequenciesDistributionMean(), 0.0);
    EXPECT_TRUE(problem->getBlochEquations()->isObjectsReferenced());
    EXPECT_TRUE(problem->isSavingComplete());
}

TEST_F(QV_ProblemTest, SettersStoreWhatTheyAreGiven)
{
    mProblem->setSavingPath("a/b/");
    mProblem->setTimeStep(0.5);
    mProblem->setMethod(static_cast<unsigned char>(200));
    mProblem->setMaxTimeStepsNumber(18446744073709551615UL);
    mProblem->setFrequenciesDistributionMethod(static_cast<unsigned char>(3));
    mProblem->setFrequenciesDistributionDelta(1.5);
    mProblem->setFrequenciesDistributionMean(-2.5);
    EXPECT_EQ(mProblem->getSavingPath(), "a/b/");
    EXPECT_EQ(mProblem->getTimeStep(), 0.5);
    EXPECT_EQ(mProblem->getMethod(), 200);
    EXPECT_EQ(mProblem->getMaxTimeStepsNumber(), 18446744073709551615UL);
    EXPECT_EQ(mProblem->getFrequenciesDistributionMethod(), 3);
    EXPECT_EQ(mProblem->getFrequenciesDistributionDelta(), 1.5);
    EXPECT_EQ(mProblem->getFrequenciesDistributionMean(), -2.5);
}

TEST_F(QV_ProblemTest, EveryMethodIsChosenByItsName)
{
    for (const Method& method : methods()) {
        mProblem->setMethod(method.mName);
        EXPECT_EQ(mProblem->getMethod(), method.mNumber);
    }
}

TEST_F(QV_ProblemTest, AnUnknownNameOfAMethodEndsTheProcessAfterTheListOfNames)
{
    for (const std::string name : {"", "cn_z", "CN", "Splitt"}) {
        EXPECT_EXIT(
            {
                dup2(STDERR_FILENO, STDOUT_FILENO);
                mProblem->setMethod(name);
            },
            testing::ExitedWithCode(0),
            whole("warning numerical method " + name
                  + " unknown !!\n"
                    "choose between:\n\tCN_Z\n\tCN_P\n\tCN_dtP\n\tRelax\n\tSplit\n\tpc\n"));
    }
}

TEST_F(QV_ProblemTest, TheNameOfADistributionChoosesTheFirstMethodAndNoDistribution)
{
    mProblem->setFrequenciesDistributionMethod(static_cast<unsigned char>(7));
    EXPECT_EQ(
        printedBy([this] { mProblem->setFrequenciesDistributionMethod(std::string("CN_Z")); }), "");
    EXPECT_EQ(mProblem->getMethod(), QV_Problem::CN_Z_METHOD);
    EXPECT_EQ(mProblem->getFrequenciesDistributionMethod(), 7);
}

TEST_F(QV_ProblemTest, EveryOtherNameOfADistributionEndsTheProcessItsOwnIncluded)
{
    for (const std::string name : {"GAUSS", "", "CN_P"}) {
        EXPECT_EXIT(
            {
                dup2(STDERR_FILENO, STDOUT_FILENO);
                mProblem->setFrequenciesDistributionMethod(name);
            },
            testing::ExitedWithCode(0),
            whole("warning frequenies Distribution numerical method " + name
                  + " unknown !!\n"
                    "choose between:\n\tGAUSS\n"));
    }
}

// ---------------------------------------------------------------- associations

TEST_F(QV_ProblemTest, TheMediumIsHeldByOneReferenceAndNullMeansNone)
{
    const COM_Scoped milieu(QV_1DMilieu::New());
    mProblem->setMilieu(*milieu);
    mProblem->setMilieu(milieu.get());
    EXPECT_EQ(mProblem->getMilieu(), milieu.get());
    EXPECT_EQ(milieu->getReferenceCount(), 2);
    mProblem->setMilieu(nullptr);
    EXPECT_EQ(mProblem->getMilieu(), nullptr);
    EXPECT_EQ(milieu->getReferenceCount(), 1);
    mProblem->setMilieu(*milieu);
    mProblem->resetMilieu();
    EXPECT_EQ(milieu->getReferenceCount(), 1);
}

TEST_F(QV_ProblemTest, TheFieldSystemIsLinkedBothWaysAndNullMeansNone)
{
    const long count = mProblem->getReferenceCount();
    const COM_Scoped maxwell(QV_1DMaxwell::New());
    mProblem->setMaxwellSystem(*maxwell);
    mProblem->setMaxwellSystem(maxwell.get());
    EXPECT_EQ(mProblem->getMaxwellSystem(), maxwell.get());
    EXPECT_EQ(maxwell->getProblem(), &*mProblem);
    EXPECT_EQ(maxwell->getReferenceCount(), 2);
    EXPECT_EQ(mProblem->getReferenceCount(), count);
    mProblem->setMaxwellSystem(nullptr);
    EXPECT_EQ(mProblem->getMaxwellSystem(), nullptr);
    EXPECT_EQ(maxwell->getProblem(), nullptr);
    EXPECT_EQ(maxwell->getReferenceCount(), 1);
    EXPECT_EQ(mProblem->getReferenceCount(), count - 1);
    mProblem->resetMaxwellSystem();
    EXPECT_EQ(mProblem->getReferenceCount(), count - 1);
}

TEST_F(QV_ProblemTest, ASystemIsLinkedBothWaysAndAddedOnce)
{
    const long count = mProblem->getReferenceCount();
    const COM_Scoped bloch(QV_Bloch::New());
    mProblem->addToBlochEquations(*bloch);
    mProblem->addToBlochEquations(bloch.get());
    mProblem->addToBlochEquations(nullptr);
    bloch->setProblem(*mProblem);
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 2UL);
    EXPECT_EQ(mProblem->getBlochEquations()->get(1), bloch.get());
    EXPECT_EQ(bloch->getProblem(), &*mProblem);
    EXPECT_EQ(bloch->getReferenceCount(), 2);
    EXPECT_EQ(mProblem->getReferenceCount(), count + 1);
    mProblem->removeFromBlochEquations(*bloch);
    mProblem->removeFromBlochEquations(bloch.get());
    mProblem->removeFromBlochEquations(nullptr);
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 1UL);
    EXPECT_EQ(bloch->getProblem(), nullptr);
    EXPECT_EQ(bloch->getReferenceCount(), 1);
    EXPECT_EQ(mProblem->getReferenceCount(), count);
}

TEST_F(QV_ProblemTest, SystemsAreRemovedFromTheEndOrAllTogether)
{
    QV_Bloch* const first = &mProblem.bloch();
    mProblem.addSystem();
    mProblem.addSystem();
    mProblem->removeLastBlochEquation();
    ASSERT_EQ(mProblem->getBlochEquations()->size(), 2UL);
    EXPECT_EQ(mProblem->getBlochEquations()->get(0), first);
    mProblem->resetBlochEquations();
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 0UL);
    mProblem->removeLastBlochEquation();
    mProblem->resetBlochEquations();
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 0UL);
    // The creator and the field system.
    EXPECT_EQ(mProblem->getReferenceCount(), 2);
}

TEST_F(QV_ProblemTest, ASystemThatMovesToAnotherProblemLeavesTheFirstOne)
{
    const COM_Scoped other(QV_1DProblem::New());
    const COM_Scoped bloch(QV_Bloch::New());
    mProblem->addToBlochEquations(*bloch);
    other->addToBlochEquations(*bloch);
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 1UL);
    EXPECT_EQ(other->getBlochEquations()->size(), 2UL);
    EXPECT_EQ(bloch->getProblem(), other.get());
    EXPECT_EQ(bloch->getReferenceCount(), 2);
    bloch->resetProblem();
    EXPECT_EQ(other->getBlochEquations()->size(), 1UL);
    EXPECT_EQ(bloch->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- scalings

TEST_F(QV_ProblemTest, InitialisingFormsTheRabiFrequencyAndScalesAllByIt)
{
    printedBy([this] { mProblem.milieu().create(); });
    mProblem.milieu().setIndice(1.25);
    printedBy([this] { EXPECT_EQ(mProblem->initialize(), 0); });
    const double rabi = 8.537e9 * 1e-29 / 1.0546e-34;
    EXPECT_EQ(mProblem->getRabiFrequency(), rabi);
    EXPECT_EQ(mProblem.wave().getFrequencyAdim(), mProblem.wave().getFrequency() / rabi);
    EXPECT_EQ(mProblem.wave().getWavePackageDurationAdim(), rabi * 4e-15);
    EXPECT_EQ((*mProblem.bloch().getLevelsFrequencyAdim())[1], 1.256e15 / rabi);
    EXPECT_EQ((*mProblem.bloch().getPolarizationsAdim())[0].getValue(0, 1), 1.0);
    EXPECT_EQ(mProblem.bloch().getDzeta(), 1e-29 * 1e24 / 8.85e-12 / 8.537e9);
    EXPECT_EQ(QV_Milieu::getCellLength(), 1.5e-6 / 20.0 / (2.997e8 * 1.25 / rabi));
    EXPECT_EQ(mProblem->getTimeStepAdim(), rabi * mProblem->getTimeStep());
}

TEST_F(QV_ProblemTest, TheFinalTimeIsThatOfAllSteps)
{
    mProblem->setMaxTimeStepsNumber(123456);
    printedBy([this] { mProblem.milieu().create(); });
    const std::string log = printedBy([this] { mProblem->initialize(); });
    EXPECT_NE(log.find("\ntemps final:1.2358e-11\n"), std::string::npos) << log;
}

TEST_F(QV_ProblemTest, WithoutDipoleThereIsNoRabiFrequencyAndNothingIsWritten)
{
    setNoDipole();
    mProblem.directory().write("tps.res", "older text");
    EXPECT_EQ(mProblem.run(), -1);
    EXPECT_EQ(mProblem.log(), "20 pas d'espace de longueur 7.5e-08\n"
                              "nVertex saving:5 at 30\n"
                              "nVertex saving:9 at 50\n"
                              "nVertex saving:13 at 70\n"
                              "muc:0\n"
                              "Emax:8.537e+09\n"
                              "FATAL ERROR: Rabi frequency is null \n");
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()), (ResultFiles{{"tps.res", "older text"}}));
    EXPECT_FALSE(std::filesystem::exists("paramBeforeSolving.xml"));
    EXPECT_EQ(mProblem->getRabiFrequency(), 0.0);
    EXPECT_EQ(mProblem->getTimeStepNumber(), 0UL);
}

TEST_F(QV_ProblemTest, WithoutDipoleNoPeakFieldMakesADifference)
{
    setNoDipole();
    for (const double peak : {0.0, 1e300, INFINITE, NOT_A_NUMBER}) {
        mProblem.wave().setFieldMaxValue(peak);
        EXPECT_EQ(mProblem.run(), -1) << peak;
    }
}

TEST_F(QV_ProblemTest, AfterARunThatCouldNotStartTheDataCanBeCorrected)
{
    setNoDipole();
    EXPECT_EQ(mProblem.run(), -1);
    QV_Bloch::initPolarizations();
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(linesOf(mProblem.directory().read("tps.res")), 20);
}

TEST_P(QV_ProblemMethodTest, WithoutPeakFieldTheRunGoesOnOverInfinities)
{
    mProblem.wave().setFieldMaxValue(0.0);
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(mProblem->getRabiFrequency(), 0.0);
    EXPECT_NE(mProblem.log().find("Rabi Frequency:0\n"), std::string::npos);
    EXPECT_NE(mProblem.log().find("pas de temps numerique:0\n"), std::string::npos);
    std::string expected;
    for (int step = 1; step <= 20; ++step) {
        expected +=
            "0.000000e+00 0.000000e+00 " + printed("%7.6e \n", 0.0 / mProblem->getRabiFrequency());
    }
    EXPECT_EQ(mProblem.directory().read("tps.res"), expected);
}

// ---------------------------------------------------------------- the run

TEST_P(QV_ProblemMethodTest, TheWholeLogOfARun)
{
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(withoutTime(mProblem.log()),
              logBefore(GetParam().mLine) + "execution time: secondes.\n");
}

TEST_P(QV_ProblemMethodTest, AllStepsAreDoneAndTheCounterStandsBehindTheLast)
{
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(mProblem->getTimeStepNumber(), 21UL);
    EXPECT_EQ(linesOf(mProblem.directory().read("tps.res")), 20);
    EXPECT_TRUE(mProblem->isSavingComplete());
}

TEST_P(QV_ProblemMethodTest, AMaximumOfZeroMakesAllFilesAndNoStep)
{
    mProblem.addSystem();
    mProblem->setMaxTimeStepsNumber(0);
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(mProblem.out().mInts, std::vector<int>{});
    EXPECT_EQ(mProblem->getTimeStepNumber(), 1UL);
    const ResultFiles files = resultFilesIn(mProblem.directory().path());
    EXPECT_EQ(files.size(), 18UL);
    for (const auto& [name, text] : files) {
        if (name == "captors.res") {
            EXPECT_EQ(linesOf(text), 5);
        } else if (name == "level_Frequencies.res") {
            EXPECT_EQ(linesOf(text), 6);
        } else {
            EXPECT_EQ(text, "") << name;
        }
    }
}

TEST_P(QV_ProblemMethodTest, FewerStepsThanProgressMessagesEndTheProcessByTheArithmeticTrap)
{
    for (unsigned long number = 1; number < GetParam().mFewest; ++number) {
        mProblem->setMaxTimeStepsNumber(number);
        EXPECT_EXIT(
            {
                dup2(STDERR_FILENO, STDOUT_FILENO);
                mProblem->run(mProblem.out());
            },
            testing::KilledBySignal(SIGFPE), whole(logBefore(GetParam().mLine, number)))
            << number;
        EXPECT_EQ(namesOf(resultFilesIn(mProblem.directory().path())),
                  (Names{"E_at_1.res", "E_at_13.res", "E_at_18.res", "E_at_5.res", "E_at_9.res",
                         "Rho_Bloch0_at_1.res", "Rho_Bloch0_at_13.res", "Rho_Bloch0_at_18.res",
                         "Rho_Bloch0_at_5.res", "Rho_Bloch0_at_9.res", "captors.res",
                         "level_Frequencies.res", "tps.res"}));
        EXPECT_EQ(linesOf(mProblem.directory().read("captors.res")), 5);
        EXPECT_EQ(mProblem.directory().read("tps.res"), "");
        EXPECT_EQ(mProblem.directory().read("E_at_1.res"), "");
        std::filesystem::remove(mProblem.directory().file("captors.res"));
        std::filesystem::remove(mProblem.directory().file("tps.res"));
    }
}

TEST_P(QV_ProblemMethodTest, ProgressIsToldAtEveryTenthOrTwentiethOfTheRun)
{
    const unsigned long messages = GetParam().mFewest;
    for (const unsigned long number :
         {messages, messages + 1, 2 * messages - 1, 2 * messages, 3 * messages + 7}) {
        StableProblem problem;
        problem->setMethod(GetParam().mNumber);
        problem->setMaxTimeStepsNumber(number);
        EXPECT_EQ(problem.run(), 0);
        std::vector<int> expected;
        const auto interval = static_cast<int>(number / messages);
        for (int n = interval; n <= static_cast<int>(number); n += interval) {
            expected.push_back(n);
        }
        EXPECT_EQ(problem.out().mInts, expected) << number;
        EXPECT_EQ(problem.out().mReals, Values{});
        EXPECT_EQ(problem.out().mTexts, Names{});
    }
}

TEST_F(QV_ProblemTest, TenStepsAreToldOneByOne)
{
    mProblem->setMaxTimeStepsNumber(10);
    mProblem.run();
    EXPECT_EQ(mProblem.out().mInts, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(QV_ProblemTest, TheLastMessageMayComeBeforeTheLastStep)
{
    mProblem->setMaxTimeStepsNumber(29);
    mProblem.run();
    EXPECT_EQ(mProblem.out().mInts,
              (std::vector<int>{2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28}));
}

TEST_F(QV_ProblemTest, AMessageComesBeforeItsStep)
{
    std::vector<std::size_t> known;
    mProblem->setWatcher([this, &known] { known.push_back(mProblem.out().mInts.size()); });
    mProblem->setMaxTimeStepsNumber(10);
    mProblem.run();
    EXPECT_EQ(known, (std::vector<std::size_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST_F(QV_ProblemTest, WithoutASinkTheProgressGoesIntoTheLog)
{
    const std::string log = printedBy([this] { mProblem->run(); });
    EXPECT_EQ(withoutTime(log),
              logBefore(methods()[4].mLine) + "2468101214161820execution time: secondes.\n");
}

TEST_F(QV_ProblemTest, WithoutASinkTheResultTellsNothing)
{
    int success = 7;
    int failure = 8;
    printedBy([this, &success] { success = mProblem->run(); });
    setNoDipole();
    printedBy([this, &failure] { failure = mProblem->run(); });
    EXPECT_EQ(success, failure);
}

TEST_F(QV_ProblemTest, AMethodThatDoesNotExistDoesNoStepAndEndsWell)
{
    for (const int method : {6, 7, 255}) {
        StableProblem problem;
        problem->setMethod(static_cast<unsigned char>(method));
        EXPECT_EQ(problem.run(), 0);
        EXPECT_EQ(withoutTime(problem.log()),
                  logBefore("method number " + std::to_string(method) + " too large !\n")
                      + "execution time: secondes.\n");
        EXPECT_EQ(problem.out().mInts, std::vector<int>{});
        EXPECT_EQ(problem->getTimeStepNumber(), 0UL);
        EXPECT_EQ(problem.directory().read("tps.res"), "");
    }
}

TEST_F(QV_ProblemTest, TheExecutionTimeIsTicksOfTheProcessorOverSixty)
{
    mProblem.run();
    const std::string& log = mProblem.log();
    const std::size_t word = log.find(TIME_WORD) + std::string(TIME_WORD).size();
    const double ticks = 60.0 * std::stod(log.substr(word));
    EXPECT_GE(ticks, 0.0);
    EXPECT_NEAR(ticks, std::round(ticks), 1e-5 * (1.0 + ticks)); // six digits are printed
}

TEST_F(QV_ProblemTest, EachSystemIsScaledAndPreparedInTurn)
{
    mProblem.addSystem();
    mProblem->setMaxTimeStepsNumber(0);
    mProblem.run();
    const std::string scaling = "\t init densities \n"
                                "\t create adim values \n"
                                "\t create the relax Diag and Relax Nut matrix \n"
                                "\t dimensionize \n"
                                "\t end adimensionize \n";
    const std::string preparing = "compute TrPPower \ncomputePolarizationsPower \n";
    EXPECT_NE(
        mProblem.log().find("equations.. \n" + scaling + scaling + "adimensionize the milieu"),
        std::string::npos);
    EXPECT_NE(mProblem.log().find("Init Bloch Splitting \n" + preparing + preparing + "execution"),
              std::string::npos);
}

TEST_P(QV_ProblemMethodTest, WithoutSystemsOnlyTheFieldIsAdvanced)
{
    mProblem->resetBlochEquations();
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(namesOf(resultFilesIn(mProblem.directory().path())),
              (Names{"E_at_1.res", "E_at_13.res", "E_at_18.res", "E_at_5.res", "E_at_9.res",
                     "captors.res", "level_Frequencies.res", "tps.res"}));
    EXPECT_EQ(mProblem.directory().read("level_Frequencies.res"), "");
}

namespace {

/// Notes its operations, and can end two of them with other results.
class NotingProblem : public QV_1DProblem
{
    COM_CLASS(NotingProblem)
public:
    int initialize() override
    {
        mCalls.emplace_back("initialize");
        const int result = QV_1DProblem::initialize();
        return mInitialized != 0 ? mInitialized : result;
    }
    int solve(COM_Out& out) override
    {
        mCalls.emplace_back("solve");
        return QV_1DProblem::solve(out) + mSolved;
    }
    bool save(double t) override
    {
        mTimes.push_back(t);
        mCalls.emplace_back("save");
        QV_1DProblem::save(t);
        return false;
    }
    bool initSaving(std::string path) override
    {
        mCalls.push_back("initSaving " + path);
        return QV_1DProblem::initSaving(path);
    }
    bool closeSaving() override
    {
        mCalls.emplace_back("closeSaving");
        return QV_1DProblem::closeSaving();
    }

    int mInitialized = 0; ///< What `initialize` gives; 0 for its own result.
    int mSolved = 0;
    Names mCalls;
    Values mTimes;

protected:
    NotingProblem() { COM_TYPE(NotingProblem); }
    ~NotingProblem() override = default;
};

} // namespace

TEST_F(QV_ProblemTest, ARunGoesThroughItsVirtualOperationsAndHandsOnTheirResults)
{
    const COM_Scoped problem(NotingProblem::New());
    dynamic_cast<QV_1DMilieu&>(*problem->getMilieu()).setLength(20.5 * StableProblem::CELL);
    problem->setMethod(QV_Problem::SPLIT_METHOD);
    problem->setMaxTimeStepsNumber(10);
    problem->setSavingPath(mProblem.directory().slashed());
    const auto run = [&] {
        int result = 0;
        printedBy([&] { result = problem->run(mProblem.out()); });
        return result;
    };
    problem->mInitialized = -7;
    EXPECT_EQ(run(), -7);
    EXPECT_EQ(problem->mCalls, Names{"initialize"});
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()), ResultFiles{});

    problem->mInitialized = 1;
    problem->mSolved = 5;
    problem->mCalls.clear();
    EXPECT_EQ(run(), 5);
    Names calls{"initialize", "solve", "initSaving " + mProblem.directory().slashed()};
    Values times;
    for (int n = 1; n <= 10; ++n) {
        calls.emplace_back("save"); // and a save that fails ends nothing
        times.push_back(n * problem->getTimeStepAdim());
    }
    calls.emplace_back("closeSaving");
    EXPECT_EQ(problem->mCalls, calls);
    EXPECT_EQ(problem->mTimes, times);
}

// ---------------------------------------------------------------- the steps of each method

namespace {

/// One step of a method by the parts' own operations.
void stepByHand(const StableProblem& problem, double t, double dt)
{
    QV_1DMaxwell& maxwell = problem.maxwell();
    const auto eachSystem = [&problem](auto operation) {
        for (unsigned long b = 0; b < problem->getBlochEquations()->size(); ++b) {
            operation(problem.bloch(b));
        }
    };
    maxwell.solveFaraday(t, dt);
    switch (problem->getMethod()) {
    case QV_Problem::CN_Z_METHOD:
        maxwell.solveAmpereZiolko(t, dt);
        eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochZiolko(t, dt); });
        break;
    case QV_Problem::CN_P_METHOD:
        maxwell.solveAmpereZiolko(t, dt);
        eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochP(t, dt); });
        break;
    case QV_Problem::CN_dtP_METHOD:
        eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochCrank(t, dt); });
        maxwell.solveAmpere(t, dt);
        break;
    case QV_Problem::RELAX_METHOD: {
        eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochRelaxExtraDiag(t, dt); });
        const COM_Scoped Et(QV_Field::New(*maxwell.getField(QV_Maxwell::E_FIELD)));
        maxwell.solveAmpere(t, dt);
        eachSystem([t, dt, &Et](QV_Bloch& bloch) { bloch.solveBlochRelaxDiag(t, dt, *Et); });
        break;
    }
    case QV_Problem::SPLIT_METHOD:
        eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochSplit(t, dt); });
        maxwell.solveAmpere(t, dt);
        break;
    default:
        maxwell.solveAmpereZiolko(t, dt);
        eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochPredCorr(t, dt); });
        break;
    }
}

} // namespace

TEST_P(QV_ProblemMethodTest, ARunIsTheSequenceOfItsSteps)
{
    mProblem.addSystem();
    ASSERT_EQ(mProblem.run(), 0);
    const Values expected = stateOf(mProblem);
    mProblem.release(); // two meshes at a time would share their nodes

    StableProblem byHand;
    byHand.addSystem();
    byHand->setMethod(GetParam().mNumber);
    printedBy([&byHand] {
        byHand.milieu().create();
        byHand->initialize();
        const double dt = byHand->getTimeStepAdim();
        for (unsigned long b = 0; b < 2 && byHand->getMethod() == QV_Problem::SPLIT_METHOD; ++b) {
            byHand.bloch(b).solveBlochSplitInit(0.0, dt);
        }
        for (unsigned long n = 1; n <= 20; ++n) {
            stepByHand(byHand, static_cast<double>(n) * dt, dt);
        }
    });
    EXPECT_EQ(stateOf(byHand), expected);
    EXPECT_NE(valuesOf(byHand.maxwell().getField(QV_Maxwell::E_FIELD)), Values(20, 0.0));
}

TEST_P(QV_ProblemMethodTest, EveryMethodIsAStepOfItsOwn)
{
    mProblem.run();
    const Values state = stateOf(mProblem);
    mProblem.release();
    for (const Method& method : methods()) {
        StableProblem other;
        other->setMethod(method.mNumber);
        other.run();
        EXPECT_EQ(stateOf(other) == state, method.mNumber == GetParam().mNumber) << method.mName;
    }
}

namespace {

/// A field system that notes its steps, and says that they have failed.
class NotingMaxwell : public QV_1DMaxwell
{
    COM_CLASS(NotingMaxwell)
public:
    bool solveFaraday(double t, double dt) override
    {
        mCalls.emplace_back("Faraday");
        QV_1DMaxwell::solveFaraday(t, dt);
        return false;
    }
    bool solveAmpere(double /*t*/, double /*dt*/) override
    {
        mCalls.emplace_back("Ampere");
        return false;
    }
    bool solveAmpereZiolko(double /*t*/, double /*dt*/) override
    {
        mCalls.emplace_back("AmpereZiolko");
        return false;
    }

protected:
    explicit NotingMaxwell(Names& calls)
        : mCalls(calls)
    {
        COM_TYPE(NotingMaxwell);
    }
    ~NotingMaxwell() override = default;

private:
    Names& mCalls;
};

/// A system that notes its steps, and says that they have failed.
class NotingBloch : public QV_Bloch
{
    COM_CLASS(NotingBloch)
public:
    bool solveBlochZiolko(double t, double dt) override { return note("Ziolko", t, dt); }
    bool solveBlochP(double t, double dt) override { return note("P", t, dt); }
    bool solveBlochPredCorr(double t, double dt) override { return note("PredCorr", t, dt); }
    bool solveBlochCrank(double t, double dt) override { return note("Crank", t, dt); }
    bool solveBlochRelaxExtraDiag(double t, double dt) override
    {
        return note("RelaxExtraDiag", t, dt);
    }
    bool solveBlochRelaxDiag(double t, double dt, const QV_Field& /*oldField*/) override
    {
        return note("RelaxDiag", t, dt);
    }
    bool solveBlochSplit(double t, double dt) override { return note("Split", t, dt); }
    bool solveBlochSplitInit(double t, double dt) override { return note("SplitInit", t, dt); }

protected:
    NotingBloch(Names& calls, std::string name)
        : mCalls(calls)
        , mName(std::move(name))
    {
        COM_TYPE(NotingBloch);
    }
    ~NotingBloch() override = default;

private:
    bool note(const std::string& operation, double t, double dt)
    {
        const auto step = static_cast<double>(getProblem()->getTimeStepNumber());
        const double expected = getProblem()->getTimeStepAdim();
        mCalls.push_back(operation + " " + mName
                         + (dt == expected && t == step * expected ? "" : " at another time"));
        return false;
    }

    Names& mCalls;
    std::string mName;
};

/// What one step of a method calls, with two systems, a and b.
const Names& callsOfStep(unsigned char method)
{
    static const std::vector<Names> all{
        {"Faraday", "AmpereZiolko", "Ziolko a", "Ziolko b", "save"},
        {"Faraday", "AmpereZiolko", "P a", "P b", "save"},
        {"Faraday", "Crank a", "Crank b", "save", "Ampere"},
        {"Faraday", "RelaxExtraDiag a", "RelaxExtraDiag b", "Ampere", "RelaxDiag a", "RelaxDiag b",
         "save"},
        {"Faraday", "Split a", "Split b", "save", "Ampere"},
        {"Faraday", "AmpereZiolko", "PredCorr a", "PredCorr b", "save"},
    };
    return all[method];
}

/// A problem of noting parts, which note into its own calls.
void useNotingParts(NotingProblem& problem)
{
    const COM_Scoped maxwell(NotingMaxwell::New(problem.mCalls));
    const COM_Scoped wave(QV_IncidentFields::New());
    maxwell->setIncidentFields(*wave);
    problem.setMaxwellSystem(*maxwell);
    problem.resetBlochEquations();
    for (const char* name : {"a", "b"}) {
        const COM_Scoped bloch(NotingBloch::New(problem.mCalls, name));
        problem.addToBlochEquations(*bloch);
    }
    dynamic_cast<QV_1DMilieu&>(*problem.getMilieu()).setLength(20.5 * StableProblem::CELL);
}

} // namespace

TEST_P(QV_ProblemMethodTest, AStepCallsItsOperationsInTheirOrderWhateverTheyReturn)
{
    const COM_Scoped problem(NotingProblem::New());
    useNotingParts(*problem);
    problem->setMethod(GetParam().mNumber);
    problem->setMaxTimeStepsNumber(20);
    problem->setSavingPath(mProblem.directory().slashed());
    printedBy([&] { EXPECT_EQ(problem->run(mProblem.out()), 0); });
    Names expected{"initialize", "solve", "initSaving " + mProblem.directory().slashed()};
    if (GetParam().mNumber == QV_Problem::SPLIT_METHOD) {
        expected.emplace_back("SplitInit a"); // once, the counter being still 0
        expected.emplace_back("SplitInit b");
    }
    for (int n = 1; n <= 20; ++n) {
        const Names& step = callsOfStep(GetParam().mNumber);
        expected.insert(expected.end(), step.begin(), step.end());
    }
    expected.emplace_back("closeSaving");
    EXPECT_EQ(problem->mCalls, expected);
}

TEST_F(QV_ProblemTest, AMethodThatDoesNotExistOpensAndClosesTheFilesAndCallsNoStep)
{
    const COM_Scoped problem(NotingProblem::New());
    useNotingParts(*problem);
    problem->setMethod(static_cast<unsigned char>(6));
    problem->setSavingPath(mProblem.directory().slashed());
    printedBy([&] { EXPECT_EQ(problem->run(mProblem.out()), 0); });
    EXPECT_EQ(problem->mCalls,
              (Names{"initialize", "solve", "initSaving " + mProblem.directory().slashed(),
                     "closeSaving"}));
}

INSTANTIATE_TEST_SUITE_P(Methods, QV_ProblemMethodTest, testing::ValuesIn(methods()), nameOfMethod);

// ---------------------------------------------------------------- the watcher

TEST_F(QV_ProblemTest, TheWatcherIsCalledAtTheEndOfEachStep)
{
    std::vector<unsigned long> numbers;
    mProblem->setWatcher([this, &numbers] { numbers.push_back(mProblem->getTimeStepNumber()); });
    mProblem->setMaxTimeStepsNumber(10);
    mProblem.run();
    EXPECT_EQ(numbers, (std::vector<unsigned long>{2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    mProblem->setMaxTimeStepsNumber(0);
    mProblem.run();
    EXPECT_EQ(numbers.size(), 10UL);
    mProblem->setWatcher({});
    mProblem->setMaxTimeStepsNumber(10);
    mProblem.run();
    EXPECT_EQ(numbers.size(), 10UL);
}

TEST_F(QV_ProblemTest, AWatcherThatEndsTheProcessLeavesCompleteLines)
{
    mProblem->setMaxTimeStepsNumber(2000);
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            mProblem->setWatcher([this] {
                if (mProblem->getTimeStepNumber() == 1235) {
                    std::exit(5);
                }
            });
            mProblem->run(mProblem.out());
        },
        testing::ExitedWithCode(5), whole(logBefore(methods()[4].mLine, 2000)));
    const ResultFiles cut = resultFilesIn(mProblem.directory().path());
    ASSERT_EQ(cut.size(), 13UL);
    ASSERT_EQ(mProblem.run(), 0);
    for (const auto& [name, text] : resultFilesIn(mProblem.directory().path())) {
        const bool isSeries = name != "captors.res" && name != "level_Frequencies.res";
        EXPECT_EQ(linesOf(cut.at(name)), isSeries ? 1234 : linesOf(text)) << name;
        EXPECT_EQ(cut.at(name), text.substr(0, cut.at(name).size())) << name;
    }
}

// ---------------------------------------------------------------- frequencies

namespace {

class QV_ProblemFrequenciesTest : public QV_ProblemTest
{
protected:
    Values frequenciesOf(unsigned long b) const
    {
        return valuesOf(mProblem.bloch(b).getLevelsFrequency());
    }
    static LA_RealVector* newVector(const Values& values)
    {
        LA_RealVector* const vector = LA_RealVector::New(0);
        vector->setValues(values);
        return vector;
    }
};

} // namespace

TEST_F(QV_ProblemFrequenciesTest, OneSystemGetsTheFrequenciesUnchangedWhateverTheDeviation)
{
    mProblem->setFrequenciesDistributionDelta(1e14);
    mProblem->setFrequenciesDistributionMean(1e13);
    const COM_Scoped omega(newVector({1.0, 2.0}));
    mProblem->generateBlochFrequencies(*omega);
    EXPECT_EQ(mProblem.bloch().getLevelsFrequency(), omega.get());
    EXPECT_EQ(frequenciesOf(0), (Values{1.0, 2.0}));
}

TEST_F(QV_ProblemFrequenciesTest,
       WithoutDeviationEverySystemGetsTheShiftedFrequenciesInAVectorOfItsOwn)
{
    mProblem.addSystem();
    mProblem.addSystem();
    mProblem->setFrequenciesDistributionMean(0.5);
    const COM_Scoped omega(newVector({1.0, 1.256e15}));
    mProblem->generateBlochFrequencies(*omega);
    EXPECT_EQ(mProblem.bloch(0).getLevelsFrequency(), omega.get());
    EXPECT_EQ(frequenciesOf(0), (Values{1.0, 1.256e15}));
    EXPECT_EQ(frequenciesOf(1), (Values{1.5, 1.256e15 + 0.5}));
    EXPECT_EQ(frequenciesOf(2), (Values{1.5, 1.256e15 + 0.5}));
    EXPECT_NE(mProblem.bloch(1).getLevelsFrequency(), mProblem.bloch(2).getLevelsFrequency());
    EXPECT_EQ(mProblem.bloch(1).getLevelsFrequency()->getReferenceCount(), 1);
}

TEST_F(QV_ProblemFrequenciesTest, AnotherLawThanTheGaussianOneChangesTheFirstSystemAlone)
{
    mProblem.addSystem();
    mProblem->setFrequenciesDistributionMethod(static_cast<unsigned char>(1));
    const COM_Scoped omega(newVector({1.0, 2.0}));
    mProblem->generateBlochFrequencies(*omega);
    EXPECT_EQ(frequenciesOf(0), (Values{1.0, 2.0}));
    EXPECT_EQ(frequenciesOf(1), (Values{0.0, 1.256e15}));
}

// The samples differ from run to run. Of 400 the mean deviates by 0.05 and the deviation by 0.035 of the
// law's deviation: the bounds lie at five and at seven times that.
TEST_F(QV_ProblemFrequenciesTest, SystemsPastTheFirstAreDrawnAroundTheShiftedFrequenciesOfTheFirst)
{
    constexpr unsigned long count = 400;
    for (unsigned long b = 0; b < count; ++b) {
        mProblem.addSystem();
    }
    mProblem->setFrequenciesDistributionDelta(3.0);
    mProblem->setFrequenciesDistributionMean(20.0);
    const COM_Scoped omega(newVector({100.0, 500.0}));
    mProblem->generateBlochFrequencies(*omega);
    EXPECT_EQ(frequenciesOf(0), (Values{100.0, 500.0}));
    for (unsigned long j = 0; j < 2; ++j) {
        double sum = 0.0;
        double squares = 0.0;
        for (unsigned long b = 1; b <= count; ++b) {
            const double value = frequenciesOf(b)[j];
            sum += value;
            squares += value * value;
        }
        const double mean = sum / count;
        EXPECT_NEAR(mean, (*omega)[j] + 20.0, 0.25 * 3.0) << j;
        EXPECT_NEAR(std::sqrt(squares / count - mean * mean), 3.0, 0.25 * 3.0) << j;
    }
}

// Two samples begin with the clock's ticks, which have moved on after the first 400.
TEST_F(QV_ProblemFrequenciesTest, EachLevelGetsASampleOfItsOwn)
{
    constexpr unsigned long count = 400;
    for (unsigned long b = 0; b < count; ++b) {
        mProblem.addSystem();
    }
    mProblem->setFrequenciesDistributionDelta(3.0);
    const COM_Scoped omega(newVector({100.0, 500.0}));
    mProblem->generateBlochFrequencies(*omega);
    unsigned long different = 0;
    for (unsigned long b = 1; b <= count; ++b) {
        const Values values = frequenciesOf(b);
        different += std::fabs((values[0] - 100.0) - (values[1] - 500.0)) > 1e-6 ? 1 : 0;
    }
    EXPECT_GT(different, count / 2);
}

TEST_F(QV_ProblemFrequenciesTest, WithoutAVectorTheFrequenciesOfTheFirstSystemAreTaken)
{
    mProblem.addSystem();
    const COM_Scoped omega(newVector({3.0, 4.0}));
    mProblem.bloch().setLevelsFrequency(*omega);
    mProblem->generateBlochFrequencies();
    EXPECT_EQ(mProblem.bloch().getLevelsFrequency(), omega.get());
    EXPECT_EQ(omega->getReferenceCount(), 2);
    EXPECT_EQ(frequenciesOf(1), (Values{3.0, 4.0}));
}

TEST_F(QV_ProblemFrequenciesTest, WithoutFrequenciesOfTheFirstSystemNothingIsDrawn)
{
    mProblem.addSystem();
    mProblem.bloch().setLevelsFrequency(nullptr);
    mProblem->generateBlochFrequencies();
    EXPECT_EQ(mProblem.bloch().getLevelsFrequency(), nullptr);
    EXPECT_EQ(frequenciesOf(1), (Values{0.0, 1.256e15}));
}

TEST_F(QV_ProblemFrequenciesTest, WithoutSystemsThereIsNothingToDo)
{
    mProblem->resetBlochEquations();
    const COM_Scoped omega(newVector({3.0, 4.0, 5.0}));
    mProblem->generateBlochFrequencies();
    mProblem->generateBlochFrequencies(*omega);
    EXPECT_EQ(omega->getReferenceCount(), 1);
    EXPECT_EQ(valuesOf(omega.get()), (Values{3.0, 4.0, 5.0}));
}

TEST_F(QV_ProblemFrequenciesTest, AVectorOfAnotherLengthIsCutOrFilledToTheLevels)
{
    mProblem.addSystem();
    const COM_Scoped longer(newVector({3.0, 4.0, 5.0}));
    mProblem->generateBlochFrequencies(*longer);
    EXPECT_EQ(frequenciesOf(0), (Values{3.0, 4.0}));
    EXPECT_EQ(frequenciesOf(1), (Values{3.0, 4.0}));
    mProblem->setFrequenciesDistributionMean(1.0);
    const COM_Scoped shorter(newVector({6.0}));
    mProblem->generateBlochFrequencies(*shorter);
    EXPECT_EQ(frequenciesOf(0), (Values{6.0, 0.0}));
    EXPECT_EQ(frequenciesOf(1), (Values{7.0, 0.0}));
}

// ---------------------------------------------------------------- result files

TEST_F(QV_ProblemTest, TwoSystemsAndFiveSavingNodesGiveEighteenFiles)
{
    mProblem.addSystem();
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(namesOf(resultFilesIn(mProblem.directory().path())),
              (Names{"E_at_1.res", "E_at_13.res", "E_at_18.res", "E_at_5.res", "E_at_9.res",
                     "Rho_Bloch0_at_1.res", "Rho_Bloch0_at_13.res", "Rho_Bloch0_at_18.res",
                     "Rho_Bloch0_at_5.res", "Rho_Bloch0_at_9.res", "Rho_Bloch1_at_1.res",
                     "Rho_Bloch1_at_13.res", "Rho_Bloch1_at_18.res", "Rho_Bloch1_at_5.res",
                     "Rho_Bloch1_at_9.res", "captors.res", "level_Frequencies.res", "tps.res"}));
}

TEST_F(QV_ProblemTest, TwoCaptorsOnOneNodeGiveOneFile)
{
    const COM_Scoped captors(LA_RealVector::New(0));
    captors->setValues(50.0, 52.0);
    mProblem.milieu().setCaptors(*captors);
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(namesOf(resultFilesIn(mProblem.directory().path())),
              (Names{"E_at_1.res", "E_at_18.res", "E_at_9.res", "Rho_Bloch0_at_1.res",
                     "Rho_Bloch0_at_18.res", "Rho_Bloch0_at_9.res", "captors.res",
                     "level_Frequencies.res", "tps.res"}));
}

TEST_F(QV_ProblemTest, TheCaptorsFileHasALineForEachSavingNode)
{
    mProblem.addSystem();
    mProblem.maxwell().setDimension(2);
    QV_Bloch::setPolarizationsSize(2);
    ASSERT_EQ(mProblem.run(), 0);
    const double rabi = mProblem->getRabiFrequency();
    std::string expected;
    for (const int node : {1, 5, 9, 13, 18}) {
        const double z = node * (1.5e-6 / 20.0) / (2.997e8 * 1.0 / rabi);
        char line[400];
        std::snprintf(line, sizeof line,
                      "captors Location: %i RelPosition: %lf Position: %s RhoSize: %i "
                      "BlochEquationsNumber: %i EDim: %i\n",
                      node, node / 20.0, ("(" + printed("%8.6e", z) + ")").c_str(), 2, 2, 2);
        expected += line;
    }
    EXPECT_EQ(mProblem.directory().read("captors.res"), expected);
    EXPECT_EQ(expected.substr(0, 100), "captors Location: 1 RelPosition: 0.050000 Position: "
                                       "(2.025779e-01) RhoSize: 2 BlochEquationsNumber: ");
}

TEST_F(QV_ProblemTest, TheFrequenciesFileHasThemInRadiansPerSecondSystemAfterSystem)
{
    mProblem.addSystem();
    const COM_Scoped omega(LA_RealVector::New(0));
    omega->setValues(-0.1234567, 1255380424374481.3);
    mProblem.bloch(1).setLevelsFrequency(*omega);
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(mProblem.directory().read("level_Frequencies.res"),
              "Rho_Bloch0:\n"
              "\t omega[0]=0.000000\n"
              "\t omega[1]=1256000000000000.000000\n"
              "Rho_Bloch1:\n"
              "\t omega[0]=-0.123457\n"
              "\t omega[1]="
                  + printed("%lf", 1255380424374481.3) + "\n");
}

namespace {

class QV_ProblemSeriesTest : public QV_ProblemMethodTest
{
protected:
    static constexpr unsigned long nodes[] = {1, 5, 9, 13, 18};

    /// Runs, and writes beside it what each series must hold. A step's density is the one at its end.
    /// The field is the one at its end too, but where Ampere comes last it is the one before.
    ResultFiles expectedSeries()
    {
        const bool isBeforeAmpere = GetParam().mNumber == QV_Problem::CN_dtP_METHOD
                                    || GetParam().mNumber == QV_Problem::SPLIT_METHOD;
        ResultFiles expected;
        Values before;
        mProblem->setWatcher([&] {
            const Values now = valuesOf(mProblem.maxwell().getField(QV_Maxwell::E_FIELD));
            before.resize(now.size());
            const auto step = static_cast<double>(mProblem->getTimeStepNumber() - 1);
            appendStep(step * mProblem->getTimeStepAdim(), isBeforeAmpere ? before : now, expected);
            before = now;
        });
        EXPECT_EQ(mProblem.run(), 0);
        return expected;
    }

private:
    void appendStep(double t, const Values& E, ResultFiles& expected) const
    {
        const unsigned long dimension = mProblem.maxwell().getDimension();
        for (const unsigned long node : nodes) {
            std::string& fieldFile = expected["E_at_" + std::to_string(node) + ".res"];
            fieldFile += printed("%7.6e ", t);
            for (unsigned long j = 0; j < dimension; ++j) {
                fieldFile += printed("%7.6e \t ", E[node * dimension + j] * 8.537e9);
            }
            fieldFile += "\n";
            for (unsigned long b = 0; b < mProblem->getBlochEquations()->size(); ++b) {
                expected["Rho_Bloch" + std::to_string(b) + "_at_" + std::to_string(node)
                         + ".res"] += densityLine(t, mProblem.bloch(b), node);
            }
        }
        const double rabi = mProblem->getRabiFrequency();
        expected["tps.res"] +=
            printed("%7.6e ", t) + printed("%7.6e ", rabi) + printed("%7.6e \n", t / rabi);
    }
    std::string densityLine(double t, const QV_Bloch& bloch, unsigned long node) const
    {
        char head[80];
        std::snprintf(head, sizeof head, "%7.6e %i ", t,
                      static_cast<int>(bloch.getIterationsNumber()));
        std::string line = head;
        for (unsigned long j = 0; j < 2; ++j) {
            for (unsigned long k = 0; k < 2; ++k) {
                const std::complex<double> element = bloch.getDensity(node)->getValue(j, k);
                double value = element.real();
                if (GetParam().mNumber == QV_Problem::PRED_CORR_METHOD) {
                    const LA_RealVector& omega = *bloch.getLevelsFrequencyAdim();
                    const double d = omega[k] - omega[j];
                    const double g = QV_Bloch::getTransversalRelaxationAdim();
                    value = (element * std::exp(-g * t)
                             * std::complex<double>(std::cos(d * t), std::sin(d * t)))
                                .real();
                }
                line += printed("%7.6e \t ", value);
            }
        }
        return line + "\n";
    }
};

} // namespace

TEST_P(QV_ProblemSeriesTest, EveryLineOfEverySeriesToTheByte)
{
    mProblem.addSystem();
    const ResultFiles expected = expectedSeries();
    for (const auto& [name, text] : expected) {
        EXPECT_EQ(mProblem.directory().read(name), text) << name;
        EXPECT_EQ(linesOf(text), 20) << name;
    }
    EXPECT_EQ(expected.size(), 16UL);
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()).size(), 18UL);
}

INSTANTIATE_TEST_SUITE_P(Methods, QV_ProblemSeriesTest, testing::ValuesIn(methods()), nameOfMethod);

namespace {

class QV_ProblemTwoComponentsTest : public QV_ProblemSeriesTest
{};

} // namespace

TEST_P(QV_ProblemTwoComponentsTest, AFieldLineHasThreeNumbersAndTheSecondComponentMayLive)
{
    mProblem.maxwell().setDimension(2);
    QV_Bloch::setPolarizationsSize(2); // the second dipole is like the first
    const ResultFiles expected = expectedSeries();
    for (const auto& [name, text] : expected) {
        EXPECT_EQ(mProblem.directory().read(name), text) << name;
    }
    EXPECT_EQ((*mProblem.wave().getIncidentField(2, 1e9, 0.1))[1], 0.0);
    const QV_Field& E = *mProblem.maxwell().getField(QV_Maxwell::E_FIELD);
    EXPECT_NE(E[5][0], 0.0);
    EXPECT_NE(E[5][1], 0.0);
}

INSTANTIATE_TEST_SUITE_P(Splitting, QV_ProblemTwoComponentsTest, testing::Values(methods()[4]),
                         nameOfMethod);

TEST_F(QV_ProblemTest, FilesOfAFormerRunAreReplaced)
{
    mProblem->setMaxTimeStepsNumber(40);
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(linesOf(mProblem.directory().read("E_at_1.res")), 40);
    mProblem->setMaxTimeStepsNumber(10);
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(linesOf(mProblem.directory().read("E_at_1.res")), 10);
    EXPECT_EQ(linesOf(mProblem.directory().read("tps.res")), 10);
    EXPECT_EQ(linesOf(mProblem.directory().read("captors.res")), 5);
}

TEST_F(QV_ProblemTest, APathWithoutSlashIsGluedToTheNames)
{
    mProblem->setSavingPath(mProblem.directory().file("run"));
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(namesOf(resultFilesIn(mProblem.directory().path())),
              (Names{"runE_at_1.res", "runE_at_13.res", "runE_at_18.res", "runE_at_5.res",
                     "runE_at_9.res", "runRho_Bloch0_at_1.res", "runRho_Bloch0_at_13.res",
                     "runRho_Bloch0_at_18.res", "runRho_Bloch0_at_5.res", "runRho_Bloch0_at_9.res",
                     "runcaptors.res", "runlevel_Frequencies.res", "runtps.res"}));
}

TEST_F(QV_ProblemTest, AnEmptyPathIsTheWorkingDirectory)
{
    mProblem->setSavingPath("");
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()).size(), 13UL);
}

TEST_F(QV_ProblemTest, AMissingDirectoryEndsTheProcessAtTheFirstFile)
{
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            mProblem->initSaving("missing/");
        },
        testing::ExitedWithCode(0),
        whole("impossible to save the initialization in missing//captors.res\n"));
}

TEST_F(QV_ProblemTest, ARunWithoutItsDirectoryEndsTheProcessAfterItsRecord)
{
    mProblem->setSavingPath("missing/");
    const std::string log = logBefore("");
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            mProblem->run(mProblem.out());
        },
        testing::ExitedWithCode(0),
        whole(log.substr(0, log.find(" init Saving done\n"))
              + "impossible to save the initialization in missing//captors.res\n"));
    EXPECT_TRUE(std::filesystem::exists("paramBeforeSolving.xml"));
}

namespace {

struct Obstacle
{
    std::string mFile;   ///< A directory of that name stands in the way.
    std::string mText;   ///< What is printed, "<path>" for the path.
    unsigned long mMade; ///< Files that are there already.

    friend std::ostream& operator<<(std::ostream& out, const Obstacle& tested)
    {
        return out << tested.mFile;
    }
};

class QV_ProblemObstacleTest : public QV_ProblemTest, public testing::WithParamInterface<Obstacle>
{};

} // namespace

TEST_P(QV_ProblemObstacleTest, AFileThatCannotBeMadeEndsTheProcessInItsTurn)
{
    mProblem.addSystem();
    std::filesystem::create_directory(mProblem.directory().file(GetParam().mFile));
    printedBy([this] { mProblem.milieu().create(); });
    std::string expected = GetParam().mText;
    expected.replace(expected.find("<path>"), 6, mProblem.directory().slashed());
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            mProblem->initSaving(mProblem.directory().slashed());
        },
        testing::ExitedWithCode(0), whole(expected));
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()).size(), GetParam().mMade);
}

INSTANTIATE_TEST_SUITE_P(
    Files, QV_ProblemObstacleTest,
    testing::Values(
        Obstacle{"captors.res", "impossible to save the initialization in <path>/captors.res\n", 0},
        Obstacle{"E_at_1.res", "FATAL ERROR: Problem of creation of file <path>E_at_1.res\n", 1},
        Obstacle{"E_at_18.res", "FATAL ERROR: Problem of creation of file <path>E_at_18.res\n", 5},
        Obstacle{"level_Frequencies.res",
                 "impossible to save the initialization in <path>/level_Frequencies.res\n", 6},
        Obstacle{"Rho_Bloch0_at_9.res",
                 "FATAL ERROR: Problem of creation of file <path>Rho_Bloch0_at_9.res\n", 9},
        Obstacle{"Rho_Bloch1_at_18.res",
                 "FATAL ERROR: Problem of creation of file <path>Rho_Bloch1_at_18.res\n", 16},
        Obstacle{"tps.res", "FATAL ERROR: Problem of creation of file <path>tps.res\n", 17}),
    [](const auto& obstacle) {
        std::string name = obstacle.param.mFile;
        std::erase_if(name, [](char letter) { return letter == '.' || letter == '_'; });
        return name;
    });

namespace {

class QV_ProblemFullDiskTest : public QV_ProblemTest,
                               public testing::WithParamInterface<std::string>
{};

} // namespace

TEST_P(QV_ProblemFullDiskTest, IsToldByOneLineOnStandardErrorAndRemembered)
{
    const std::string file = mProblem.directory().file(GetParam());
    std::filesystem::create_symlink("/dev/full", file);
    testing::internal::CaptureStderr();
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "The file " + file + " could not be written completely.\n");
    EXPECT_FALSE(mProblem->isSavingComplete());
    // All other files are complete.
    const ResultFiles files = resultFilesIn(mProblem.directory().path());
    EXPECT_EQ(files.size(), 12UL);
    std::filesystem::remove(file);
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_TRUE(mProblem->isSavingComplete());
    EXPECT_EQ(namesOf(resultFilesIn(mProblem.directory().path())).size(), 13UL);
}

INSTANTIATE_TEST_SUITE_P(Files, QV_ProblemFullDiskTest,
                         testing::Values("captors.res", "level_Frequencies.res", "E_at_1.res",
                                         "Rho_Bloch0_at_18.res", "tps.res"),
                         [](const auto& file) {
                             std::string name = file.param;
                             std::erase_if(
                                 name, [](char letter) { return letter == '.' || letter == '_'; });
                             return name;
                         });

TEST_F(QV_ProblemTest, DecimalCommasOfTheProcessChangeNoFileAndNoLog)
{
    ASSERT_EQ(mProblem.run(), 0);
    const ResultFiles expected = resultFilesIn(mProblem.directory().path());
    const std::string log = withoutTime(mProblem.log());
    mProblem.release();
    const CommaLocale comma;
    StableProblem other;
    ASSERT_EQ(other.run(), 0);
    EXPECT_EQ(resultFilesIn(other.directory().path()), expected);
    EXPECT_EQ(withoutTime(other.log()), log);
}

TEST_F(QV_ProblemTest, MoreFilesAreOpenedThanTheLimitOfTheProcessAllowedBefore)
{
    mProblem.setNodes(100);
    const COM_Scoped captors(LA_RealVector::New(0));
    Values positions(98);
    for (unsigned long i = 0; i < positions.size(); ++i) {
        positions[i] = static_cast<double>(i) + 2.5;
    }
    captors->setValues(positions);
    mProblem.milieu().setCaptors(*captors);
    printedBy([this] { mProblem.milieu().create(); });
    const int end = runInChild([this] {
        rlimit limit{};
        getrlimit(RLIMIT_NOFILE, &limit);
        limit.rlim_cur = 40;
        setrlimit(RLIMIT_NOFILE, &limit);
        mProblem->initSaving(mProblem.directory().slashed());
        mProblem->save(0.0);
        return mProblem->closeSaving() ? 11 : 12;
    });
    EXPECT_EQ(end, 11);
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()).size(), 3UL + 98 * 2);
}

TEST_F(QV_ProblemTest, AllFilesStayOpenAndBufferedUntilTheEnd)
{
    mProblem.addSystem();
    const auto openFiles = [this] {
        const std::filesystem::path directory =
            std::filesystem::canonical(mProblem.directory().path());
        unsigned long number = 0;
        for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code isGone;
            const auto file = std::filesystem::read_symlink(entry.path(), isGone);
            number += !isGone && file.parent_path() == directory ? 1 : 0;
        }
        return number;
    };
    std::vector<unsigned long> numbers;
    std::uintmax_t written = 0;
    mProblem->setWatcher([&] {
        numbers.push_back(openFiles());
        for (const char* series : {"tps.res", "E_at_1.res", "Rho_Bloch1_at_18.res"}) {
            written += std::filesystem::file_size(mProblem.directory().file(series));
        }
    });
    ASSERT_EQ(mProblem.run(), 0);
    // Five nodes with a field and two systems each, and the times.
    EXPECT_EQ(numbers, std::vector<unsigned long>(20, 16));
    EXPECT_EQ(written, 0UL); // twenty lines fill no buffer
    EXPECT_EQ(openFiles(), 0UL);
}

TEST_F(QV_ProblemTest, FilesAreClosedFieldFirstThenSystemsThenTimes)
{
    mProblem.addSystem();
    std::string expected;
    for (const char* name :
         {"E_at_5.res", "E_at_9.res", "Rho_Bloch0_at_18.res", "Rho_Bloch1_at_1.res", "tps.res"}) {
        const std::string file = mProblem.directory().file(name);
        std::filesystem::create_symlink("/dev/full", file);
        expected += "The file " + file + " could not be written completely.\n";
    }
    testing::internal::CaptureStderr();
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), expected);
}

TEST_F(QV_ProblemTest, ClosingWithoutFilesIsNoFailure)
{
    EXPECT_TRUE(mProblem->closeSaving());
    EXPECT_TRUE(mProblem->isSavingComplete());
}

TEST_F(QV_ProblemTest, TheRecordOfTheParametersIsWrittenBeforeTheFirstStep)
{
    bool isThere = false;
    mProblem->setWatcher(
        [&isThere] { isThere = std::filesystem::exists("paramBeforeSolving.xml"); });
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_TRUE(isThere);
    const COM_Scoped recorded(QV_1DProblem::New());
    printedBy([&recorded] {
        COM_Scoped(QV_ClassFactory::New())->load("paramBeforeSolving.xml", *recorded);
    });
    EXPECT_NEAR(recorded->getRabiFrequency(), mProblem->getRabiFrequency(), 1e9);
    EXPECT_EQ(recorded->getMethod(), QV_Problem::SPLIT_METHOD);
    EXPECT_EQ(recorded->getSavingPath(), mProblem.directory().slashed());
    // Its fields are those before the first step.
    EXPECT_EQ(valuesOf(recorded->getMaxwellSystem()->getField(QV_Maxwell::E_FIELD)),
              Values(20, 0.0));
    EXPECT_EQ(dynamic_cast<QV_1DMaxwell&>(*recorded->getMaxwellSystem()).getDz(), -1.0);
}

// ---------------------------------------------------------------- meshes and parts

namespace {

struct BadMesh
{
    std::string mName;
    long mNodes;
    double mStart;
    double mEnd;

    friend std::ostream& operator<<(std::ostream& out, const BadMesh& tested)
    {
        return out << tested.mName;
    }
};

class QV_ProblemBadMeshTest : public QV_ProblemTest, public testing::WithParamInterface<BadMesh>
{};

const char* const MESH_LINE =
    "the mesh has fewer than three nodes, or its active zone lies outside.\n";

} // namespace

TEST_P(QV_ProblemBadMeshTest, EndsTheRunWithMinusTwoAfterOneLine)
{
    mProblem.milieu().setLength((static_cast<double>(GetParam().mNodes) + 0.5)
                                * StableProblem::CELL);
    mProblem.milieu().setStartingPosition(GetParam().mStart);
    mProblem.milieu().setEndingPosition(GetParam().mEnd);
    const std::string made = printedBy([this] { mProblem.milieu().create(); });
    for (const Method& method : methods()) {
        mProblem->setMethod(method.mNumber);
        EXPECT_EQ(mProblem.run(), -2);
        EXPECT_EQ(mProblem.log(), made + MESH_LINE);
    }
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()), ResultFiles{});
    EXPECT_FALSE(std::filesystem::exists("paramBeforeSolving.xml"));
    // With sane data the same problem runs.
    mProblem.setNodes(20);
    mProblem.milieu().setStartingPosition(10.0);
    mProblem.milieu().setEndingPosition(90.0);
    EXPECT_EQ(mProblem.run(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Meshes, QV_ProblemBadMeshTest,
    testing::Values(BadMesh{"StartAtZero", 20, 0.0, 90.0},
                    BadMesh{"StartAndEndAtZero", 20, 0.0, 0.0},
                    BadMesh{"StartNegative", 20, -30.0, 90.0},
                    BadMesh{"EndBeyond", 20, 10.0, 106.0}, BadMesh{"StartBeyond", 20, 120.0, 150.0},
                    BadMesh{"TwoNodes", 2, 50.0, 100.0}, BadMesh{"OneNode", 1, 100.0, 100.0},
                    BadMesh{"NoNode", 0, 10.0, 90.0}, BadMesh{"NegativeLength", -5, 10.0, 90.0},
                    BadMesh{"NotANumber", 20, NOT_A_NUMBER, 90.0}),
    [](const auto& mesh) { return mesh.param.mName; });

TEST_F(QV_ProblemTest, WithoutMediumFieldOrWaveARunEndsWithMinusTwoAfterOneLine)
{
    const std::string line = "the problem lacks its medium, its field or its incident wave.\n";
    const COM_Scoped wave(QV_IncidentFields::New());
    mProblem.maxwell().resetIncidentFields();
    EXPECT_EQ(mProblem.run(), -2);
    EXPECT_EQ(mProblem.log(), line);
    mProblem.maxwell().setIncidentFields(*wave);
    const COM_Scoped milieu(QV_1DMilieu::New());
    mProblem->resetMilieu();
    EXPECT_EQ(mProblem.run(), -2);
    EXPECT_EQ(mProblem.log(), line);
    mProblem->setMilieu(*milieu);
    mProblem->resetMaxwellSystem();
    EXPECT_EQ(mProblem.run(), -2);
    EXPECT_EQ(mProblem.log(), line);
    EXPECT_EQ(resultFilesIn(mProblem.directory().path()), ResultFiles{});
}

namespace {

/// Meshes whose active zone touches an end or is a single node.
struct EdgeMesh
{
    std::string mName;
    double mStart;
    double mEnd;
    long mFirst;
    long mLast;

    friend std::ostream& operator<<(std::ostream& out, const EdgeMesh& tested)
    {
        return out << tested.mName;
    }
};

class QV_ProblemEdgeMeshTest : public QV_ProblemTest, public testing::WithParamInterface<EdgeMesh>
{};

} // namespace

TEST_P(QV_ProblemEdgeMeshTest, RunsWithEveryMethodAndStaysFinite)
{
    for (const Method& method : methods()) {
        StableProblem problem;
        problem.milieu().setStartingPosition(GetParam().mStart);
        problem.milieu().setEndingPosition(GetParam().mEnd);
        problem->setMethod(method.mNumber);
        EXPECT_EQ(problem.run(), 0) << method.mName;
        EXPECT_EQ(problem.milieu().getBoundaryLocation(QV_Milieu::FIRST_NODE), GetParam().mFirst);
        EXPECT_EQ(problem.milieu().getBoundaryLocation(QV_Milieu::LAST_NODE), GetParam().mLast);
        for (const double value : stateOf(problem)) {
            ASSERT_TRUE(std::isfinite(value)) << method.mName;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Meshes, QV_ProblemEdgeMeshTest,
                         testing::Values(EdgeMesh{"FirstNodeZero", 5.0, 90.0, 0, 17},
                                         EdgeMesh{"LastNodeTheEnd", 10.0, 100.0, 1, 19},
                                         EdgeMesh{"AllNodes", 5.0, 100.0, 0, 19},
                                         EdgeMesh{"OneNode", 50.0, 50.0, 9, 9},
                                         EdgeMesh{"EndBeforeStart", 50.0, 10.0, 9, 9},
                                         EdgeMesh{"OneNodeAtTheEnd", 100.0, 100.0, 19, 19},
                                         EdgeMesh{"OneNodeAtTheStart", 5.0, 5.0, 0, 0}),
                         [](const auto& mesh) { return mesh.param.mName; });

// ---------------------------------------------------------------- runs one after the other

TEST_F(QV_ProblemTest, ASecondRunKeepsCellSizeAndActiveZoneOfTheFirst)
{
    ASSERT_EQ(mProblem.run(), 0);
    const double dz = mProblem.maxwell().getDz();
    EXPECT_EQ(dz, QV_Milieu::getCellLength());
    EXPECT_EQ(mProblem.maxwell().getFirstNode(), 1);
    EXPECT_EQ(mProblem.maxwell().getLastNode(), 17);
    EXPECT_EQ(mProblem.bloch().getFirstNode(), 1);
    EXPECT_EQ(mProblem.bloch().getLastNode(), 17);
    mProblem.milieu().setDiscretizationNumber(40);
    mProblem.milieu().setStartingPosition(30.0);
    mProblem.milieu().setEndingPosition(60.0);
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_NEAR(QV_Milieu::getCellLength(), dz / 2.0, 1e-15);
    EXPECT_EQ(mProblem.milieu().getBoundaryLocation(QV_Milieu::FIRST_NODE), 11);
    EXPECT_EQ(mProblem->getTimeStep(), 1.5e-6 * 0.4 / (40.0 * 2.997e8));
    EXPECT_EQ(mProblem.maxwell().getDz(), dz);
    EXPECT_EQ(mProblem.maxwell().getFirstNode(), 1);
    EXPECT_EQ(mProblem.maxwell().getLastNode(), 17);
    EXPECT_EQ(mProblem.bloch().getFirstNode(), 1);
    EXPECT_EQ(mProblem.bloch().getLastNode(), 17);
    EXPECT_EQ(mProblem.maxwell().getField(QV_Maxwell::E_FIELD)->getSize(), 41UL);
}

TEST_F(QV_ProblemTest, ASecondRunGoesOnFromTheStateOfTheEndsAndAFreshProblemDoesNot)
{
    ASSERT_EQ(mProblem.run(), 0);
    const ResultFiles first = resultFilesIn(mProblem.directory().path());
    ASSERT_EQ(mProblem.run(), 0);
    // The density has seen nothing of it in the first step, node 18 nor its neighbour.
    const ResultFiles second = resultFilesIn(mProblem.directory().path());
    EXPECT_EQ(second.at("tps.res"), first.at("tps.res"));
    EXPECT_EQ(second.at("captors.res"), first.at("captors.res"));
    EXPECT_NE(second.at("E_at_18.res"), first.at("E_at_18.res"));
    mProblem.release();
    StableProblem fresh;
    ASSERT_EQ(fresh.run(), 0);
    EXPECT_EQ(resultFilesIn(fresh.directory().path()), first);
}

TEST_F(QV_ProblemTest, ASavedProjectKeepsTheStateOfItsLastRun)
{
    ASSERT_EQ(mProblem.run(), 0);
    const double dz = mProblem.maxwell().getDz();
    COM_Scoped(QV_ClassFactory::New())->save("project.xml", *mProblem);
    mProblem.release();
    StableProblem loaded;
    printedBy([&] {
        COM_Scoped(QV_ClassFactory::New())->load(mProblem.directory().file("project.xml"), *loaded);
    });
    EXPECT_NEAR(loaded.maxwell().getDz(), dz, 1e-6 * dz);
    loaded->setSavingPath(loaded.directory().slashed());
    loaded.milieu().setDiscretizationNumber(40);
    ASSERT_EQ(loaded.run(), 0);
    EXPECT_NEAR(loaded.maxwell().getDz(), dz, 1e-6 * dz);
    EXPECT_EQ(loaded.maxwell().getLastNode(), 17);
    EXPECT_EQ(loaded.bloch().getLastNode(), 17);
}

TEST_F(QV_ProblemTest, ASecondRunKeepsTheWeightsOfTheFirst)
{
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(valuesOf(mProblem.maxwell().getPolarizationTermFactors()), Values{1.0});
    mProblem.addSystem();
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(valuesOf(mProblem.maxwell().getPolarizationTermFactors()), Values{1.0});
}

TEST_F(QV_ProblemTest, AFirstStepAtTheLastTimeOfTheWaveTakesItsOldValue)
{
    ASSERT_EQ(mProblem.run(), 0);
    mProblem.wave().setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    const double dt = mProblem->getTimeStepAdim();
    const double old = (*mProblem.wave().getIncidentField(1, dt, dt))[0];
    mProblem.wave().setIncidentFieldsType(QV_IncidentFields::MARCHE_TYPE);
    double line0 = 0.0;
    mProblem->setWatcher([this, &line0] {
        if (mProblem->getTimeStepNumber() == 2) {
            line0 = mProblem.maxwell().getField(QV_Maxwell::B_FIELD)->getValue(0, 0);
        }
    });
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(line0, dt / mProblem.maxwell().getDz() * old);
    EXPECT_NE(line0, 0.0);
}

namespace {

class QV_ProblemNextRunTest : public QV_ProblemMethodTest
{
protected:
    QV_ProblemNextRunTest() { mProblem.addSystem(); }
};

} // namespace

TEST_P(QV_ProblemNextRunTest, AKeptZoneLargerThanTheNewMeshIsCutToIt)
{
    mProblem.setNodes(60);
    ASSERT_EQ(mProblem.run(), 0);
    EXPECT_EQ(mProblem.maxwell().getLastNode(), 53);
    for (const unsigned long nodes : {20UL, 10UL, 100UL, 3UL}) {
        mProblem.setNodes(nodes);
        mProblem.milieu().setStartingPosition(nodes == 3 ? 40.0 : 10.0);
        EXPECT_EQ(mProblem.run(), 0) << nodes;
        EXPECT_EQ(mProblem.maxwell().getFirstNode(), 5);
        EXPECT_EQ(mProblem.maxwell().getLastNode(), 53);
        EXPECT_EQ(linesOf(mProblem.directory().read("tps.res")), 20);
    }
}

TEST_P(QV_ProblemNextRunTest, MoreOrFewerLevelsOrSystemsAreNoHarm)
{
    ASSERT_EQ(mProblem.run(), 0);
    QV_Bloch::setLevelsNumber(3);
    EXPECT_EQ(mProblem.run(), 0);
    mProblem.addSystem();
    EXPECT_EQ(mProblem.run(), 0);
    QV_Bloch::setLevelsNumber(2);
    mProblem->removeLastBlochEquation();
    mProblem->removeLastBlochEquation();
    EXPECT_EQ(mProblem.run(), 0);
    EXPECT_EQ(linesOf(mProblem.directory().read("captors.res")), 5);
}

INSTANTIATE_TEST_SUITE_P(Methods, QV_ProblemNextRunTest, testing::ValuesIn(methods()),
                         nameOfMethod);

TEST_F(QV_ProblemTest, MoreOrFewerComponentsInTheNextRunAreNoHarm)
{
    QV_Bloch::setPolarizationsSize(3);
    for (const unsigned long dimension : {1UL, 2UL, 3UL, 1UL, 3UL}) {
        mProblem.maxwell().setDimension(dimension);
        EXPECT_EQ(mProblem.run(), 0) << dimension;
        for (const double value : stateOf(mProblem)) {
            ASSERT_TRUE(std::isfinite(value)) << dimension;
        }
    }
}

TEST_F(QV_ProblemTest, RunsAfterEachOtherLeaveNoObjectOfTheFormerOnes)
{
    mProblem.run();
    mProblem.run();
    const unsigned long before = mProblem.milieu().getVolume("milieu")->getIdentityNumber();
    long counts[2];
    for (long& count : counts) {
        mProblem.run();
        count = mProblem->getReferenceCount();
        EXPECT_EQ(GEO_Vertex::get(20), nullptr);
        ASSERT_NE(GEO_Vertex::get(19), nullptr);
        // bound2's last node is held by its own line's end and by nothing else
        EXPECT_EQ(GEO_Vertex::get(19)->getReferenceCount(), 1);
    }
    EXPECT_EQ(counts[0], counts[1]);
    EXPECT_NE(mProblem.milieu().getVolume("milieu")->getIdentityNumber(), before);
}

// ---------------------------------------------------------------- persistence

TEST_F(QV_ProblemTest, TheDescriptionOfANewProblem)
{
    const COM_Scoped problem(QV_1DProblem::New());
    EXPECT_EQ(Description(*problem).text(),
              "{mBlochEquations=[" + (*problem->getBlochEquations())[0].getIdentityString()
                  + "] mDelta=[0.000000e+00] mMaxwell=["
                  + problem->getMaxwellSystem()->getIdentityString()
                  + "] mMean=[0.000000e+00] mMethod=[0] mMilieu=["
                  + problem->getMilieu()->getIdentityString()
                  + "] mRabiFrequency=[0.000000e+00] mSavingPath=[resultats/] "
                    "mStatisticalMethod=[0] mTimeStep=[1.000000e+00]}");
}

TEST_F(QV_ProblemTest, PartsThatAreNotThereAreNotDescribed)
{
    mProblem->resetMilieu();
    mProblem->resetMaxwellSystem();
    mProblem->resetBlochEquations();
    EXPECT_EQ(Description(*mProblem).keys(),
              (Names{"mBlochEquations", "mDelta", "mMean", "mMethod", "mRabiFrequency",
                     "mSavingPath", "mStatisticalMethod", "mTimeStep"}));
}

TEST_F(QV_ProblemTest, ASavedProblemComesBackWithAllItsPartsAndWithoutItsNumberOfSteps)
{
    mProblem.addSystem();
    mProblem->setSavingPath("somewhere/");
    mProblem->setTimeStep(0.5);
    mProblem->setMethod(QV_Problem::PRED_CORR_METHOD);
    mProblem->setFrequenciesDistributionMethod(static_cast<unsigned char>(200));
    mProblem->setFrequenciesDistributionDelta(1.5);
    mProblem->setFrequenciesDistributionMean(-2.5);
    mProblem->setMaxTimeStepsNumber(77);
    mProblem.maxwell().setLaserReflectorFactor(0.25);
    mProblem.milieu().setIndice(1.5);
    const std::string file = mProblem.directory().file("project.xml");
    COM_Scoped(QV_ClassFactory::New())->save(file, *mProblem);

    MM_Object* object = nullptr;
    printedBy([&] { object = COM_Scoped(QV_ClassFactory::New())->load(file); });
    const COM_Scoped loaded(dynamic_cast<QV_1DProblem*>(object));
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->getSavingPath(), "somewhere/");
    EXPECT_EQ(loaded->getTimeStep(), 0.5);
    EXPECT_EQ(loaded->getMethod(), QV_Problem::PRED_CORR_METHOD);
    EXPECT_EQ(loaded->getFrequenciesDistributionMethod(), 200);
    EXPECT_EQ(loaded->getFrequenciesDistributionDelta(), 1.5);
    EXPECT_EQ(loaded->getFrequenciesDistributionMean(), -2.5);
    EXPECT_EQ(loaded->getMaxTimeStepsNumber(), 2000UL);
    EXPECT_EQ(loaded->getTimeStepNumber(), 0UL);
    ASSERT_EQ(loaded->getBlochEquations()->size(), 2UL);
    EXPECT_EQ((*loaded->getBlochEquations())[0].getProblem(), loaded.get());
    EXPECT_EQ((*loaded->getBlochEquations())[1].getProblem(), loaded.get());
    ASSERT_NE(loaded->getMaxwellSystem(), nullptr);
    EXPECT_EQ(loaded->getMaxwellSystem()->getProblem(), loaded.get());
    EXPECT_EQ(loaded->getMaxwellSystem()->getLaserReflectorFactor(), 0.25);
    EXPECT_EQ(loaded->getMaxwellSystem()->getReferenceCount(), 1);
    ASSERT_NE(loaded->getMilieu(), nullptr);
    EXPECT_EQ(loaded->getMilieu()->getIndice(), 1.5);
    EXPECT_EQ(loaded->getMilieu()->getReferenceCount(), 1);
    // The caller, the field system and two density-matrix systems.
    EXPECT_EQ(loaded->getReferenceCount(), 4);
}

TEST_F(QV_ProblemTest, LoadingReplacesThePartsAndKeepsTheNumberOfSteps)
{
    mProblem.addSystem();
    mProblem.addSystem();
    const std::string file = mProblem.directory().file("project.xml");
    COM_Scoped(QV_ClassFactory::New())->save(file, *mProblem);
    const COM_Scoped other(QV_1DProblem::New());
    other->setMaxTimeStepsNumber(55);
    QV_Maxwell* const maxwell = other->getMaxwellSystem();
    QV_Bloch* const bloch = other->getBlochEquations()->get(0);
    maxwell->addReference(nullptr);
    bloch->addReference(nullptr);
    printedBy([&] { COM_Scoped(QV_ClassFactory::New())->load(file, *other); });
    EXPECT_EQ(other->getMaxTimeStepsNumber(), 55UL);
    EXPECT_EQ(other->getBlochEquations()->size(), 3UL);
    EXPECT_FALSE(other->getBlochEquations()->exists(bloch));
    EXPECT_NE(other->getMaxwellSystem(), maxwell);
    EXPECT_EQ(maxwell->getProblem(), nullptr);
    EXPECT_EQ(maxwell->getReferenceCount(), 1);
    EXPECT_EQ(bloch->getProblem(), nullptr);
    EXPECT_EQ(bloch->getReferenceCount(), 1);
    EXPECT_EQ(other->getReferenceCount(), 5);
    maxwell->Delete();
    bloch->Delete();
}

TEST_F(QV_ProblemTest, MissingKeysAreAnnouncedAndLoadingGoesOn)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("id");
    node->setName("someProblem");
    factory->addToMetaClasses(*node);
    node->addAttributeToMetaFields("mDelta", 4.0);
    QV_Maxwell* const maxwell = mProblem->getMaxwellSystem();
    QV_Milieu* const milieu = mProblem->getMilieu();
    EXPECT_EQ(printedBy([&] { mProblem->loadFromMetaClass(*node); }),
              "no attribute mSavingPath stored in class someProblem.\n"
              "no attribute mTimeStep stored in class someProblem.\n"
              "no attribute mMethod stored in class someProblem.\n"
              "no attribute mStatisticalMethod stored in class someProblem.\n"
              "no attribute mMean stored in class someProblem.\n"
              "no attribute mRabiFrequency stored in class someProblem.\n"
              "no association mBlochEquations stored in class someProblem.\n");
    EXPECT_EQ(mProblem->getFrequenciesDistributionDelta(), 4.0);
    EXPECT_EQ(mProblem->getSavingPath(), mProblem.directory().slashed());
    EXPECT_EQ(mProblem->getMethod(), QV_Problem::SPLIT_METHOD);
    EXPECT_EQ(mProblem->getMaxwellSystem(), maxwell);
    EXPECT_EQ(mProblem->getMilieu(), milieu);
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 0UL);
}

TEST_F(QV_ProblemTest, PartsOfForeignClassesInAFileArePassedOver)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped stranger(LA_RealVector::New(1));
    const COM_Scoped strangers(COM_Array<LA_RealVector>::New());
    strangers->add(*stranger);
    const COM_Scoped node(MM_Class::New());
    node->setId("id");
    factory->addToMetaClasses(*node);
    node->addAssociationToMetaFields("mMaxwell", *stranger);
    node->addAssociationToMetaFields("mBlochEquations", *strangers);
    node->addAssociationToMetaFields("mMilieu", *stranger);
    QV_Maxwell* const maxwell = mProblem->getMaxwellSystem();
    QV_Milieu* const milieu = mProblem->getMilieu();
    printedBy([&] { mProblem->loadFromMetaClass(*node); });
    EXPECT_EQ(mProblem->getMaxwellSystem(), maxwell);
    EXPECT_EQ(mProblem->getMilieu(), milieu);
    EXPECT_EQ(mProblem->getBlochEquations()->size(), 0UL);
}
