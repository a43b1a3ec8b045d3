#pragma once
#include "linearAlgebra/LA_Object.h"

#include <memory>
#include <string>
#include <vector>

class LA_RealVector;

/// A dense vector of double, complex double or unsigned long.
///
/// A new vector of dimension n holds n zeros. Access through `operator[]` and `getValues` is unchecked;
/// `setValue` past the end changes nothing and `getValue` gives zero there, both without a word: forms
/// write cells that a smaller vector no longer has. Operations on two vectors take the values that the
/// shorter one lacks as zero.
template <typename T>
class LA_Vector : public LA_Object
{
public:
    virtual void setValueFromString(unsigned long index, const std::string& text) = 0;
    /// Sum of the squared moduli.
    virtual double norm2() const = 0;
    /// `out` gets the dimension and the moduli of this vector.
    virtual void vabs(LA_RealVector& out) const = 0;
    /// Sum of the squared moduli of the differences.
    virtual double distance2To(const LA_Vector<T>& v) const = 0;
    /// Element by element the smaller or the larger value, over the smaller of the two dimensions.
    virtual void min(const LA_Vector<T>& v) = 0;
    virtual void max(const LA_Vector<T>& v) = 0;
    virtual void min(const LA_Vector<T>* v) { min(*v); }
    virtual void max(const LA_Vector<T>* v) { max(*v); }
    /// Logarithm of the modulus of each value, with a floor for values too small to have one.
    virtual void logTransform() = 0;
    virtual void log10Transform() = 0;
    /// Rotates the values left by half the dimension, rounded down: centres a spectrum.
    virtual void shift();
    std::string toString() const override = 0;

    /// Keeps the values that fit, new ones are zero.
    void setDimension(unsigned long n);
    unsigned long getDimension() const { return mDimension; }
    T* getValues() { return mValues.get(); }
    const T* getValues() const { return mValues.get(); }
    T& operator[](unsigned long index) { return mValues[index]; }
    const T& operator[](unsigned long index) const { return mValues[index]; }

    T getValue(unsigned long index) const { return index < mDimension ? mValues[index] : T(); }
    template <typename U>
    void setValue(unsigned long index, const U& value)
    {
        if (index < mDimension) {
            mValues[index] = static_cast<T>(value);
        }
    }
    /// Takes the dimension and the values of the source.
    void setValues(const std::vector<T>& values);
    void setValues(const T* values, unsigned long n);
    void setValues(const T& x, const T& y);
    void setValues(const T& x, const T& y, const T& z);
    void setValues(const LA_Vector<T>& v);

    /// this += v, growing to the larger dimension.
    void add(const LA_Vector<T>& v);
    void sub(const LA_Vector<T>& v);
    /// this += f v, growing to the larger dimension.
    void add(T f, const LA_Vector<T>& v);
    void sub(T f, const LA_Vector<T>& v);
    void multipliedBy(T f);
    /// Requires: `f` is not zero where T is an integer; a zero changes nothing there.
    void dividedBy(T f);
    /// Sum of this[i] v[i], without conjugation.
    T scalarProduct(const LA_Vector<T>& v) const;
    /// this[i1] v[i2] - v[i1] this[i2] for i1, i2 circularly after i: the cross product in three
    /// dimensions. Two dimensions become three; below two nothing happens.
    void vectorProduct(const LA_Vector<T>& v);
    double norm() const;
    /// Requires: the norm is not zero, else the values are not numbers.
    void normalize();
    double distanceTo(const LA_Vector<T>& v) const;

    void saveToMetaClass(MM_Class& metaClass) const override;
    /// The dimension is the number of values stored; without any the vector is empty.
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    explicit LA_Vector(unsigned long n);
    ~LA_Vector() override = default;

private:
    unsigned long mDimension;
    std::unique_ptr<T[]> mValues; ///< `mDimension` values; null when there are none.
};
