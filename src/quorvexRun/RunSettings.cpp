#include "quorvexRun/RunSettings.h"

#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"
#include "quorvexRun/RunError.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <vector>

namespace {

/// What a setting works on: the parts of the problem, the value's text, and the number in brackets.
struct Target
{
    QV_1DProblem& mProblem;
    QV_1DMilieu& mMilieu;
    QV_Maxwell& mMaxwell;
    QV_IncidentFields& mFields;
    std::string mKey;
    std::string mValue;
    unsigned long mIndex;

    [[noreturn]] void refuse(const std::string& right) const
    {
        throw RunError(mKey + " takes " + right + ", not \"" + mValue + "\"");
    }

    double real() const { return realOf(mValue, "a number"); }

    double realOf(const std::string& text, const char* right) const
    {
        // Read by the C library for its end, then by the program for its value.
        char* end = nullptr;
        std::strtod(text.c_str(), &end);
        if (text.empty() || *end != '\0'
            || std::isspace(static_cast<unsigned char>(text[0])) != 0) {
            refuse(right);
        }
        return COM_Real::parseReal(text);
    }

    unsigned long count(unsigned long largest) const
    {
        const bool isNumber = !mValue.empty()
                              && std::all_of(mValue.begin(), mValue.end(),
                                             [](unsigned char c) { return std::isdigit(c) != 0; });
        const unsigned long number = isNumber ? std::strtoul(mValue.c_str(), nullptr, 10) : 0;
        if (!isNumber || number > largest) {
            refuse("a whole number from 0 to " + std::to_string(largest));
        }
        return number;
    }

    bool flag() const
    {
        if (mValue != "0" && mValue != "1") {
            refuse("0 or 1");
        }
        return mValue == "1";
    }

    /// The place of a name in a table, or the number that the value is.
    template <std::size_t SIZE>
    unsigned char choice(const char* const (&names)[SIZE], std::size_t firstName) const
    {
        std::string known;
        for (std::size_t i = firstName; i < SIZE; ++i) {
            if (mValue == names[i]) {
                return static_cast<unsigned char>(i - firstName);
            }
            known += std::string(i > firstName ? ", " : "") + names[i];
        }
        if (!mValue.empty() && mValue.size() < 3
            && std::isdigit(static_cast<unsigned char>(mValue[0])) != 0) {
            return static_cast<unsigned char>(count(UCHAR_MAX));
        }
        refuse("a number or one of " + known);
    }

    std::vector<std::string> pieces() const
    {
        // Commas inside parentheses belong to complex numbers.
        std::vector<std::string> pieces(1);
        int depth = 0;
        for (const char c : mValue) {
            depth += static_cast<int>(c == '(') - static_cast<int>(c == ')');
            if (c == ',' && depth == 0) {
                pieces.emplace_back();
            } else {
                pieces.back() += c;
            }
        }
        return pieces;
    }

    /// As many reals as `needed`, or any number of them for 0.
    std::vector<double> reals(unsigned long needed) const
    {
        std::vector<double> values;
        for (const std::string& piece : pieces()) {
            values.push_back(realOf(piece, "numbers joined by commas"));
        }
        if (needed > 0 && values.size() != needed) {
            refuse(std::to_string(needed) + " numbers joined by commas");
        }
        return values;
    }

    LA_RealVector* newVector(unsigned long needed) const
    {
        const std::vector<double> values = reals(needed);
        auto* const vector = LA_RealVector::New(0);
        vector->setValues(values);
        return vector;
    }

    LA_RealMatrix* newMatrix() const
    {
        const unsigned long n = QV_Bloch::getLevelsNumber();
        const std::vector<double> values = reals(n * n);
        auto* const matrix = LA_RealMatrix::New(n, n);
        matrix->setValues(values, n, n);
        return matrix;
    }

    std::complex<double> complexOf(const std::string& text) const
    {
        const char* const right = "numbers, complex ones as (re,im)";
        if (!text.starts_with('(')) {
            return realOf(text, right);
        }
        const std::size_t comma = text.find(',');
        if (comma == std::string::npos || !text.ends_with(')')) {
            refuse(right);
        }
        return {realOf(text.substr(1, comma - 1), right),
                realOf(text.substr(comma + 1, text.size() - comma - 2), right)};
    }

