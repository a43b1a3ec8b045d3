#include "quorvex/QV_IncidentFields.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"

#include <cmath>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <numbers>

namespace {

constexpr double sharpness = 10.0; ///< Of the hyperbolic secant, over half a duration.
constexpr double cycleScale =
    -4.201355; ///< Brings -x (1 - x^2)^3 to a peak of 1, at x = 1 / sqrt(7).
constexpr double secondPulseDivisor = 2.5;

bool isInside(double x)
{
    return std::fabs(x) < 1.0;
}

/// A single cycle on |x| < 1, without carrier.
double cycle(double x)
{
    const double q = 1.0 - x * x;
    return cycleScale * x * (q * q * q);
}

} // namespace

QV_IncidentFields::QV_IncidentFields()
{
    COM_TYPE(QV_IncidentFields);
}

QV_IncidentFields::~QV_IncidentFields()
{
    resetMovingIncidentField();
    resetIncidentField();
}

void QV_IncidentFields::setWaveLength(double waveLength)
{
    mWaveLength = waveLength;
    mOmega0 = TWO_PI_C / mWaveLength;
}

void QV_IncidentFields::setIncidentFieldsType(const std::string& name)
{
    for (unsigned long i = 0; i < mTypesNameLength; ++i) {
        if (name == mTypesName[i]) {
            mType = static_cast<unsigned char>(i);
            return;
        }
    }
    std::cout << "warning incident fields type " << name << " unknown !!\n"
              << "choose between:\n";
    for (const char* known : mTypesName) {
        std::cout << "\t" << known << "\n";
    }
    std::exit(0);
}

double QV_IncidentFields::computeTimeStep(unsigned long cells) const
{
    return mWaveLength * mCFL / (static_cast<double>(cells) * C);
}

double QV_IncidentFields::computeArea(double rabiFrequency) const
{
    const double A = rabiFrequency * mWavePackageDuration;
    const double sech = A / (2.0 * sharpness);
    switch (mType) {
    case SIT_TYPE:
        return sech;
    case PACKAGE_TYPE:
        return 128.0 * A / (315.0 * std::numbers::pi);
    case POMPE_SIT_TYPE:
        return sech + sech / secondPulseDivisor;
    case SINUS_TYPE:
    case MARCHE_TYPE:
        return std::numeric_limits<double>::infinity();
    default: // there and back again in a single cycle; no light at all with an unknown shape
        return 0.0;
    }
}

void QV_IncidentFields::adimensionize(double rabiFrequency)
{
    mOmega0Adim = mOmega0 / rabiFrequency;
    mWavePackageDurationAdim = rabiFrequency * mWavePackageDuration;
}

void QV_IncidentFields::setIncidentField(LA_RealVector* field)
{
    associate(mIField, field);
}

void QV_IncidentFields::setMovingIncidentField(LA_RealVector* field)
{
    associate(mSField, field);
}

LA_RealVector* QV_IncidentFields::getIncidentField(unsigned long dim, double t, double dt)
{
    computeFields(dim, t, dt);
    return mIField;
}

LA_RealVector* QV_IncidentFields::getMovingIncidentField(unsigned long dim, double t, double dt)
{
    computeFields(dim, t, dt);
    return mSField;
}

bool QV_IncidentFields::computeFields(unsigned long dim, double t, double dt)
{
    for (LA_RealVector** field : {&mIField, &mSField}) {
        if (*field == nullptr) {
            const COM_Scoped vector(LA_RealVector::New(dim));
            associate(*field, vector.get());
        }
    }
    if (t == mLastTimeFieldsComputation) {
        return true;
    }
    mLastTimeFieldsComputation = t;
    if (mType >= mTypesNameLength) {
        return false;
    }
    const double tS = t + (mCFL - 1.0) * dt / mCFL;
    const double boundary = shape(t, t);
    const double moving = shape(tS, t);
    for (unsigned long j = 0; j < mIField->getDimension(); ++j) {
        (*mIField)[j] = boundary;
    }
    for (unsigned long j = 0; j < mSField->getDimension(); ++j) {
        (*mSField)[j] = moving;
    }
    if (dim == 2) {
        mIField->setValue(1, 0.0);
        mSField->setValue(1, 0.0);
    }
    return true;
}

