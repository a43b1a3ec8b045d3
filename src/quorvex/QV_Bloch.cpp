#include "quorvex/QV_Bloch.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Vertex.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_FieldKernel.h"
#include "quorvex/QV_Maxwell.h"
#include "quorvex/QV_Milieu.h"
#include "quorvex/QV_Problem.h"
#include "quorvex/QV_RelaxKernel.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>

namespace {

constexpr double defaultDipole = 1e-29; // C m
constexpr double defaultRate = 1e8;     // 1/s
constexpr double defaultLowerPopulation = 1.303080409700614e-6;
constexpr double defaultUpperPopulation = 1e8;
constexpr double defaultFrequency = 1.256e15; // rad/s, of level 1
constexpr double defaultTemperature = 300.0;  // K
constexpr double defaultTransversal = 1e12;   // 1/s
constexpr double defaultAtoms = 1e24;         // 1/m^3
constexpr unsigned long defaultIterationsMax = 50;
constexpr double defaultConvergence = 1e-6;
constexpr unsigned long defaultLevels = 2;
constexpr unsigned long usualLevels = 1000;
constexpr unsigned long largestSplitTable = 1UL << 20; // entries; larger ones keep what is read
constexpr unsigned long deepestProduct = 4;            // factors that a step reads

const double* values(const LA_RealMatrix* matrix)
{
    return matrix->getValues();
}

/// Complex values as pairs of numbers.
double* pairs(std::complex<double>* values)
{
    return reinterpret_cast<double*>(values);
}

const double* pairs(const std::complex<double>* values)
{
    return reinterpret_cast<const double*>(values);
}

bool isSquare(const LA_RealMatrix* matrix, unsigned long n)
{
    return matrix != nullptr && matrix->getLinesNumber() == n && matrix->getColumnsNumber() == n;
}

bool isSquare(const LA_ComplexMatrix* matrix, unsigned long n)
{
    return matrix != nullptr && matrix->getLinesNumber() == n && matrix->getColumnsNumber() == n;
}

/// Restores an association through `set`. A missing key is announced and leaves the field.
template <typename T, typename Set>
void loadAssociation(const MM_Class& metaClass, const char* key, Set set)
{
    if (metaClass.getAnnouncedFromMetaFields(key) == nullptr) {
        return;
    }
    const COM_Scoped object(metaClass.getAssociationFromMetaFields(key));
    if (auto* const found = dynamic_cast<T*>(object.get())) {
        set(*found);
    }
}

/// The same for an array, which is replaced by a new one.
template <typename T>
COM_Array<T>* loadArray(const MM_Class& metaClass, const char* key)
{
    if (metaClass.getAnnouncedFromMetaFields(key) == nullptr) {
        return nullptr;
    }
    auto* const array = COM_Array<T>::New();
    metaClass.getAssociationFromMetaFields(key, *array);
    return array;
}

/// The number of rates in a file: it bears out an unusual number of levels.
unsigned long storedRates(const MM_Class& metaClass)
{
    const COM_Scoped object(metaClass.getAssociationFromMetaFields("mW"));
    const auto* const rates = dynamic_cast<const LA_RealMatrix*>(object.get());
    return rates != nullptr ? rates->getLinesNumber() * rates->getColumnsNumber() : 0;
}

/// The place of `name` in a table, or -1 after the lines that tell the choice.
template <std::size_t SIZE>
int placeInTable(const char* const (&table)[SIZE], const char* kind, const std::string& name)
{
    for (std::size_t i = 0; i < SIZE; ++i) {
        if (name == table[i]) {
            return static_cast<int>(i);
        }
    }
    std::cout << "warning " << kind << " type  " << name << " unknown !!\n"
              << "choose between:\n";
    for (std::size_t i = 0; i < SIZE; ++i) {
        std::cout << i << "\t " << table[i] << "\n";
    }
    return -1;
}

unsigned long power(unsigned long base, unsigned long exponent, unsigned long limit)
{
    unsigned long result = 1;
    for (unsigned long i = 0; i < exponent && result <= limit; ++i) {
        result *= base;
    }
    return result;
}

} // namespace

unsigned long QV_Bloch::mIterationsMaxNumber = defaultIterationsMax;
double QV_Bloch::mConvergenceRate = defaultConvergence;
double QV_Bloch::mBeta = HBAR_OVER_K / defaultTemperature;
double QV_Bloch::mTemperature = defaultTemperature;
double QV_Bloch::mTransversalRelaxation = defaultTransversal;
double QV_Bloch::mTransversalRelaxationAdim = defaultTransversal;
unsigned long QV_Bloch::mLevelsNumber = defaultLevels;
double QV_Bloch::mPMax = 0.0;
double QV_Bloch::mAtomsNumber = defaultAtoms;
unsigned char QV_Bloch::mSplitType = HRN_SPLIT_TYPE;
unsigned char QV_Bloch::mRelaxationType = PAULI_RELAXATION_TYPE;
LA_ComplexMatrix* QV_Bloch::mINITIAL_DENSITY = nullptr;
COM_Map<unsigned long, QV_Bloch>* QV_Bloch::mBlochEquations = nullptr;
LA_RealMatrix* QV_Bloch::mW = nullptr;
COM_Array<LA_RealMatrix>* QV_Bloch::mPs = nullptr;
LA_RealVector* QV_Bloch::mRhoE = nullptr;

QV_Bloch::QV_Bloch()
    : mDensities(COM_Array<LA_ComplexMatrix>::New())
    , mPPower(COM_Array<LA_RealMatrix>::New())
{
    COM_TYPE(QV_Bloch);
    if (mBlochEquations == nullptr) {
        mBlochEquations = COM_Map<unsigned long, QV_Bloch>::New(false);
        initPolarizations();
        initEquilibriumDensity();
        initLongitudinalRelaxation();
        initInitialDensity();
    }
    mBlochEquations->put(getIdentityNumber(), this);

    const COM_Scoped omega(LA_RealVector::New(mLevelsNumber));
    omega->setValue(1, defaultFrequency);
    setLevelsFrequency(*omega);
    const COM_Scoped density(LA_ComplexMatrix::New(mLevelsNumber, mLevelsNumber));
    density->setValue(1, 1, 1.0);
    mDensities->add(*density);
}