    LA_ComplexMatrix* newComplexMatrix() const
    {
        const unsigned long n = QV_Bloch::getLevelsNumber();
        std::vector<std::complex<double>> values;
        for (const std::string& piece : pieces()) {
            values.push_back(complexOf(piece));
        }
        if (values.size() != n * n) {
            refuse(std::to_string(n * n) + " numbers joined by commas, complex ones as (re,im)");
        }
        auto* const matrix = LA_ComplexMatrix::New(n, n);
        matrix->setValues(values, n, n);
        return matrix;
    }

    QV_Bloch& system() const
    {
        const COM_Array<QV_Bloch>& systems = *mProblem.getBlochEquations();
        if (mIndex >= systems.size()) {
            throw RunError(mKey + "[" + std::to_string(mIndex) + "] does not exist: there are "
                           + std::to_string(systems.size()) + " systems, counted from 0");
        }
        return systems[mIndex];
    }
};

constexpr unsigned long mostLevels = 64;
constexpr unsigned long mostComponents = 3;
constexpr unsigned long mostSystems = 10000;
constexpr unsigned long anyNumber = 1000000000000UL;

void setSystems(const Target& target)
{
    const unsigned long systems = target.count(mostSystems);
    while (target.mProblem.getBlochEquations()->size() > systems) {
        target.mProblem.removeLastBlochEquation();
    }
    while (target.mProblem.getBlochEquations()->size() < systems) {
        const COM_Scoped bloch(QV_Bloch::New());
        target.mProblem.addToBlochEquations(*bloch);
    }
}

void setPolarization(const Target& target)
{
    if (target.mIndex >= target.mMaxwell.getDimension()) {
        throw RunError("mPs[" + std::to_string(target.mIndex) + "] does not exist: the field has "
                       + std::to_string(target.mMaxwell.getDimension())
                       + " components, counted from 0");
    }
    const COM_Scoped matrix(target.newMatrix());
    QV_Bloch::setPolarization(*matrix, target.mIndex);
}

struct Setting
{
    const char* mClass = nullptr;
    const char* mKey = nullptr;
    const char* mTakes = nullptr;
    void (*mSet)(const Target&) = nullptr;
    bool mIsIndexed = false; ///< The key stands for several, of which "[number]" chooses one.
};

constexpr Setting settings[] = {
    {"QV_1DProblem", "mMethod", "number or name of the method",
     [](const Target& t) { t.mProblem.setMethod(t.choice(QV_Problem::mMethodsName, 0)); }},
    {"QV_1DProblem", "mMaxTimeStepsNumber", "number of time steps",
     [](const Target& t) { t.mProblem.setMaxTimeStepsNumber(t.count(anyNumber)); }},
    {"QV_1DProblem", "mDelta", "standard deviation of the frequencies, rad/s",
     [](const Target& t) { t.mProblem.setFrequenciesDistributionDelta(t.real()); }},
    {"QV_1DProblem", "mMean", "mean shift of the frequencies, rad/s",
     [](const Target& t) { t.mProblem.setFrequenciesDistributionMean(t.real()); }},
    {"QV_1DProblem", "mBlochEquations", "number of density-matrix systems", setSystems},
    {"QV_1DMaxwell", "mIsLaserType", "laser cavity at the left end: 0 or 1",
     [](const Target& t) { t.mMaxwell.setLaserType(t.flag()); }},
    {"QV_1DMaxwell", "mIsRLaserType", "laser cavity with two reflecting ends: 0 or 1",
     [](const Target& t) { t.mMaxwell.setReflexiveLaserType(t.flag()); }},
    {"QV_1DMaxwell", "mR", "reflection factor of the ends",
     [](const Target& t) { t.mMaxwell.setLaserReflectorFactor(t.real()); }},
    {"QV_1DMaxwell", "mDimension",
     "components of the field, also sets the number of dipole matrices",
     [](const Target& t) { t.mProblem.setDimension(t.count(mostComponents)); }},
    {"QV_1DMaxwell", "mFactors", "weights of the systems",
     [](const Target& t) {
         const COM_Scoped vector(t.newVector(0));
         t.mMaxwell.setPolarizationTermFactors(*vector);
     }},
    {"QV_IncidentFields", "mFieldMaxValue", "peak field, V/m",
     [](const Target& t) { t.mFields.setFieldMaxValue(t.real()); }},
    {"QV_IncidentFields", "mWaveLength",
     "wavelength, m; also sets carrier and characteristic length",
     [](const Target& t) { t.mProblem.setWaveLength(t.real()); }},
    {"QV_IncidentFields", "mWavePackageDuration", "duration of the pulse, s",
     [](const Target& t) { t.mFields.setWavePackageDuration(t.real()); }},
    {"QV_IncidentFields", "mCFL", "Courant number",
     [](const Target& t) { t.mFields.setCFL(t.real()); }},
    {"QV_IncidentFields", "mType", "number or name of the pulse's shape",
     [](const Target& t) {
         t.mFields.setIncidentFieldsType(t.choice(QV_IncidentFields::mTypesName, 0));
     }},
    {"QV_1DMilieu", "mIndice", "refractive index",
     [](const Target& t) { t.mMilieu.setIndice(t.real()); }},
    {"QV_1DMilieu", "mLength", "length with the empty zones, m",
     [](const Target& t) { t.mMilieu.setLength(t.real()); }},
    {"QV_1DMilieu", "mStartingPosition", "start of the atoms, percent",
     [](const Target& t) { t.mMilieu.setStartingPosition(t.real()); }},
    {"QV_1DMilieu", "mEndingPosition", "end of the atoms, percent",
     [](const Target& t) { t.mMilieu.setEndingPosition(t.real()); }},
    {"QV_1DMilieu", "mDiscretizationNumber", "cells in a wavelength",
     [](const Target& t) { t.mMilieu.setDiscretizationNumber(t.count(anyNumber)); }},
    {"QV_1DMilieu", "mCaracteristicLength", "characteristic length, m",
     [](const Target& t) { t.mMilieu.setCaracteristicLength(t.real()); }},
    {"QV_1DMilieu", "mCaptors", "positions of the captors, percent",
     [](const Target& t) {
         const COM_Scoped vector(t.newVector(0));
         t.mMilieu.setCaptors(*vector);
     }},
    {"QV_Bloch", "mLevelsNumber", "levels of an atom, also resizes all that counts in them",
     [](const Target& t) { QV_Bloch::setLevelsNumber(t.count(mostLevels)); }},
    {"QV_Bloch", "mAtomsNumber", "density of atoms, 1/m^3",
     [](const Target& t) { QV_Bloch::setAtomsNumber(t.real()); }},
    {"QV_Bloch", "mTemperature", "temperature, K; also sets mBeta",
     [](const Target& t) { QV_Bloch::setTemperature(t.real()); }},
    {"QV_Bloch", "mTransversalRelaxation", "dephasing rate, 1/s",
     [](const Target& t) { QV_Bloch::setTransversalRelaxation(t.real()); }},
    {"QV_Bloch", "mIterationsMaxNumber", "limit of the iterations",
     [](const Target& t) { QV_Bloch::setIterationsMaxNumber(t.count(anyNumber)); }},
    {"QV_Bloch", "mConvergenceRate", "relative threshold of the iterations",
     [](const Target& t) { QV_Bloch::setConvergenceRate(t.real()); }},
    {"QV_Bloch", "mSplitType", "number of the splitting order, or hrn, rnh, hrnh, rnhrn",
     [](const Target& t) { QV_Bloch::setSplitType(t.choice(QV_Bloch::mSplitTypesName, 1)); }},
    {"QV_Bloch", "mRelaxationType", "number of the relaxation, or Pauli, Cascade, Equilibre",
     [](const Target& t) {
         QV_Bloch::setRelaxationType(t.choice(QV_Bloch::mRelaxationTypesName, 1));
     }},
    {"QV_Bloch", "mOmega", "level frequencies, rad/s; mOmega[1] are those of the second system",
     [](const Target& t) {
         const COM_Scoped vector(t.newVector(QV_Bloch::getLevelsNumber()));
         t.system().setLevelsFrequency(*vector);
     },
     true},
    {"QV_Bloch", "mPs", "dipole matrix, C m; mPs[1] is that of the second component",
     setPolarization, true},
    {"QV_Bloch", "mW", "longitudinal rates, 1/s",
     [](const Target& t) {
         const COM_Scoped matrix(t.newMatrix());
         QV_Bloch::setLongitudinalRelaxation(*matrix);
     }},
    {"QV_Bloch", "mRhoE", "equilibrium populations",
     [](const Target& t) {
         const COM_Scoped vector(t.newVector(QV_Bloch::getLevelsNumber()));
         QV_Bloch::setEquilibriumDensity(*vector);
     }},
    {"QV_Bloch", "mInitialDensity", "initial density matrix",
     [](const Target& t) {
         const COM_Scoped matrix(t.newComplexMatrix());
         QV_Bloch::setInitialDensity(*matrix);
     }},
};

/// Keys of parameters files that a run computes itself.
constexpr const char* computed[] = {"mTimeStep",
                                    "mRabiFrequency",
                                    "mOmega0",
                                    "mOmega0Adim",
                                    "mWavePackageDurationAdim",
                                    "mBeta",
                                    "mPMax",
                                    "mIterMax",
                                    "mIFirst",
                                    "mILast",
                                    "mDz",
                                    "mDzeta",
                                    "mDensities",
                                    "mWAdim",
                                    "mOmegaAdim",
                                    "mPsAdim",
                                    "mRelaxDiag",
                                    "mRelaxNut",
                                    "mExpA",
                                    "mPPower",
                                    "mTrPPower",
                                    "mTransversalRelaxationAdim",
                                    "mFields",
                                    "mE1Old",
                                    "mEn1Old"};

/// Takes "[number]" off the end of a key, if it is there.
std::optional<unsigned long> takeIndex(std::string& key)
{
    const std::size_t open = key.find('[');
    if (open == std::string::npos) {
        return {};
    }
    const std::string digits = key.substr(open + 1);
    char* end = nullptr;
    const unsigned long index = std::strtoul(digits.c_str(), &end, 10);
    if (digits.empty() || std::isdigit(static_cast<unsigned char>(digits[0])) == 0
        || std::string(end) != "]") {
        throw RunError("the number behind " + key.substr(0, open)
                       + " has the form [0], [1] and so on");
    }
    key.erase(open);
    return index;
}

} // namespace

