#include "physics/PhysicsRun.h"
#include "physics/Theory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <ostream>
#include <string>
#include <tuple>

namespace {

constexpr double pi = std::numbers::pi;
constexpr unsigned long cells = 19;
constexpr double cfl = 0.95;
constexpr double periodSteps = 20.0; // cells / cfl
constexpr unsigned long systems = 13;
constexpr double spacing =
    0.03;                      ///< Of their frequencies: they come back in phase after 33 periods.
constexpr double width = 0.06; ///< Standard deviation of the line.
constexpr double coupling = 1.5e-3;
constexpr double duration = 20.0;                 ///< Of the pulse, periods.
constexpr double areaPerDuration = 128.0 / 315.0; ///< Of the envelope of PACKAGE.

struct Case
{
    double mArea;         ///< Over pi, at the entrance.
    unsigned long mLevel; ///< That the atoms start in.

    friend std::ostream& operator<<(std::ostream& out, const Case& tested)
    {
        return out << tested.mArea << " pi from level " << tested.mLevel;
    }
};

struct Scheme
{
    const char* mName;
    unsigned char mMethod;
    unsigned char mSplitType;
    double mTolerance; ///< Of the area, over pi.

    friend std::ostream& operator<<(std::ostream& out, const Scheme& tested)
    {
        return out << tested.mName;
    }
};

class AreaTheorem : public testing::TestWithParam<std::tuple<Scheme, Case>>
{};

} // namespace

// McCall and Hahn: dA / dz = -(alpha / 2) sin A in an inhomogeneous line of atoms without relaxation, or
// tan(A / 2) going as exp(-alpha z / 2), with alpha = pi w N mu^2 g(0) / (eps0 hbar c) and g the line's density
// in angular frequency; inverted atoms turn the sign. By
// splitting the line is 4 % weaker or stronger on this mesh, of a change in area of up to 0.1 pi.
TEST_P(AreaTheorem, AreaFollowsTheLaw)
{
    const auto& [scheme, pulse] = GetParam();
    PhysicsRun run(scheme.mMethod);
    QV_Bloch::setSplitType(scheme.mSplitType);
    run.setMesh(11 * cells, cells, cfl);
    run.setZone(cells, 10 * cells);
    const unsigned long first = 2 * cells;
    const unsigned long second = 5 * cells;
    run.saveAt({first, second});
    const double rabi = pulse.mArea * pi / areaPerDuration / (2.0 * pi * duration);
    run.setRabi(rabi);
    run.setPulse(QV_IncidentFields::PACKAGE_TYPE, duration);
    run.setCoupling(coupling);
    std::vector<double> weights;
    double sum = 0.0;
    for (unsigned long b = 0; b < systems; ++b) {
        const double shift = (static_cast<double>(b) - (systems - 1) / 2) * spacing;
        run.setLevels(b, {0.0, run.tuned(1.0 + shift)});
        weights.push_back(std::exp(-0.5 * shift * shift / (width * width)));
        sum += weights.back();
    }
    for (double& weight : weights) {
        weight /= sum;
    }
    run.setWeights(weights);
    run.startIn(pulse.mLevel);
    run.run(static_cast<unsigned long>((duration + 5.0 + 0.45 / spacing) * periodSteps));

    const auto areaAt = [&run](unsigned long node) {
        const double way = static_cast<double>(node) * leapfrogCellPhase(run.stepPhase(), cfl);
        // The carrier is a sine: the amplitude in phase with it is the area.
        const std::complex<double> amplitude =
            spectrumAt(run.field(node), run.stepPhase()) * std::polar(1.0, -way);
        return 2.0 * amplitude.imag() * run.stepInRabiUnits();
    };
    const double entering = areaAt(first);
    const double leaving = areaAt(second);
    const double sign = pulse.mLevel == 0 ? -1.0 : 1.0;
    const double halfAlpha = 0.5 * pi * coupling * weights[(systems - 1) / 2] / spacing;
    const double z = 2.0 * pi * static_cast<double>(second - first) / cells;
    const double turns = 2.0 * pi * std::floor((entering + pi) / (2.0 * pi));
    const double law =
        turns + 2.0 * std::atan(std::tan(0.5 * entering) * std::exp(sign * halfAlpha * z));
    const std::string name = std::string(", ") + scheme.mName;
    report("area over pi, entering" + name, entering / pi);
    report("area over pi, leaving" + name, leaving / pi);
    report("area over pi by the law" + name, law / pi);
    EXPECT_NEAR(leaving / pi, law / pi, scheme.mTolerance);
}

namespace {

std::string nameOf(const testing::TestParamInfo<std::tuple<Scheme, Case>>& test)
{
    const auto& [scheme, pulse] = test.param;
    return scheme.mName + ("Area" + std::to_string(std::lround(100.0 * pulse.mArea))) + "Level"
           + std::to_string(pulse.mLevel);
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Trapezoidal, AreaTheorem,
    testing::Combine(testing::Values(Scheme{"CN_dtP", QV_Problem::CN_dtP_METHOD, 0, 0.006}),
                     testing::Values(Case{0.5, 0}, Case{1.2, 0}, Case{2.5, 0}, Case{1.5, 1})),
    nameOf);

INSTANTIATE_TEST_SUITE_P(
    Splitting, AreaTheorem,
    testing::Combine(testing::Values(Scheme{"Split0", QV_Problem::SPLIT_METHOD, 0, 0.01},
                                     Scheme{"Split1", QV_Problem::SPLIT_METHOD, 1, 0.01}),
                     testing::Values(Case{0.5, 0}, Case{1.2, 0}, Case{1.5, 0}, Case{2.0, 0},
                                     Case{2.5, 0}, Case{0.5, 1}, Case{1.5, 1})),
    nameOf);
