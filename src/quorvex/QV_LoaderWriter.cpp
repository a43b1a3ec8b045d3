#include "quorvex/QV_LoaderWriter.h"

#include "common/COM_Complex.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "common/COM_String.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Parser.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_ClassFactory.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"

#include <algorithm>
#include <fstream>
#include <iostream>

namespace {

constexpr unsigned long mostLevels = 8192; ///< A density matrix of them takes 1 GiB.
constexpr long mostSystems = 100000;
constexpr int longestComment = 800; ///< Characters skipped behind a row of numbers.
constexpr double percent = 100.0;
constexpr double leastConvergence = 1e-24;
constexpr double largestConvergence = 0.1;

/// Takes the delimiters off a quoted value.
std::string unquoted(const std::string& value)
{
    return value.size() < 2 ? std::string() : value.substr(1, value.size() - 2);
}

bool isMatrixTooLarge(unsigned long n)
{
    if (n <= mostLevels) {
        return false;
    }
    std::cout << "matrices of " << n << " levels are too large !\n";
    return true;
}

/// Rows of numbers separated by white space, each with room for a comment behind it.
class Rows
{
public:
    explicit Rows(std::istream& stream)
        : mStream(stream)
    {}

    std::string token()
    {
        std::string text;
        if (!(mStream >> text)) {
            ++mMissing;
        }
        return text;
    }

    double real() { return COM_Real::parseReal(token()); }

    void endRow()
    {
        char c = '\0';
        for (int i = 0; i < longestComment && mStream.get(c) && c != '\n'; ++i) {
        }
    }

    void read(LA_RealVector& vector)
    {
        for (unsigned long i = 0; i < vector.getDimension(); ++i) {
            vector[i] = real();
        }
        endRow();
    }

    void read(LA_RealMatrix& matrix)
    {
        for (unsigned long i = 0; i < matrix.getLinesNumber(); ++i) {
            for (unsigned long j = 0; j < matrix.getColumnsNumber(); ++j) {
                matrix[i][j] = real();
            }
            endRow();
        }
    }

    void readDiagonal(LA_RealMatrix& matrix)
    {
        for (unsigned long i = 0; i < matrix.getLinesNumber(); ++i) {
            matrix[i][i] = real();
            endRow();
        }
    }

    void read(LA_ComplexMatrix& matrix)
    {
        for (unsigned long i = 0; i < matrix.getLinesNumber(); ++i) {
            for (unsigned long j = 0; j < matrix.getColumnsNumber(); ++j) {
                matrix[i][j] = COM_Complex::parseComplex(token());
            }
            endRow();
        }
    }

    unsigned long missing() const { return mMissing; }

private:
    std::istream& mStream;
    unsigned long mMissing = 0; ///< Numbers asked for behind the last one.
};

} // namespace

/// What a keyword file can say, with the values of what it leaves out.
struct QV_LoaderWriter::Parameters
{
    enum Kind { INTEGER, REAL, QUOTED, PLAIN };

    /// One attribute: where its value goes, and whether it has to be there.
    struct Entry
    {
        const char* mGroup;
        const char* mAttribute;
        Kind mKind;
        void* mTarget;
        bool mIsRequired;
        bool mImpliesSplit;
        bool mIsGiven;
    };

    Parameters() = default;
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

    long mLevels = 0;
    std::string mTest;
    std::string mLaw;
    double mDelta = 0.0;
    long mFurtherSystems = 0;
    double mEmax = 0.0;
    double mLambda = 0.0;
    double mDuration = 0.0;
    std::string mPulse;
    double mAtoms = 0.0;
    double mIndice = 1.0;
    double mTemperature = 0.0;
    std::string mRelaxation;
    std::string mMethod;
    double mCFL = 0.0;
    long mCells = 2;
    double mConvergence = 0.0;
    std::string mSplit;
    double mStart = 0.0;
    double mEnd = 0.0;
    double mLength = 0.0;
    long mSteps = 0;
    double mZ1 = 0.0;
    double mZ2 = 0.5;
    double mZ3 = 1.0;

