#include "linearAlgebra/LA_Vector.h"

#include "metaModel/MM_Class.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <type_traits>

template <typename T>
LA_Vector<T>::LA_Vector(unsigned long n)
    : mDimension(n)
    , mValues(n > 0 ? std::make_unique<T[]>(n) : nullptr)
{
    COM_TYPE(LA_Vector);
}

template <typename T>
void LA_Vector<T>::shift()
{
    std::rotate(mValues.get(), mValues.get() + mDimension / 2, mValues.get() + mDimension);
}

template <typename T>
void LA_Vector<T>::setDimension(unsigned long n)
{
    if (n == mDimension) {
        return;
    }
    auto values = n > 0 ? std::make_unique<T[]>(n) : nullptr;
    std::copy_n(mValues.get(), std::min(n, mDimension), values.get());
    mValues = std::move(values);
    mDimension = n;
}

template <typename T>
void LA_Vector<T>::setValues(const std::vector<T>& values)
{
    setValues(values.data(), values.size());
}

template <typename T>
void LA_Vector<T>::setValues(const T* values, unsigned long n)
{
    setDimension(n);
    std::copy_n(values, n, mValues.get());
}

template <typename T>
void LA_Vector<T>::setValues(const T& x, const T& y)
{
    const T values[] = {x, y};
    setValues(values, 2);
}

template <typename T>
void LA_Vector<T>::setValues(const T& x, const T& y, const T& z)
{
    const T values[] = {x, y, z};
    setValues(values, 3);
}

template <typename T>
void LA_Vector<T>::setValues(const LA_Vector<T>& v)
{
    if (&v != this) {
        setValues(v.getValues(), v.getDimension());
    }
}

template <typename T>
void LA_Vector<T>::add(const LA_Vector<T>& v)
{
    setDimension(std::max(mDimension, v.mDimension));
    for (unsigned long i = 0; i < v.mDimension; ++i) {
        mValues[i] += v.mValues[i];
    }
}

template <typename T>
void LA_Vector<T>::sub(const LA_Vector<T>& v)
{
    setDimension(std::max(mDimension, v.mDimension));
    for (unsigned long i = 0; i < v.mDimension; ++i) {
        mValues[i] -= v.mValues[i];
    }
}

template <typename T>
void LA_Vector<T>::add(T f, const LA_Vector<T>& v)
{
    setDimension(std::max(mDimension, v.mDimension));
    for (unsigned long i = 0; i < v.mDimension; ++i) {
        mValues[i] += f * v.mValues[i];
    }
}

template <typename T>
void LA_Vector<T>::sub(T f, const LA_Vector<T>& v)
{
    setDimension(std::max(mDimension, v.mDimension));
    for (unsigned long i = 0; i < v.mDimension; ++i) {
        mValues[i] -= f * v.mValues[i];
    }
}

template <typename T>
void LA_Vector<T>::multipliedBy(T f)
{
    for (unsigned long i = 0; i < mDimension; ++i) {
        mValues[i] *= f;
    }
}

template <typename T>
void LA_Vector<T>::dividedBy(T f)
{
    if (std::is_integral_v<T> && f == T()) {
        return;
    }
    for (unsigned long i = 0; i < mDimension; ++i) {
        mValues[i] /= f;
    }
}

template <typename T>
T LA_Vector<T>::scalarProduct(const LA_Vector<T>& v) const
{
    T sum = T();
    for (unsigned long i = 0; i < std::min(mDimension, v.mDimension); ++i) {
        sum += mValues[i] * v.mValues[i];
    }
    return sum;
}

template <typename T>
void LA_Vector<T>::vectorProduct(const LA_Vector<T>& v)
{
    unsigned long d = std::max(mDimension, v.mDimension);
    if (d < 2) {
        return;
    }
    if (d == 2) {
        d = 3;
    }
    std::vector<T> product(d);
    for (unsigned long i = 0; i < d; ++i) {
        const unsigned long i1 = i + 1 == d ? 0 : i + 1;
        const unsigned long i2 = i1 + 1 == d ? 0 : i1 + 1;
        product[i] = getValue(i1) * v.getValue(i2) - v.getValue(i1) * getValue(i2);
    }
    setValues(product);
}

template <typename T>
double LA_Vector<T>::norm() const
{
    return std::sqrt(norm2());
}

template <typename T>
void LA_Vector<T>::normalize()
{
    dividedBy(static_cast<T>(norm()));
}

template <typename T>
double LA_Vector<T>::distanceTo(const LA_Vector<T>& v) const
{
    return std::sqrt(distance2To(v));
}

template <typename T>
void LA_Vector<T>::saveToMetaClass(MM_Class& metaClass) const
{
    LA_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mDimension", mDimension);
    metaClass.addAttributeToMetaFields("mValues", mValues.get(), mDimension);
}

template <typename T>
void LA_Vector<T>::loadFromMetaClass(const MM_Class& metaClass)
{
    LA_Object::loadFromMetaClass(metaClass);
    std::vector<T> values;
    if (const MM_Field* const field = metaClass.getAnnouncedFromMetaFields("mValues")) {
        field->getFromMetaValues(values);
    }
    setValues(values);
}

template class LA_Vector<double>;
template class LA_Vector<std::complex<double>>;
template class LA_Vector<unsigned long>;