void RunSettings::apply(QV_1DProblem& problem, const std::string& key, const std::string& value)
{
    std::string name = key;
    const std::optional<unsigned long> index = takeIndex(name);
    const std::size_t dot = name.find('.');
    const std::string className = dot == std::string::npos ? std::string() : name.substr(0, dot);
    const std::string bare = dot == std::string::npos ? name : name.substr(dot + 1);
    auto* const milieu = dynamic_cast<QV_1DMilieu*>(problem.getMilieu());
    QV_Maxwell* const maxwell = problem.getMaxwellSystem();
    if (milieu == nullptr || maxwell == nullptr || maxwell->getIncidentFields() == nullptr) {
        throw RunError("the problem lacks its medium, its field or its incident wave");
    }
    for (const Setting& setting : settings) {
        const bool isClass = className.empty() || className == setting.mClass;
        if (isClass && bare == setting.mKey) {
            if (index && !setting.mIsIndexed) {
                throw RunError(bare + " takes no number in brackets");
            }
            setting.mSet({problem, *milieu, *maxwell, *maxwell->getIncidentFields(), bare, value,
                          index.value_or(0)});
            return;
        }
    }
    if (std::find(std::begin(computed), std::end(computed), bare) != std::end(computed)) {
        throw RunError(bare + " is computed by the run and cannot be set");
    }
    throw RunError("unknown parameter " + key + "; quorvex-run --help lists the keys");
}

void RunSettings::setMethod(QV_1DProblem& problem, const std::string& name)
{
    const char* const* const found =
        std::find(std::begin(QV_Problem::mMethodsName), std::end(QV_Problem::mMethodsName), name);
    if (found == std::end(QV_Problem::mMethodsName)) {
        std::string names;
        for (const char* known : QV_Problem::mMethodsName) {
            names += std::string(names.empty() ? "" : ", ") + known;
        }
        throw RunError("--method takes one of " + names + ", not \"" + name + "\"");
    }
    problem.setMethod(static_cast<unsigned char>(found - std::begin(QV_Problem::mMethodsName)));
}

std::string RunSettings::helpText()
{
    std::string text;
    const char* former = "";
    for (const Setting& setting : settings) {
        if (std::string(former) != setting.mClass) {
            former = setting.mClass;
            text += std::string("  ") + former + "\n";
        }
        std::string key = setting.mKey;
        key.resize(std::max<std::size_t>(key.size(), 23), ' ');
        text += "    " + key + " " + setting.mTakes + "\n";
    }
    return text + "  Vectors and matrices are numbers joined by commas, matrices row after row.\n";
}
