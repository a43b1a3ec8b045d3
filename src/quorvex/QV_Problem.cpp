#include "quorvex/QV_Problem.h"

#include "common/COM_Guard.h"
#include "common/COM_Random.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "common/COM_Time.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvex/QV_Maxwell.h"
#include "quorvex/QV_Milieu.h"

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <vector>

namespace {

constexpr unsigned long usualIntervals = 10; ///< Progress messages of a run.
constexpr unsigned long dtPIntervals = 20;   ///< The same for "CN_dtP".
constexpr double ticksDivisor =
    60.0; ///< The log's "secondes" are ticks of the processor's clock over 60.

} // namespace

QV_Problem::QV_Problem()
    : mBlochEquations(COM_Array<QV_Bloch>::New())
    , mSavingNodes(COM_Array<GEO_Vertex>::New())
{
    COM_TYPE(QV_Problem);
}

QV_Problem::~QV_Problem()
{
    mSavingNodes->Delete();
    resetMilieu();
    resetBlochEquations();
    mBlochEquations->Delete();
    resetMaxwellSystem();
}

unsigned long QV_Problem::getInverseAgregatedObjectsCount() const
{
    return mBlochEquations->size() + (mMaxwell != nullptr ? 1 : 0);
}

void QV_Problem::resetInverseAgregatedObjects()
{
    resetBlochEquations();
    resetMaxwellSystem();
}

// ---------------------------------------------------------------- persistence

void QV_Problem::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mSavingPath", mSavingPath);
    metaClass.addAttributeToMetaFields("mTimeStep", mTimeStep);
    metaClass.addAttributeToMetaFields("mMethod", mMethod);
    metaClass.addAttributeToMetaFields("mStatisticalMethod", mStatisticalMethod);
    metaClass.addAttributeToMetaFields("mDelta", mDelta);
    metaClass.addAttributeToMetaFields("mMean", mMean);
    metaClass.addAttributeToMetaFields("mRabiFrequency", mRabiFrequency);
    metaClass.addAssociationToMetaFields("mMaxwell", mMaxwell);
    metaClass.addAssociationToMetaFields("mBlochEquations", *mBlochEquations);
    metaClass.addAssociationToMetaFields("mMilieu", mMilieu);
}

void QV_Problem::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mSavingPath", &mSavingPath);
    metaClass.getAttributeFromMetaFields("mTimeStep", &mTimeStep);
    metaClass.getAttributeFromMetaFields("mMethod", &mMethod);
    metaClass.getAttributeFromMetaFields("mStatisticalMethod", &mStatisticalMethod);
    metaClass.getAttributeFromMetaFields("mDelta", &mDelta);
    metaClass.getAttributeFromMetaFields("mMean", &mMean);
    metaClass.getAttributeFromMetaFields("mRabiFrequency", &mRabiFrequency);
    const COM_Scoped maxwell(metaClass.getAssociationFromMetaFields("mMaxwell"));
    if (auto* const found = dynamic_cast<QV_Maxwell*>(maxwell.get())) {
        setMaxwellSystem(*found);
    }
    // Emptied first: the systems of the file enter through their own link to this problem.
    resetBlochEquations();
    const COM_Scoped systems(COM_Array<QV_Bloch>::New());
    metaClass.getAssociationFromMetaFields("mBlochEquations", *systems);
    for (unsigned long i = 0; i < systems->size(); ++i) {
        addToBlochEquations((*systems)[i]);
    }
    const COM_Scoped milieu(metaClass.getAssociationFromMetaFields("mMilieu"));
    if (auto* const found = dynamic_cast<QV_Milieu*>(milieu.get())) {
        setMilieu(*found);
    }
}

// ---------------------------------------------------------------- associations

void QV_Problem::setMilieu(QV_Milieu* milieu)
{
    associate(mMilieu, milieu);
}

void QV_Problem::setMaxwellSystem(QV_Maxwell* maxwell)
{
    if (maxwell == mMaxwell) {
        return;
    }
    resetMaxwellSystem();
    associate(mMaxwell, maxwell);
    if (mMaxwell != nullptr) {
        mMaxwell->setProblem(*this);
    }
}

void QV_Problem::resetMaxwellSystem()
{
    if (mMaxwell == nullptr) {
        return;
    }
    QV_Maxwell* const maxwell = mMaxwell;
    const COM_Guard guard(*maxwell);
    dissociate(mMaxwell);
    maxwell->resetProblem();
}

void QV_Problem::addToBlochEquations(QV_Bloch* bloch)
{
    if (bloch == nullptr || mBlochEquations->exists(bloch)) {
        return;
    }
    mBlochEquations->add(bloch);
    bloch->setProblem(*this);
}

