#pragma once
#include "linearAlgebra/LA_Matrix.h"

#include <complex>

extern template class LA_Matrix<std::complex<double>>;

/// A matrix of complex double.
class LA_ComplexMatrix : public LA_Matrix<std::complex<double>>
{
    COM_CLASS(LA_ComplexMatrix)
public:
    using Complex = std::complex<double>;

    void setValueFromString(unsigned long i, unsigned long j, const std::string& text) override;
    /// Each value as "(re,im)" and a tab, a line end after each line.
    std::string toString() const override;
    double norm2() const override;

    /// Conjugates and transposes in place, on the square whose side is the number of lines. Requires: at
    /// least as many columns as lines; else nothing changes.
    void transConjugate();
    /// Conjugates each element.
    void conjugate();
    /// Sum of the squared moduli of the differences; what one matrix lacks counts as zero.
    double distance2To(const LA_ComplexMatrix& m) const;

protected:
    LA_ComplexMatrix(unsigned long n, unsigned long p);
    LA_ComplexMatrix(LA_Block<Complex>& block, unsigned long first, unsigned long n,
                     unsigned long p);
    LA_ComplexMatrix(const LA_ComplexMatrix& m);
    explicit LA_ComplexMatrix(const LA_ComplexMatrix* m)
        : LA_ComplexMatrix(*m)
    {}
    ~LA_ComplexMatrix() override = default;
};
