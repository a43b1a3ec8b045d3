#include "linearAlgebra/LA_ComplexVector.h"

#include "common/COM_Complex.h"
#include "linearAlgebra/LA_RealVector.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double smallest = 1e-50; ///< Moduli below it have the logarithm of this one.
constexpr double smallestLog10 = -50.0;

double modulus(const std::complex<double>& c)
{
    const double re = std::fabs(c.real());
    const double im = std::fabs(c.imag());
    const double largest = std::max(re, im);
    if (largest == 0.0) {
        return 0.0;
    }
    return largest * std::sqrt((re / largest) * (re / largest) + (im / largest) * (im / largest));
}

} // namespace

LA_ComplexVector::LA_ComplexVector(unsigned long n)
    : LA_Vector<Complex>(n)
{
    COM_TYPE(LA_ComplexVector);
}

LA_ComplexVector::LA_ComplexVector(const LA_ComplexVector& v)
    : LA_ComplexVector(v.getDimension())
{
    setValues(v);
}

void LA_ComplexVector::setValueFromString(unsigned long index, const std::string& text)
{
    setValue(index, COM_Complex::parseComplex(text));
}

double LA_ComplexVector::norm2() const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < getDimension(); ++i) {
        sum += std::norm((*this)[i]);
    }
    return sum;
}

void LA_ComplexVector::vabs(LA_RealVector& out) const
{
    out.setDimension(getDimension());
    for (unsigned long i = 0; i < getDimension(); ++i) {
        out[i] = modulus((*this)[i]);
    }
}

double LA_ComplexVector::distance2To(const LA_Vector<Complex>& v) const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < std::max(getDimension(), v.getDimension()); ++i) {
        sum += std::norm(getValue(i) - v.getValue(i));
    }
    return sum;
}

void LA_ComplexVector::min(const LA_Vector<Complex>& v)
{
    for (unsigned long i = 0; i < std::min(getDimension(), v.getDimension()); ++i) {
        if (!(modulus((*this)[i]) < modulus(v[i]))) {
            (*this)[i] = v[i];
        }
    }
}

void LA_ComplexVector::max(const LA_Vector<Complex>& v)
{
    for (unsigned long i = 0; i < std::min(getDimension(), v.getDimension()); ++i) {
        if (!(modulus((*this)[i]) > modulus(v[i]))) {
            (*this)[i] = v[i];
        }
    }
}

void LA_ComplexVector::logTransform()
{
    for (unsigned long i = 0; i < getDimension(); ++i) {
        const Complex c = (*this)[i];
        const double size = modulus(c);
        (*this)[i] = {size < smallest ? smallestLog10 * std::log(10.0) : std::log(size),
                      std::atan2(c.imag(), c.real())};
    }
}

void LA_ComplexVector::log10Transform()
{
    for (unsigned long i = 0; i < getDimension(); ++i) {
        const Complex c = (*this)[i];
        const double size = modulus(c);
        (*this)[i] = {size < smallest ? smallestLog10 : std::log10(size),
                      std::atan2(c.imag(), c.real())};
    }
}

std::string LA_ComplexVector::toString() const
{
    std::string text = "(";
    for (unsigned long i = 0; i < getDimension(); ++i) {
        text += (i > 0 ? "," : "") + COM_Complex::toString((*this)[i], 7, 6);
    }
    return text + ")\n";
}

void LA_ComplexVector::getRealPart(LA_RealVector& out) const
{
    out.setDimension(getDimension());
    for (unsigned long i = 0; i < getDimension(); ++i) {
        out[i] = (*this)[i].real();
    }
}

void LA_ComplexVector::getImagPart(LA_RealVector& out) const
{
    out.setDimension(getDimension());
    for (unsigned long i = 0; i < getDimension(); ++i) {
        out[i] = (*this)[i].imag();
    }
}
