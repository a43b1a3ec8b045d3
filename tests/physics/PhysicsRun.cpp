#include "physics/PhysicsRun.h"

#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_Field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>

namespace {

constexpr double dipole = 1e-29;      // C m
constexpr double waveLength = 1.5e-6; // m
constexpr double tight = 1e-18;       // of squares: nine digits of an increment
constexpr double inside = 0.5;        // of a node, so that no rounding moves it

/// The carrier, rad/s.
double carrier()
{
    return QV_IncidentFields::TWO_PI_C / waveLength;
}

LA_RealVector* newVector(const std::vector<double>& values, double scale)
{
    auto* const vector = LA_RealVector::New(values.size());
    for (unsigned long i = 0; i < values.size(); ++i) {
        (*vector)[i] = scale * values[i];
    }
    return vector;
}

LA_RealMatrix* newMatrix(const std::vector<double>& values, double scale)
{
    const unsigned long n = QV_Bloch::getLevelsNumber();
    EXPECT_EQ(values.size(), n * n);
    auto* const matrix = LA_RealMatrix::New(n, n);
    for (unsigned long i = 0; i < std::min<unsigned long>(values.size(), n * n); ++i) {
        matrix->getValues()[i] = scale * values[i];
    }
    return matrix;
}

} // namespace

PhysicsRun::PhysicsRun(unsigned char method)
{
    EXPECT_EQ(++mLiving, 1) << "another run is alive";
    (**this).setMethod(method);
    wave().setWaveLength(waveLength);
    milieu().setCaracteristicLength(waveLength);
    milieu().resetCaptors();
    QV_Bloch::setConvergenceRate(tight);
    setLevels({0.0, 1.0});
    setDipoles({0.0, 1.0, 1.0, 0.0});
    setRabi(0.01);
}

PhysicsRun::~PhysicsRun()
{
    --mLiving;
}

void PhysicsRun::setMesh(unsigned long nodes, unsigned long cells, double cfl)
{
    mNodes = nodes;
    mStepPhase = 2.0 * std::numbers::pi * cfl / static_cast<double>(cells);
    milieu().setDiscretizationNumber(cells);
    milieu().setLength((static_cast<double>(nodes) + inside) * waveLength
                       / static_cast<double>(cells));
    wave().setCFL(cfl);
}

void PhysicsRun::setZone(unsigned long first, unsigned long last)
{
    const auto percent = [this](unsigned long node) {
        return 100.0 * (static_cast<double>(node) + 1.0 + inside) / static_cast<double>(mNodes);
    };
    milieu().setStartingPosition(percent(first));
    milieu().setEndingPosition(percent(last));
}

void PhysicsRun::saveAt(std::initializer_list<unsigned long> nodes)
{
    milieu().resetCaptors();
    int index = 0;
    for (const unsigned long node : nodes) {
        milieu().addToCaptors(index++, 100.0 * (static_cast<double>(node) + 1.0 + inside)
                                           / static_cast<double>(mNodes));
    }
}

void PhysicsRun::setRabi(double rabi)
{
    mRabi = rabi;
    wave().setFieldMaxValue(rabi * carrier() * QV_Object::HBAR / dipole);
}

void PhysicsRun::setPulse(unsigned char type, double duration)
{
    wave().setIncidentFieldsType(type);
    wave().setWavePackageDuration(duration * 2.0 * std::numbers::pi / carrier());
}

void PhysicsRun::setLevels(const std::vector<double>& omega)
{
    const unsigned long n = omega.size();
    QV_Bloch::setLevelsNumber(n);
    setLevels(0, omega);
    setRates(QV_Bloch::CASCADE_RELAXATION_TYPE, std::vector<double>(n * n));
    setEquilibrium(std::vector<double>(n));
    setDephasing(0.0);
    setCoupling(0.0);
    startIn(0);
}

void PhysicsRun::setLevels(unsigned long system, const std::vector<double>& omega)
{
    while ((**this).getBlochEquations()->size() <= system) {
        addSystem();
    }
    const COM_Scoped vector(newVector(omega, carrier()));
    bloch(system).setLevelsFrequency(*vector);
}

void PhysicsRun::setWeights(const std::vector<double>& weights)
{
    const COM_Scoped vector(newVector(weights, 1.0));
    maxwell().setPolarizationTermFactors(*vector);
}

