#include "physics/PhysicsRun.h"
#include "quorvex/QV_Field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ostream>

namespace {

using Complex = std::complex<double>;

constexpr unsigned long first = 5;
constexpr unsigned long last = 14;
constexpr double tightest = 1e-28; ///< Iterations are carried to the last digits.

struct Scheme
{
    const char* mName;
    unsigned char mMethod;
    unsigned char mSplitType;

    friend std::ostream& operator<<(std::ostream& out, const Scheme& tested)
    {
        return out << tested.mName;
    }
};

class Conservation : public testing::TestWithParam<Scheme>
{};

/// A strong pulse through a dense ladder of three levels.
void setLadder(PhysicsRun& run)
{
    QV_Bloch::setSplitType(0);
    run.setMesh(20, 20, 0.8);
    run.setZone(first, last);
    run.setRabi(0.2);
    run.setLevels({0.0, 1.0, 1.9});
    run.setDipoles({0.0, 1.0, 0.3, 1.0, 0.0, 0.8, 0.3, 0.8, 0.0});
    run.setCoupling(0.05);
    run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 15.0);
}

/// Largest value that `measure` has at the nodes of the medium.
template <typename Measure>
double worstOf(Measure measure)
{
    double worst = -1.0;
    for (unsigned long node = first; node <= last; ++node) {
        worst = std::max(worst, measure(node));
    }
    return worst;
}

double trace(const PhysicsRun& run, unsigned long node)
{
    Complex sum;
    for (unsigned long a = 0; a < QV_Bloch::getLevelsNumber(); ++a) {
        sum += run.densityNow(node, a, a);
    }
    return std::abs(sum);
}

/// Tr rho^2, 1 for a pure state.
double purity(const PhysicsRun& run, unsigned long node)
{
    double sum = 0.0;
    for (unsigned long a = 0; a < QV_Bloch::getLevelsNumber(); ++a) {
        for (unsigned long b = 0; b < QV_Bloch::getLevelsNumber(); ++b) {
            sum += std::norm(run.densityNow(node, a, b));
        }
    }
    return sum;
}

/// The least of rho[a][a] rho[b][b] - |rho[a][b]|^2 at any node: not negative for a density.
double leastMinor(const PhysicsRun& run)
{
    return -worstOf([&run](unsigned long node) {
        double most = -1.0;
        for (unsigned long a = 0; a < QV_Bloch::getLevelsNumber(); ++a) {
            for (unsigned long b = 0; b < a; ++b) {
                const Complex product = run.densityNow(node, a, a) * run.densityNow(node, b, b);
                most = std::max(most, std::norm(run.densityNow(node, a, b)) - product.real());
            }
        }
        return most;
    });
}

} // namespace

TEST_P(Conservation, TraceAndHermiticityAreKept)
{
    PhysicsRun run(GetParam().mMethod);
    setLadder(run);
    QV_Bloch::setSplitType(GetParam().mSplitType);
    run.setDephasing(0.01);
    run.setRates(QV_Bloch::CASCADE_RELAXATION_TYPE,
                 {0.0, 0.02, 0.01, 0.005, 0.0, 0.03, 0.0, 0.01, 0.0});
    run.run(400);
    const double traceError =
        worstOf([&run](unsigned long node) { return std::fabs(trace(run, node) - 1.0); });
    const double asymmetry = worstOf([&run](unsigned long node) {
        double worst = 0.0;
        for (unsigned long a = 0; a < 3; ++a) {
            for (unsigned long b = 0; b <= a; ++b) {
                worst = std::max(worst, std::abs(run.densityNow(node, a, b)
                                                 - std::conj(run.densityNow(node, b, a))));
            }
        }
        return worst;
    });
    report(std::string("error of the trace after 400 steps, ") + GetParam().mName, traceError);
    report(std::string("asymmetry after 400 steps, ") + GetParam().mName, asymmetry);
    EXPECT_LT(traceError, 1e-12);
    EXPECT_LT(asymmetry, 1e-14);
    // Neither is kept because nothing happens.
    EXPECT_LT(run.densityNow(first, 0, 0).real(), 0.98);
}