QV_Bloch::~QV_Bloch()
{
    if (mBlochEquations != nullptr) {
        mBlochEquations->remove(getIdentityNumber());
    }
    dissociate(mSecondMember);
    mPPower->Delete();
    dissociate(mExpA);
    dissociate(mRelaxNut);
    dissociate(mRelaxDiag);
    dissociate(mPsAdim);
    dissociate(mOmegaAdim);
    dissociate(mOmega);
    dissociate(mWAdim);
    mDensities->Delete();
    dissociate(mBlock);
    resetProblem();
}

// ---------------------------------------------------------------- persistence

void QV_Bloch::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mIterMax", mIterMax);
    metaClass.addAttributeToMetaFields("mIFirst", mIFirst);
    metaClass.addAttributeToMetaFields("mILast", mILast);
    metaClass.addAttributeToMetaFields("mIterationsMaxNumber", mIterationsMaxNumber);
    metaClass.addAttributeToMetaFields("mConvergenceRate", mConvergenceRate);
    metaClass.addAttributeToMetaFields("mBeta", mBeta);
    metaClass.addAttributeToMetaFields("mTemperature", mTemperature);
    metaClass.addAttributeToMetaFields("mLevelsNumber", mLevelsNumber);
    metaClass.addAttributeToMetaFields("mTransversalRelaxation", mTransversalRelaxation);
    metaClass.addAttributeToMetaFields("mTransversalRelaxationAdim", mTransversalRelaxationAdim);
    metaClass.addAttributeToMetaFields("mAtomsNumber", mAtomsNumber);
    metaClass.addAttributeToMetaFields("mDz", mDz);
    metaClass.addAttributeToMetaFields("mDzeta", mDzeta);
    metaClass.addAttributeToMetaFields("mSplitType", mSplitType);
    metaClass.addAttributeToMetaFields("mRelaxationType", mRelaxationType);
    metaClass.addAttributeToMetaFields("mPMax", mPMax);
    metaClass.addAttributeToMetaFields("mTrPPower", mTrPPower);
    metaClass.addAssociationToMetaFields("mProblem", mProblem);
    metaClass.addAssociationToMetaFields("mInitialDensity", mINITIAL_DENSITY);
    metaClass.addAssociationToMetaFields("mDensities", *mDensities);
    metaClass.addAssociationToMetaFields("mWAdim", mWAdim);
    metaClass.addAssociationToMetaFields("mW", mW);
    metaClass.addAssociationToMetaFields("mOmega", mOmega);
    metaClass.addAssociationToMetaFields("mOmegaAdim", mOmegaAdim);
    if (mPs != nullptr) {
        metaClass.addAssociationToMetaFields("mPs", *mPs);
    }
    if (mPsAdim != nullptr) {
        metaClass.addAssociationToMetaFields("mPsAdim", *mPsAdim);
    }
    metaClass.addAssociationToMetaFields("mRhoE", mRhoE);
    metaClass.addAssociationToMetaFields("mRelaxDiag", mRelaxDiag);
    metaClass.addAssociationToMetaFields("mRelaxNut", mRelaxNut);
    metaClass.addAssociationToMetaFields("mExpA", mExpA);
    metaClass.addAssociationToMetaFields("mPPower", *mPPower);
}

void QV_Bloch::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mIterMax", &mIterMax);
    metaClass.getAttributeFromMetaFields("mIFirst", &mIFirst);
    metaClass.getAttributeFromMetaFields("mILast", &mILast);
    metaClass.getAttributeFromMetaFields("mIterationsMaxNumber", &mIterationsMaxNumber);
    metaClass.getAttributeFromMetaFields("mConvergenceRate", &mConvergenceRate);
    metaClass.getAttributeFromMetaFields("mBeta", &mBeta);
    metaClass.getAttributeFromMetaFields("mTemperature", &mTemperature);
    metaClass.getAttributeFromMetaFields("mTransversalRelaxation", &mTransversalRelaxation);
    metaClass.getAttributeFromMetaFields("mTransversalRelaxationAdim", &mTransversalRelaxationAdim);
    unsigned long levels = mLevelsNumber;
    metaClass.getAttributeFromMetaFields("mLevelsNumber", &levels);
    const unsigned long stored = levels > usualLevels ? storedRates(metaClass) : 0;
    if (metaClass.isCredibleSize(levels, levels, stored)) {
        setLevelsNumber(levels);
    }
    metaClass.getAttributeFromMetaFields("mAtomsNumber", &mAtomsNumber);
    metaClass.getAttributeFromMetaFields("mDz", &mDz);
    metaClass.getAttributeFromMetaFields("mDzeta", &mDzeta);
    metaClass.getAttributeFromMetaFields("mSplitType", &mSplitType);
    metaClass.getAttributeFromMetaFields("mRelaxationType", &mRelaxationType);
    metaClass.getAttributeFromMetaFields("mPMax", &mPMax);
    if (const MM_Field* const traces = metaClass.getAnnouncedFromMetaFields("mTrPPower")) {
        traces->getFromMetaValues(mTrPPower);
    }
    const auto into = [this](auto*& field) {
        return [this, &field](auto& object) { this->associate(field, &object); };
    };
    loadAssociation<LA_ComplexMatrix>(metaClass, "mInitialDensity", [](LA_ComplexMatrix& density) {
        setInitialDensity(density);
    });
    loadAssociation<QV_Problem>(metaClass, "mProblem",
                                [this](QV_Problem& problem) { setProblem(problem); });
    if (auto* const densities = loadArray<LA_ComplexMatrix>(metaClass, "mDensities")) {
        mDensities->Delete();
        mDensities = densities;
        dissociate(mBlock);
    }
    loadAssociation<LA_RealMatrix>(metaClass, "mW",
                                   [](LA_RealMatrix& w) { setLongitudinalRelaxation(w); });
    loadAssociation<LA_RealMatrix>(metaClass, "mWAdim", into(mWAdim));
    loadAssociation<LA_RealVector>(metaClass, "mOmega",
                                   [this](LA_RealVector& omega) { setLevelsFrequency(omega); });
    loadAssociation<LA_RealVector>(metaClass, "mOmegaAdim", into(mOmegaAdim));
    if (auto* const polarizations = loadArray<LA_RealMatrix>(metaClass, "mPs")) {
        for (unsigned long i = 0; i < polarizations->size(); ++i) {
            forceToLevels((*polarizations)[i]);
        }
        associateShared(mPs, polarizations);
        polarizations->Delete();
    }
    if (auto* const polarizations = loadArray<LA_RealMatrix>(metaClass, "mPsAdim")) {
        associate(mPsAdim, polarizations);
        polarizations->Delete();
    }
    loadAssociation<LA_RealVector>(metaClass, "mRhoE",
                                   [](LA_RealVector& v) { setEquilibriumDensity(v); });
    loadAssociation<LA_RealMatrix>(metaClass, "mRelaxDiag", into(mRelaxDiag));
    loadAssociation<LA_ComplexMatrix>(metaClass, "mRelaxNut", into(mRelaxNut));
    loadAssociation<LA_RealMatrix>(metaClass, "mExpA", into(mExpA));
    if (auto* const products = loadArray<LA_RealMatrix>(metaClass, "mPPower")) {
        mPPower->Delete();
        mPPower = products;
    }
}