void QV_Problem::removeFromBlochEquations(QV_Bloch* bloch)
{
    if (bloch == nullptr || !mBlochEquations->exists(bloch)) {
        return;
    }
    const COM_Guard guard(*bloch);
    mBlochEquations->remove(bloch);
    bloch->resetProblem();
}

void QV_Problem::removeLastBlochEquation()
{
    if (mBlochEquations->size() > 0) {
        removeFromBlochEquations(mBlochEquations->get(mBlochEquations->size() - 1));
    }
}

void QV_Problem::resetBlochEquations()
{
    while (mBlochEquations->size() > 0) {
        removeLastBlochEquation();
    }
}

// ---------------------------------------------------------------- choices by name

void QV_Problem::setMethod(const std::string& name)
{
    for (unsigned long i = 0; i < mMethodsNameLength; ++i) {
        if (name == mMethodsName[i]) {
            mMethod = static_cast<unsigned char>(i);
            return;
        }
    }
    std::cout << "warning numerical method " << name << " unknown !!\n"
              << "choose between:\n";
    for (const char* known : mMethodsName) {
        std::cout << "\t" << known << "\n";
    }
    std::exit(0);
}

void QV_Problem::setFrequenciesDistributionMethod(const std::string& name)
{
    if (name == mMethodsName[0]) {
        mMethod = CN_Z_METHOD;
        return;
    }
    std::cout << "warning frequenies Distribution numerical method " << name << " unknown !!\n"
              << "choose between:\n"
              << "\t" << mStatisticalMethodsName[0] << "\n";
    std::exit(0);
}

void QV_Problem::generateBlochFrequencies()
{
    if (mBlochEquations->size() > 0 && (*mBlochEquations)[0].getLevelsFrequency() != nullptr) {
        generateBlochFrequencies(*(*mBlochEquations)[0].getLevelsFrequency());
    }
}

void QV_Problem::generateBlochFrequencies(LA_RealVector& omega)
{
    const unsigned long systems = mBlochEquations->size();
    const unsigned long n = omega.getDimension();
    if (systems > 0) {
        (*mBlochEquations)[0].setLevelsFrequency(omega);
    }
    if (systems <= 1 || mStatisticalMethod != GAUSS_STATISTICAL_METHOD) {
        return;
    }
    std::vector<std::vector<double>> samples(n, std::vector<double>(systems - 1));
    for (unsigned long j = 0; j < n; ++j) {
        COM_Random::gauss(mMean + omega.getValue(j), mDelta, systems - 1, samples[j].data());
    }
    for (unsigned long i = 1; i < systems; ++i) {
        const COM_Scoped drawn(LA_RealVector::New(n));
        for (unsigned long j = 0; j < n; ++j) {
            (*drawn)[j] = samples[j][i - 1];
        }
        (*mBlochEquations)[i].setLevelsFrequency(*drawn);
    }
}

// ---------------------------------------------------------------- the run

int QV_Problem::run()
{
    const COM_Scoped out(COM_Out::New());
    run(*out);
    return 0;
}

int QV_Problem::run(COM_Out& out)
{
    if (mMilieu == nullptr || mMaxwell == nullptr || mMaxwell->getIncidentFields() == nullptr) {
        std::cout << "the problem lacks its medium, its field or its incident wave.\n";
        return MESH_ERROR;
    }
    mMilieu->create();
    if (!mMilieu->isMeshed()) {
        std::cout << "the mesh has fewer than three nodes, or its active zone lies outside.\n";
        return MESH_ERROR;
    }
    const int result = initialize();
    return result < 0 ? result : solve(out);
}

int QV_Problem::initialize()
{
    const double muc = QV_Bloch::getMaxPolarizationValue();
    const double Emax = mMaxwell->getIncidentFields()->getFieldMaxValue();
    mRabiFrequency = mMaxwell->getIncidentFields()->computeRabiFrequency(muc);
    if (muc == 0.0) {
        std::cout << "muc:" << muc << "\n"
                  << "Emax:" << Emax << "\n"
                  << "FATAL ERROR: Rabi frequency is null \n";
        return RABBI_FREQUENCY_ERROR;
    }
    std::cout << "Rabi Frequency:" << mRabiFrequency << "\n"
              << "adimensionize maxwell \n";
    mMaxwell->initialize(mRabiFrequency);
    std::cout << "adimensionize bloch equations.. \n";
    eachSystem([this, muc, Emax](QV_Bloch& bloch) { bloch.initialize(mRabiFrequency, muc, Emax); });
    std::cout << "adimensionize the milieu \n";
    mMilieu->adimensionize(C * mMilieu->getIndice() / mRabiFrequency);
    std::cout << "adimensionize the time \n";
    mTimeStepAdim = mRabiFrequency * mTimeStep;
    std::cout << "pas de temps:" << mTimeStep << "\n"
              << "temps final:" << static_cast<double>(mMaxTimeStepsNumber) * mTimeStep << "\n"
              << "pas de temps numerique:" << mTimeStepAdim << "\n";
    return 0;
}

