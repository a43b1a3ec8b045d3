#include "linearAlgebra/LA_IntegerVector.h"

#include "common/COM_Integer.h"
#include "linearAlgebra/LA_RealVector.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr long logOfZero = -50;

unsigned long truncated(unsigned long value, double logarithm)
{
    return static_cast<unsigned long>(value == 0 ? logOfZero : static_cast<long>(logarithm));
}

} // namespace

LA_IntegerVector::LA_IntegerVector(unsigned long n)
    : LA_Vector<unsigned long>(n)
{
    COM_TYPE(LA_IntegerVector);
}

LA_IntegerVector::LA_IntegerVector(const LA_IntegerVector& v)
    : LA_IntegerVector(v.getDimension())
{
    setValues(v);
}

void LA_IntegerVector::setValueFromString(unsigned long index, const std::string& text)
{
    setValue(index, COM_Integer::parseInt(text));
}

double LA_IntegerVector::norm2() const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < getDimension(); ++i) {
        sum += static_cast<double>((*this)[i]) * static_cast<double>((*this)[i]);
    }
    return sum;
}

void LA_IntegerVector::vabs(LA_RealVector& out) const
{
    out.setDimension(getDimension());
    for (unsigned long i = 0; i < getDimension(); ++i) {
        out[i] = static_cast<double>((*this)[i]);
    }
}

double LA_IntegerVector::distance2To(const LA_Vector<unsigned long>& v) const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < std::max(getDimension(), v.getDimension()); ++i) {
        const double difference =
            static_cast<double>(getValue(i)) - static_cast<double>(v.getValue(i));
        sum += difference * difference;
    }
    return sum;
}

void LA_IntegerVector::min(const LA_Vector<unsigned long>& v)
{
    for (unsigned long i = 0; i < std::min(getDimension(), v.getDimension()); ++i) {
        (*this)[i] = std::min((*this)[i], v[i]);
    }
}

void LA_IntegerVector::max(const LA_Vector<unsigned long>& v)
{
    for (unsigned long i = 0; i < std::min(getDimension(), v.getDimension()); ++i) {
        (*this)[i] = std::max((*this)[i], v[i]);
    }
}

void LA_IntegerVector::logTransform()
{
    for (unsigned long i = 0; i < getDimension(); ++i) {
        (*this)[i] =
            truncated((*this)[i], std::log(std::max(static_cast<double>((*this)[i]), 1.0)));
    }
}

void LA_IntegerVector::log10Transform()
{
    for (unsigned long i = 0; i < getDimension(); ++i) {
        (*this)[i] =
            truncated((*this)[i], std::log10(std::max(static_cast<double>((*this)[i]), 1.0)));
    }
}

std::string LA_IntegerVector::toString() const
{
    std::string text = "(";
    for (unsigned long i = 0; i < getDimension(); ++i) {
        text += (i > 0 ? "," : "") + COM_Integer::toString(static_cast<long>((*this)[i]));
    }
    return text + ")";
}