// ---------------------------------------------------------------- the problem

// The other end is QV_Problem::addToBlochEquations, which ignores a system that it has.
void QV_Bloch::setProblem(QV_Problem* problem)
{
    if (problem == mProblem) {
        return;
    }
    const COM_Guard guard(*this); // the former problem may be the only holder
    resetProblem();
    associate(mProblem, problem);
    if (mProblem != nullptr) {
        mProblem->addToBlochEquations(*this);
    }
}

void QV_Bloch::resetProblem()
{
    if (mProblem == nullptr) {
        return;
    }
    QV_Problem* const problem = mProblem;
    mProblem = nullptr;
    const COM_Guard guard(*this);
    problem->removeFromBlochEquations(*this);
    problem->subReference(this);
}

// ---------------------------------------------------------------- shared data

template <typename T>
void QV_Bloch::associateShared(T*& field, T* object)
{
    if (field == object) {
        return;
    }
    T* const old = field;
    field = object;
    if (object != nullptr) {
        object->addReference(nullptr);
    }
    if (old != nullptr) {
        old->subReference(nullptr);
    }
}

void QV_Bloch::forceToLevels(LA_RealMatrix& matrix)
{
    matrix.setDimensions(mLevelsNumber, mLevelsNumber);
}

void QV_Bloch::setLevelsNumber(unsigned long n)
{
    if (n == mLevelsNumber) {
        return;
    }
    mLevelsNumber = n;
    if (mBlochEquations != nullptr) {
        for (const unsigned long number : mBlochEquations->keys()) {
            QV_Bloch& bloch = (*mBlochEquations)[number];
            if (bloch.mOmega != nullptr) {
                bloch.mOmega->setDimension(n);
            }
            for (unsigned long i = 0; i < bloch.mDensities->size(); ++i) {
                if (bloch.mDensities->get(i) != nullptr) {
                    (*bloch.mDensities)[i].setDimensions(n, n);
                }
            }
        }
    }
    if (mW != nullptr) {
        forceToLevels(*mW);
    }
    if (mRhoE != nullptr) {
        mRhoE->setDimension(n);
    }
    if (mINITIAL_DENSITY != nullptr) {
        mINITIAL_DENSITY->setDimensions(n, n);
    }
    for (unsigned long i = 0; mPs != nullptr && i < mPs->size(); ++i) {
        if (mPs->get(i) != nullptr) {
            forceToLevels((*mPs)[i]);
        }
    }
}

void QV_Bloch::setTemperature(double temperature)
{
    mTemperature = temperature;
    mBeta = HBAR_OVER_K / temperature;
}

void QV_Bloch::setSplitType(const std::string& name)
{
    const int place = placeInTable(mSplitTypesName, "split", name);
    if (place >= 0) {
        mSplitType = static_cast<unsigned char>(place);
    }
}

void QV_Bloch::setRelaxationType(const std::string& name)
{
    const int place = placeInTable(mRelaxationTypesName, "relaxation", name);
    if (place >= 0) {
        mRelaxationType = static_cast<unsigned char>(place);
    }
}

void QV_Bloch::setPolarization(LA_RealMatrix& polarization, unsigned long index)
{
    forceToLevels(polarization);
    if (mPs == nullptr) {
        mPs = COM_Array<LA_RealMatrix>::New();
    }
    if (index >= mPs->size() || mPs->get(index) != &polarization) {
        mPs->set(index, polarization);
    }
    computeMaxPolarization();
}

void QV_Bloch::addToPolarizations(LA_RealMatrix& polarization)
{
    forceToLevels(polarization);
    if (mPs == nullptr) {
        mPs = COM_Array<LA_RealMatrix>::New();
    }
    if (!mPs->exists(polarization)) {
        mPs->add(polarization);
        mPMax = std::max(mPMax, polarization.maxValue());
    }
}

void QV_Bloch::removeFromPolarizations(LA_RealMatrix& polarization)
{
    if (mPs != nullptr && mPs->remove(polarization)) {
        computeMaxPolarization();
    }
}

void QV_Bloch::removeFromPolarizations(unsigned long index)
{
    if (mPs != nullptr && mPs->remove(index)) {
        computeMaxPolarization();
    }
}

void QV_Bloch::setPolarizationsSize(unsigned long size)
{
    if (mPs == nullptr) {
        mPs = COM_Array<LA_RealMatrix>::New();
    }
    const LA_RealMatrix* const last = mPs->size() > 0 ? mPs->get(mPs->size() - 1) : nullptr;
    const COM_Scoped pattern(last != nullptr ? LA_RealMatrix::New(*last)
                                             : LA_RealMatrix::New(mLevelsNumber, mLevelsNumber));
    mPs->setSize(size);
    for (unsigned long i = 0; i < size; ++i) {
        if (mPs->get(i) == nullptr) {
            const COM_Scoped copy(LA_RealMatrix::New(*pattern));
            mPs->set(i, *copy);
        }
    }
}

void QV_Bloch::computeMaxPolarization()
{
    mPMax = 0.0;
    for (unsigned long i = 0; i < mPs->size(); ++i) {
        if (mPs->get(i) != nullptr) {
            mPMax = std::max(mPMax, (*mPs)[i].maxValue());
        }
    }
}

void QV_Bloch::setLongitudinalRelaxation(LA_RealMatrix& relaxation)
{
    forceToLevels(relaxation);
    associateShared(mW, &relaxation);
}

void QV_Bloch::setEquilibriumDensity(LA_RealVector& density)
{
    density.setDimension(mLevelsNumber);
    associateShared(mRhoE, &density);
}

void QV_Bloch::setInitialDensity(LA_ComplexMatrix& density)
{
    density.setDimensions(mLevelsNumber, mLevelsNumber);
    associateShared(mINITIAL_DENSITY, &density);
}

