#pragma once
#include "linearAlgebra/LA_Matrix.h"

extern template class LA_Matrix<double>;

/// A matrix of double, and two solvers for tridiagonal systems.
class LA_RealMatrix : public LA_Matrix<double>
{
    COM_CLASS(LA_RealMatrix)
public:
    void setValueFromString(unsigned long i, unsigned long j, const std::string& text) override;
    /// Each value with seven significant digits and a tab, a line end after each line.
    std::string toString() const override;
    double norm2() const override;

    /// The largest element; 0 for an empty matrix.
    double maxValue() const { return getMaxValue(); }

    /// Solves lower[k - 1] x[k - 1] + diagonal[k] x[k] + upper[k] x[k + 1] = rhs[k] for `n` unknowns by
    /// Gaussian elimination without pivoting (Thomas algorithm). `lower` and `upper` have n - 1 values.
    /// Gives a new array of n values that the caller frees with delete[], or null for n = 0 and for a
    /// zero pivot before the last.
    static double* solveTridiagonalMatrix(const double* lower, const double* diagonal,
                                          const double* upper, const double* rhs, unsigned long n);
    /// Solves a symmetric cyclic tridiagonal system of `n` equations by Cholesky factorisation, L D L^T
    /// with a full last line in L. offDiagonal[i] joins x[i] and x[i + 1], offDiagonal[n - 1] joins the
    /// last and the first. Gives a new array of n values that the caller frees with delete[], or null
    /// for n = 0 and for a zero pivot.
    static double* solveSymetricCircularTridiagonalMatrix(const double* offDiagonal,
                                                          const double* diagonal, const double* rhs,
                                                          unsigned long n);

protected:
    LA_RealMatrix(unsigned long n, unsigned long p);
    LA_RealMatrix(const LA_RealMatrix& m);
    explicit LA_RealMatrix(const LA_RealMatrix* m)
        : LA_RealMatrix(*m)
    {}
    ~LA_RealMatrix() override = default;
};
