#include "gui2d/GUI2D_Curve.h"

#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_Plotter.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"

#include <algorithm>
#include <cmath>

GUI2D_Curve::GUI2D_Curve()
{
    COM_TYPE(GUI2D_Curve);
}

GUI2D_Curve::~GUI2D_Curve()
{
    dissociate(mColor);
    dissociate(mY);
    dissociate(mX);
}

// ---------------------------------------------------------------- colour

void GUI2D_Curve::setColor(COM_Color& color)
{
    associate(mColor, &color);
}

void GUI2D_Curve::setColor(COM_Color* color)
{
    associate(mColor, color);
}

void GUI2D_Curve::resetColor()
{
    dissociate(mColor);
}

// ---------------------------------------------------------------- points

void GUI2D_Curve::Axis::set(const LA_RealVector& values)
{
    mAbsMax = -1.0;
    mMinDelta = 0.0;
    mMaxDelta = 0.0;
    mMeanDelta = 0.0;
    const unsigned long n = values.getDimension();
    if (n > 0) {
        // Signed here, so that a single negative value counts as no amplitude.
        mMax = mMin = mAbsMax = values[0];
    }
    double sum = 0.0;
    for (unsigned long i = 1; i < n; ++i) {
        mAbsMax = std::max(mAbsMax, std::fabs(values[i]));
        mMax = std::max(mMax, values[i]);
        mMin = std::min(mMin, values[i]);
        const double delta = values[i] - values[i - 1];
        if (i == 1) {
            mMinDelta = mMaxDelta = delta;
        } else {
            mMinDelta = std::min(mMinDelta, delta);
            mMaxDelta = std::max(mMaxDelta, delta);
            sum += delta;
        }
    }
    if (mAbsMax <= 0.0) {
        mAbsMax = 1.0;
    }
    if (n > 1) {
        mMeanDelta = sum / static_cast<double>(n - 1);
    }
}

void GUI2D_Curve::Axis::setBounds(double min, double max)
{
    mMin = min;
    mMax = max;
}

void GUI2D_Curve::Axis::divide(double factor)
{
    for (double* const figure : {&mMax, &mMin, &mAbsMax, &mMinDelta, &mMaxDelta, &mMeanDelta}) {
        *figure /= factor;
    }
}

void GUI2D_Curve::setValues(LA_RealVector*& field, Axis& axis, const LA_RealVector& values)
{
    const COM_Scoped copy(LA_RealVector::New(values)); // `values` may be what the field holds
    associate(field, copy.get());
    axis.set(*copy);
    updateTrace();
}

void GUI2D_Curve::divideValues(LA_RealVector* values, Axis& axis, double factor)
{
    if (values != nullptr && factor != 0.0) {
        values->dividedBy(factor);
        updateTrace();
    }
    axis.divide(factor);
}

void GUI2D_Curve::updateTrace()
{
    const unsigned long n = getPointsNumber();
    mTrace = n > 0 ? GUI2D_Trace(mX->getValues(), mY->getValues(), n) : GUI2D_Trace();
}

unsigned long GUI2D_Curve::getPointsNumber() const
{
    return mX == nullptr || mY == nullptr ? 0 : std::min(mX->getDimension(), mY->getDimension());
}

// ---------------------------------------------------------------- picture

void GUI2D_Curve::draw(GUI2D_Plotter& plotter)
{
    const unsigned long n = getPointsNumber();
    if (!mIsShown || n == 0) {
        return;
    }
    const COM_Scoped black(COM_Color::New());
    const COM_Color& color = mColor != nullptr ? *mColor : *black;
    plotter.setPen(color, GUI2D_Plotter::SOLID_LINE);
    plotter.setBrush(color, GUI2D_Plotter::NO_BRUSH);
    plotter.drawTrace(mTrace, color);
}

// ---------------------------------------------------------------- persistence

void GUI2D_Curve::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mName", mName);
    metaClass.addAttributeToMetaFields("mIsShown", mIsShown);
    metaClass.addAssociationToMetaFields("mX", mX);
    metaClass.addAssociationToMetaFields("mY", mY);
    metaClass.addAttributeToMetaFields("mAbsXMax", mXAxis.mAbsMax);
    metaClass.addAttributeToMetaFields("mAbsYMax", mYAxis.mAbsMax);
    if (mColor != nullptr) {
        metaClass.addAttributeToMetaFields("mColor", mColor->toString());
    }
}

void GUI2D_Curve::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mName", &mName);
    metaClass.getAttributeFromMetaFields("mIsShown", &mIsShown);
    loadValues(metaClass, "mX", mX, mXAxis);
    loadValues(metaClass, "mY", mY, mYAxis);
    metaClass.getAttributeFromMetaFields("mAbsXMax", &mXAxis.mAbsMax);
    metaClass.getAttributeFromMetaFields("mAbsYMax", &mYAxis.mAbsMax);
    std::string color;
    metaClass.getAttributeFromMetaFields("mColor", &color);
    if (!color.empty()) {
        const COM_Scoped stored(COM_Color::New(color));
        setColor(*stored);
    }
}

void GUI2D_Curve::loadValues(const MM_Class& metaClass, const char* key, LA_RealVector*& field,
                             Axis& axis)
{
    std::string identity;
    metaClass.getAttributeFromMetaFields(key, &identity); // announces a missing one
    const COM_Scoped object(metaClass.getAssociationFromMetaFields(key));
    if (const auto* const values = dynamic_cast<LA_RealVector*>(object.get())) {
        setValues(field, axis, *values);
    }
}
