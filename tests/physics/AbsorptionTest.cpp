#include "physics/Theory.h"
#include "physics/WeakPulse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <string>

namespace {

using Complex = std::complex<double>;

constexpr unsigned long cells = 40; // of a wavelength
constexpr double decay = WeakPulse::DECAY;
constexpr double lineTolerance = 5e-5;

struct Line
{
    const char* mName;
    unsigned char mMethod;
    unsigned char mSplitType;
    double mFrequency; ///< Of the upper level, as given to the program.
    double mDephasing; ///< Rate given to the program over the decay of the coherence.
    double mRatio;     ///< Exponent over that of the law.

    friend std::ostream& operator<<(std::ostream& out, const Line& tested)
    {
        return out << tested.mName;
    }
    double mTolerance; ///< Of that ratio.
};

class Absorption : public testing::TestWithParam<Line>
{};

} // namespace

// The law holds for narrow lines and slow envelopes: its own error is about (gamma / 2 w)^2 = 0.25 %. The
// trapezoidal schemes add errors of second order in the step, 0.15 rad of the carrier here; by splitting the
// polarization is half a step late or early, which is of first order.
//
// CN_Z couples the polarization with the opposite sign: atoms in their ground state amplify. Splitting in the
// orders 2 and 3 turns the coherences at half and twice their frequency and rate; with both given as much larger
// or smaller the line is where it belongs, and twice or half as strong.
TEST_P(Absorption, AmplitudeAtTheLineCentreFollowsBeerLambert)
{
    WeakPulse pulse(GetParam().mMethod, cells);
    QV_Bloch::setSplitType(GetParam().mSplitType);
    pulse->setLevels(0, {0.0, pulse->tuned(GetParam().mFrequency)});
    pulse->setDephasing(GetParam().mDephasing * decay);
    pulse.run();
    const double ratio = pulse.exponentOverLaw();
    report(std::string("absorption over Beer-Lambert, ") + GetParam().mName, ratio);
    EXPECT_NEAR(ratio, GetParam().mRatio, GetParam().mTolerance);
}

INSTANTIATE_TEST_SUITE_P(
    Methods, Absorption,
    testing::Values(Line{"CN_Z", QV_Problem::CN_Z_METHOD, 0, 1.0, 0.5, -1.0, 0.01},
                    Line{"CN_P", QV_Problem::CN_P_METHOD, 0, 1.0, 0.5, 1.0, 0.01},
                    Line{"CN_dtP", QV_Problem::CN_dtP_METHOD, 0, 1.0, 0.5, 1.0, 0.01},
                    Line{"Split0", QV_Problem::SPLIT_METHOD, 0, 1.0, 0.5, 1.0, 0.03},
                    Line{"Split1", QV_Problem::SPLIT_METHOD, 1, 1.0, 0.5, 1.0, 0.03},
                    Line{"Split2", QV_Problem::SPLIT_METHOD, 2, 2.0, 1.0, 2.0, 0.02},
                    Line{"Split3", QV_Problem::SPLIT_METHOD, 3, 0.5, 0.25, 0.5, 0.005},
                    Line{"pc", QV_Problem::PRED_CORR_METHOD, 0, 1.0, 1.0, 1.0, 0.01}),
    [](const auto& test) { return std::string(test.param.mName); });

// By splitting the polarization is half a step late or early, and the field of that half step is missing from it. With
// that in the susceptibility what is left is of second order.
TEST(Absorption, SplittingIsHalfAStepLateOrEarly)
{
    for (const unsigned char order : {0, 1}) {
        WeakPulse pulse(QV_Problem::SPLIT_METHOD, cells);
        QV_Bloch::setSplitType(order);
        pulse.run();
        const double lag = order == 0 ? 0.5 : -0.5;
        double worst = 0.0;
        for (const double omega : {0.8, 0.9, 0.95, 1.0, 1.05, 1.1, 1.2}) {
            const Complex chi =
                WeakPulse::COUPLING * splitLineResponse(omega, 1.0, decay, pulse->stepPhase(), lag);
            worst = std::max(worst, pulse.errorOfAtoms(omega, omega * std::sqrt(1.0 + chi)));
        }
        report("error of the wave number with the lag, Split" + std::to_string(order), worst);
        EXPECT_LT(worst, lineTolerance);
    }
}

