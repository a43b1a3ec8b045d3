#pragma once
#include <complex>
#include <cstddef>
#include <vector>

/// A square matrix of zeros to begin with; M(a, b) is row a, column b.
template <typename T>
class ReferenceMatrix
{
public:
    explicit ReferenceMatrix(std::size_t n)
        : mSize(n)
        , mValues(n * n)
    {}

    std::size_t size() const { return mSize; }
    T& operator()(std::size_t a, std::size_t b) { return mValues[a * mSize + b]; }
    const T& operator()(std::size_t a, std::size_t b) const { return mValues[a * mSize + b]; }

    /// The same matrix with side n: elements that fit keep their place, new ones are zero.
    ReferenceMatrix resized(std::size_t n) const
    {
        ReferenceMatrix result(n);
        for (std::size_t a = 0; a < n && a < mSize; ++a) {
            for (std::size_t b = 0; b < n && b < mSize; ++b) {
                result(a, b) = (*this)(a, b);
            }
        }
        return result;
    }

private:
    std::size_t mSize;      ///< Rows, and columns.
    std::vector<T> mValues; ///< mValues[a * mSize + b]
};

using ReferenceRealMatrix = ReferenceMatrix<double>;
using ReferenceComplexMatrix = ReferenceMatrix<std::complex<double>>;
