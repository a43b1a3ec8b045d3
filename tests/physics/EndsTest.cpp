#include "physics/PhysicsRun.h"
#include "physics/Theory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>
#include <utility>

namespace {

using Complex = std::complex<double>;

constexpr unsigned long nodes = 400;
constexpr unsigned long cells = 20;
constexpr unsigned long probe = 200;

/// A short pulse in the empty medium, once on its way to the last node and once on its way back.
class Echo
{
public:
    explicit Echo(double cfl, unsigned char method = QV_Problem::SPLIT_METHOD)
        : mRun(method)
        , mCfl(cfl)
    {
        mRun.setMesh(nodes, cells, cfl);
        mRun.setZone(20, 40);
        mRun.saveAt({probe});
        mRun.setPulse(QV_IncidentFields::PACKAGE_TYPE, 3.0);
    }
    PhysicsRun* operator->() { return &mRun; }
    /// Runs until the echo has passed the probe, or as long as light takes to cross `way` cells.
    void run(double way = 700.0)
    {
        mRun.run(static_cast<unsigned long>(way / mCfl));
        mField = mRun.field(probe);
        mTurn = static_cast<unsigned long>(330.0 / mCfl);
        mReturn = static_cast<unsigned long>(800.0 / mCfl);
    }
    /// Reflection of the last node at a frequency.
    Complex reflection(double omega) const
    {
        const double phase = omega * mRun.stepPhase();
        const double way = 2.0 * (nodes - 1 - probe) * leapfrogCellPhase(phase, mCfl);
        return spectrumAt(mField, phase, mTurn + 1, mField.size())
               / spectrumAt(mField, phase, 1, mTurn) * std::polar(1.0, -way);
    }
    /// Reflection of node 0, from the passage after that.
    Complex reflectionOfLeftEnd(double omega) const
    {
        const double phase = omega * mRun.stepPhase();
        const double way = 2.0 * probe * leapfrogCellPhase(phase, mCfl);
        return spectrumAt(mField, phase, mReturn + 1, mField.size())
               / spectrumAt(mField, phase, mTurn + 1, mReturn) * std::polar(1.0, -way);
    }
    /// The largest field on the way back.
    double largestEcho() const
    {
        double most = 0.0;
        for (unsigned long m = mTurn; m < mField.size(); ++m) {
            most = std::max(most, std::fabs(mField[m]));
        }
        return most;
    }

private:
    PhysicsRun mRun;
    double mCfl;
    unsigned long mTurn = 0;   ///< Last step on the way there.
    unsigned long mReturn = 0; ///< Last step on the way back.
    std::vector<double> mField;
};

} // namespace

// The absorbing end is exact for waves that cross a cell in a step and leaves a known rest of others. The
// tolerance, 1 % of the reflection of the carrier, is what the seven digits of the files and the pulse's tail
// leave of an echo 200 to 1000 times weaker than the pulse.
TEST(Ends, AbsorbingEndReflectsWhatItsFormulaSays)
{
    for (const auto& [cfl, method] :
         {std::pair{0.5, QV_Problem::SPLIT_METHOD}, std::pair{0.8, QV_Problem::SPLIT_METHOD},
          std::pair{0.8, QV_Problem::CN_P_METHOD}}) {
        Echo echo(cfl, method);
        echo.run();
        for (const double omega : {0.6, 0.8, 1.0, 1.2, 1.4}) {
            const Complex law = absorbingEndReflection(omega * echo->stepPhase(), cfl);
            EXPECT_LT(std::abs(echo.reflection(omega) - law), 5e-6) << cfl << ", " << omega;
        }
        report("reflection of the absorbing end, 20 cells, CFL " + std::to_string(cfl) + ", "
                   + methodName(method),
               std::abs(echo.reflection(1.0)));
    }
}

TEST(Ends, AbsorbingEndReflectsNothingAtOneCellAStep)
{
    Echo echo(1.0);
    echo.run();
    report("largest field behind the pulse at CFL 1", echo.largestEcho());
    EXPECT_LT(echo.largestEcho(), 1e-13);
}

