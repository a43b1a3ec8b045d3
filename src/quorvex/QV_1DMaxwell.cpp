#include "quorvex/QV_1DMaxwell.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Milieu.h"
#include "quorvex/QV_Problem.h"

#include <algorithm>

namespace {

/// Component j drives the next one, with alternating sign.
double signOf(unsigned long j)
{
    return j % 2 == 0 ? 1.0 : -1.0;
}

} // namespace

QV_1DMaxwell::QV_1DMaxwell()
{
    COM_TYPE(QV_1DMaxwell);
}

QV_1DMaxwell::~QV_1DMaxwell()
{
    dissociate(mEn1Old);
    dissociate(mE1Old);
    dissociate(mMovingIncidentFieldValue);
}

void QV_1DMaxwell::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Maxwell::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mDz", mDz);
    metaClass.addAttributeToMetaFields("mIFirst", mIFirst);
    metaClass.addAttributeToMetaFields("mILast", mILast);
    metaClass.addAssociationToMetaFields("mMovingIncidentFieldValue", mMovingIncidentFieldValue);
    metaClass.addAssociationToMetaFields("mE1Old", mE1Old);
    metaClass.addAssociationToMetaFields("mEn1Old", mEn1Old);
}

void QV_1DMaxwell::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Maxwell::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mDz", &mDz);
    metaClass.getAttributeFromMetaFields("mIFirst", &mIFirst);
    metaClass.getAttributeFromMetaFields("mILast", &mILast);
    const auto load = [this, &metaClass](const char* key, LA_RealVector*& field) {
        const COM_Scoped vector(metaClass.getAssociationFromMetaFields(key));
        if (auto* const found = dynamic_cast<LA_RealVector*>(vector.get())) {
            associate(field, found);
        }
    };
    load("mMovingIncidentFieldValue", mMovingIncidentFieldValue);
    load("mE1Old", mE1Old);
    load("mEn1Old", mEn1Old);
}

QV_FieldKernel::Fields QV_1DMaxwell::fields() const
{
    QV_Field* const E = getField(E_FIELD);
    QV_Field* const B = getField(B_FIELD);
    if (E == nullptr || B == nullptr || E->getSize() <= B->getSize()
        || E->getDimension() != B->getDimension()) {
        return {nullptr, nullptr, 0, 0};
    }
    return {E->getValues(), B->getValues(), B->getSize(), B->getDimension()};
}

void QV_1DMaxwell::resolveCell()
{
    if (!(mDz > 0.0)) {
        mDz = QV_Milieu::getCellLength();
    }
}

void QV_1DMaxwell::resolveNodes()
{
    const QV_Milieu* const milieu = getProblem() != nullptr ? getProblem()->getMilieu() : nullptr;
    if (milieu != nullptr && (mIFirst < 0 || mILast < 0)) {
        mIFirst = milieu->getBoundaryLocation(QV_Milieu::FIRST_NODE);
        mILast = milieu->getBoundaryLocation(QV_Milieu::LAST_NODE);
    }
}

// dB/dt = -dE/dz on the lines, centred at t. The incident wave stands at line 0 as if E[0] were
// larger by it on the other side.
bool QV_1DMaxwell::solveFaraday(double t, double dt)
{
    const QV_FieldKernel::Fields both = fields();
    if (both.mLines == 0) {
        return true;
    }
    resolveCell();
    const double r = dt / mDz;
    const unsigned long p = both.mComponents;
    QV_FieldKernel::faraday(QV_InstructionSet::best(), both, r);
    if (getIncidentFields() != nullptr) {
        const LA_RealVector& source = *getIncidentFields()->getIncidentField(p, t, dt);
        for (unsigned long j = 0; j < p; ++j) {
            both.mB[(j + 1) % p] += signOf(j) * r * source.getValue(j);
        }
    }
    return true;
}

void QV_1DMaxwell::useDefaultFactors()
{
    if (getPolarizationTermFactors() != nullptr) {
        return;
    }
    const unsigned long systems = getProblem()->getBlochEquations()->size();
    const COM_Scoped factors(LA_RealVector::New(systems));
    for (unsigned long b = 0; b < systems; ++b) {
        (*factors)[b] = 1.0 / static_cast<double>(systems);
    }
    setPolarizationTermFactors(*factors);
}