void QV_Bloch::initPolarizations()
{
    const COM_Scoped polarizations(COM_Array<LA_RealMatrix>::New());
    const COM_Scoped dipole(LA_RealMatrix::New(mLevelsNumber, mLevelsNumber));
    polarizations->add(*dipole);
    associateShared(mPs, polarizations.get());
    mPMax = 0.0;
    if (mLevelsNumber > 1) {
        dipole->setValue(0, 1, defaultDipole);
        dipole->setValue(1, 0, defaultDipole);
        mPMax = defaultDipole;
    }
}

void QV_Bloch::initEquilibriumDensity()
{
    const COM_Scoped density(LA_RealVector::New(mLevelsNumber));
    density->setValue(0, defaultLowerPopulation);
    density->setValue(1, defaultUpperPopulation);
    setEquilibriumDensity(*density);
}

void QV_Bloch::initLongitudinalRelaxation()
{
    const COM_Scoped relaxation(LA_RealMatrix::New(mLevelsNumber, mLevelsNumber));
    relaxation->setValue(1, 0, defaultRate);
    relaxation->setValue(0, 1, defaultRate);
    setLongitudinalRelaxation(*relaxation);
}

void QV_Bloch::initInitialDensity()
{
    const COM_Scoped density(LA_ComplexMatrix::New(mLevelsNumber, mLevelsNumber));
    density->setValue(1, 1, 1.0);
    setInitialDensity(*density);
}

void QV_Bloch::resetShared()
{
    mIterationsMaxNumber = defaultIterationsMax;
    mConvergenceRate = defaultConvergence;
    setTemperature(defaultTemperature);
    mTransversalRelaxation = defaultTransversal;
    mTransversalRelaxationAdim = defaultTransversal;
    setLevelsNumber(defaultLevels);
    mPMax = 0.0;
    mAtomsNumber = defaultAtoms;
    mSplitType = HRN_SPLIT_TYPE;
    mRelaxationType = PAULI_RELAXATION_TYPE;
    associateShared<LA_ComplexMatrix>(mINITIAL_DENSITY, nullptr);
    associateShared<LA_RealMatrix>(mW, nullptr);
    associateShared<COM_Array<LA_RealMatrix>>(mPs, nullptr);
    associateShared<LA_RealVector>(mRhoE, nullptr);
    if (mBlochEquations == nullptr) {
        return;
    }
    if (mBlochEquations->size() == 0) {
        // The next instance is the first one again and makes the defaults.
        mBlochEquations->Delete();
        mBlochEquations = nullptr;
        return;
    }
    initPolarizations();
    initEquilibriumDensity();
    initLongitudinalRelaxation();
    initInitialDensity();
}

// ---------------------------------------------------------------- this class of atoms

void QV_Bloch::setLevelsFrequency(LA_RealVector* omega)
{
    if (omega != nullptr) {
        omega->setDimension(mLevelsNumber);
    }
    associate(mOmega, omega);
}

LA_ComplexMatrix* QV_Bloch::getDensity(unsigned long index) const
{
    return index < mDensities->size() ? mDensities->get(index) : nullptr;
}

void QV_Bloch::initDensities()
{
    if (mINITIAL_DENSITY == nullptr) {
        initInitialDensity();
    }
    mINITIAL_DENSITY->setDimensions(mLevelsNumber, mLevelsNumber);
    unsigned long nodes = 0;
    if (mProblem != nullptr && mProblem->getMilieu() != nullptr) {
        const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
        mProblem->getMilieu()->getVertices(*vertices);
        nodes = vertices->size();
    }
    mTermsRange = {0, 0};
    mDensities->setSize(0);
    const COM_Scoped block(LA_Block<std::complex<double>>::New(nodes * levelsSquared()));
    associate(mBlock, block.get());
    mDensities->setSize(nodes);
    for (unsigned long i = 0; i < nodes; ++i) {
        const COM_Scoped density(
            LA_ComplexMatrix::New(*mBlock, i * levelsSquared(), mLevelsNumber, mLevelsNumber));
        density->setValues(*mINITIAL_DENSITY);
        mDensities->set(i, *density);
    }
}

void QV_Bloch::setDensity(const LA_ComplexMatrix& density, unsigned long index)
{
    const COM_Scoped copy(LA_ComplexMatrix::New(density));
    copy->setDimensions(mLevelsNumber, mLevelsNumber);
    mTermsRange = {0, 0};
    if (LA_ComplexMatrix* const present = getDensity(index)) {
        present->setDimensions(mLevelsNumber, mLevelsNumber);
        present->setValues(*copy);
        return;
    }
    mDensities->set(index, *copy);
    dissociate(mBlock);
}

double* QV_Bloch::packDensities()
{
    const unsigned long size = levelsSquared();
    if (mBlock == nullptr || !mBlock->isWhole() || mBlock->getSize() != mDensities->size() * size) {
        const COM_Scoped block(LA_Block<std::complex<double>>::New(mDensities->size() * size));
        for (unsigned long i = 0; i < mDensities->size(); ++i) {
            if (mDensities->get(i) == nullptr) {
                const COM_Scoped zero(LA_ComplexMatrix::New(mLevelsNumber, mLevelsNumber));
                mDensities->set(i, *zero);
            }
            (*mDensities)[i].setDimensions(mLevelsNumber, mLevelsNumber);
            (*mDensities)[i].moveTo(*block, i * size);
        }
        associate(mBlock, block.get());
    }
    return pairs(mBlock->getValues());
}

void QV_Bloch::initialize(double omegac, double muc, double Emax)
{
    std::cout << "\t init densities \n";
    initDensities();
    std::cout << "\t create adim values \n";
    if (mW == nullptr) {
        initLongitudinalRelaxation();
    }
    if (mOmega == nullptr) {
        const COM_Scoped omega(LA_RealVector::New(mLevelsNumber));
        setLevelsFrequency(*omega);
    }
    if (mPs == nullptr) {
        initPolarizations();
    }
    // Whoever holds them may have resized them.
    forceToLevels(*mW);
    mOmega->setDimension(mLevelsNumber);
    const COM_Scoped wAdim(LA_RealMatrix::New(*mW));
    associate(mWAdim, wAdim.get());
    const COM_Scoped omegaAdim(LA_RealVector::New(*mOmega));
    associate(mOmegaAdim, omegaAdim.get());
    const COM_Scoped psAdim(COM_Array<LA_RealMatrix>::New());
    for (unsigned long i = 0; i < mPs->size(); ++i) {
        if (mPs->get(i) != nullptr) {
            forceToLevels((*mPs)[i]);
            const COM_Scoped copy(LA_RealMatrix::New((*mPs)[i]));
            psAdim->set(i, *copy);
        }
    }
    associate(mPsAdim, psAdim.get());
    mTransversalRelaxationAdim = mTransversalRelaxation / omegac;

    // The relaxation operators come from the rates and frequencies in SI units, which the Boltzmann factors
    // need, and are scaled afterwards.
    std::cout << "\t create the relax Diag and Relax Nut matrix \n";
    initLongitudinalRelaxationValues();
    std::cout << "\t dimensionize \n";
    for (unsigned long i = 0; i < mPsAdim->size(); ++i) {
        if (mPsAdim->get(i) != nullptr) {
            (*mPsAdim)[i].dividedBy(muc);
        }
    }
    mWAdim->dividedBy(omegac);
    if (omegac != 0.0) {
        mOmegaAdim->dividedBy(omegac);
    }
    mRelaxDiag->dividedBy(omegac);
    mRelaxNut->dividedBy(std::complex<double>(omegac, 0.0));
    mDzeta = muc * mAtomsNumber / EPS0 / Emax;
    std::cout << "\t end adimensionize \n";
}