// With atoms up to the last node, the factor R of the cavity loads that node: E = R (E + r B). Slow waves are
// reflected with 2 R - 1 at one cell a step: none at R = 1 / 2.
TEST(Ends, FactorOfTheCavityActsWhereTheMediumReachesTheEnd)
{
    for (const double factor : {0.0, 0.3, 0.5, 0.9, 1.0}) {
        constexpr double cfl = 0.8;
        Echo echo(cfl);
        echo->setZone(20, nodes - 1);
        echo->maxwell().setReflexiveLaserType(true);
        echo->maxwell().setLaserReflectorFactor(factor);
        echo.run();
        for (const double omega : {0.8, 1.0, 1.2}) {
            const double phase = omega * echo->stepPhase();
            const double x = leapfrogCellPhase(phase, cfl);
            const Complex a = std::polar(1.0, -phase);
            const Complex s = factor * cfl * cfl / (1.0 - 1.0 / a);
            const auto side = [&](double sign) {
                return a - factor + s - s * std::polar(1.0, sign * x);
            };
            const Complex law = -side(-1.0) / side(1.0);
            EXPECT_LT(std::abs(echo.reflection(omega) - law), 1e-5) << factor << ", " << omega;
            if (omega == 1.0) {
                report("reflection of the loaded end, R " + std::to_string(factor),
                       std::abs(echo.reflection(omega)));
            }
        }
    }
}

// Node 0 keeps a scattered field of zero: what comes back to it is reflected upside down, also with absorbing ends.
// The light that comes back is the rest that the other end leaves.
TEST(Ends, LeftEndIsAMirrorAlsoWithAbsorbingEnds)
{
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD}) {
        Echo echo(0.8, method);
        echo.run(1150.0);
        for (const double omega : {0.8, 1.0, 1.2}) {
            const Complex again = echo.reflectionOfLeftEnd(omega);
            EXPECT_LT(std::abs(again + 1.0), 2e-4) << methodName(method) << ", " << omega;
        }
        report("reflection of the left end, " + methodName(method),
               echo.reflectionOfLeftEnd(1.0).real());
    }
}

// In both laser modes the last node stays at zero while the cells beside it are empty, and the factor, which
// multiplies the fields of the ends, multiplies zeros: a pulse goes round between two perfect mirrors, exactly at one
// cell a step.
TEST(Ends, EndsOfACavityAreMirrorsWhateverTheFactor)
{
    constexpr unsigned long last = 149;
    constexpr unsigned long probeNode = 100;
    constexpr double duration = 3.0;
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::SPLIT_METHOD}) {
        for (const bool isReflexive : {false, true}) {
            for (const double factor : {0.0, 0.3, 1.0}) {
                PhysicsRun run(method);
                run.setMesh(last + 1, cells, 1.0);
                run.setZone(20, 40);
                run.saveAt({probeNode});
                run.maxwell().setLaserType(!isReflexive);
                run.maxwell().setReflexiveLaserType(isReflexive);
                run.maxwell().setLaserReflectorFactor(factor);
                run.setPulse(QV_IncidentFields::PACKAGE_TYPE, duration);
                run.run(700);
                const std::vector<double> field = run.field(probeNode);
                // Steps that the saved field is ahead of its line.
                const double lead = method == QV_Problem::CN_P_METHOD ? 1.0 : 0.0;
                const auto pulse = [&run](double way) {
                    const double t = way * run.stepPhase();
                    const double x = t / (std::numbers::pi * duration) - 1.0;
                    return std::fabs(x) < 1.0 ? std::pow(1.0 - x * x, 4) * std::sin(t) : 0.0;
                };
                double error = 0.0;
                for (unsigned long m = 1; m <= field.size(); ++m) {
                    const double step = static_cast<double>(m) + lead;
                    double expected = 0.0;
                    for (int round = 0; round < 3; ++round) {
                        const double start = step - 2.0 * last * round;
                        expected +=
                            pulse(start - probeNode) - pulse(start - (2.0 * last - probeNode));
                    }
                    error = std::max(error, std::fabs(field[m - 1] - expected));
                }
                EXPECT_LT(error, 1e-6) << methodName(method) << ", R " << factor;
            }
        }
    }
}
