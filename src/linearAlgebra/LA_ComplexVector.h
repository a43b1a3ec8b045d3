#pragma once
#include "linearAlgebra/LA_Vector.h"

#include <complex>

extern template class LA_Vector<std::complex<double>>;

/// A vector of complex double.
class LA_ComplexVector : public LA_Vector<std::complex<double>>
{
    COM_CLASS(LA_ComplexVector)
public:
    using Complex = std::complex<double>;

    void setValueFromString(unsigned long index, const std::string& text) override;
    double norm2() const override;
    /// Moduli in a form that neither overflows nor underflows: max sqrt((re / max)^2 + (im / max)^2).
    void vabs(LA_RealVector& out) const override;
    double distance2To(const LA_Vector<Complex>& v) const override;
    using LA_Vector<Complex>::min;
    using LA_Vector<Complex>::max;
    /// The value of smaller or larger modulus; of two equal moduli, the value of `v`.
    void min(const LA_Vector<Complex>& v) override;
    void max(const LA_Vector<Complex>& v) override;
    /// (ln|c|, phase); below a modulus of 1e-50 the real part is -50 ln 10.
    void logTransform() override;
    /// (log10|c|, phase); below a modulus of 1e-50 the real part is -50.
    void log10Transform() override;
    /// "(", the values as "(re,im)" joined by ",", ")" and a line end.
    std::string toString() const override;

    void getRealPart(LA_RealVector& out) const;
    void getImagPart(LA_RealVector& out) const;

protected:
    explicit LA_ComplexVector(unsigned long n);
    LA_ComplexVector(const LA_ComplexVector& v);
    explicit LA_ComplexVector(const LA_ComplexVector* v)
        : LA_ComplexVector(*v)
    {}
    ~LA_ComplexVector() override = default;
};