    Entry mEntries[25] = {
        {"dim", "n", INTEGER, &mLevels, false, false, false},
        {"type_test", "test", QUOTED, &mTest, false, false, false},
        {"freq_dist", "method", PLAIN, &mLaw, false, false, false},
        {"freq_dist", "delta", REAL, &mDelta, false, false, false},
        {"freq_dist", "n", INTEGER, &mFurtherSystems, false, false, false},
        {"champ", "Emax", REAL, &mEmax, true, false, false},
        {"champ", "lambda", REAL, &mLambda, true, false, false},
        {"champ", "t_on", REAL, &mDuration, true, false, false},
        {"champ", "Einc", QUOTED, &mPulse, false, false, false},
        {"autres", "na", REAL, &mAtoms, true, false, false},
        {"autres", "ind", REAL, &mIndice, false, false, false},
        {"autres", "temper", REAL, &mTemperature, true, false, false},
        {"autres", "relaxation", QUOTED, &mRelaxation, false, true, false},
        {"numerique", "methode", QUOTED, &mMethod, false, false, false},
        {"numerique", "CFL", REAL, &mCFL, true, false, false},
        {"numerique", "parlambda", INTEGER, &mCells, false, false, false},
        {"numerique", "conv", REAL, &mConvergence, true, false, false},
        {"numerique", "type_split", QUOTED, &mSplit, false, true, false},
        {"geom", "debut", REAL, &mStart, true, false, false},
        {"geom", "fin", REAL, &mEnd, true, false, false},
        {"geom", "long", REAL, &mLength, true, false, false},
        {"geom", "maxt", INTEGER, &mSteps, true, false, false},
        {"ES", "z1", REAL, &mZ1, false, false, false},
        {"ES", "z2", REAL, &mZ2, false, false, false},
        {"ES", "z3", REAL, &mZ3, false, false, false},
    };

    /// The report of an attribute that the group does not know, null for a group that nobody knows.
    static const char* unknownText(const std::string& group)
    {
        static constexpr const char* texts[][2] = {
            {"dim", " unknown attributes of dim  in line "},
            {"type_test", " unknown attributes of type_test  in line "},
            {"freq_dist", " unknown attributes  of freq_dist in line "},
            {"champ", " unknown attributes  of champ in line "},
            {"autres", " unknown attributes of autres  in line "},
            {"numerique", " unknown attributes of numerique ! in line "},
            {"geom", "geom: unknown attributes ! in line "},
            {"ES", "ES: unknown attributes ! in line "},
        };
        for (const auto& text : texts) {
            if (group == text[0]) {
                return text[1];
            }
        }
        return nullptr;
    }

    /// Stores one attribute's value; false when the group has no such attribute.
    bool set(const std::string& group, const std::string& attribute, const std::string& value)
    {
        for (Entry& entry : mEntries) {
            if (group != entry.mGroup || attribute != entry.mAttribute) {
                continue;
            }
            entry.mIsGiven = true;
            switch (entry.mKind) {
            case INTEGER:
                *static_cast<long*>(entry.mTarget) = COM_Integer::parseInt(value);
                break;
            case REAL:
                *static_cast<double*>(entry.mTarget) = COM_Real::parseReal(value);
                break;
            case QUOTED:
                *static_cast<std::string*>(entry.mTarget) = unquoted(value);
                break;
            case PLAIN:
                *static_cast<std::string*>(entry.mTarget) = value;
                break;
            }
            if (entry.mImpliesSplit) {
                // A later word for the method overrides this one.
                mMethod = QV_Problem::mMethodsName[QV_Problem::SPLIT_METHOD];
            }
            return true;
        }
        return false;
    }
};

QV_LoaderWriter::QV_LoaderWriter()
{
    COM_TYPE(QV_LoaderWriter);
}

QV_LoaderWriter::~QV_LoaderWriter()
{
    resetProblem();
}

void QV_LoaderWriter::setProblem(QV_Problem* problem)
{
    associate(mProblem, problem);
}

// ---------------------------------------------------------------- XML

void QV_LoaderWriter::load(const std::string& file)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    if (mProblem != nullptr) {
        factory->load(file, *mProblem);
        return;
    }
    const COM_Scoped object(factory->load(file));
    if (auto* const problem = dynamic_cast<QV_Problem*>(object.get())) {
        setProblem(*problem);
    }
}

void QV_LoaderWriter::load(const std::string& file, QV_Problem* problem)
{
    setProblem(problem);
    load(file);
}

// Described object by object: the densities of a fine mesh would fill the memory as one tree.
bool QV_LoaderWriter::save(const std::string& file) const
{
    return mProblem == nullptr || MM_Parser::generateXMLMetaModelFile(file, *mProblem) == 0;
}

bool QV_LoaderWriter::save(const std::string& file, QV_Problem* problem)
{
    setProblem(problem);
    return save(file);
}

char* QV_LoaderWriter::stringToCharArray(const std::string& text)
{
    return COM_String::stringToCharArray(text);
}

// ---------------------------------------------------------------- keyword file

