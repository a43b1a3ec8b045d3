#include "physics/PhysicsRun.h"
#include "physics/Theory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ostream>

namespace {

constexpr double duration = 6.0; // periods
// The files show seven digits: of a value that begins with 1, the last one stands for 1e-6 of it.
constexpr double lastDigit = 5e-7;

/// The pulse of type SIT at the entrance, `steps` after its beginning.
double pulseAt(double steps, double stepPhase)
{
    const double t = steps * stepPhase;
    const double x = 2.0 * t / (2.0 * std::numbers::pi * duration) - 1.0;
    return std::fabs(x) < 1.0 ? std::sin(t) / std::cosh(10.0 * x) : 0.0;
}

/// Largest difference of the fields in the files from a pulse that moves one cell a step. `lag` is the
/// number of steps by which the field of a line is later than the line's own time.
double errorOfShiftedPulse(const PhysicsRun& run, double lag)
{
    double worst = 0.0;
    for (const unsigned long node : {1, 10, 20, 30, 40, 50, 58}) {
        const std::vector<double> field = run.field(node);
        for (unsigned long m = 1; m <= field.size(); ++m) {
            const double steps = static_cast<double>(m) + lag - static_cast<double>(node);
            worst = std::max(worst, std::fabs(field[m - 1] - pulseAt(steps, run.stepPhase())));
        }
    }
    return worst;
}

void setEmptyMesh(PhysicsRun& run, double cfl)
{
    run.setMesh(60, 20, cfl);
    run.setZone(20, 40);
    run.saveAt({10, 20, 30, 40, 50});
    run.setPulse(QV_IncidentFields::SIT_TYPE, duration);
}

struct Frame
{
    unsigned char mMethod;
    double mLag;

    friend std::ostream& operator<<(std::ostream& out, const Frame& tested)
    {
        return out << methodName(tested.mMethod);
    }
};

class Vacuum : public testing::TestWithParam<Frame>
{};

} // namespace

// With one cell a step the leapfrog scheme is exact, and the files tell which time a field belongs to: the
// methods that save before Ampere's step write the field of the line's own time, the others that of the
// next step.
TEST_P(Vacuum, PulseMovesOneCellAStepAtCourantNumber1)
{
    PhysicsRun run(GetParam().mMethod);
    setEmptyMesh(run, 1.0);
    run.run(240);
    const double worst = errorOfShiftedPulse(run, GetParam().mLag);
    report("error of a pulse in the empty medium, " + methodName(GetParam().mMethod), worst);
    EXPECT_LT(worst, lastDigit);
}

INSTANTIATE_TEST_SUITE_P(
    Methods, Vacuum,
    testing::Values(Frame{QV_Problem::CN_Z_METHOD, 1.0}, Frame{QV_Problem::CN_P_METHOD, 1.0},
                    Frame{QV_Problem::CN_dtP_METHOD, 0.0}, Frame{QV_Problem::RELAX_METHOD, 1.0},
                    Frame{QV_Problem::SPLIT_METHOD, 0.0}, Frame{QV_Problem::PRED_CORR_METHOD, 1.0}),
    [](const auto& test) { return methodName(test.param.mMethod); });

// sin(w dt / 2) = r sin(k dz / 2): phases between two nodes 300 cells apart, of the frequencies in a short
// pulse. 1e-6 rad of such a phase is what the tail of the pulse, cut at the end of the run, leaves open.
TEST(Vacuum, WaveNumberIsThatOfTheLeapfrogScheme)
{
    constexpr unsigned long first = 20;
    constexpr unsigned long second = 320;
    for (const double cfl : {0.5, 0.8}) {
        PhysicsRun run(QV_Problem::SPLIT_METHOD);
        run.setMesh(700, 20, cfl);
        run.setZone(400, 500);
        run.saveAt({first, second});
        run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 3.0);
        run.run(static_cast<unsigned long>(800.0 / cfl));
        const std::vector<double> near = run.field(first);
        const std::vector<double> far = run.field(second);
        for (const double omega : {0.5, 0.8, 1.0, 1.25, 1.5}) {
            const double phase = omega * run.stepPhase();
            const double k = leapfrogCellPhase(phase, cfl);
            const std::complex<double> ratio = spectrumAt(far, phase) / spectrumAt(near, phase);
            const double excess = std::arg(ratio * std::polar(1.0, -k * (second - first)));
            EXPECT_NEAR(excess, 0.0, 1e-6) << "CFL " << cfl << ", frequency " << omega;
            EXPECT_NEAR(std::abs(ratio), 1.0, 1e-6);
            if (omega == 1.0) {
                // Over that of light; one cell a step would be 1.
                report("phase velocity at 20 cells, CFL " + std::to_string(cfl),
                       phase / cfl / (k + excess / (second - first)));
            }
        }
    }
}

// Each system of the methods that solve field and density together advances the field by the whole of Ampere's
// difference: with N systems light in the medium moves sqrt(N) times as fast, whatever the atoms do.
TEST(Vacuum, TwoSystemsOfTheCoupledMethodsSpeedLightUpBySqrt2)
{
    constexpr double cfl = 0.5;
    constexpr unsigned long first = 60;
    constexpr unsigned long second = 260;
    for (const unsigned char method :
         {QV_Problem::CN_Z_METHOD, QV_Problem::CN_P_METHOD, QV_Problem::PRED_CORR_METHOD}) {
        PhysicsRun run(method);
        run.setMesh(500, 20, cfl);
        run.setZone(2, 490);
        run.saveAt({first, second});
        run.setLevels(1, {0.0, 1.0});
        run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 3.0);
        run.run(700);
        const std::vector<double> near = run.field(first);
        const std::vector<double> far = run.field(second);
        for (const double omega : {0.8, 1.0, 1.25}) {
            const double phase = omega * run.stepPhase();
            const double k = leapfrogCellPhase(phase, cfl * std::numbers::sqrt2);
            const std::complex<double> ratio = spectrumAt(far, phase) / spectrumAt(near, phase);
            const double excess = std::arg(ratio * std::polar(1.0, -k * (second - first)));
            EXPECT_NEAR(excess, 0.0, 1e-6) << methodName(method) << ", frequency " << omega;
        }
    }
}

// The length of a cell counts in C * index, so light crosses CFL * index cells in a step: the larger the
// index, the faster the light.
TEST(Vacuum, LightMovesAtIndexTimesItsSpeed)
{
    for (const auto& [index, cfl] : {std::pair{1.25, 0.8}, std::pair{0.5, 2.0}}) {
        PhysicsRun run(QV_Problem::SPLIT_METHOD);
        setEmptyMesh(run, cfl);
        run.milieu().setIndice(index);
        run.run(240);
        const std::vector<double> seconds = run.seconds();
        const double cell = run.milieu().getLength() / 60.5;
        const double speed = cell / (seconds[100] - seconds[99]);
        EXPECT_LT(errorOfShiftedPulse(run, 0.0), lastDigit) << index;
        // One cell a step, by the seconds of the file.
        EXPECT_NEAR(speed / QV_Object::C, index, 2e-5 * index);
        report("speed of light over C, index " + std::to_string(index), speed / QV_Object::C);
    }
}