void QV_Bloch::initLongitudinalRelaxationValues()
{
    if (mOmega == nullptr) {
        return;
    }
    if (mW == nullptr) {
        initLongitudinalRelaxation();
    }
    if (mRelaxationType == EQUILIBRE_RELAXATION_TYPE) {
        const COM_Scoped diagonal(LA_RealMatrix::New(mLevelsNumber, mLevelsNumber));
        for (unsigned long i = 0; i < mLevelsNumber; ++i) {
            (*diagonal)[i][i] = (*mW)[i][i];
        }
        associate(mRelaxDiag, diagonal.get());
    } else if (mRelaxationType == CASCADE_RELAXATION_TYPE) {
        initRelaxationFromRates(*mW);
    } else {
        balanceRates();
        initRelaxationFromRates(*mWAdim);
    }
    initCoherenceRelaxation();
}

// Detailed balance between each pair of levels.
void QV_Bloch::balanceRates()
{
    for (unsigned long i = 1; i < mLevelsNumber; ++i) {
        for (unsigned long j = 0; j < i; ++j) {
            (*mWAdim)[j][i] = std::exp(((*mOmega)[j] - (*mOmega)[i]) * mBeta) * (*mW)[i][j];
        }
    }
}

void QV_Bloch::initRelaxationFromRates(const LA_RealMatrix& rates)
{
    const COM_Scoped relaxation(LA_RealMatrix::New(rates));
    for (unsigned long i = 0; i < mLevelsNumber; ++i) {
        double loss = 0.0;
        for (unsigned long j = 0; j < mLevelsNumber; ++j) {
            if (j != i) {
                loss += rates[j][i];
            }
        }
        (*relaxation)[i][i] = -loss;
    }
    associate(mRelaxDiag, relaxation.get());
}

void QV_Bloch::initCoherenceRelaxation()
{
    const COM_Scoped nut(LA_ComplexMatrix::New(mLevelsNumber, mLevelsNumber));
    for (unsigned long a = 0; a < mLevelsNumber; ++a) {
        for (unsigned long b = 0; b < mLevelsNumber; ++b) {
            (*nut)[a][b] = {-0.5 * ((*mRelaxDiag)[b][b] + (*mRelaxDiag)[a][a])
                                + 2.0 * mTransversalRelaxation,
                            (*mOmega)[a] - (*mOmega)[b]};
        }
    }
    nut->resetDiagonal();
    associate(mRelaxNut, nut.get());
}

// ---------------------------------------------------------------- steps

void QV_Bloch::beginRun()
{
    endRun();
    mIsInRun = true;
}

void QV_Bloch::endRun()
{
    mIsInRun = false;
    mTermsRange = {0, 0};
    mIterationTables.reset();
    mSplitTables.reset();
}

QV_Field* QV_Bloch::electricField(const char* message) const
{
    const QV_Maxwell* const maxwell = mProblem != nullptr ? mProblem->getMaxwellSystem() : nullptr;
    QV_Field* const field = maxwell != nullptr ? maxwell->getField(QV_Maxwell::E_FIELD) : nullptr;
    if (field != nullptr && message != nullptr && field->getDimension() != 1) {
        std::cout << message;
        std::exit(0);
    }
    return field;
}

void QV_Bloch::resolveMeshStep()
{
    if (mDz < 0.0) {
        mDz = QV_Milieu::getCellLength();
    }
}

void QV_Bloch::resolveNodes()
{
    if ((mIFirst >= 0 && mILast >= 0) || mProblem == nullptr || mProblem->getMilieu() == nullptr) {
        return;
    }
    mIFirst = mProblem->getMilieu()->getBoundaryLocation(QV_Milieu::FIRST_NODE);
    mILast = mProblem->getMilieu()->getBoundaryLocation(QV_Milieu::LAST_NODE);
}

QV_Bloch::Range QV_Bloch::activeRange(const QV_Field& E, long last) const
{
    const auto nodes = static_cast<long>(std::min(E.getSize(), mDensities->size()));
    last = std::min(last, nodes - 1);
    if (E.getDimension() == 0 || mIFirst < 0 || last < mIFirst || !isScaled()) {
        return {0, 0};
    }
    return {static_cast<unsigned long>(mIFirst), static_cast<unsigned long>(last - mIFirst + 1)};
}

bool QV_Bloch::isScaled() const
{
    return isSquare(mWAdim, mLevelsNumber) && isSquare(mRelaxDiag, mLevelsNumber)
           && isSquare(mRelaxNut, mLevelsNumber) && mOmegaAdim != nullptr
           && mOmegaAdim->getDimension() == mLevelsNumber && mPsAdim != nullptr;
}

QV_Atoms QV_Bloch::atoms(unsigned long components, std::vector<double>& polarizations) const
{
    polarizations.assign(components * levelsSquared(), 0.0);
    for (unsigned long p = 0; p < std::min(components, mPsAdim->size()); ++p) {
        if (isSquare(mPsAdim->get(p), mLevelsNumber)) {
            std::copy_n(values(mPsAdim->get(p)), levelsSquared(),
                        polarizations.data() + p * levelsSquared());
        }
    }
    return {mLevelsNumber,
            components,
            polarizations.data(),
            values(mWAdim),
            values(mRelaxDiag),
            pairs(mRelaxNut->getValues()),
            mOmegaAdim->getValues(),
            mTransversalRelaxationAdim,
            mDzeta,
            mConvergenceRate,
            mIterationsMaxNumber};
}