// A group is "&keyword", attributes and a closing "/", which may be glued to the last attribute. What stands
// behind it on its line is a comment. A group that the file's end cuts off is lost.
bool QV_LoaderWriter::readLine(std::ifstream& stream, std::string& keyword,
                               std::vector<std::string>& attributes,
                               std::vector<std::string>& values, std::string& comment)
{
    attributes.clear();
    values.clear();
    std::string token;
    while (stream >> token && !token.starts_with('&')) {
    }
    if (!stream) {
        return false;
    }
    keyword = token.substr(1);
    while (stream >> token) {
        const bool isClosed = token.starts_with('/') || token.ends_with('/');
        if (token.starts_with('/')) {
            token.clear();
        } else if (isClosed) {
            token.pop_back();
        }
        if (!token.empty()) {
            const std::size_t equal = token.find('=');
            attributes.push_back(token.substr(0, equal));
            values.push_back(equal == std::string::npos ? std::string() : token.substr(equal + 1));
        }
        if (isClosed) {
            std::getline(stream, comment);
            return true;
        }
    }
    return false;
}

bool QV_LoaderWriter::readFile(const std::string& file)
{
    mMissingAttributes.clear();
    std::ifstream stream(file);
    if (!stream.is_open()) {
        std::cout << "file " << file << " can not be read !! \n";
        return false;
    }
    Parameters parameters;
    std::string keyword;
    std::string comment;
    std::vector<std::string> attributes;
    std::vector<std::string> values;
    unsigned long groups = 0;
    while (readLine(stream, keyword, attributes, values, comment)) {
        ++groups;
        std::cout << keyword << "\n";
        for (std::size_t i = 0; i < attributes.size(); ++i) {
            std::cout << "\t" << attributes[i] << ":" << values[i] << "\n";
        }
        const char* const unknown = Parameters::unknownText(keyword);
        if (unknown == nullptr) {
            std::cout << keyword << " key word unknown in line " << groups << "\n";
            continue;
        }
        for (std::size_t i = 0; i < attributes.size(); ++i) {
            if (!parameters.set(keyword, attributes[i], values[i])) {
                std::cout << attributes[i] << unknown << groups << "\n";
            }
        }
    }
    for (const Parameters::Entry& entry : parameters.mEntries) {
        if (entry.mIsRequired && !entry.mIsGiven) {
            mMissingAttributes.push_back(std::string(entry.mGroup) + " " + entry.mAttribute);
        }
    }
    createProblem(parameters);
    return true;
}

void QV_LoaderWriter::createProblem(const Parameters& parameters)
{
    const COM_Scoped problem(QV_1DProblem::New());
    setProblem(*problem);
    problem->setTimeStep(parameters.mLambda * parameters.mCFL
                         / (static_cast<double>(parameters.mCells) * QV_Object::C));
    problem->setMaxTimeStepsNumber(static_cast<unsigned long>(std::max(parameters.mSteps, 0L)));
    problem->setMethod(parameters.mMethod);

    QV_Maxwell& maxwell = *problem->getMaxwellSystem();
    if (parameters.mTest == "LASER") {
        maxwell.setLaserType(true);
        maxwell.setReflexiveLaserType(false);
    } else if (parameters.mTest == "RLASER") {
        maxwell.setReflexiveLaserType(true);
        maxwell.setLaserType(false);
    }
    QV_IncidentFields& fields = *maxwell.getIncidentFields();
    fields.setWaveLength(parameters.mLambda);
    fields.setFieldMaxValue(parameters.mEmax);
    fields.setWavePackageDuration(parameters.mDuration);
    fields.setCFL(std::clamp(parameters.mCFL, 0.0, 1.0));
    fields.setIncidentFieldsType(parameters.mPulse);
    maxwell.setDimension(parameters.mTest == "BQ" ? 2 : 1);

    if (auto* const milieu = dynamic_cast<QV_1DMilieu*>(problem->getMilieu())) {
        milieu->setLength(parameters.mLength);
        milieu->setIndice(parameters.mIndice);
        milieu->setCaracteristicLength(parameters.mLambda);
        milieu->setDiscretizationNumber(
            static_cast<unsigned long>(std::max(parameters.mCells, 0L)));
        milieu->setStartingPosition(parameters.mStart * percent);
        milieu->setEndingPosition(parameters.mEnd * percent);
        std::cout << "z1:" << parameters.mZ1 << " z2:" << parameters.mZ2 << " z3:" << parameters.mZ3
                  << "\n";
        milieu->addToCaptors(0, parameters.mZ1 * percent);
        milieu->addToCaptors(1, parameters.mZ2 * percent);
        milieu->addToCaptors(2, parameters.mZ3 * percent);
    }
    if (!parameters.mLaw.empty()) {
        problem->setFrequenciesDistributionMethod(parameters.mLaw);
        problem->setFrequenciesDistributionDelta(parameters.mDelta);
    }
    setAtoms(parameters);
    for (long i = 0; i < std::min(parameters.mFurtherSystems, mostSystems); ++i) {
        const COM_Scoped bloch(QV_Bloch::New());
        problem->addToBlochEquations(*bloch);
    }
}

