#include "physics/PhysicsRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr unsigned long node = 6;
constexpr double rabi = 0.5;

/// Levels of equal energy under a constant field, which reaches the node after its own number of steps: as a
/// spin that turns about an axis across. `dipoles` is the spin's matrix times `scale`.
void setSpin(PhysicsRun& run, const std::vector<double>& dipoles, unsigned long cells)
{
    const auto levels = static_cast<unsigned long>(std::lround(std::sqrt(dipoles.size())));
    run.setMesh(12, cells, 1.0);
    run.setZone(4, 8);
    run.saveAt({node});
    run.setLevels(std::vector<double>(levels));
    run.setDipoles(dipoles);
    run.setRabi(rabi);
    run.setPulse(QV_IncidentFields::MARCHE_TYPE, 1e-6);
}

} // namespace

// The Hamiltonian step is the Cayley transform, which turns an eigenvalue a of the field's matrix by
// 2 atan(a tau / 2) instead of a tau. Spin 1/2 and spin 1 have one such angle, and closed forms with it.
TEST(Levels, TwoLevelsTurnByTheCayleyAngle)
{
    PhysicsRun run(QV_Problem::SPLIT_METHOD);
    setSpin(run, {0.0, 1.0, 1.0, 0.0}, 20);
    constexpr unsigned long kicks = 300;
    run.run(node + kicks);
    const double angle = kicks * 2.0 * std::atan(run.stepInRabiUnits() / 2.0);
    EXPECT_NEAR(run.densityNow(node, 1, 1).real(), std::pow(std::sin(angle), 2), 1e-12);
    EXPECT_NEAR(run.densityNow(node, 1, 0).imag(), 0.5 * std::sin(2.0 * angle), 1e-12);
}

TEST(Levels, ThreeLevelsTurnByTheCayleyAngle)
{
    PhysicsRun run(QV_Problem::SPLIT_METHOD);
    setSpin(run, {0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0, 1.0, 0.0}, 20);
    constexpr unsigned long kicks = 300;
    run.run(node + kicks);
    const double step = std::sqrt(2.0) * run.stepInRabiUnits();
    const double angle = kicks * 2.0 * std::atan(step / 2.0);
    EXPECT_NEAR(run.densityNow(node, 0, 0).real(), std::pow(std::cos(angle / 2.0), 4), 1e-12);
    EXPECT_NEAR(run.densityNow(node, 1, 1).real(), 0.5 * std::pow(std::sin(angle), 2), 1e-12);
    EXPECT_NEAR(run.densityNow(node, 2, 2).real(), std::pow(std::sin(angle / 2.0), 4), 1e-12);
    report("Cayley angle of a step over the exact one, 0.22 rad",
           2.0 * std::atan(step / 2.0) / step);
}

// Spin 3/2: the binomial populations of a spin turned by the exact angle, and the order in which they are met.
TEST(Levels, FourLevelsFollowTheTurningSpinToSecondOrder)
{
    const double side = std::sqrt(3.0) / 2.0;
    double errors[2];
    double sums[2];
    for (unsigned i = 0; i < 2; ++i) {
        const unsigned long cells = i == 0 ? 40 : 80;
        PhysicsRun run(QV_Problem::SPLIT_METHOD);
        setSpin(
            run,
            {0.0, side, 0.0, 0.0, side, 0.0, 1.0, 0.0, 0.0, 1.0, 0.0, side, 0.0, 0.0, side, 0.0},
            cells);
        const unsigned long kicks = cells * 5 / 4;
        run.run(node + kicks);
        const double half = 0.5 * static_cast<double>(kicks) * run.stepInRabiUnits();
        errors[i] = 0.0;
        sums[i] = -1.0;
        const double binomial[] = {1.0, 3.0, 3.0, 1.0};
        for (unsigned long a = 0; a < 4; ++a) {
            const double expected = binomial[a] * std::pow(std::cos(half), 2.0 * (3.0 - a))
                                    * std::pow(std::sin(half), 2.0 * a);
            errors[i] =
                std::max(errors[i], std::fabs(run.densityNow(node, a, a).real() - expected));
            sums[i] += run.densityNow(node, a, a).real();
        }
    }
    report("order of the step of four levels", std::log2(errors[0] / errors[1]));
    EXPECT_NEAR(std::log2(errors[0] / errors[1]), 2.0, 0.1);
    // The step of four levels lacks a term of third order, and is not unitary in the fourth.
    report("error of the sum of the populations of four levels, 40 cells", sums[0]);
    report("order of the sum of the populations of four levels", std::log2(sums[0] / sums[1]));
    EXPECT_NEAR(std::log2(sums[0] / sums[1]), 3.0, 0.2);
}

// The area of a single cycle is zero: degenerate levels turn by 4.201355 / 16 of the duration in 1 / Rabi frequency
// and come back.
TEST(Levels, SingleCyclesTurnThereAndBack)
{
    constexpr double duration = 4.0;
    for (const unsigned char type :
         {QV_IncidentFields::OSCILL1_TYPE, QV_IncidentFields::OSCILL2_TYPE}) {
        for (const unsigned char method :
             {QV_Problem::CN_Z_METHOD, QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD,
              QV_Problem::SPLIT_METHOD, QV_Problem::PRED_CORR_METHOD}) {
            PhysicsRun run(method);
            setSpin(run, {0.0, 1.0, 1.0, 0.0}, 40);
            run.setRabi(0.1);
            run.setPulse(type, duration);
            run.run(node + 40 * 16 + 2);
            const std::vector<double> upper = run.density(node, 1, 1);
            const double turned = 4.201355 / 16.0 * duration * 2.0 * std::numbers::pi * 0.1;
            const double largest = *std::max_element(upper.begin(), upper.end());
            EXPECT_NEAR(largest, std::pow(std::sin(turned), 2), 1e-3) << methodName(method);
            EXPECT_NEAR(upper.back(), 0.0, 1e-6) << methodName(method);
            // The second cycle begins three durations after the first one.
            const double again = *std::max_element(upper.begin() + node + 40 * 12, upper.end());
            EXPECT_NEAR(again, type == QV_IncidentFields::OSCILL2_TYPE ? largest : 0.0, 1e-6);
        }
    }
}

// A Lambda system under two resonant fields' worth of dipoles: atoms in the dark state of both transitions do
// not see the field, those in the bright one do.
TEST(Levels, DarkStateIsLeftAlone)
{
    for (const unsigned char method :
         {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD, QV_Problem::SPLIT_METHOD}) {
        const auto excited = [method](double coherence) {
            PhysicsRun run(method);
            run.setMesh(20, 20, 0.8);
            run.setZone(5, 14);
            run.setLevels({0.0, 0.0, 1.0});
            run.setDipoles({0.0, 0.0, 1.0, 0.0, 0.0, 1.0, 1.0, 1.0, 0.0});
            run.setRabi(0.05);
            run.setDensity({0.5, coherence, 0.0, coherence, 0.5, 0.0, 0.0, 0.0, 0.0});
            run.setCoupling(0.01);
            run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 10.0);
            run.run(400);
            return run.densityNow(10, 2, 2).real();
        };
        report("population excited from the dark state, " + methodName(method), excited(-0.5));
        report("population excited from the bright state, " + methodName(method), excited(0.5));
        EXPECT_NEAR(excited(-0.5), 0.0, 1e-12);
        EXPECT_GT(excited(0.5), 0.04);
    }
}