template <typename Sequence>
void QV_Problem::eachStep(unsigned long interval, COM_Out& out, Sequence sequence)
{
    mTimeStepNumber = 1;
    while (mTimeStepNumber <= mMaxTimeStepsNumber) {
        const double t = static_cast<double>(mTimeStepNumber) * mTimeStepAdim;
        if (interval == 0) {
            std::cout.flush();
            std::raise(SIGFPE);
            std::abort();
        }
        if (mTimeStepNumber % interval == 0) {
            out.printInt(static_cast<int>(mTimeStepNumber));
        }
        sequence(t, mTimeStepAdim);
        ++mTimeStepNumber;
        if (mWatcher) {
            mWatcher();
        }
    }
}

template <typename Operation>
void QV_Problem::eachSystem(Operation operation)
{
    for (unsigned long i = 0; i < mBlochEquations->size(); ++i) {
        operation((*mBlochEquations)[i]);
    }
}

// Each method is one road through a step. Where Ampere comes last the file holds the field that the atoms
// saw.
int QV_Problem::solve(COM_Out& out)
{
    std::cout << "solve..\n";
    {
        const COM_Scoped writer(QV_LoaderWriter::New());
        writer->save(RECORD_FILE, *this);
    }
    const COM_Scoped begin(COM_Time::New());
    const auto t_debut = static_cast<double>(begin->getCPUTime());
    std::cout << " init Saving \n";
    initSaving(mSavingPath);
    std::cout << " init Saving done\n";

    const unsigned long usual = mMaxTimeStepsNumber / usualIntervals;
    eachSystem([](QV_Bloch& bloch) { bloch.beginRun(); });
    switch (mMethod) {
    case CN_Z_METHOD:
        std::cout << " \t Crant Nicholson with dtP (Ziolkowski) discretrization\n";
        eachStep(usual, out, [this](double t, double dt) {
            mMaxwell->solveFaraday(t, dt);
            mMaxwell->solveAmpereZiolko(t, dt);
            eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochZiolko(t, dt); });
            save(t);
        });
        break;
    case CN_P_METHOD:
        std::cout << " \t Crant Nicholson with P computing \n";
        eachStep(usual, out, [this](double t, double dt) {
            mMaxwell->solveFaraday(t, dt);
            mMaxwell->solveAmpereZiolko(t, dt);
            eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochP(t, dt); });
            save(t);
        });
        break;
    case CN_dtP_METHOD:
        std::cout << " \t Crant Nicholson with dtP discretization \n";
        eachStep(mMaxTimeStepsNumber / dtPIntervals, out, [this](double t, double dt) {
            mMaxwell->solveFaraday(t, dt);
            eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochCrank(t, dt); });
            save(t);
            mMaxwell->solveAmpere(t, dt);
        });
        break;
    case RELAX_METHOD:
        std::cout << " \t Relaxation \n";
        solveRelaxation(usual, out);
        break;
    case SPLIT_METHOD:
        std::cout << " \t split method \n"
                  << "Init Bloch Splitting \n";
        eachSystem([this](QV_Bloch& bloch) { bloch.solveBlochSplitInit(0.0, mTimeStepAdim); });
        eachStep(usual, out, [this](double t, double dt) {
            mMaxwell->solveFaraday(t, dt);
            eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochSplit(t, dt); });
            save(t);
            mMaxwell->solveAmpere(t, dt);
        });
        break;
    case PRED_CORR_METHOD:
        std::cout << " \t predictor corrector method \n";
        eachStep(usual, out, [this](double t, double dt) {
            mMaxwell->solveFaraday(t, dt);
            mMaxwell->solveAmpereZiolko(t, dt);
            eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochPredCorr(t, dt); });
            save(t);
        });
        break;
    default:
        std::cout << "method number " << static_cast<unsigned>(mMethod) << " too large !\n";
        break;
    }

    eachSystem([](QV_Bloch& bloch) { bloch.endRun(); });
    closeSaving();
    const COM_Scoped end(COM_Time::New());
    const auto t_fin = static_cast<double>(end->getCPUTime());
    std::cout << "execution time:" << (t_fin - t_debut) / ticksDivisor << " secondes.\n";
    return 0;
}

