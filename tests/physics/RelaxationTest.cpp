#include "physics/PhysicsRun.h"
#include "physics/Theory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace {

constexpr unsigned long first = 5; ///< Node with atoms.
constexpr unsigned long node = 10;
constexpr unsigned long steps = 400;

/// Atoms in the dark.
void setDark(PhysicsRun& run)
{
    run.setMesh(20, 20, 0.8);
    run.setZone(first, 15);
    run.setPulse(QV_IncidentFields::MARCHE_TYPE, 1e6);
}

double population(const PhysicsRun& run, unsigned long level)
{
    return run.densityNow(node, level, level).real();
}

class Relaxation : public testing::TestWithParam<unsigned char>
{};

} // namespace

// 2 -> 1 -> 0 with rates a and b: exp(-a t), and a / (b - a) (exp(-a t) - exp(-b t)) between. A step is 0.005 of
// the faster rate's time: the trapezoidal steps are of second order in that, splitting of fourth.
TEST_P(Relaxation, CascadeEmptiesTheLevelsAtItsRates)
{
    constexpr double a = 0.01;
    constexpr double b = 0.02;
    PhysicsRun run(GetParam());
    setDark(run);
    run.setLevels({0.0, 1.0, 1.8});
    run.setDipoles({0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0});
    run.setRates(QV_Bloch::CASCADE_RELAXATION_TYPE, {0.0, b, 0.0, 0.0, 0.0, a, 0.0, 0.0, 0.0});
    run.startIn(2);
    run.run(steps);
    const double t = steps * run.stepPhase();
    const double upper = std::exp(-a * t);
    const double middle = a / (b - a) * (std::exp(-a * t) - std::exp(-b * t));
    const double error =
        std::max({std::fabs(population(run, 2) - upper), std::fabs(population(run, 1) - middle),
                  std::fabs(population(run, 0) - (1.0 - upper - middle))});
    report("error of the cascade's populations, " + methodName(GetParam()), error);
    EXPECT_LT(error, GetParam() == QV_Problem::SPLIT_METHOD ? 1e-10 : 1e-5);
}

// The coherence decays at twice the dephasing rate and half the rates out of both levels. Relax has one node.
TEST_P(Relaxation, CoherenceDecaysAtTwiceTheDephasingAndHalfTheLosses)
{
    constexpr double dephasing = 0.003;
    constexpr double down = 0.004;
    constexpr double up = 0.002;
    PhysicsRun run(GetParam());
    setDark(run);
    run.setLevels({0.0, 1.0});
    run.setDephasing(dephasing);
    run.setRates(QV_Bloch::CASCADE_RELAXATION_TYPE, {0.0, down, up, 0.0});
    run.setDensity({0.5, 0.5, 0.5, 0.5});
    run.run(steps);
    const double t = steps * run.stepPhase();
    const unsigned long at = GetParam() == QV_Problem::RELAX_METHOD ? first : node;
    const double rate = -std::log(2.0 * std::abs(run.densityNow(at, 1, 0))) / t;
    const double ratio = rate / (2.0 * dephasing + 0.5 * (down + up));
    report("decay of the coherence over theory, " + methodName(GetParam()), ratio);
    // The trapezoidal steps slow the decay with the rotation: by (w dt)^2 / 4.
    const double phase = run.stepPhase();
    const double slowed =
        GetParam() == QV_Problem::SPLIT_METHOD ? 1.0 : 1.0 / (1.0 + phase * phase / 4.0);
    EXPECT_NEAR(ratio, slowed, 1e-5);
    // The populations tend to where gain and loss are equal.
    const double stationary = up / (up + down);
    const double upper = stationary + (0.5 - stationary) * std::exp(-(up + down) * t);
    EXPECT_NEAR(population(run, 1), upper, 1e-6);
}

