#include "quorvex/QV_Field.h"

#include "metaModel/MM_Class.h"

#include <algorithm>

QV_Field::QV_Field(unsigned long size, unsigned long dimension)
    : mDimension(dimension)
    , mSize(size)
    , mValues(size * dimension, 0.0)
{
    COM_TYPE(QV_Field);
}

QV_Field::QV_Field(const QV_Field& field)
    : QV_Field(field.mSize, field.mDimension)
{
    mValues = field.mValues;
}

void QV_Field::setDimensions(unsigned long size, unsigned long dimension)
{
    if (size == mSize && dimension == mDimension) {
        return;
    }
    std::vector<double> values(size * dimension, 0.0);
    for (unsigned long i = 0; i < std::min(size, mSize); ++i) {
        std::copy_n(getValue(i), std::min(dimension, mDimension), values.data() + i * dimension);
    }
    mValues = std::move(values);
    mSize = size;
    mDimension = dimension;
}

void QV_Field::setValues(const double* values, unsigned long size, unsigned long dimension)
{
    const unsigned long count = size * dimension;
    if (count > mValues.size()) {
        mValues.assign(values, values + count);
        mSize = size;
        mDimension = dimension;
        return;
    }
    std::copy_n(values, count, mValues.data());
    std::fill(mValues.data() + count, mValues.data() + mValues.size(), 0.0);
}

void QV_Field::setValues(const QV_Field& field)
{
    if (&field != this) {
        setValues(field.getValues(), field.mSize, field.mDimension);
    }
}

void QV_Field::initValues(double value)
{
    std::fill(mValues.begin(), mValues.end(), value);
}

void QV_Field::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mDimension", mDimension);
    metaClass.addAttributeToMetaFields("mSize", mSize);
    metaClass.addAttributeToMetaFields("mValues", mValues);
}

void QV_Field::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Object::loadFromMetaClass(metaClass);
    unsigned long dimension = mDimension;
    unsigned long size = mSize;
    std::vector<double> values = mValues;
    metaClass.getAttributeFromMetaFields("mDimension", &dimension);
    metaClass.getAttributeFromMetaFields("mSize", &size);
    metaClass.getAttributeFromMetaFields("mValues", values);
    if (!metaClass.isCredibleSize(size, dimension, values.size())) {
        return;
    }
    values.resize(size * dimension, 0.0);
    mValues = std::move(values);
    mSize = size;
    mDimension = dimension;
}