void QV_Problem::solveRelaxation(unsigned long interval, COM_Out& out)
{
    QV_Field* const E = mMaxwell->getField(QV_Maxwell::E_FIELD);
    const COM_Scoped Et(
        QV_Field::New(*E)); // the field before Ampere, which the populations see half of
    eachStep(interval, out, [this, E, &Et](double t, double dt) {
        mMaxwell->solveFaraday(t, dt);
        eachSystem([t, dt](QV_Bloch& bloch) { bloch.solveBlochRelaxExtraDiag(t, dt); });
        Et->setValues(E->getValues(), E->getSize(), E->getDimension());
        mMaxwell->solveAmpere(t, dt);
        eachSystem([t, dt, &Et](QV_Bloch& bloch) { bloch.solveBlochRelaxDiag(t, dt, *Et); });
        save(t);
    });
}

// ---------------------------------------------------------------- result files

bool QV_Problem::initSaving(std::string path)
{
    QV_ResultFile::raiseOpenFilesLimit();
    mMilieu->getSavingVertices(*mSavingNodes);
    mIsSavingComplete = writeCaptors(path);
    mMaxwell->initSaving(path, mSavingNodes);
    mIsSavingComplete = writeLevelFrequencies(path) && mIsSavingComplete;
    for (unsigned long b = 0; b < mBlochEquations->size(); ++b) {
        (*mBlochEquations)[b].initSaving(path, mSavingNodes, b);
    }
    mFileTPS.openOrExit(path + "tps.res");
    return true;
}

bool QV_Problem::writeCaptors(const std::string& path) const
{
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    mMilieu->getVertices(*vertices);
    const auto total = static_cast<double>(vertices->size());
    QV_ResultFile file;
    if (!file.open(path + "captors.res")) {
        std::cout << "impossible to save the initialization in " << path << "/captors.res\n";
        std::exit(0);
    }
    for (unsigned long i = 0; i < mSavingNodes->size(); ++i) {
        const GEO_Vertex& node = (*mSavingNodes)[i];
        const long location = node.getLocationNumber();
        file.write("captors Location: " + std::to_string(location) + " RelPosition: "
                   + QV_ResultFile::fixedText(static_cast<double>(location) / total)
                   + " Position: " + node.getPoint()->toString()
                   + " RhoSize: " + std::to_string(QV_Bloch::getLevelsNumber())
                   + " BlochEquationsNumber: " + std::to_string(mBlochEquations->size())
                   + " EDim: " + std::to_string(mMaxwell->getDimension()) + "\n");
    }
    return file.close();
}

bool QV_Problem::writeLevelFrequencies(const std::string& path) const
{
    QV_ResultFile file;
    if (!file.open(path + "level_Frequencies.res")) {
        std::cout << "impossible to save the initialization in " << path
                  << "/level_Frequencies.res\n";
        std::exit(0);
    }
    for (unsigned long b = 0; b < mBlochEquations->size(); ++b) {
        file.write("Rho_Bloch" + std::to_string(b) + ":\n");
        const LA_RealVector* const omega = (*mBlochEquations)[b].getLevelsFrequency();
        for (unsigned long i = 0; omega != nullptr && i < omega->getDimension(); ++i) {
            file.write("\t omega[" + std::to_string(i)
                       + "]=" + QV_ResultFile::fixedText((*omega)[i]) + "\n");
        }
    }
    return file.close();
}

bool QV_Problem::save(double t)
{
    for (unsigned long k = 0; k < mSavingNodes->size(); ++k) {
        const auto location = static_cast<unsigned long>((*mSavingNodes)[k].getLocationNumber());
        mMaxwell->save(t, location, k);
        eachSystem([t, location, k](QV_Bloch& bloch) { bloch.save(t, location, k); });
    }
    mLine.clear();
    COM_Real::append(mLine, t, 7, 6);
    mLine += " ";
    COM_Real::append(mLine, mRabiFrequency, 7, 6);
    mLine += " ";
    COM_Real::append(mLine, t / mRabiFrequency, 7, 6);
    mLine += " \n";
    mFileTPS.write(mLine);
    return true;
}

bool QV_Problem::closeSaving()
{
    bool isComplete = mMaxwell->closeSaving();
    eachSystem([&isComplete](QV_Bloch& bloch) { isComplete = bloch.closeSaving() && isComplete; });
    isComplete = mFileTPS.close() && isComplete;
    mSavingNodes->clear();
    mIsSavingComplete = mIsSavingComplete && isComplete;
    return isComplete;
}