// A level at frequency w turns its coherence by w dt in a step by splitting, twice or half of it in the orders 2 and
// 3, and by 2 atan(w dt / 2) in the trapezoidal steps, which lower every frequency: by (w dt)^2 / 12.
TEST(Relaxation, CoherenceTurnsAtTheFrequencyOfTheScheme)
{
    struct Turn
    {
        const char* mName;
        unsigned char mMethod;
        unsigned char mSplitType;
        double mFactor; ///< By splitting; else 0.
    };
    const Turn turns[] = {
        {"CN_Z", QV_Problem::CN_Z_METHOD, 0, 0.0},     {"CN_P", QV_Problem::CN_P_METHOD, 0, 0.0},
        {"CN_dtP", QV_Problem::CN_dtP_METHOD, 0, 0.0}, {"Relax", QV_Problem::RELAX_METHOD, 0, 0.0},
        {"pc", QV_Problem::PRED_CORR_METHOD, 0, 0.0},  {"Split0", QV_Problem::SPLIT_METHOD, 0, 1.0},
        {"Split1", QV_Problem::SPLIT_METHOD, 1, 1.0},  {"Split2", QV_Problem::SPLIT_METHOD, 2, 0.5},
        {"Split3", QV_Problem::SPLIT_METHOD, 3, 2.0}};
    for (const Turn& turn : turns) {
        PhysicsRun run(turn.mMethod);
        setDark(run);
        QV_Bloch::setSplitType(turn.mSplitType);
        run.setDensity({0.5, 0.5, 0.5, 0.5});
        run.setMesh(20, 20, 1.0);
        run.setZone(first, 15);
        run.run(21); // a little more than one period
        const double exact = 21.0 * run.stepPhase();
        const double law = turn.mFactor > 0.0 ? turn.mFactor * exact
                                              : 21.0 * 2.0 * std::atan(run.stepPhase() / 2.0);
        const double phase = -std::arg(run.densityNow(first, 1, 0));
        const double excess = std::remainder(phase - law, 2.0 * std::numbers::pi);
        EXPECT_NEAR(excess, 0.0, 1e-8) << turn.mName;
        report(std::string("frequency of the atoms over the given one, 20 cells, CFL 1, ")
                   + turn.mName,
               (law + excess) / exact);
    }
}

// Predictor and corrector take the dephasing rate once, and nothing for the losses of the levels. Rates of a matrix
// with an empty diagonal feed and do not drain; with the outward rates on it two levels keep their sum.
TEST(PredictorCorrector, TakesDephasingOnceAndDrainsByTheDiagonalAlone)
{
    constexpr double dephasing = 0.003;
    constexpr double down = 0.004;
    constexpr double up = 0.002;
    const auto ran = [](const std::vector<double>& rates) {
        auto run = std::make_unique<PhysicsRun>(QV_Problem::PRED_CORR_METHOD);
        setDark(*run);
        run->saveAt({node});
        run->setDephasing(dephasing);
        run->setRates(QV_Bloch::CASCADE_RELAXATION_TYPE, rates);
        run->setDensity({0.5, 0.5, 0.5, 0.5});
        run->run(steps);
        return run;
    };
    {
        const auto run = ran({0.0, down, up, 0.0});
        const double t = steps * run->stepPhase();
        const double phase = run->stepPhase();
        const double rate = -std::log(2.0 * std::abs(run->densityNow(node, 1, 0))) / t;
        EXPECT_NEAR(rate / dephasing, 1.0 / (1.0 + phase * phase / 4.0), 1e-5);
        const double a = std::sqrt(down * up);
        const double upper = 0.5 * std::cosh(a * t) + 0.5 * std::sqrt(up / down) * std::sinh(a * t);
        const double lower = 0.5 * std::cosh(a * t) + 0.5 * std::sqrt(down / up) * std::sinh(a * t);
        EXPECT_NEAR(population(*run, 1), upper, 1e-6);
        EXPECT_NEAR(population(*run, 0), lower, 1e-6);
        report("sum of the populations after 400 steps, pc",
               population(*run, 0) + population(*run, 1));
        // The files show exp(-g t) of what is in the atoms.
        const std::vector<double> shown = run->density(node, 1, 1);
        EXPECT_NEAR(shown.back() / population(*run, 1), std::exp(-dephasing * t), 1e-6);
    }
    const auto run = ran({up, down, up, down});
    const double t = steps * run->stepPhase();
    const double stationary = up / (up + down);
    const double upper = stationary + (0.5 - stationary) * std::exp(-(up + down) * t);
    EXPECT_NEAR(population(*run, 1), upper, 1e-6);
    EXPECT_NEAR(population(*run, 0), 1.0 - upper, 1e-6);
}

// Detailed balance with the given rates as those from the lower level of a pair to the higher one: the level of
// larger frequency is the fuller one, by exp(w hbar / kT).
TEST_P(Relaxation, PauliRatesFillTheLevelOfLargerFrequency)
{
    PhysicsRun run(GetParam());
    setDark(run);
    run.setRates(QV_Bloch::PAULI_RELAXATION_TYPE, {0.0, 0.0, 0.06, 0.0});
    QV_Bloch::setTemperature(9586.0);
    run.setDensity({0.5, 0.0, 0.0, 0.5});
    run.run(steps);
    const double expected = std::exp(run.wave().getFrequency() * QV_Bloch::getBeta());
    const double ratio = population(run, 1) / population(run, 0);
    report("upper over lower level with Pauli rates, " + methodName(GetParam()), ratio);
    report("exp(w hbar / kT), " + methodName(GetParam()), expected);
    EXPECT_NEAR(ratio / expected, 1.0, 1e-3);
    EXPECT_NEAR(population(run, 0) + population(run, 1), 1.0, 1e-12);
}

