#include "physics/MasterEquation.h"
#include "physics/PhysicsRun.h"
#include "physics/Theory.h"
#include "physics/WeakPulse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using Complex = std::complex<double>;

constexpr double pi = std::numbers::pi;

struct Scheme
{
    const char* mName;
    unsigned char mMethod;
    unsigned char mSplitType;
    double
        mLead; ///< Steps by which a saved density is later than the field that its node has seen last.
    double mDuring; ///< Order of the density while the field is on.
    double mBehind; ///< Order of what the pulse leaves.
    /// By how much the scheme slows the coherences' turning and decay; the frequencies are given as much larger,
    /// and the coupling, which grows with them, smaller.
    double mSlowed;
    double mDephasing; ///< Rate given to the program over the decay of the coherence.
    double mSign;      ///< Of the polarization in Ampere's equation, against theory.
};

std::ostream& operator<<(std::ostream& stream, const Scheme& scheme)
{
    return stream << scheme.mName;
}

class Convergence : public testing::TestWithParam<Scheme>
{};

} // namespace

// An atom of three levels under a pulse that it does not act on, at one cell a step, where the field at a node
// is the pulse itself: root mean square error of the densities saved while the pulse is on, and largest error
// of the populations that it leaves.
TEST_P(Convergence, DrivenAtomConvergesWithTheSchemesOrder)
{
    constexpr unsigned long node = 6;
    constexpr double duration = 8.0;
    constexpr double rabi = 0.12;
    double during[2];
    double behind[2];
    for (unsigned i = 0; i < 2; ++i) {
        const unsigned long cells = i == 0 ? 30 : 60;
        PhysicsRun run(GetParam().mMethod);
        QV_Bloch::setSplitType(GetParam().mSplitType);
        run.setMesh(12, cells, 1.0);
        run.setZone(4, 8);
        run.saveAt({node});
        run.setRabi(rabi);
        const std::vector<double> omega = {0.0, 1.0, 1.9};
        const std::vector<double> dipoles = {0.0, 1.0, 0.2, 1.0, 0.0, 0.7, 0.2, 0.7, 0.0};
        std::vector<double> given = omega;
        for (double& frequency : given) {
            frequency *= GetParam().mSlowed;
        }
        run.setLevels(given);
        run.setDipoles(dipoles);
        run.setPulse(QV_IncidentFields::PACKAGE_TYPE, duration);
        const auto steps = static_cast<unsigned long>(duration * static_cast<double>(cells)) + node;
        run.run(steps + 2);
        std::vector<double> times;
        for (unsigned long m = node + 1; m <= steps; ++m) {
            times.push_back((static_cast<double>(m - node) + GetParam().mLead) * run.stepPhase());
        }
        const auto pulse = [](double t) {
            const double x = t / (pi * duration) - 1.0;
            return std::fabs(x) < 1.0 ? std::pow(1.0 - x * x, 4) * std::sin(t) : 0.0;
        };
        std::vector<double> scaled = dipoles;
        for (double& dipole : scaled) {
            dipole *= rabi;
        }
        const auto exact = MasterEquation(omega, scaled)
                               .solve({1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0}, pulse, times,
                                      2.0 * pi / 400.0);
        double sum = 0.0;
        behind[i] = 0.0;
        for (unsigned long a = 0; a < 3; ++a) {
            for (unsigned long b = 0; b <= a; ++b) {
                const std::vector<double> saved = run.density(node, a, b);
                for (unsigned long k = 0; k < times.size(); ++k) {
                    Complex expected = exact[k][a * 3 + b];
                    if (GetParam().mMethod == QV_Problem::PRED_CORR_METHOD) {
                        // Its files show coherences in a frame that turns with the levels.
                        const double t = static_cast<double>(node + 1 + k) * run.stepPhase();
                        expected *= std::polar(1.0, (omega[b] - omega[a]) * t);
                    }
                    sum += std::pow(saved[node + k] - expected.real(), 2);
                }
            }
            behind[i] = std::max(behind[i], std::fabs(run.densityNow(node, a, a).real()
                                                      - exact.back()[a * 4].real()));
        }
        during[i] = std::sqrt(sum / (6.0 * static_cast<double>(times.size())));
    }
    const double orderDuring = orderOf(during[0], during[1], 2.0);
    const double orderBehind = orderOf(behind[0], behind[1], 2.0);
    report(std::string("order while the pulse is on, ") + GetParam().mName, orderDuring);
    report(std::string("order of what the pulse leaves, ") + GetParam().mName, orderBehind);
    EXPECT_NEAR(orderDuring, GetParam().mDuring, 0.15);
    EXPECT_NEAR(orderBehind, GetParam().mBehind, 0.15);
}