double QV_IncidentFields::shape(double u, double t) const
{
    const double A = mWavePackageDurationAdim;
    const double x = (2.0 * u - A) / A;
    const double x3 = (2.0 * u - 3.0 * A) / A;
    const double x7 = (2.0 * u - 7.0 * A) / A;
    const double carrier = std::sin(t * mOmega0Adim);
    switch (mType) {
    case SINUS_TYPE:
        return carrier;
    case SIT_TYPE:
        return isInside(x) ? carrier / std::cosh(sharpness * x) : 0.0;
    case PACKAGE_TYPE: {
        const double q = 1.0 - x * x;
        return isInside(x) ? q * q * q * q * carrier : 0.0;
    }
    case OSCILL1_TYPE:
        return isInside(x) ? cycle(x) : 0.0;
    case OSCILL2_TYPE:
        if (isInside(x)) {
            return cycle(x);
        }
        return isInside(x7) ? cycle(x7) : 0.0;
    case POMPE_SIT_TYPE:
        if (isInside(x)) {
            return carrier / std::cosh(sharpness * x);
        }
        return isInside(x3) ? carrier / (std::cosh(sharpness * x3) * secondPulseDivisor) : 0.0;
    default: // MARCHE_TYPE: a step, the same for the moving reference
        return t > A ? 1.0 : 0.0;
    }
}

void QV_IncidentFields::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mFieldMaxValue", mFieldMaxValue);
    metaClass.addAttributeToMetaFields("mWaveLength", mWaveLength);
    metaClass.addAttributeToMetaFields("mWavePackageDuration", mWavePackageDuration);
    metaClass.addAttributeToMetaFields("mWavePackageDurationAdim", mWavePackageDurationAdim);
    metaClass.addAttributeToMetaFields("mCFL", mCFL);
    metaClass.addAttributeToMetaFields("mOmega0", mOmega0);
    metaClass.addAttributeToMetaFields("mOmega0Adim", mOmega0Adim);
    metaClass.addAttributeToMetaFields("mLastTimeFieldsComputation", mLastTimeFieldsComputation);
    metaClass.addAttributeToMetaFields("mType", mType);
    metaClass.addAssociationToMetaFields("mIField", mIField);
    metaClass.addAssociationToMetaFields("mSField", mSField);
}

void QV_IncidentFields::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mFieldMaxValue", &mFieldMaxValue);
    metaClass.getAttributeFromMetaFields("mWaveLength", &mWaveLength);
    metaClass.getAttributeFromMetaFields("mWavePackageDuration", &mWavePackageDuration);
    metaClass.getAttributeFromMetaFields("mWavePackageDurationAdim", &mWavePackageDurationAdim);
    metaClass.getAttributeFromMetaFields("mCFL", &mCFL);
    metaClass.getAttributeFromMetaFields("mOmega0", &mOmega0);
    metaClass.getAttributeFromMetaFields("mOmega0Adim", &mOmega0Adim);
    metaClass.getAttributeFromMetaFields("mLastTimeFieldsComputation", &mLastTimeFieldsComputation);
    metaClass.getAttributeFromMetaFields("mType", &mType);
    // These keys are not those that saving writes: the two vectors of a saved run stay behind, and the
    // first step makes them anew.
    const COM_Scoped iField(metaClass.getAssociationFromMetaFields("mIFields"));
    setIncidentField(dynamic_cast<LA_RealVector*>(iField.get()));
    const COM_Scoped sField(metaClass.getAssociationFromMetaFields("mSFields"));
    setMovingIncidentField(dynamic_cast<LA_RealVector*>(sField.get()));
}