bool QV_Bloch::computeMBSecundMember(double dt, const Range& range, QV_Field& result) const
{
    QV_Field* const H = mProblem->getMaxwellSystem()->getField(QV_Maxwell::B_FIELD);
    if (H == nullptr || H->getSize() == 0) {
        return false;
    }
    result.setDimensions(range.mCount, 1);
    QV_FieldKernel::curl(QV_InstructionSet::best(),
                         {nullptr, H->getValues(), H->getSize(), H->getDimension()}, range.mFirst,
                         range.mCount, dt / mDz, result.getValues());
    return true;
}

unsigned long QV_Bloch::iterate(QV_IterationKernel::Scheme scheme, QV_Field& E, const Range& range,
                                const double* aux, double dt)
{
    mIterations.resize(range.mCount);
    const bool leavesTerms = QV_IterationKernel::leavesTerms(scheme);
    const QV_IterationKernel::Nodes nodes{range.mCount,
                                          packDensities() + 2 * levelsSquared() * range.mFirst,
                                          E.getValues() + range.mFirst,
                                          aux,
                                          mIterations.data(),
                                          newTerms(range, 1, leavesTerms)};
    mIterMax = QV_IterationKernel::advance(QV_InstructionSet::best(), iterationTables(scheme, dt),
                                           mDz * mDz, nodes, mWork);
    return mIterMax;
}

const QV_IterationKernel::Tables& QV_Bloch::iterationTables(QV_IterationKernel::Scheme scheme,
                                                            double dt)
{
    const QV_Atoms present = atoms(1, mPolarizations);
    const bool isKnown = mIsInRun && mIterationTables && mIterationTables->mScheme == scheme
                         && mIterationTables->mDt == dt && mIterationTables->mAtoms == present;
    if (!isKnown) {
        mIterationTables.emplace(scheme, present, dt);
    }
    return *mIterationTables;
}

double* QV_Bloch::newTerms(const Range& range, unsigned long m, bool leavesTerms)
{
    mTermsRange = {0, 0};
    if (!mIsInRun || !leavesTerms) {
        return nullptr;
    }
    mTermsRange = range;
    mTermsComponents = m;
    mTerms.resize(range.mCount * m);
    return mTerms.data();
}

void QV_Bloch::report(unsigned long firstNode, double t, double dt, const char* nodeWord,
                      bool isFatal) const
{
    for (unsigned long i = 0; i < mIterations.size(); ++i) {
        if (mIterations[i] != mIterationsMaxNumber) {
            continue;
        }
        std::cout << mIterations[i] << " max:" << mIterationsMaxNumber << "\n"
                  << "Le predicteur-correcteur ne converge plus, iteration "
                  << COM_Real::toLong(t / dt) << "\n";
        if (nodeWord != nullptr) {
            std::cout << nodeWord << firstNode + i << "\n";
        }
        if (isFatal) {
            std::exit(0);
        }
    }
}

bool QV_Bloch::solveCoupled(QV_IterationKernel::Scheme scheme, const char* message,
                            bool isLimitFatal, double t, double dt)
{
    mIterMax = 0;
    if (mDensities->size() == 0) {
        return true;
    }
    QV_Field* const E = electricField(message);
    if (E == nullptr) {
        return true;
    }
    resolveMeshStep();
    resolveNodes();
    const Range range = activeRange(*E, mILast);
    if (range.mCount == 0) {
        return true;
    }
    if (mSecondMember == nullptr) {
        const COM_Scoped field(QV_Field::New(0, 1));
        associate(mSecondMember, field.get());
    }
    if (computeMBSecundMember(dt, range, *mSecondMember)
        && iterate(scheme, *E, range, mSecondMember->getValues(), dt) == mIterationsMaxNumber) {
        report(range.mFirst, t, dt, nullptr, isLimitFatal);
    }
    return true;
}

bool QV_Bloch::solveBlochZiolko(double t, double dt)
{
    return solveCoupled(
        QV_IterationKernel::ZIOLKO,
        "Bloch Ziolko  method  not implemented for a field dimension superior to 1 \n", false, t,
        dt);
}

bool QV_Bloch::solveBlochP(double t, double dt)
{
    return solveCoupled(QV_IterationKernel::P,
                        "Bloch P  method  not implemented for a field dimension superior to 1 \n",
                        false, t, dt);
}

bool QV_Bloch::solveBlochPredCorr(double t, double dt)
{
    return solveCoupled(
        QV_IterationKernel::PRED_CORR,
        "Bloch Predictor Corrector  method  not implemented for a field dimension superior to 1 \n",
        true, t, dt);
}

bool QV_Bloch::solveBlochCrank(double t, double dt)
{
    mIterMax = 0;
    QV_Field* const E = electricField(
        "Bloch Crank Nicholson method  not implemented for a field dimension superior to 1 \n");
    if (E == nullptr) {
        return true;
    }
    resolveMeshStep();
    resolveNodes();
    const Range range = activeRange(*E, mILast);
    if (range.mCount > 0
        && iterate(QV_IterationKernel::CRANK, *E, range, nullptr, dt) == mIterationsMaxNumber) {
        report(range.mFirst, t, dt, "i:", false);
    }
    return true;
}

bool QV_Bloch::solveBlochRelaxExtraDiag(double t, double dt)
{
    mIterMax = 0;
    QV_Field* const E = electricField(RELAXATION_MESSAGE);
    if (E == nullptr) {
        return true;
    }
    resolveNodes();
    const Range range = activeRange(*E, mIFirst);
    if (range.mCount == 0) {
        return true;
    }
    const QV_Atoms present = atoms(1, mPolarizations);
    double* const rho = packDensities() + 2 * levelsSquared() * range.mFirst;
    mIterMax =
        QV_RelaxKernel::advanceCoherences(present, dt, E->getValue(range.mFirst, 0), rho, mWork);
    if (mTermsRange.mCount > 0 && mTermsRange.mFirst == range.mFirst) {
        QV_FieldKernel::polarization(QV_InstructionSet::best(), present, 1, rho, mTerms.data());
    }
    mIterations.assign(1, mIterMax);
    report(range.mFirst, t, dt, "i:", false);
    return true;
}