INSTANTIATE_TEST_SUITE_P(
    Schemes, Convergence,
    testing::Values(Scheme{"CN_Z", QV_Problem::CN_Z_METHOD, 0, 1.0, 2.0, 2.0, 1.0, 0.5, -1.0},
                    Scheme{"CN_P", QV_Problem::CN_P_METHOD, 0, 1.0, 2.0, 2.0, 1.0, 0.5, 1.0},
                    Scheme{"CN_dtP", QV_Problem::CN_dtP_METHOD, 0, 0.5, 2.0, 2.0, 1.0, 0.5, 1.0},
                    Scheme{"Split0", QV_Problem::SPLIT_METHOD, 0, 0.5, 1.0, 2.0, 1.0, 0.5, 1.0},
                    Scheme{"Split1", QV_Problem::SPLIT_METHOD, 1, 0.5, 1.0, 2.0, 1.0, 0.5, 1.0},
                    Scheme{"Split2", QV_Problem::SPLIT_METHOD, 2, 0.5, 2.0, 2.0, 2.0, 0.5, 1.0},
                    Scheme{"Split3", QV_Problem::SPLIT_METHOD, 3, 0.5, 2.0, 2.0, 0.5, 0.5, 1.0},
                    Scheme{"pc", QV_Problem::PRED_CORR_METHOD, 0, 1.0, 2.0, 2.0, 1.0, 1.0, 1.0}),
    [](const auto& test) { return std::string(test.param.mName); });

// Absorption and refraction of a weak wave, per length, against the theory of the line: by splitting the
// polarization is half a step late or early, an error of first order in the step.
TEST_P(Convergence, WaveNumberConvergesWithTheSchemesOrder)
{
    double errors[2];
    for (unsigned i = 0; i < 2; ++i) {
        WeakPulse pulse(GetParam().mMethod, i == 0 ? 20 : 40);
        QV_Bloch::setSplitType(GetParam().mSplitType);
        pulse->setLevels(0, {0.0, GetParam().mSlowed * pulse->tuned(1.0)});
        pulse->setDephasing(GetParam().mSlowed * GetParam().mDephasing * WeakPulse::DECAY);
        pulse->setCoupling(WeakPulse::COUPLING / GetParam().mSlowed);
        pulse.run();
        double sum = 0.0;
        for (const double omega : {0.8, 0.9, 0.95, 1.0, 1.05, 1.1, 1.2}) {
            const Complex chi =
                GetParam().mSign * WeakPulse::COUPLING * lineResponse(omega, 1.0, WeakPulse::DECAY);
            sum += std::pow(pulse.errorOfAtoms(omega, omega * std::sqrt(1.0 + chi)), 2);
        }
        errors[i] = std::sqrt(sum / 7.0);
    }
    const double order = orderOf(errors[0], errors[1], 2.0);
    report(std::string("order of the wave number, ") + GetParam().mName, order);
    EXPECT_NEAR(order, GetParam().mDuring, 0.15);
}

// The whole of it, field and atoms acting on each other in a strong short pulse: the field behind the medium on
// three meshes, each three times as fine, whose nodes fall on each other and whose zones have the same edges.
TEST_P(Convergence, FieldAndAtomsTogetherConvergeWithTheSchemesOrder)
{
    constexpr double cfl = 0.9;
    std::vector<double> fields[3];
    unsigned long scale = 1;
    for (std::vector<double>& field : fields) {
        PhysicsRun run(GetParam().mMethod);
        QV_Bloch::setSplitType(GetParam().mSplitType);
        run.setMesh(39 * scale + 1, 15 * scale, cfl);
        // A node stands for half a cell on both sides: the zone reaches from 10 - 1 / 2 to 30 + 1 / 2.
        run.setZone(10 * scale - (scale - 1) / 2, 30 * scale + (scale - 1) / 2);
        run.saveAt({35 * scale});
        run.setRabi(0.1);
        run.setLevels(0, {0.0, GetParam().mSlowed});
        run.setCoupling(0.02 / GetParam().mSlowed);
        run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 8.0);
        run.run(240 * scale);
        const std::vector<double> saved = run.field(35 * scale);
        // The field of line m is that of step m, or m + 1 with a lead of one step.
        const unsigned long lag = GetParam().mLead == 1.0 ? 1 : 0;
        for (unsigned long m = 2; m <= 240; ++m) {
            field.push_back(saved[m * scale - lag - 1]);
        }
        scale *= 3;
    }
    const auto distance = [](const std::vector<double>& x, const std::vector<double>& y) {
        double sum = 0.0;
        for (unsigned long i = 0; i < x.size(); ++i) {
            sum += std::pow(x[i] - y[i], 2);
        }
        return std::sqrt(sum / static_cast<double>(x.size()));
    };
    const double coarse = distance(fields[0], fields[1]);
    const double fine = distance(fields[1], fields[2]);
    const double order = orderOf(coarse, fine, 3.0);
    report(std::string("order of field and atoms together, ") + GetParam().mName, order);
    EXPECT_NEAR(order, GetParam().mDuring, 0.15);
}