void QV_LoaderWriter::setAtoms(const Parameters& parameters)
{
    const auto levels = static_cast<unsigned long>(parameters.mLevels);
    if (!isMatrixTooLarge(levels)) {
        QV_Bloch::setLevelsNumber(levels);
    }
    QV_Bloch::setTemperature(parameters.mTemperature);
    QV_Bloch::setConvergenceRate(
        std::clamp(parameters.mConvergence, leastConvergence, largestConvergence));
    QV_Bloch::setAtomsNumber(parameters.mAtoms);
    // The word for the relaxation also goes to the splitting order, which knows the empty one of its names,
    // order 0, and announces the others; the word of "type_split" has no effect but to choose the method.
    QV_Bloch::setRelaxationType(parameters.mRelaxation);
    QV_Bloch::setSplitType(parameters.mRelaxation);
}

// ---------------------------------------------------------------- matrix file

std::string QV_LoaderWriter::matrixFileName(unsigned char method, unsigned char relaxation)
{
    if (method == QV_Problem::SPLIT_METHOD) {
        switch (relaxation) {
        case QV_Bloch::PAULI_RELAXATION_TYPE:
            return "qv2p.dat";
        case QV_Bloch::CASCADE_RELAXATION_TYPE:
            return "qv2c.dat";
        case QV_Bloch::EQUILIBRE_RELAXATION_TYPE:
            return "qv2e.dat";
        default:
            break;
        }
    }
    return "qv2.dat";
}

bool QV_LoaderWriter::readMatrix(unsigned long n, const std::string& file, unsigned char method,
                                 unsigned char relaxation)
{
    mMissingNumbers = 0;
    std::ifstream stream(file);
    if (!stream.is_open() || mProblem == nullptr || isMatrixTooLarge(n)) {
        return false;
    }
    Rows rows(stream);
    const COM_Scoped levels(LA_RealVector::New(n));
    rows.read(*levels);
    const COM_Scoped initialDensity(LA_ComplexMatrix::New(n, n));
    rows.read(*initialDensity);
    const COM_Scoped polarizations(COM_Array<LA_RealMatrix>::New());
    const unsigned long dimension =
        mProblem->getMaxwellSystem() != nullptr ? mProblem->getMaxwellSystem()->getDimension() : 1;
    for (unsigned long p = 0; p < dimension; ++p) {
        const COM_Scoped matrix(LA_RealMatrix::New(n, n));
        rows.read(*matrix);
        polarizations->add(*matrix);
    }
    const COM_Scoped relaxationMatrix(LA_RealMatrix::New(n, n));
    if (method == QV_Problem::SPLIT_METHOD && relaxation == QV_Bloch::EQUILIBRE_RELAXATION_TYPE) {
        rows.readDiagonal(*relaxationMatrix);
    } else {
        rows.read(*relaxationMatrix);
    }
    const COM_Scoped secondMatrix(LA_RealMatrix::New(n, n));
    double transversal = QV_Bloch::getTransversalRelaxation();
    if (method == QV_Problem::PRED_CORR_METHOD) {
        rows.read(*secondMatrix);
    } else {
        transversal = rows.real();
        rows.endRow();
    }
    const COM_Scoped equilibrium(LA_RealVector::New(n));
    const bool hasRow = relaxation == QV_Bloch::CASCADE_RELAXATION_TYPE
                        || relaxation == QV_Bloch::EQUILIBRE_RELAXATION_TYPE;
    if (hasRow) {
        rows.read(*equilibrium);
    }

    mMissingNumbers = rows.missing();
    mProblem->generateBlochFrequencies(*levels);
    QV_Bloch::setTransversalRelaxation(transversal);
    for (unsigned long p = 0; p < dimension; ++p) {
        QV_Bloch::setPolarization((*polarizations)[p], p);
    }
    QV_Bloch::setLongitudinalRelaxation(*relaxationMatrix);
    if (method == QV_Problem::PRED_CORR_METHOD) {
        QV_Bloch::setLongitudinalRelaxation(*secondMatrix);
    }
    if (hasRow || relaxation == QV_Bloch::PAULI_RELAXATION_TYPE) {
        QV_Bloch::setEquilibriumDensity(*equilibrium);
    }
    QV_Bloch::setInitialDensity(*initialDensity);
    return true;
}

void QV_LoaderWriter::create1DMaxwellProblem(const std::string& path)
{
    std::cout << "\t reading qv1.dat ...\n";
    if (!readFile(path + "qv1.dat")) {
        const COM_Scoped problem(QV_1DProblem::New());
        setProblem(*problem);
    }
    const unsigned char relaxation = QV_Bloch::getRelaxationType();
    const std::string name = matrixFileName(mProblem->getMethod(), relaxation);
    std::cout << "\t reading " << name << " ...\n";
    readMatrix(QV_Bloch::getLevelsNumber(), path + name, mProblem->getMethod(), relaxation);
}