// dE/dt = -dB/dz - dP/dt on the nodes of the medium, dP/dt being the weighted sum over the systems, then the
// empty zones and the ends.
bool QV_1DMaxwell::solveAmpere(double t, double dt)
{
    const QV_FieldKernel::Fields both = fields();
    if (both.mLines == 0 || getProblem() == nullptr) {
        return true;
    }
    resolveCell();
    resolveNodes();
    useDefaultFactors();
    const COM_Array<QV_Bloch>& systems = *getProblem()->getBlochEquations();
    const long last = std::min(mILast, static_cast<long>(both.mLines));
    if (mIFirst >= 0 && mIFirst <= last) {
        mTerms.assign(static_cast<unsigned long>(last - mIFirst + 1) * both.mComponents, 0.0);
        for (unsigned long b = 0; b < systems.size(); ++b) {
            systems[b].addPolarizationTerms(mIFirst, last, both.mComponents,
                                            getPolarizationTermFactors()->getValue(b),
                                            mTerms.data());
        }
        QV_FieldKernel::ampereWithSource(QV_InstructionSet::best(), both, mIFirst, last, dt / mDz,
                                         dt, mTerms.data());
    }
    mSolvingInEmptyMilieu = true;
    solveAmpereZiolko(t, dt);
    mSolvingInEmptyMilieu = false;
    return true;
}

bool QV_1DMaxwell::solveAmpereZiolko(double /*t*/, double dt)
{
    const QV_FieldKernel::Fields both = fields();
    if (both.mLines == 0) {
        return true;
    }
    resolveCell();
    resolveNodes();
    const unsigned long p = both.mComponents;
    for (LA_RealVector** state : {&mMovingIncidentFieldValue, &mE1Old, &mEn1Old}) {
        if (*state == nullptr) {
            const COM_Scoped vector(LA_RealVector::New(p));
            associate(*state, vector.get());
        }
    }
    const double r = dt / mDz;
    const double coef = (1.0 - r) / (1.0 + r); // Mur's absorbing boundary of first order
    const auto n = static_cast<long>(both.mLines);
    QV_FieldKernel::ampere(QV_InstructionSet::best(), both, 1, std::min(mIFirst - 1, n - 1), r);
    QV_FieldKernel::ampere(QV_InstructionSet::best(), both, std::max(mILast + 1, 1L), n - 1, r);
    for (unsigned long j = 0; j < p; ++j) {
        solveEnds(both, j, signOf(j), r);
    }
    if (!isLaserType() && !isReflexifLaserType()) {
        double* const end = both.mE + both.mLines * p;
        const double* const before = end - p;
        for (unsigned long j = 0; j < p; ++j) {
            end[j] = (end[j] - before[j]) * coef + mEn1Old->getValue(j);
            mEn1Old->setValue(j, before[j]);
        }
    }
    return true;
}

void QV_1DMaxwell::solveEnds(const QV_FieldKernel::Fields& fields, unsigned long j, double sign,
                             double r)
{
    const unsigned long p = fields.mComponents;
    const unsigned long next = (j + 1) % p;
    const double coef = (1.0 - r) / (1.0 + r);
    const double second = fields.mLines > 1 ? fields.mB[p + next] : 0.0;
    // The incident wave itself is carried across the first cell by the same difference as the field.
    const double incident = mMovingIncidentFieldValue->getValue(j);
    const double carried = incident - sign * r * (second - fields.mB[next]);
    double& first = fields.mE[j];
    const double neighbour = fields.mE[p + j];
    const double absorbed = (first - neighbour + carried) * coef;
    if (isLaserType() || isReflexifLaserType()) {
        first = getLaserReflectorFactor() * first + mE1Old->getValue(j) - incident + absorbed;
        if (isReflexifLaserType() || mSolvingInEmptyMilieu) {
            fields.mE[fields.mLines * p + j] *= getLaserReflectorFactor();
        }
    } else {
        first = mE1Old->getValue(j) - incident + absorbed;
    }
    mMovingIncidentFieldValue->setValue(j, carried);
    mE1Old->setValue(j, neighbour);
}
