#include "physics/PhysicsRun.h"
#include "physics/Theory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <memory>

namespace {

using Complex = std::complex<double>;

constexpr unsigned long cells = 20;
constexpr double cfl = 0.9;
constexpr unsigned long probe = 8 * cells;

/// A V system of two transitions, or whatever `dipoles` say, under a field of two components.
void setField(PhysicsRun& run, const std::vector<double>& first, const std::vector<double>& second)
{
    run.maxwell().setDimension(2);
    run.setMesh(10 * cells, cells, cfl);
    run.setZone(2 * cells, 6 * cells);
    run.saveAt({probe});
    QV_Bloch::setPolarizationsSize(2);
    run.setDipoles(first, 0);
    run.setDipoles(second, 1);
    run.setDephasing(0.02);
    run.setCoupling(0.01);
    run.setRabi(0.05);
    run.setPulse(QV_IncidentFields::PACKAGE_TYPE, 6.0);
}

const std::vector<double> toSecond = {0.0, 1.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 0.0};
const std::vector<double> toThird = {0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0};
constexpr unsigned long steps = 500;
// The files show seven digits: of a value that begins with 1, the last one stands for 1e-6 of it.
constexpr double lastDigit = 5e-7;

double largest(const std::vector<double>& values)
{
    double most = 0.0;
    for (const double value : values) {
        most = std::max(most, std::fabs(value));
    }
    return most;
}

double largestDifference(const std::vector<double>& x, const std::vector<double>& y)
{
    EXPECT_EQ(x.size(), y.size());
    double most = 0.0;
    for (unsigned long i = 0; i < std::min(x.size(), y.size()); ++i) {
        most = std::max(most, std::fabs(x[i] - y[i]));
    }
    return most;
}

} // namespace

// The wave is polarized along the first component, and atoms in the ground state whose transitions each belong
// to one component do not turn it.
TEST(TwoComponents, TransitionsOfTheirOwnDoNotMixTheComponents)
{
    std::vector<double> withBoth;
    {
        PhysicsRun run(QV_Problem::SPLIT_METHOD);
        run.setLevels({0.0, 1.0, 1.0});
        setField(run, toSecond, toThird);
        run.run(steps);
        withBoth = run.field(probe, 0);
        EXPECT_EQ(largest(run.field(probe, 1)), 0.0);
        EXPECT_EQ(run.densityNow(4 * cells, 2, 2), 0.0);
        EXPECT_GT(run.densityNow(4 * cells, 1, 1).real(), 0.01);
    }
    PhysicsRun alone(QV_Problem::SPLIT_METHOD);
    alone.setLevels({0.0, 1.0, 1.0});
    setField(alone, toSecond, toThird);
    alone.maxwell().setDimension(1);
    QV_Bloch::setPolarizationsSize(1);
    alone.run(steps);
    EXPECT_LT(largestDifference(withBoth, alone.field(probe)), lastDigit);
}

// Exchange of the components with the transitions: light that atoms send out along one component from one
// transition is the light of the other along the other.
TEST(TwoComponents, ExchangeOfComponentsAndTransitionsExchangesTheFields)
{
    const auto emit = [](bool isExchanged) {
        auto run = std::make_unique<PhysicsRun>(QV_Problem::SPLIT_METHOD);
        run->setLevels({0.0, 1.0, 1.0});
        setField(*run, toSecond, toThird);
        run->setPulse(QV_IncidentFields::MARCHE_TYPE, 1e6);
        const Complex x = std::polar(0.3, 0.4);
        const Complex y = std::polar(0.2, -0.7);
        const Complex z = std::conj(x) * y / 0.6;
        if (isExchanged) {
            run->setDensity({0.6, y, x, std::conj(y), 0.15, std::conj(z), std::conj(x), z, 0.25});
        } else {
            run->setDensity({0.6, x, y, std::conj(x), 0.25, z, std::conj(y), std::conj(z), 0.15});
        }
        run->run(steps);
        return run;
    };
    std::vector<double> plain[2];
    std::vector<double> exchanged[2];
    for (unsigned long j = 0; j < 2; ++j) {
        plain[j] = emit(false)->field(probe, j);
        exchanged[j] = emit(true)->field(probe, j);
    }
    EXPECT_GT(largest(plain[0]), 0.01);
    EXPECT_GT(largest(plain[1]), 0.01);
    double difference = 0.0;
    for (unsigned long m = 0; m < steps; ++m) {
        difference = std::max({difference, std::fabs(plain[0][m] - exchanged[1][m]),
                               std::fabs(plain[1][m] - exchanged[0][m])});
    }
    report("difference of exchanged fields", difference);
    EXPECT_LT(difference, 1e-9);
}

// One transition with equal dipoles along both components sees E0 + E1 alone: the wave with E0 = -E1 passes as
// through the empty medium, that with E0 = E1 as a wave of one component with a dipole sqrt(2) times as large.
TEST(TwoComponents, DipoleBetweenTheComponentsAbsorbsAlongItself)
{
    const std::vector<double> dipole = {0.0, 1.0, 1.0, 0.0};
    const auto fieldsOf = [&dipole](double coupling) {
        PhysicsRun run(QV_Problem::SPLIT_METHOD);
        setField(run, dipole, dipole);
        run.setRabi(1e-7);
        run.setCoupling(coupling);
        run.run(steps);
        return std::pair{run.field(probe, 0), run.field(probe, 1)};
    };
    const auto [e0, e1] = fieldsOf(0.01);
    const std::vector<double> empty = fieldsOf(0.0).first;
    PhysicsRun single(QV_Problem::SPLIT_METHOD);
    setField(single, dipole, dipole);
    single.maxwell().setDimension(1);
    QV_Bloch::setPolarizationsSize(1);
    single.setRabi(1e-7);
    single.setCoupling(0.02);
    single.run(steps);
    const std::vector<double> absorbed = single.field(probe, 0);
    double across = 0.0;
    double along = 0.0;
    for (unsigned long m = 0; m < steps; ++m) {
        across = std::max(across, std::fabs(e0[m] - e1[m] - empty[m]));
        along = std::max(along, std::fabs(e0[m] + e1[m] - absorbed[m]));
    }
    report("error of the wave across the dipole", across);
    report("error of the wave along the dipole", along);
    report("turned component", largest(e1));
    EXPECT_LT(across, 2e-6);
    EXPECT_LT(along, 2e-6);
    EXPECT_GT(largest(e1), 0.1);
}

// The source in Ampere's equation knows the free turning and decay of the dipoles alone. Of one component that is all;
// of two, light along one turns the dipole along the other as well, when the upper levels are coherent, and this part
// is missing from the source: degenerate levels change their dipole and send out nothing.
TEST(TwoComponents, LightAlongOneComponentTurnsTheOtherDipoleUnseen)
{
    PhysicsRun run(QV_Problem::SPLIT_METHOD);
    run.setLevels({0.0, 0.0, 0.0});
    setField(run, toSecond, toThird);
    run.setDephasing(0.0);
    run.setPulse(QV_IncidentFields::MARCHE_TYPE, 1e-6);
    const Complex coherence(0.0, 0.4);
    run.setDensity({0.0, 0.0, 0.0, 0.0, 0.5, coherence, 0.0, std::conj(coherence), 0.5});
    run.run(steps);
    const double turned = std::fabs(2.0 * run.densityNow(2 * cells, 2, 0).real());
    report("dipole across the light, turned unseen", turned);
    EXPECT_GT(turned, 0.1);
    EXPECT_EQ(largest(run.field(probe, 1)), 0.0);
}