bool QV_Bloch::solveBlochRelaxDiag(double t, double dt, const QV_Field& oldField)
{
    mIterMax = 0;
    QV_Field* const E = electricField(RELAXATION_MESSAGE);
    if (E == nullptr) {
        return true;
    }
    resolveNodes();
    const Range range = activeRange(*E, mILast);
    if (range.mCount == 0 || oldField.getDimension() != 1
        || oldField.getSize() < range.mFirst + range.mCount) {
        return true;
    }
    if (iterate(QV_IterationKernel::RELAX_DIAG, *E, range, oldField.getValues() + range.mFirst, dt)
        == mIterationsMaxNumber) {
        report(range.mFirst, t, dt, "i:", false);
    }
    return true;
}

// ---------------------------------------------------------------- splitting

bool QV_Bloch::solveBlochSplitInit(double /*t*/, double dt)
{
    mSplitTables.reset();
    const double tau = mSplitType == RNHRN_SPLIT_TYPE ? dt * 0.5 : dt;
    const unsigned long n = mLevelsNumber;
    const QV_Field* const E = electricField(nullptr);
    if (E == nullptr || !isScaled()) {
        return true;
    }

    // Runge-Kutta of fourth order for dX/dt = A X from the identity.
    const LA_RealMatrix& A = *mRelaxDiag;
    const COM_Scoped k2(LA_RealMatrix::New(n, n));
    const COM_Scoped k3(LA_RealMatrix::New(n, n));
    const COM_Scoped k4(LA_RealMatrix::New(n, n));
    const auto slope = [&A, n](const LA_RealMatrix& at, double step, LA_RealMatrix& k) {
        A.matMult(at, k);
        for (unsigned long i = 0; i < n * n; ++i) {
            k.getValues()[i] = A.getValues()[i] + step * k.getValues()[i];
        }
    };
    slope(A, tau / 2.0, *k2);
    slope(*k2, tau / 2.0, *k3);
    slope(*k3, tau, *k4);
    const COM_Scoped expA(LA_RealMatrix::New(n, n));
    for (unsigned long i = 0; i < n * n; ++i) {
        const double identity = i % (n + 1) == 0 ? 1.0 : 0.0;
        expA->getValues()[i] = identity + (tau / 6.0) * A.getValues()[i]
                               + (tau / 3.0) * k2->getValues()[i] + (tau / 3.0) * k3->getValues()[i]
                               + (tau / 6.0) * k4->getValues()[i];
    }
    associate(mExpA, expA.get());

    std::cout << "compute TrPPower \n";
    const unsigned long m = E->getDimension();
    unsigned long entries = power(m + 1, n, largestSplitTable);
    if (entries > largestSplitTable) {
        entries = power(m + 1, std::min(n, deepestProduct), ~0UL / (m + 1));
    }
    mTrPPower.assign(entries, 0.0);
    mPPower->setSize(0);
    mPPower->setSize(entries);
    for (unsigned long p = 1; p <= m && p < entries; ++p) {
        if (p <= mPsAdim->size() && mPsAdim->get(p - 1) != nullptr) {
            mPPower->set(p, mPsAdim->get(p - 1));
            mTrPPower[p] = (*mPsAdim)[p - 1].trace();
        }
    }
    unsigned long s = m + 1;
    for (unsigned long r = 1; r < n; ++r) {
        computePolarizationsPower(s, m);
        s = s <= entries ? s * (m + 1) : s;
    }
    return true;
}

void QV_Bloch::computePolarizationsPower(unsigned long s, unsigned long p)
{
    std::cout << "computePolarizationsPower \n";
    if (p == 0) {
        return;
    }
    const unsigned long step = (s - 1) / p;
    for (unsigned long q = 1; q <= p; ++q) {
        for (unsigned long u = step; u < s && q * s + u < mPPower->size(); ++u) {
            if (mPPower->get(q) == nullptr || mPPower->get(u) == nullptr) {
                continue;
            }
            const COM_Scoped product(LA_RealMatrix::New(mLevelsNumber, mLevelsNumber));
            (*mPPower)[q].matMult((*mPPower)[u], *product);
            mPPower->set(q * s + u, *product);
            mTrPPower[q * s + u] = product->trace();
        }
    }
}

bool QV_Bloch::solveBlochSplit(double /*t*/, double dt)
{
    const QV_Field* const E = electricField(nullptr);
    if (E == nullptr) {
        return true;
    }
    resolveNodes();
    const Range range = activeRange(*E, mILast);
    if (range.mCount == 0 || !isSquare(mExpA, mLevelsNumber)) {
        return true;
    }
    if (mRhoE == nullptr) {
        initEquilibriumDensity();
    }
    mRhoE->setDimension(mLevelsNumber);
    const bool isTreated = mLevelsNumber >= 2 && mLevelsNumber <= deepestProduct;
    for (unsigned long i = 0; !isTreated && i < range.mCount; ++i) {
        std::cout << "FATAL ERROR: No more than 4 levels for the splitting !! " << mLevelsNumber
                  << " used.\n";
    }
    const double tau = mSplitType == HRNH_SPLIT_TYPE ? dt * 0.5 : dt;
    const QV_SplitKernel::Tables& tables = splitTables(tau, E->getDimension(), isTreated);
    QV_SplitKernel::advance(
        QV_InstructionSet::best(), atoms(E->getDimension(), mPolarizations), tables, range.mCount,
        packDensities() + 2 * levelsSquared() * range.mFirst, E->getValue(range.mFirst),
        newTerms(range, E->getDimension(), true), mWork);
    return isTreated;
}

