#include "golden/Scenario.h"

#include "common/COM_Complex.h"
#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace {

bool isKnown(const std::string& key)
{
    static const char* const known[] = {
        "steps",         "runs",          "method",       "pulse",          "fieldMaxValue",
        "waveLength",    "duration",      "CFL",          "length",         "indice",
        "start",         "end",           "cells",        "captors",        "ends",
        "reflection",    "dimension",     "levels",       "atoms",          "temperature",
        "transversal",   "iterationsMax", "convergence",  "relaxationType", "splitType",
        "polarization0", "polarization1", "longitudinal", "equilibrium",    "initialDensity",
        "systems",       "factors"};
    return key.starts_with("omega")
           || std::any_of(std::begin(known), std::end(known),
                          [&key](const char* k) { return key == k; });
}

LA_RealMatrix* newMatrix(const std::vector<double>& values)
{
    const unsigned long n = QV_Bloch::getLevelsNumber();
    EXPECT_EQ(values.size(), n * n);
    auto* const matrix = LA_RealMatrix::New(n, n);
    matrix->setValues(values, n, n);
    return matrix;
}

LA_RealVector* newVector(const std::vector<double>& values)
{
    auto* const vector = LA_RealVector::New(0);
    vector->setValues(values);
    return vector;
}

} // namespace

Scenario::Scenario(std::filesystem::path directory)
    : mDirectory(std::move(directory))
{
    std::ifstream stream(mDirectory / "scenario.txt");
    EXPECT_TRUE(stream.is_open()) << mDirectory;
    for (std::string line; std::getline(stream, line);) {
        const std::size_t equal = line.find(" = ");
        if (line.starts_with('#') || equal == std::string::npos) {
            continue;
        }
        const std::string key = line.substr(0, equal);
        EXPECT_TRUE(isKnown(key)) << key;
        mValues[key] = line.substr(equal + 3);
    }
}

std::filesystem::path Scenario::root()
{
    return QUORVEX_GOLDEN_SCENARIOS;
}