INSTANTIATE_TEST_SUITE_P(Schemes, Conservation,
                         testing::Values(Scheme{"CN_Z", QV_Problem::CN_Z_METHOD, 0},
                                         Scheme{"CN_P", QV_Problem::CN_P_METHOD, 0},
                                         Scheme{"CN_dtP", QV_Problem::CN_dtP_METHOD, 0},
                                         Scheme{"Relax", QV_Problem::RELAX_METHOD, 0},
                                         Scheme{"Split0", QV_Problem::SPLIT_METHOD, 0},
                                         Scheme{"Split1", QV_Problem::SPLIT_METHOD, 1},
                                         Scheme{"Split2", QV_Problem::SPLIT_METHOD, 2},
                                         Scheme{"Split3", QV_Problem::SPLIT_METHOD, 3}),
                         [](const auto& test) { return std::string(test.param.mName); });

// A unitary step keeps Tr rho^2 and the positivity; the trapezoidal step, carried to the end, keeps Tr rho^2.
TEST(Conservation, PureStateStaysPureWithoutRelaxation)
{
    const Scheme schemes[] = {
        {"CN_Z", QV_Problem::CN_Z_METHOD, 0},     {"CN_P", QV_Problem::CN_P_METHOD, 0},
        {"CN_dtP", QV_Problem::CN_dtP_METHOD, 0}, {"pc", QV_Problem::PRED_CORR_METHOD, 0},
        {"Split0", QV_Problem::SPLIT_METHOD, 0},  {"Split1", QV_Problem::SPLIT_METHOD, 1},
        {"Split2", QV_Problem::SPLIT_METHOD, 2},  {"Split3", QV_Problem::SPLIT_METHOD, 3}};
    for (const Scheme& scheme : schemes) {
        PhysicsRun run(scheme.mMethod);
        QV_Bloch::setConvergenceRate(tightest);
        setLadder(run);
        QV_Bloch::setSplitType(scheme.mSplitType);
        run.run(400);
        const double error =
            worstOf([&run](unsigned long node) { return std::fabs(purity(run, node) - 1.0); });
        report(std::string("error of Tr rho^2 after 400 steps, ") + scheme.mName, error);
        EXPECT_LT(error, 1e-12) << scheme.mName;
        // The trace needs no rates that drain what they feed, without any.
        EXPECT_LT(worstOf([&run](unsigned long at) { return std::fabs(trace(run, at) - 1.0); }),
                  1e-12)
            << scheme.mName;
        if (scheme.mMethod == QV_Problem::SPLIT_METHOD) {
            EXPECT_GT(leastMinor(run), -1e-13) << scheme.mName;
        }
    }
}

// Of two levels Tr rho^2 and the trace say all about positivity, so the trapezoidal schemes keep it there.
TEST(Conservation, TrapezoidalStepsKeepTheDensityOfTwoLevelsPositive)
{
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD}) {
        PhysicsRun run(method);
        QV_Bloch::setConvergenceRate(tightest);
        setLadder(run);
        run.setLevels({0.0, 1.0});
        run.setDipoles({0.0, 1.0, 1.0, 0.0});
        run.setCoupling(0.05);
        run.run(400);
        report("least minor of two levels, " + methodName(method), leastMinor(run));
        EXPECT_GT(leastMinor(run), -1e-12);
    }
}

// Of three levels they do not: |rho[a][b]|^2 exceeds rho[a][a] rho[b][b] in a strongly driven ladder.
TEST(Conservation, TrapezoidalStepsLetTheDensityOfThreeLevelsLosePositivity)
{
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD}) {
        PhysicsRun run(method);
        QV_Bloch::setConvergenceRate(tightest);
        setLadder(run);
        run.run(400);
        report("least minor of three levels, " + methodName(method), leastMinor(run));
        EXPECT_NEAR(leastMinor(run), -0.033, 0.003);
    }
}

// Relax treats the one node by increments that no law of the whole state ties together.
TEST(Conservation, RelaxLosesThePurityAtItsFirstNode)
{
    PhysicsRun run(QV_Problem::RELAX_METHOD);
    QV_Bloch::setConvergenceRate(tightest);
    setLadder(run);
    run.run(400);
    report("Tr rho^2 of a pure state after 400 steps, first node by Relax", purity(run, first));
    report("least minor, first node by Relax", leastMinor(run));
    EXPECT_GT(std::fabs(purity(run, first) - 1.0), 0.01);
    EXPECT_LT(std::fabs(trace(run, first) - 1.0), 1e-12);
    EXPECT_EQ(run.densityNow(first + 1, 0, 0), 1.0);
}