void PhysicsRun::setDipoles(const std::vector<double>& dipoles, unsigned long component)
{
    const COM_Scoped matrix(newMatrix(dipoles, dipole));
    QV_Bloch::setPolarization(*matrix, component);
}

void PhysicsRun::setCoupling(double coupling)
{
    QV_Bloch::setAtomsNumber(coupling * carrier() * QV_Object::EPS0 * QV_Object::HBAR
                             / (dipole * dipole));
}

void PhysicsRun::setDephasing(double rate)
{
    QV_Bloch::setTransversalRelaxation(rate * carrier());
}

void PhysicsRun::setRates(unsigned char type, const std::vector<double>& rates)
{
    const COM_Scoped matrix(newMatrix(rates, carrier()));
    QV_Bloch::setLongitudinalRelaxation(*matrix);
    QV_Bloch::setRelaxationType(type);
}

void PhysicsRun::setEquilibrium(const std::vector<double>& populations)
{
    const COM_Scoped vector(newVector(populations, 1.0));
    QV_Bloch::setEquilibriumDensity(*vector);
}

void PhysicsRun::setDensity(const Matrix& density)
{
    const unsigned long n = QV_Bloch::getLevelsNumber();
    const COM_Scoped matrix(LA_ComplexMatrix::New(n, n));
    matrix->setValues(density, n, n);
    QV_Bloch::setInitialDensity(*matrix);
}

void PhysicsRun::startIn(unsigned long level)
{
    const unsigned long n = QV_Bloch::getLevelsNumber();
    Matrix density(n * n);
    density[level * n + level] = 1.0;
    setDensity(density);
}

void PhysicsRun::run(unsigned long steps)
{
    (**this).setMaxTimeStepsNumber(steps);
    ASSERT_EQ(TestProblem::run(), 0) << log();
    ASSERT_EQ((**this).getTimeStepNumber(), steps + 1);
}

QV_Results PhysicsRun::results() const
{
    QV_Results results;
    EXPECT_TRUE(results.readCaptors(directory().slashed())) << results.getMessage();
    EXPECT_TRUE(results.readTimes()) << results.getMessage();
    return results;
}

const QV_Results::Captor& PhysicsRun::captor(const QV_Results& results, unsigned long node) const
{
    static const QV_Results::Captor none;
    for (const QV_Results::Captor& captor : results.getCaptors()) {
        if (captor.mLocation == node) {
            return captor;
        }
    }
    ADD_FAILURE() << "node " << node << " was not saved";
    return none;
}

std::vector<double> PhysicsRun::field(unsigned long node, unsigned long component) const
{
    const QV_Results read = results();
    std::vector<double> values = read.readField(captor(read, node), component).mValues;
    EXPECT_EQ(values.size(), (**this).getMaxTimeStepsNumber());
    for (double& value : values) {
        value /= wave().getFieldMaxValue();
    }
    return values;
}

std::vector<double> PhysicsRun::density(unsigned long node, unsigned long i, unsigned long j,
                                        unsigned long system) const
{
    const QV_Results read = results();
    std::vector<double> values = read.readDensity(captor(read, node), system, i, j).mValues;
    EXPECT_EQ(values.size(), (**this).getMaxTimeStepsNumber());
    return values;
}

std::vector<double> PhysicsRun::seconds() const
{
    return results().getTimes().mSeconds;
}

double PhysicsRun::fieldNow(unsigned long node, unsigned long component) const
{
    return maxwell().getField(QV_Maxwell::E_FIELD)->getValue(node, component);
}

std::complex<double> PhysicsRun::densityNow(unsigned long node, unsigned long i, unsigned long j,
                                            unsigned long system) const
{
    return bloch(system).getDensity(node)->getValue(i, j);
}

double PhysicsRun::courant() const
{
    return wave().getCFL() * milieu().getIndice();
}

double PhysicsRun::tuned(double omega) const
{
    return (**this).getMethod() == QV_Problem::SPLIT_METHOD
               ? omega
               : 2.0 / mStepPhase * std::tan(omega * mStepPhase / 2.0);
}

std::string methodName(unsigned char method)
{
    return QV_Problem::mMethodsName[method];
}

void report(const std::string& what, double value)
{
    std::printf("measured: %s = %.6g\n", what.c_str(), value);
}