std::vector<std::string> Scenario::names()
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(root())) {
        if (std::filesystem::exists(entry.path() / "scenario.txt")) {
            names.push_back(entry.path().filename().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

double Scenario::number(const std::string& key, double otherwise) const
{
    return has(key) ? std::stod(mValues.at(key)) : otherwise;
}

std::vector<double> Scenario::numbers(const std::string& key) const
{
    std::istringstream stream(word(key, ""));
    std::vector<double> values;
    for (double value = 0.0; stream >> value;) {
        values.push_back(value);
    }
    return values;
}

std::string Scenario::word(const std::string& key, const std::string& otherwise) const
{
    return has(key) ? mValues.at(key) : otherwise;
}

QV_1DProblem* Scenario::newProblem() const
{
    auto* const problem = QV_1DProblem::New();
    problem->setMaxTimeStepsNumber(static_cast<unsigned long>(number("steps", 2000)));
    problem->setMethod(word("method", "CN_Z"));
    setField(*problem);
    setMedium(*problem);
    setAtoms();
    setSystems(*problem);
    return problem;
}

void Scenario::setField(QV_1DProblem& problem) const
{
    QV_Maxwell& maxwell = *problem.getMaxwellSystem();
    const std::string ends = word("ends", "absorbing");
    maxwell.setLaserType(ends == "laser");
    maxwell.setReflexiveLaserType(ends == "reflexive");
    maxwell.setLaserReflectorFactor(number("reflection", maxwell.getLaserReflectorFactor()));
    maxwell.setDimension(static_cast<unsigned long>(number("dimension", 1)));
    if (has("factors")) {
        const COM_Scoped factors(newVector(numbers("factors")));
        maxwell.setPolarizationTermFactors(*factors);
    }
    QV_IncidentFields& fields = *maxwell.getIncidentFields();
    fields.setIncidentFieldsType(word("pulse", "SIT"));
    fields.setFieldMaxValue(number("fieldMaxValue", fields.getFieldMaxValue()));
    if (has("waveLength")) {
        fields.setWaveLength(number("waveLength", 0.0));
    }
    fields.setWavePackageDuration(number("duration", fields.getWavePackageDuration()));
    fields.setCFL(number("CFL", fields.getCFL()));
}

void Scenario::setMedium(QV_1DProblem& problem) const
{
    auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem.getMilieu());
    milieu.setLength(number("length", milieu.getLength()));
    milieu.setIndice(number("indice", milieu.getIndice()));
    milieu.setStartingPosition(number("start", milieu.getStartingPosition()));
    milieu.setEndingPosition(number("end", milieu.getEndingPosition()));
    milieu.setDiscretizationNumber(static_cast<unsigned long>(number("cells", 20)));
    milieu.setCaracteristicLength(number("waveLength", milieu.getCaracteristicLength()));
    if (has("captors")) {
        const COM_Scoped captors(newVector(numbers("captors")));
        milieu.setCaptors(*captors);
    }
}

void Scenario::setAtoms() const
{
    QV_Bloch::setLevelsNumber(static_cast<unsigned long>(number("levels", 2)));
    QV_Bloch::setAtomsNumber(number("atoms", QV_Bloch::getAtomsNumber()));
    QV_Bloch::setTemperature(number("temperature", QV_Bloch::getTemperature()));
    QV_Bloch::setTransversalRelaxation(number("transversal", QV_Bloch::getTransversalRelaxation()));
    QV_Bloch::setIterationsMaxNumber(static_cast<unsigned long>(number("iterationsMax", 50)));
    QV_Bloch::setConvergenceRate(number("convergence", QV_Bloch::getConvergenceRate()));
    QV_Bloch::setRelaxationType(static_cast<unsigned char>(number("relaxationType", 0)));
    QV_Bloch::setSplitType(static_cast<unsigned char>(number("splitType", 0)));
    const auto components = static_cast<unsigned long>(number("dimension", 1));
    if (has("polarization0")) {
        const COM_Scoped matrix(newMatrix(numbers("polarization0")));
        QV_Bloch::setPolarization(*matrix, 0);
    }
    QV_Bloch::setPolarizationsSize(components);
    if (has("polarization1")) {
        const COM_Scoped matrix(newMatrix(numbers("polarization1")));
        QV_Bloch::setPolarization(*matrix, 1);
    }
    if (has("longitudinal")) {
        const COM_Scoped matrix(newMatrix(numbers("longitudinal")));
        QV_Bloch::setLongitudinalRelaxation(*matrix);
    }
    if (has("equilibrium")) {
        const COM_Scoped vector(newVector(numbers("equilibrium")));
        QV_Bloch::setEquilibriumDensity(*vector);
    }
    if (has("initialDensity")) {
        const unsigned long n = QV_Bloch::getLevelsNumber();
        const COM_Scoped density(LA_ComplexMatrix::New(n, n));
        std::istringstream stream(word("initialDensity", ""));
        std::string text;
        for (unsigned long i = 0; i < n * n && stream >> text; ++i) {
            density->getValues()[i] = text.starts_with('(')
                                          ? COM_Complex::parseComplex(text)
                                          : std::complex<double>(std::stod(text), 0.0);
        }
        QV_Bloch::setInitialDensity(*density);
    }
}

void Scenario::setSystems(QV_1DProblem& problem) const
{
    const auto systems = static_cast<unsigned long>(number("systems", 1));
    for (unsigned long b = 0; b < systems; ++b) {
        if (b > 0) {
            const COM_Scoped bloch(QV_Bloch::New());
            problem.addToBlochEquations(*bloch);
        }
        const std::string key = "omega" + std::to_string(b);
        if (has(key)) {
            const COM_Scoped omega(newVector(numbers(key)));
            (*problem.getBlochEquations())[b].setLevelsFrequency(*omega);
        }
    }
}