// Without splitting nothing leads to the equilibrium vector: the rates on the diagonal drain the levels to zero, and
// twice as fast where they count in the matrix of the rates as well.
TEST(Relaxation, EquilibreRatesDrainTheLevelsWithoutSplitting)
{
    for (const unsigned char method : {QV_Problem::CN_Z_METHOD, QV_Problem::CN_P_METHOD,
                                       QV_Problem::CN_dtP_METHOD, QV_Problem::RELAX_METHOD}) {
        PhysicsRun run(method);
        setDark(run);
        run.setRates(QV_Bloch::EQUILIBRE_RELAXATION_TYPE, {-0.01, 0.0, 0.0, -0.02});
        run.setEquilibrium({0.7, 0.3});
        run.startIn(1);
        run.run(steps);
        const double t = steps * run.stepPhase();
        const bool isTwice = method == QV_Problem::CN_Z_METHOD || method == QV_Problem::CN_P_METHOD;
        EXPECT_NEAR(population(run, 1), std::exp(-(isTwice ? 0.04 : 0.02) * t), 1e-5)
            << methodName(method);
    }
}

// Relaxation towards given populations: a negative diagonal, and splitting. Each population goes there at its
// own rate.
TEST(Relaxation, SplittingLeadsToTheEquilibriumVector)
{
    PhysicsRun run(QV_Problem::SPLIT_METHOD);
    setDark(run);
    run.setRates(QV_Bloch::EQUILIBRE_RELAXATION_TYPE, {-0.01, 0.0, 0.0, -0.02});
    run.setEquilibrium({0.7, 0.3});
    run.startIn(1);
    run.run(steps);
    const double t = steps * run.stepPhase();
    EXPECT_NEAR(population(run, 0), 0.7 - 0.7 * std::exp(-0.01 * t), 1e-9);
    EXPECT_NEAR(population(run, 1), 0.3 + 0.7 * std::exp(-0.02 * t), 1e-9);
}

// Rates on the diagonal are written as they enter the equation: a positive one leads away from equilibrium.
TEST(Relaxation, PositiveDiagonalLeadsAwayFromTheEquilibriumVector)
{
    PhysicsRun run(QV_Problem::SPLIT_METHOD);
    setDark(run);
    run.setRates(QV_Bloch::EQUILIBRE_RELAXATION_TYPE, {0.01, 0.0, 0.0, 0.02});
    run.setEquilibrium({0.7, 0.3});
    run.startIn(1);
    run.run(steps);
    const double t = steps * run.stepPhase();
    EXPECT_NEAR(population(run, 0), 0.7 - 0.7 * std::exp(0.01 * t), 1e-7);
    EXPECT_NEAR(population(run, 1), 0.3 + 0.7 * std::exp(0.02 * t), 1e-7);
}

// With cascade rates splitting relaxes towards the equilibrium vector, not towards the rates' own stationary
// populations, when the vector's sum is 1; with a vector of zeros it is the rates that decide.
TEST(Relaxation, EquilibriumVectorOverrulesCascadeRatesBySplitting)
{
    const auto upperAfter = [](double lower, double upper) {
        PhysicsRun run(QV_Problem::SPLIT_METHOD);
        setDark(run);
        run.setRates(QV_Bloch::CASCADE_RELAXATION_TYPE, {0.0, 0.06, 0.02, 0.0});
        run.setEquilibrium({lower, upper});
        run.run(steps);
        return population(run, 1);
    };
    EXPECT_NEAR(upperAfter(0.0, 0.0), 0.25, 1e-3);
    EXPECT_NEAR(upperAfter(0.4, 0.6), 0.6, 1e-3);
    report("upper level, zero equilibrium vector", upperAfter(0.0, 0.0));
    report("upper level, equilibrium vector 0.4, 0.6", upperAfter(0.4, 0.6));
}

INSTANTIATE_TEST_SUITE_P(Methods, Relaxation,
                         testing::Values(QV_Problem::CN_Z_METHOD, QV_Problem::CN_P_METHOD,
                                         QV_Problem::CN_dtP_METHOD, QV_Problem::RELAX_METHOD,
                                         QV_Problem::SPLIT_METHOD),
                         [](const auto& test) { return methodName(test.param); });