// Relax moves the coherences of the first node of the medium alone, so that the others neither absorb nor refract.
TEST(Absorption, RelaxLeavesTheMediumTransparentButForItsFirstNode)
{
    WeakPulse pulse(QV_Problem::RELAX_METHOD, cells);
    pulse.run();
    const double ratio = pulse.exponentOverLaw();
    report("absorption over Beer-Lambert, Relax", ratio);
    EXPECT_NEAR(ratio, 0.0, 1e-5);
    EXPECT_NE(pulse->densityNow(cells, 1, 0), 0.0);
    EXPECT_EQ(pulse->densityNow(cells + 1, 1, 0), 0.0);
}

// The whole line, absorption and dispersion: k = w sqrt(1 + chi) / c. The line changes k by up to 0.005; the
// tolerance is 1 % of that, the square of 0.15 rad over two.
TEST(Absorption, WaveNumberFollowsTheLine)
{
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD}) {
        WeakPulse pulse(method, cells);
        pulse.run();
        double worst = 0.0;
        for (const double omega : {0.8, 0.9, 0.95, 1.0, 1.05, 1.1, 1.2}) {
            const Complex chi = WeakPulse::COUPLING * lineResponse(omega, 1.0, decay);
            const Complex k = omega * std::sqrt(1.0 + chi);
            worst = std::max(worst, pulse.errorOfAtoms(omega, k));
        }
        report("error of the wave number in the line, " + methodName(method), worst);
        EXPECT_LT(worst, lineTolerance);
    }
}

// The coherence decays at twice the dephasing rate and half the sum of the rates out of both levels.
TEST(Absorption, PopulationLossesBroadenTheLineByHalfTheirSum)
{
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD}) {
        WeakPulse pulse(method, cells);
        pulse->setDephasing(0.02);
        // Out of the upper level into the lower one, so that the medium stays in its ground state.
        pulse->setRates(QV_Bloch::CASCADE_RELAXATION_TYPE, {0.0, 2.0 * (decay - 0.04), 0.0, 0.0});
        pulse.run();
        const double ratio = pulse.exponentOverLaw();
        report("absorption over Beer-Lambert with losses, " + methodName(method), ratio);
        EXPECT_NEAR(ratio, 1.0, 0.01);
    }
}

// Equal populations neither absorb nor amplify, and an inverted medium amplifies as much as one in its
// ground state absorbs.
TEST(Absorption, GainAndLossFollowTheInversion)
{
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD}) {
        const auto exponent = [method](double lower, double upper) {
            WeakPulse pulse(method, cells);
            pulse->setDensity({lower, 0.0, 0.0, upper});
            pulse.run();
            return pulse.exponentOverLaw();
        };
        const double gain = -exponent(0.0, 1.0);
        const double even = exponent(0.5, 0.5);
        report("gain over Beer-Lambert, " + methodName(method), gain);
        report("absorption of equal populations over Beer-Lambert, " + methodName(method), even);
        EXPECT_NEAR(gain, 1.0, 0.01);
        EXPECT_NEAR(even, 0.0, 1e-5);
    }
}

// Three systems with weights of their own: the susceptibilities add up.
TEST(Absorption, SystemsAddUpWithTheirWeights)
{
    const std::vector<double> frequencies = {0.9, 1.0, 1.15};
    const std::vector<double> weights = {0.5, 0.2, 0.3};
    WeakPulse pulse(QV_Problem::CN_dtP_METHOD, cells);
    for (unsigned long b = 0; b < 3; ++b) {
        pulse->setLevels(b, {0.0, pulse->tuned(frequencies[b])});
    }
    pulse->setWeights(weights);
    pulse.run();
    double worst = 0.0;
    for (const double omega : {0.85, 0.9, 1.0, 1.1, 1.15, 1.2}) {
        Complex response;
        for (unsigned long b = 0; b < 3; ++b) {
            response += weights[b] * lineResponse(omega, frequencies[b], decay);
        }
        const Complex k = omega * std::sqrt(1.0 + WeakPulse::COUPLING * response);
        worst = std::max(worst, pulse.errorOfAtoms(omega, k));
    }
    report("error of the wave number with three systems, CN_dtP", worst);
    EXPECT_LT(worst, lineTolerance);
}
