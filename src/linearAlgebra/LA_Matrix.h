#pragma once
#include "linearAlgebra/LA_Block.h"
#include "linearAlgebra/LA_Object.h"
#include "linearAlgebra/LA_Vector.h"

#include <algorithm>
#include <string>
#include <vector>

/// A dense matrix of double, complex double or unsigned long, row after row: element (i, j) stands at
/// `j + i * mColumnsNumber`.
///
/// A new matrix holds zeros. `setValue` outside changes nothing and `getValue` gives zero there, both
/// without a word. A matrix has storage of its own unless it was moved into a block.
template <typename T>
class LA_Matrix : public LA_Object
{
public:
    virtual void setValueFromString(unsigned long i, unsigned long j, const std::string& text) = 0;
    std::string toString() const override = 0;
    /// Sum of the squared moduli.
    virtual double norm2() const = 0;

    /// New zeroed storage unless both dimensions are unchanged. With m old lines, the value at old index
    /// j + i m goes to new index j + i n where that exists: square matrices keep their elements in place,
    /// others are dealt out anew along both line counts.
    void setDimensions(unsigned long n, unsigned long p);
    unsigned long getLinesNumber() const { return mLinesNumber; }
    unsigned long getColumnsNumber() const { return mColumnsNumber; }
    T* getValues() { return mValues; }
    const T* getValues() const { return mValues; }
    T* getLine(unsigned long i) { return mValues + i * mColumnsNumber; }
    const T* getLine(unsigned long i) const { return mValues + i * mColumnsNumber; }
    T* operator[](unsigned long i) { return getLine(i); }
    const T* operator[](unsigned long i) const { return getLine(i); }

    T getValue(unsigned long i, unsigned long j) const
    {
        return isInside(i, j) ? getLine(i)[j] : T();
    }
    template <typename U>
    void setValue(unsigned long i, unsigned long j, const U& value)
    {
        if (isInside(i, j)) {
            getLine(i)[j] = static_cast<T>(value);
        }
    }
    /// Takes the values of `m` in order, and its dimensions; of equal element counts only the dimensions
    /// change. A real matrix may be copied into a complex one.
    template <typename U>
    void setValues(const LA_Matrix<U>& m)
    {
        const unsigned long count = m.getLinesNumber() * m.getColumnsNumber();
        resize(m.getLinesNumber(), m.getColumnsNumber());
        std::copy_n(m.getValues(), count, mValues);
    }
    void setValues(const T* values, unsigned long n, unsigned long p);
    void setValues(const std::vector<T>& values, unsigned long n, unsigned long p);

    /// R = this M. Requires: `r` is neither factor; as many columns here as lines in `m`, what is missing
    /// counting as zero.
    void matMult(const LA_Matrix<T>& m, LA_Matrix<T>& r) const;
    void transpose();
    void matTranspose(LA_Matrix<T>& m) const;
    void multipliedBy(T f);
    /// Requires: `f` is not zero where T is an integer; a zero changes nothing there.
    void dividedBy(T f);
    /// Sum of the diagonal, over the smaller dimension.
    T trace() const;
    void resetDiagonal();
    /// The diagonal, over the smaller dimension.
    void getDiagonal(LA_Vector<T>& v) const;
    double norm() const;
    /// The largest element, complex ones by modulus; zero for an empty matrix.
    T getMaxValue() const;
    /// Writes `toString` to standard output.
    void print() const;

    /// Moves the storage to `block`, from its value `first` on, keeping the values. Requires: the block
    /// has room for all of them there.
    void moveTo(LA_Block<T>& block, unsigned long first);

    void saveToMetaClass(MM_Class& metaClass) const override;
    /// Values that the file lacks are zero.
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    LA_Matrix(unsigned long n, unsigned long p);
    /// A matrix inside a block, with the values that stand there from its value `first` on.
    LA_Matrix(LA_Block<T>& block, unsigned long first, unsigned long n, unsigned long p);
    ~LA_Matrix() override;

    bool isInside(unsigned long i, unsigned long j) const
    {
        return i < mLinesNumber && j < mColumnsNumber;
    }

private:
    /// Sets the dimensions, with new storage only if the element count changes.
    void resize(unsigned long n, unsigned long p);
    void useOwnStorage(T* values);
    void releaseStorage();

    unsigned long mLinesNumber;
    unsigned long mColumnsNumber;
    T* mValues;                    ///< Owned, or inside `mBlock`.
    LA_Block<T>* mBlock = nullptr; ///< Counted; null while the storage is the matrix's own.
};
