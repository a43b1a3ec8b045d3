#include "linearAlgebra/LA_Matrix.h"

#include "metaModel/MM_Class.h"

#include <cmath>
#include <complex>
#include <iostream>
#include <type_traits>

template <typename T>
LA_Matrix<T>::LA_Matrix(unsigned long n, unsigned long p)
    : mLinesNumber(n)
    , mColumnsNumber(p)
    , mValues(new T[n * p]())
{
    COM_TYPE(LA_Matrix);
}

template <typename T>
LA_Matrix<T>::LA_Matrix(LA_Block<T>& block, unsigned long first, unsigned long n, unsigned long p)
    : mLinesNumber(n)
    , mColumnsNumber(p)
    , mValues(block.getValues() + first)
{
    COM_TYPE(LA_Matrix);
    associate(mBlock, &block);
}

template <typename T>
LA_Matrix<T>::~LA_Matrix()
{
    releaseStorage();
}

template <typename T>
void LA_Matrix<T>::setDimensions(unsigned long n, unsigned long p)
{
    if (n == mLinesNumber && p == mColumnsNumber) {
        return;
    }
    T* const values = new T[n * p]();
    for (unsigned long i = 0; i < mLinesNumber; ++i) {
        for (unsigned long j = 0; j < mColumnsNumber; ++j) {
            const unsigned long from = j + i * mLinesNumber;
            const unsigned long to = j + i * n;
            if (to < n * p && from < mLinesNumber * mColumnsNumber) {
                values[to] = mValues[from];
            }
        }
    }
    useOwnStorage(values);
    mLinesNumber = n;
    mColumnsNumber = p;
}

template <typename T>
void LA_Matrix<T>::resize(unsigned long n, unsigned long p)
{
    if (n * p != mLinesNumber * mColumnsNumber) {
        setDimensions(n, p);
    }
    mLinesNumber = n;
    mColumnsNumber = p;
}

template <typename T>
void LA_Matrix<T>::setValues(const T* values, unsigned long n, unsigned long p)
{
    resize(n, p);
    std::copy_n(values, n * p, mValues);
}

template <typename T>
void LA_Matrix<T>::setValues(const std::vector<T>& values, unsigned long n, unsigned long p)
{
    resize(n, p);
    std::copy_n(values.data(), std::min<unsigned long>(values.size(), n * p), mValues);
}

template <typename T>
void LA_Matrix<T>::matMult(const LA_Matrix<T>& m, LA_Matrix<T>& r) const
{
    r.setDimensions(mLinesNumber, m.mColumnsNumber);
    const unsigned long inner = std::min(mColumnsNumber, m.mLinesNumber);
    for (unsigned long i = 0; i < mLinesNumber; ++i) {
        for (unsigned long j = 0; j < m.mColumnsNumber; ++j) {
            T sum = T();
            for (unsigned long k = 0; k < inner; ++k) {
                sum += getLine(i)[k] * m.getLine(k)[j];
            }
            r.getLine(i)[j] = sum;
        }
    }
}

template <typename T>
void LA_Matrix<T>::transpose()
{
    const std::vector<T> old(mValues, mValues + mLinesNumber * mColumnsNumber);
    std::swap(mLinesNumber, mColumnsNumber);
    for (unsigned long i = 0; i < mLinesNumber; ++i) {
        for (unsigned long j = 0; j < mColumnsNumber; ++j) {
            getLine(i)[j] = old[i + j * mLinesNumber];
        }
    }
}

template <typename T>
void LA_Matrix<T>::matTranspose(LA_Matrix<T>& m) const
{
    if (&m != this) {
        m.setValues(*this);
    }
    m.transpose();
}

template <typename T>
void LA_Matrix<T>::multipliedBy(T f)
{
    for (unsigned long i = 0; i < mLinesNumber * mColumnsNumber; ++i) {
        mValues[i] *= f;
    }
}

template <typename T>
void LA_Matrix<T>::dividedBy(T f)
{
    if (std::is_integral_v<T> && f == T()) {
        return;
    }
    for (unsigned long i = 0; i < mLinesNumber * mColumnsNumber; ++i) {
        mValues[i] /= f;
    }
}

template <typename T>
T LA_Matrix<T>::trace() const
{
    T sum = T();
    for (unsigned long i = 0; i < std::min(mLinesNumber, mColumnsNumber); ++i) {
        sum += getLine(i)[i];
    }
    return sum;
}

template <typename T>
void LA_Matrix<T>::resetDiagonal()
{
    for (unsigned long i = 0; i < std::min(mLinesNumber, mColumnsNumber); ++i) {
        getLine(i)[i] = T();
    }
}

template <typename T>
void LA_Matrix<T>::getDiagonal(LA_Vector<T>& v) const
{
    v.setDimension(std::min(mLinesNumber, mColumnsNumber));
    for (unsigned long i = 0; i < v.getDimension(); ++i) {
        v[i] = getLine(i)[i];
    }
}

template <typename T>
double LA_Matrix<T>::norm() const
{
    return std::sqrt(norm2());
}

template <typename T>
T LA_Matrix<T>::getMaxValue() const
{
    const auto isSmaller = [](const T& a, const T& b) {
        if constexpr (std::is_arithmetic_v<T>) {
            return a < b;
        } else {
            return std::abs(a) < std::abs(b);
        }
    };
    const T* const end = mValues + mLinesNumber * mColumnsNumber;
    return mValues == end ? T() : *std::max_element(mValues, const_cast<T*>(end), isSmaller);
}

template <typename T>
void LA_Matrix<T>::print() const
{
    std::cout << toString();
}

template <typename T>
void LA_Matrix<T>::moveTo(LA_Block<T>& block, unsigned long first)
{
    T* const values = block.getValues() + first;
    if (values == mValues) {
        return;
    }
    std::copy_n(mValues, mLinesNumber * mColumnsNumber, values);
    releaseStorage();
    mValues = values;
    associate(mBlock, &block);
}

template <typename T>
void LA_Matrix<T>::saveToMetaClass(MM_Class& metaClass) const
{
    LA_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mLinesNumber", mLinesNumber);
    metaClass.addAttributeToMetaFields("mColumnsNumber", mColumnsNumber);
    metaClass.addAttributeToMetaFields("mValues", mValues, mLinesNumber * mColumnsNumber);
}

template <typename T>
void LA_Matrix<T>::loadFromMetaClass(const MM_Class& metaClass)
{
    LA_Object::loadFromMetaClass(metaClass);
    unsigned long n = mLinesNumber;
    unsigned long p = mColumnsNumber;
    metaClass.getAttributeFromMetaFields("mLinesNumber", &n);
    metaClass.getAttributeFromMetaFields("mColumnsNumber", &p);
    std::vector<T> values;
    if (const MM_Field* const field = metaClass.getAnnouncedFromMetaFields("mValues")) {
        field->getFromMetaValues(values);
    }
    if (!metaClass.isCredibleSize(n, p, values.size())) {
        return;
    }
    values.resize(n * p);
    setValues(values, n, p);
}

template <typename T>
void LA_Matrix<T>::useOwnStorage(T* values)
{
    releaseStorage();
    mValues = values;
}

template <typename T>
void LA_Matrix<T>::releaseStorage()
{
    if (mBlock == nullptr) {
        delete[] mValues;
        return;
    }
    mBlock->leave();
    dissociate(mBlock);
}

template class LA_Matrix<double>;
template class LA_Matrix<std::complex<double>>;
template class LA_Matrix<unsigned long>;
