#include "quorvex/QV_DerivedData.h"

#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_ProblemCheck.h"
#include "support/CaseName.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double hbar = 1.0546e-34;    // J s
constexpr double lightSpeed = 2.997e8; // m/s
constexpr double dipole = 1e-29;       // C m, the default
constexpr double duration = 1e-13;     // s
constexpr double roundOff = 1e-14;     // relative: a few operations
constexpr double inf = std::numeric_limits<double>::infinity();

QV_DerivedData dataOf(const TestProblem& problem)
{
    return QV_DerivedData(*problem);
}

/// The peak field with which a pulse of 100 fs has `pulses` times 20 radians over the duration.
void setArea(const TestProblem& problem, double A)
{
    problem.wave().setWavePackageDuration(duration);
    problem.wave().setFieldMaxValue(A * hbar / (dipole * duration));
}

struct AreaCase
{
    const char* mName;
    unsigned char mType;
    double mArea; ///< In units of pi, for a scaled duration of 40.
};

class QV_DerivedDataArea : public testing::TestWithParam<AreaCase>
{};

} // namespace

TEST_P(QV_DerivedDataArea, IsThatOfAllLightThatEnters)
{
    const TestProblem problem;
    setArea(problem, 40.0);
    problem.wave().setIncidentFieldsType(GetParam().mType);
    const double area = dataOf(problem).getPulseArea();
    if (std::isinf(GetParam().mArea)) {
        EXPECT_EQ(area, GetParam().mArea);
    } else {
        EXPECT_NEAR(area, GetParam().mArea, 40.0 * roundOff);
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, QV_DerivedDataArea,
                         testing::Values(AreaCase{"Sinus", 0, inf}, AreaCase{"SIT", 1, 2.0},
                                         AreaCase{"PACKAGE", 2,
                                                  128.0 * 40.0 / 315.0 / std::numbers::pi},
                                         AreaCase{"OSCILL1", 3, 0.0}, AreaCase{"OSCILL2", 4, 0.0},
                                         AreaCase{"POMPE_SIT", 5, 2.8}, AreaCase{"MARCHE", 6, inf},
                                         AreaCase{"NoSuchShape", 7, 0.0}),
                         [](const auto& shape) { return std::string(shape.param.mName); });

// The area by its definition: the integral of the envelope, taken where the carrier has its peaks.
TEST(QV_DerivedData, AreaOfAShapeWithCarrierIsTheIntegralOfItsEnvelope)
{
    const TestProblem problem;
    for (const unsigned char type : {QV_IncidentFields::SIT_TYPE, QV_IncidentFields::PACKAGE_TYPE,
                                     QV_IncidentFields::POMPE_SIT_TYPE}) {
        QV_IncidentFields& wave = problem.wave();
        wave.setIncidentFieldsType(type);
        setArea(problem, 40.0);
        const double rabi = 40.0 / duration;
        wave.adimensionize(rabi);
        // Peaks of sin(w t), one in each period: the sum over them times the period.
        const double period = 2.0 * std::numbers::pi / wave.getFrequencyAdim();
        double sum = 0.0;
        for (double t = period / 4.0; t < 80.0; t += period) {
            sum += wave.getIncidentField(1, t, 1e-3)->getValue(0) * period;
        }
        // The tails that are cut from SIT are 2e-4 rad, and the sum over periods adds less.
        EXPECT_NEAR(sum / std::numbers::pi, dataOf(problem).getPulseArea(), 3e-4) << int{type};
    }
}

TEST(QV_DerivedData, ScaleAndStepAreThoseThatARunUses)
{
    TestProblem problem;
    const QV_DerivedData data = dataOf(problem);
    EXPECT_EQ(problem->getRabiFrequency(), 0.0); // nothing was changed
    ASSERT_EQ(problem.run(), 0);
    EXPECT_EQ(data.getRabiFrequency(), problem->getRabiFrequency());
    EXPECT_EQ(data.getTimeStep(), problem->getTimeStep());
    EXPECT_NEAR(data.getTimeStepPeriods(), 0.8 / 20.0, 0.04 * 1e-6); // of a rounded constant
    EXPECT_EQ(data.getDuration(), 20.0 * problem->getTimeStep());
}

TEST(QV_DerivedData, NodesAreThoseOfTheMesh)
{
    const TestProblem problem;
    const QV_DerivedData data = dataOf(problem);
    EXPECT_EQ(data.getNodes(), 20.0);
    EXPECT_EQ(data.getActiveNodes(), 17.0);
    EXPECT_EQ(data.getMemory(), QV_ProblemCheck::memory(*problem));
    EXPECT_GT(data.getMemory(), 0.0);
}

TEST(QV_DerivedData, NodesOutsideTheMeshAreNotCounted)
{
    const TestProblem problem;
    problem.milieu().setEndingPosition(200.0);
    EXPECT_EQ(dataOf(problem).getActiveNodes(), 19.0);
    problem.milieu().setStartingPosition(-50.0);
    EXPECT_EQ(dataOf(problem).getActiveNodes(), 20.0);
    problem.milieu().setStartingPosition(150.0);
    EXPECT_EQ(dataOf(problem).getActiveNodes(), 0.0);
}

TEST(QV_DerivedData, LightCrossesFasterInALargerIndex)
{
    const TestProblem problem;
    const double length = problem.milieu().getLength();
    EXPECT_NEAR(dataOf(problem).getTransitTime(), length / lightSpeed, 1e-14 * length / lightSpeed);
    problem.milieu().setIndice(2.0);
    EXPECT_NEAR(dataOf(problem).getTransitTime(), length / lightSpeed / 2.0,
                1e-14 * length / lightSpeed);
}

TEST(QV_DerivedData, RunTimeGrowsWithStepsNodesSystemsLevelsAndComponents)
{
    const TestProblem problem;
    problem.setNodes(100000);
    const double start = [&] {
        problem->setMaxTimeStepsNumber(0);
        return dataOf(problem).getRunTime();
    }();
    const auto loop = [&] { return dataOf(problem).getRunTime() - start; };
    problem->setMaxTimeStepsNumber(1000);
    const double once = loop();
    EXPECT_GT(start, 0.0);
    EXPECT_GT(once, 0.0);
    problem->setMaxTimeStepsNumber(3000);
    EXPECT_NEAR(loop(), 3.0 * once, once * 1e-9);
    problem->setMaxTimeStepsNumber(1000);
    problem->setDimension(2);
    EXPECT_GT(loop(), 1.1 * once);
    problem->setDimension(1);
    problem.addSystem();
    EXPECT_GT(loop(), 1.8 * once);
    problem->removeLastBlochEquation();
    double former = 0.0;
    for (const unsigned long levels : {2UL, 3UL, 4UL}) {
        QV_Bloch::setLevelsNumber(levels);
        EXPECT_GT(loop(), former);
        former = loop();
    }
    QV_Bloch::setLevelsNumber(5);
    EXPECT_TRUE(std::isnan(loop())); // not for the splitting
    problem->setMethod(QV_Problem::CN_P_METHOD);
    former = 0.0;
    for (const unsigned long levels : {1UL, 3UL, 4UL, 5UL, 8UL, 12UL}) {
        QV_Bloch::setLevelsNumber(levels);
        EXPECT_GT(loop(), former);
        former = loop();
    }
}

// The constants: what docs/performance.md states for 5000 nodes, 80 % of them with atoms, and 3000 steps.
TEST(QV_DerivedData, RunTimeIsThatOfTheMeasuredMesh)
{
    const TestProblem problem;
    problem.setNodes(5000);
    const double rates[] = {32.6e6, 35.3e6, 38.1e6, 48.7e6, 39.8e6, 30.4e6};
    for (unsigned char method = 0; method < QV_Problem::mMethodsNameLength; ++method) {
        problem->setMethod(method);
        problem->setMaxTimeStepsNumber(0);
        const double start = dataOf(problem).getRunTime();
        problem->setMaxTimeStepsNumber(3000);
        const double expected = 5000.0 * 3000.0 / rates[method];
        EXPECT_NEAR(dataOf(problem).getRunTime() - start, expected, 1e-3 * expected) << int{method};
    }
}

TEST(QV_DerivedData, WithoutWavelengthThereIsNoStepAndNoMesh)
{
    const TestProblem problem;
    problem->setWaveLength(0.0);
    const QV_DerivedData data = dataOf(problem);
    EXPECT_EQ(data.getTimeStep(), 0.0);
    EXPECT_TRUE(std::isnan(data.getTimeStepPeriods())); // no step of an infinite frequency
    EXPECT_EQ(data.getNodes(), inf);
    EXPECT_TRUE(std::isnan(data.getActiveNodes()));
    EXPECT_TRUE(std::isnan(data.getMemory()));
    EXPECT_TRUE(std::isnan(data.getRunTime()));
}

TEST(QV_DerivedData, ZerosGiveZerosAndInfinities)
{
    const TestProblem problem;
    problem.wave().setFieldMaxValue(0.0);
    problem.milieu().setIndice(0.0);
    problem.wave().setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    const QV_DerivedData data = dataOf(problem);
    EXPECT_EQ(data.getRabiFrequency(), 0.0);
    EXPECT_EQ(data.getPulseArea(), inf);
    EXPECT_EQ(data.getTransitTime(), inf);
}

TEST(QV_DerivedData, ANegativeLengthIsNoMesh)
{
    const TestProblem problem;
    problem.milieu().setLength(-1e-6);
    const QV_DerivedData data = dataOf(problem);
    EXPECT_EQ(data.getNodes(), -13.0);
    EXPECT_EQ(data.getActiveNodes(), 0.0);
    EXPECT_EQ(data.getMemory(), 0.0);
    EXPECT_EQ(data.getRunTime(), 0.0);
}

TEST(QV_DerivedData, NumbersWithoutMeaningAreSafe)
{
    const TestProblem problem;
    for (const double value : {0.0, -1.0, 1e300, 1e-300, -inf, inf, std::nan("")}) {
        problem.milieu().setLength(value);
        problem.milieu().setStartingPosition(value);
        problem.milieu().setEndingPosition(value);
        problem->setWaveLength(value);
        problem->setMaxTimeStepsNumber(~0UL);
        const QV_DerivedData data = dataOf(problem);
        EXPECT_FALSE(data.getActiveNodes() < 0.0) << value;
        EXPECT_FALSE(data.getMemory() < 0.0) << value;
        EXPECT_FALSE(data.getRunTime() < 0.0) << value;
    }
    problem.milieu().setDiscretizationNumber(0);
    EXPECT_FALSE(std::isfinite(dataOf(problem).getTimeStep()));
}

TEST(QV_DerivedData, AMethodThatDoesNotExistHasNoRunTime)
{
    const TestProblem problem;
    problem->setMethod(static_cast<unsigned char>(6));
    EXPECT_TRUE(std::isnan(dataOf(problem).getRunTime()));
}

TEST(QV_DerivedData, AProblemThatLacksAPartGivesNothing)
{
    const TestProblem problem;
    problem->resetMilieu();
    EXPECT_TRUE(std::isnan(dataOf(problem).getRabiFrequency()));
    EXPECT_TRUE(std::isnan(dataOf(problem).getNodes()));
    problem->resetMaxwellSystem();
    EXPECT_TRUE(std::isnan(dataOf(problem).getTimeStep()));
}

TEST(QV_DerivedData, WavelengthIsTheCharacteristicLengthToo)
{
    const TestProblem problem;
    problem->setWaveLength(3e-6);
    EXPECT_EQ(problem.wave().getWaveLength(), 3e-6);
    EXPECT_EQ(problem.wave().getFrequency(), 1883070636.561722 / 3e-6);
    EXPECT_EQ(problem.milieu().getCaracteristicLength(), 3e-6);
    EXPECT_EQ(dataOf(problem).getNodes(), 10.0);
}

TEST(QV_DerivedData, EachComponentHasItsDipole)
{
    const TestProblem problem;
    problem->setDimension(2);
    EXPECT_EQ(problem.maxwell().getDimension(), 2UL);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 2UL);
    EXPECT_EQ(problem->getMethod(), QV_Problem::SPLIT_METHOD);
}
