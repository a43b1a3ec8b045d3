#include "physics/PhysicsRun.h"
#include "physics/Theory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ostream>

namespace {

constexpr double pi = std::numbers::pi;
constexpr unsigned long node = 5;
constexpr unsigned long cells = 38;
constexpr double cfl = 0.95;
constexpr unsigned long periodSteps = 40; // cells / cfl

/// Atoms too few to act on the field.
void setSparseMedium(PhysicsRun& run)
{
    run.setMesh(12, cells, cfl);
    run.setZone(3, 9);
    run.saveAt({node});
}

/// Population of the upper level that a pulse of this area leaves.
double leftBy(double area)
{
    return std::pow(std::sin(area / 2.0), 2);
}

/// Inversion by a continuous wave: population of the upper level, averaged over the carrier's period.
struct Flopping
{
    double mLargest; ///< Without the average.
    double mPeriod;  ///< In 1 / carrier frequency.

    explicit Flopping(const PhysicsRun& run, unsigned long at = node)
    {
        const std::vector<double> upper = run.density(at, 1, 1);
        mLargest = *std::max_element(upper.begin(), upper.end());
        std::vector<double> mean;
        for (unsigned long i = 0; i + periodSteps <= upper.size(); ++i) {
            double sum = 0.0;
            for (unsigned long k = 0; k < periodSteps; ++k) {
                sum += upper[i + k];
            }
            mean.push_back(sum / periodSteps);
        }
        const double half = 0.5 * *std::max_element(mean.begin(), mean.end());
        std::vector<double> rises;
        for (unsigned long i = 1; i < mean.size(); ++i) {
            if (mean[i - 1] < half && mean[i] >= half) {
                rises.push_back(static_cast<double>(i)
                                - (mean[i] - half) / (mean[i] - mean[i - 1]));
            }
        }
        EXPECT_GE(rises.size(), 2U);
        mPeriod = rises.size() < 2 ? 0.0
                                   : (rises.back() - rises.front()) * run.stepPhase()
                                         / static_cast<double>(rises.size() - 1);
    }
};

/// The trapezoidal step weakens a resonant field by cos(w dt / 2), once through the coherence and its effect
/// on the populations together, and once more where the field is averaged over the step as well.
struct Scheme
{
    unsigned char mMethod;
    int mCosines;

    double factor(double stepPhase) const { return std::pow(std::cos(stepPhase / 2.0), mCosines); }

    friend std::ostream& operator<<(std::ostream& out, const Scheme& tested)
    {
        return out << methodName(tested.mMethod);
    }
};

class Rabi : public testing::TestWithParam<Scheme>
{};

} // namespace

// Period 2 pi / Omega and full inversion. The population's own ripple at twice the carrier, of Omega / 4, is
// averaged for the period, up to 3e-4 of it where the average rises through the half.
TEST_P(Rabi, ContinuousWaveInvertsOnceInARabiPeriod)
{
    constexpr double rabi = 0.01;
    PhysicsRun run(GetParam().mMethod);
    setSparseMedium(run);
    run.setRabi(rabi);
    run.setLevels({0.0, run.tuned(1.0)});
    run.setPulse(QV_IncidentFields::SINUS_TYPE, 1.0);
    run.run(static_cast<unsigned long>(2.9 * periodSteps / rabi));
    const Flopping flopping(run);
    const double ratio = flopping.mPeriod * rabi / (2.0 * pi);
    report("Rabi period over 2 pi / Omega, " + methodName(GetParam().mMethod), ratio);
    report("largest inversion, " + methodName(GetParam().mMethod), flopping.mLargest);
    EXPECT_NEAR(ratio * GetParam().factor(run.stepPhase()), 1.0, 3e-4);
    EXPECT_NEAR(ratio, 1.0, 0.01);
    EXPECT_NEAR(flopping.mLargest, 1.0, 1e-4);
}