const QV_SplitKernel::Tables& QV_Bloch::splitTables(double tau, unsigned long m, bool isTreated)
{
    const bool isShifted = mRelaxationType != PAULI_RELAXATION_TYPE;
    const double* const rhoE = isShifted ? mRhoE->getValues() : nullptr;
    if (mIsInRun && mSplitTables && mSplitComponents == m && mSplitTables->mOrder == mSplitType
        && mSplitTables->mTau == tau && mSplitTables->mExpA == values(mExpA)
        && mSplitTables->mRhoE == rhoE) {
        return *mSplitTables;
    }
    const unsigned long n = mLevelsNumber;
    const unsigned long size = n * n;
    const unsigned long m2 = isTreated ? m * m : 0;
    const unsigned long m3 = n > 2 ? m2 * m : 0;
    const unsigned long m4 = n > 3 ? m3 * m : 0;
    mSplitValues.assign(2 * size + m2 + m3 + m4 + (m2 + m3) * size, 0.0);
    double* const decay = mSplitValues.data();
    double* const traces2 = decay + 2 * size;
    double* const traces3 = traces2 + m2;
    double* const traces4 = traces3 + m3;
    double* const products2 = traces4 + m4;
    double* const products3 = products2 + m2 * size;

    for (unsigned long i = 0; i < size; ++i) {
        const std::complex<double> exponent = -tau * mRelaxNut->getValues()[i];
        const double modulus = std::exp(exponent.real());
        decay[2 * i] = modulus * std::cos(exponent.imag());
        decay[2 * i + 1] = modulus * std::sin(exponent.imag());
    }
    const auto trace = [this](unsigned long index) {
        return index < mTrPPower.size() ? mTrPPower[index] : 0.0;
    };
    const auto copyProduct = [this, size](unsigned long index, double* to) {
        if (index < mPPower->size() && isSquare(mPPower->get(index), mLevelsNumber)) {
            std::copy_n(values(mPPower->get(index)), size, to);
        }
    };
    // The digits of an index in base m are the components of the factors, counted from 0.
    const unsigned long b = m + 1;
    for (unsigned long i = 0; i < m2; ++i) {
        traces2[i] = trace((i / m + 1) * b + i % m + 1);
        copyProduct((i / m + 1) * b + i % m + 1, products2 + i * size);
    }
    for (unsigned long i = 0; i < m3; ++i) {
        const unsigned long p = i / (m * m) + 1;
        const unsigned long q = i / m % m + 1;
        const unsigned long r = i % m + 1;
        traces3[i] = trace(p * b * b + q * b + r);
        if (n > 3) {
            // The second digit counts m and not m + 1 here, so this term is no power of A, and of one
            // component it is zero: U of four levels is unitary to second order in the field only.
            copyProduct(p * b * b + q * m + r, products3 + i * size);
        }
    }
    for (unsigned long i = 0; i < m4; ++i) {
        traces4[i] = trace((i / (m * m * m) + 1) * b * b * b + (i / (m * m) % m + 1) * b * b
                           + (i / m % m + 1) * b + i % m + 1);
    }
    mSplitTables = {mSplitType, tau,     values(mExpA), decay,     rhoE,
                    traces2,    traces3, traces4,       products2, products3};
    mSplitComponents = m;
    return *mSplitTables;
}

// ---------------------------------------------------------------- polarization

void QV_Bloch::computePolarizationTerm(const LA_ComplexMatrix& rho, const double* /*E*/,
                                       LA_RealVector& term) const
{
    std::fill_n(term.getValues(), term.getDimension(), 0.0);
    if (!isScaled() || !isSquare(&rho, mLevelsNumber)) {
        return;
    }
    std::vector<double> polarizations;
    QV_FieldKernel::addPolarization(QV_InstructionSet::PLAIN,
                                    atoms(term.getDimension(), polarizations), 1.0, 1,
                                    pairs(rho.getValues()), term.getValues());
}

double QV_Bloch::computePolarizationTerm(const LA_ComplexMatrix& rho) const
{
    const COM_Scoped term(LA_RealVector::New(1));
    computePolarizationTerm(rho, nullptr, *term);
    return (*term)[0];
}

void QV_Bloch::computePolarizationTermAtIndex(unsigned long index, const double* E,
                                              LA_RealVector& term) const
{
    if (const LA_ComplexMatrix* const density = getDensity(index)) {
        computePolarizationTerm(*density, E, term);
    } else {
        std::fill_n(term.getValues(), term.getDimension(), 0.0);
    }
}

void QV_Bloch::addPolarizationTerms(long first, long last, unsigned long components, double factor,
                                    double* terms)
{
    last = std::min(last, static_cast<long>(mDensities->size()) - 1);
    if (first < 0 || last < first || !isScaled()) {
        return;
    }
    const auto from = static_cast<unsigned long>(first);
    const auto count = static_cast<unsigned long>(last - first + 1);
    if (mTermsComponents == components && from >= mTermsRange.mFirst
        && from + count <= mTermsRange.mFirst + mTermsRange.mCount) {
        QV_FieldKernel::addTerms(QV_InstructionSet::best(), factor, count * components,
                                 mTerms.data() + (from - mTermsRange.mFirst) * components, terms);
        return;
    }
    QV_FieldKernel::addPolarization(QV_InstructionSet::best(), atoms(components, mPolarizations),
                                    factor, count, packDensities() + 2 * levelsSquared() * from,
                                    terms);
}

// ---------------------------------------------------------------- result files

void QV_Bloch::initSaving(const std::string& path, const COM_Array<GEO_Vertex>* vertices,
                          unsigned long nBloch)
{
    mFiles.clear();
    mFilesNumber = vertices->size();
    for (unsigned long i = 0; i < mFilesNumber; ++i) {
        mFiles.emplace_back();
        mFiles.back().openOrExit(
            path + "Rho_Bloch" + COM_Integer::toString(static_cast<long>(nBloch)) + "_at_"
            + COM_Integer::toString((*vertices)[i].getLocationNumber()) + ".res");
    }
}

void QV_Bloch::save(double t, unsigned long nNode, unsigned long nFile)
{
    const unsigned long n = mLevelsNumber;
    const LA_ComplexMatrix* const rho = getDensity(nNode);
    // The predictor-corrector's densities are saved as seen from a frame that turns and decays.
    const bool isTurned = mProblem != nullptr
                          && mProblem->getMethod() == QV_Problem::PRED_CORR_METHOD
                          && mOmegaAdim != nullptr;
    const double decay = isTurned ? std::exp(-mTransversalRelaxationAdim * t) : 1.0;
    mLine.clear();
    COM_Real::append(mLine, t, 7, 6);
    mLine += " " + COM_Integer::toString(static_cast<long>(mIterMax)) + " ";
    for (unsigned long j = 0; j < n; ++j) {
        for (unsigned long k = 0; k < n; ++k) {
            const std::complex<double> element = rho != nullptr ? rho->getValue(j, k) : 0.0;
            double value = element.real();
            if (isTurned) {
                const double d = mOmegaAdim->getValue(k) - mOmegaAdim->getValue(j);
                value = element.real() * decay * std::cos(d * t)
                        - element.imag() * decay * std::sin(d * t);
            }
            COM_Real::append(mLine, value, 7, 6);
            mLine += " \t ";
        }
    }
    mLine += "\n";
    mFiles[nFile].write(mLine);
}

bool QV_Bloch::closeSaving()
{
    bool isWhole = true;
    for (QV_ResultFile& file : mFiles) {
        isWhole = file.close() && isWhole;
    }
    mFiles.clear();
    mFilesNumber = 0;
    return isWhole;
}