// What the field loses the atoms have gained: with D the coupling over the square of the Rabi frequency, the sum
// of (E^2 + B^2) / 2 and D w0 times the upper population, over all cells. The pulse stands before the medium at
// first and has left it at the end; its reflection is on the mesh as well.
TEST(Conservation, EnergyThatTheFieldLosesIsInTheAtoms)
{
    for (const unsigned char method : {QV_Problem::CN_P_METHOD, QV_Problem::CN_dtP_METHOD,
                                       QV_Problem::SPLIT_METHOD, QV_Problem::PRED_CORR_METHOD}) {
        constexpr unsigned long cells = 38;
        constexpr double coupling = 0.004;
        constexpr double rabi = 0.05;
        const auto energies = [method](double periods) {
            PhysicsRun run(method);
            run.setMesh(26 * cells, cells, 0.95);
            run.setZone(12 * cells, 14 * cells);
            run.setRabi(rabi);
            run.setLevels({0.0, run.tuned(1.0)});
            run.setCoupling(coupling);
            run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 10.0);
            run.run(static_cast<unsigned long>(periods * 40.0));
            const QV_Field& B = *run.maxwell().getField(QV_Maxwell::B_FIELD);
            double field = 0.0;
            double atoms = 0.0;
            for (unsigned long node = 0; node < B.getSize(); ++node) {
                field += 0.5 * (std::pow(run.fieldNow(node), 2) + std::pow(B.getValue(node, 0), 2));
                atoms += coupling / (rabi * rabi) * run.densityNow(node, 1, 1).real();
            }
            return std::pair{field, atoms};
        };
        const auto [fieldBefore, atomsBefore] = energies(11.0);
        const auto [fieldAfter, atomsAfter] = energies(25.0);
        const double ratio = (atomsAfter - atomsBefore) / (fieldBefore - fieldAfter);
        report("energy gained by the atoms over that lost by the field, " + methodName(method),
               ratio);
        report("part of the energy left in the atoms, " + methodName(method),
               atomsAfter / fieldBefore);
        EXPECT_NEAR(ratio, 1.0, 0.01);
    }
}

// The methods that take the source in Ampere's equation from the density of the half step put the medium's stiffness
// on top of the field's: at one cell a step the shortest waves grow without limit in a medium, and below they do not.
TEST(Conservation, MediumNeedsLessThanOneCellAStepWhereFieldAndAtomsAlternate)
{
    const auto largest = [](unsigned char method, double cfl) {
        PhysicsRun run(method);
        run.setMesh(120, 20, cfl);
        run.setZone(20, 100);
        run.saveAt({60});
        run.setRabi(0.05);
        run.setCoupling(0.01);
        run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 10.0);
        run.run(3000);
        double most = 0.0;
        for (const double value : run.field(60)) {
            // Written so that not-a-number counts as large.
            most = std::fabs(value) < 1e6 ? std::max(most, std::fabs(value)) : 1e6;
        }
        return most;
    };
    for (const unsigned char method : {QV_Problem::CN_dtP_METHOD, QV_Problem::SPLIT_METHOD}) {
        const double whole = largest(method, 1.0);
        const double less = largest(method, 0.95);
        report("largest field at CFL 1, " + methodName(method), whole);
        report("largest field at CFL 0.95, " + methodName(method), less);
        EXPECT_GT(whole, 100.0) << methodName(method);
        EXPECT_LT(less, 1.2) << methodName(method);
    }
    const double coupled = largest(QV_Problem::CN_P_METHOD, 1.0);
    report("largest field at CFL 1, CN_P", coupled);
    EXPECT_LT(coupled, 1.2);
}

// Without rates and dephasing predictor and corrector take the step of CN_P.
TEST(Conservation, PredictorCorrectorIsCN_PWithoutRelaxation)
{
    std::vector<double> fields[2];
    Complex coherences[2];
    for (unsigned i = 0; i < 2; ++i) {
        PhysicsRun run(i == 0 ? QV_Problem::CN_P_METHOD : QV_Problem::PRED_CORR_METHOD);
        setLadder(run);
        run.saveAt({last});
        run.run(400);
        fields[i] = run.field(last);
        coherences[i] = run.densityNow(last, 2, 0);
    }
    double difference = std::abs(coherences[0] - coherences[1]);
    for (unsigned long m = 0; m < fields[0].size(); ++m) {
        difference = std::max(difference, std::fabs(fields[0][m] - fields[1][m]));
    }
    report("difference of pc from CN_P without relaxation", difference);
    EXPECT_LT(difference, 1e-12);
    EXPECT_GT(std::abs(coherences[0]), 0.01);
}