// Off resonance by D the population reaches Omega^2 / (Omega^2 + D^2), with the frequency
// sqrt(Omega^2 + D^2). The counter-rotating half of the field moves the resonance up by Omega^2 / 4 over the
// carrier (Bloch and Siegert), 0.2 % of D here.
TEST_P(Rabi, DetuningLowersTheInversionAndShortensThePeriod)
{
    constexpr double rabi = 0.01;
    constexpr double detuning = 0.015;
    PhysicsRun run(GetParam().mMethod);
    setSparseMedium(run);
    run.setRabi(rabi);
    run.setLevels({0.0, run.tuned(1.0 + detuning)});
    run.setPulse(QV_IncidentFields::SINUS_TYPE, 1.0);
    const double driven = rabi * GetParam().factor(run.stepPhase());
    const double generalised = std::hypot(driven, detuning + rabi * rabi / 4.0);
    run.run(static_cast<unsigned long>(2.9 * periodSteps / generalised));
    const Flopping flopping(run);
    const double ratio = flopping.mPeriod * generalised / (2.0 * pi);
    const double largest = flopping.mLargest * std::pow(generalised / driven, 2);
    report("detuned Rabi period over theory, " + methodName(GetParam().mMethod), ratio);
    report("detuned inversion over theory, " + methodName(GetParam().mMethod), largest);
    EXPECT_NEAR(ratio, 1.0, 2e-4);
    EXPECT_NEAR(largest, 1.0, 1e-3);
}

// A pulse leaves sin^2(A / 2) in the upper level, A being the integral of its envelope: pi / 20 of the
// duration in 1 / Rabi frequency for SIT, 128 / 315 of it for PACKAGE, and with the second pulse of
// POMPE_SIT, 2.5 times weaker and in phase with the first, 1.4 pi / 20.
TEST_P(Rabi, PulseLeavesThePopulationOfItsArea)
{
    struct Shape
    {
        unsigned char mType;
        double mArea;      ///< Over the duration in 1 / Rabi frequency.
        double mDurations; ///< Until the pulse is over.
    };
    const Shape shapes[] = {{QV_IncidentFields::SIT_TYPE, pi / 20.0, 1.0},
                            {QV_IncidentFields::PACKAGE_TYPE, 128.0 / 315.0, 1.0},
                            {QV_IncidentFields::POMPE_SIT_TYPE, 1.4 * pi / 20.0, 2.0}};
    constexpr double rabi = 0.05;
    double worst = 0.0;
    for (const Shape& shape : shapes) {
        for (const double area : {0.5, 1.0, 1.5, 2.0}) {
            const double duration = area * pi / shape.mArea / rabi / (2.0 * pi);
            PhysicsRun run(GetParam().mMethod);
            setSparseMedium(run);
            run.setRabi(rabi);
            run.setLevels({0.0, run.tuned(1.0)});
            run.setPulse(shape.mType, duration);
            run.run(static_cast<unsigned long>((shape.mDurations * duration + 1.0) * periodSteps));
            const double upper = run.densityNow(node, 1, 1).real();
            const double expected = leftBy(area * pi * GetParam().factor(run.stepPhase()));
            worst = std::max(worst, std::fabs(upper - leftBy(area * pi)));
            EXPECT_NEAR(upper, expected, 1e-3)
                << "shape " << static_cast<int>(shape.mType) << ", area " << area << " pi";
        }
    }
    report("error of the population left by a pulse, " + methodName(GetParam().mMethod), worst);
}

// Relax moves the populations of its one node twice in a step, with the coherence and once more with the
// populations: w' = -2 Omega v, v' = Omega w turn at sqrt(2) Omega. At the other nodes nothing happens.
TEST(RelaxMethod, FirstNodeTurnsSqrt2TimesTooFastAndTheOthersStay)
{
    constexpr double rabi = 0.01;
    constexpr unsigned long first = 3;
    PhysicsRun run(QV_Problem::RELAX_METHOD);
    setSparseMedium(run);
    run.saveAt({first, node});
    run.setRabi(rabi);
    run.setLevels({0.0, run.tuned(1.0)});
    run.setPulse(QV_IncidentFields::SINUS_TYPE, 1.0);
    run.run(static_cast<unsigned long>(2.9 * periodSteps / rabi));
    const Flopping flopping(run, first);
    const double ratio = flopping.mPeriod * rabi / (2.0 * pi);
    report("Rabi period over 2 pi / Omega, first node by Relax", ratio);
    report("largest inversion, first node by Relax", flopping.mLargest);
    EXPECT_NEAR(ratio * std::numbers::sqrt2, 1.0, 0.005);
    EXPECT_NEAR(flopping.mLargest, 1.0, 1e-4);
    for (const double upper : run.density(node, 1, 1)) {
        ASSERT_EQ(upper, 0.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Methods, Rabi,
                         testing::Values(Scheme{QV_Problem::CN_Z_METHOD, 2},
                                         Scheme{QV_Problem::CN_P_METHOD, 2},
                                         Scheme{QV_Problem::CN_dtP_METHOD, 1},
                                         Scheme{QV_Problem::SPLIT_METHOD, 0},
                                         Scheme{QV_Problem::PRED_CORR_METHOD, 2}),
                         [](const auto& test) { return methodName(test.param.mMethod); });
