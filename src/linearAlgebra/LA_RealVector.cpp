#include "linearAlgebra/LA_RealVector.h"

#include "common/COM_Real.h"
#include "common/COM_Scoped.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double smallest = 1e-50; ///< Moduli below it have the logarithm of this one.
constexpr double smallestLog10 = -50.0;

} // namespace

LA_RealVector::LA_RealVector(unsigned long n)
    : LA_Vector<double>(n)
{
    COM_TYPE(LA_RealVector);
}

LA_RealVector::LA_RealVector(const LA_RealVector& v)
    : LA_RealVector(v.getDimension())
{
    setValues(v);
}

void LA_RealVector::setValueFromString(unsigned long index, const std::string& text)
{
    setValue(index, COM_Real::parseReal(text));
}

double LA_RealVector::norm2() const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < getDimension(); ++i) {
        sum += (*this)[i] * (*this)[i];
    }
    return sum;
}

void LA_RealVector::vabs(LA_RealVector& out) const
{
    out.setDimension(getDimension());
    for (unsigned long i = 0; i < getDimension(); ++i) {
        out[i] = std::fabs((*this)[i]);
    }
}

double LA_RealVector::distance2To(const LA_Vector<double>& v) const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < std::max(getDimension(), v.getDimension()); ++i) {
        const double difference = getValue(i) - v.getValue(i);
        sum += difference * difference;
    }
    return sum;
}

void LA_RealVector::min(const LA_Vector<double>& v)
{
    for (unsigned long i = 0; i < std::min(getDimension(), v.getDimension()); ++i) {
        (*this)[i] = std::min((*this)[i], v[i]);
    }
}

void LA_RealVector::max(const LA_Vector<double>& v)
{
    for (unsigned long i = 0; i < std::min(getDimension(), v.getDimension()); ++i) {
        (*this)[i] = std::max((*this)[i], v[i]);
    }
}

void LA_RealVector::logTransform()
{
    for (unsigned long i = 0; i < getDimension(); ++i) {
        const double modulus = std::fabs((*this)[i]);
        (*this)[i] = modulus < smallest ? smallestLog10 * std::log(10.0) : std::log(modulus);
    }
}

void LA_RealVector::log10Transform()
{
    for (unsigned long i = 0; i < getDimension(); ++i) {
        const double modulus = std::fabs((*this)[i]);
        (*this)[i] = modulus < smallest ? smallestLog10 : std::log10(modulus);
    }
}

std::string LA_RealVector::toString() const
{
    std::string text = "(";
    for (unsigned long i = 0; i < getDimension(); ++i) {
        text += (i > 0 ? "," : "") + COM_Real::toString((*this)[i]);
    }
    return text + ")";
}

std::string LA_RealVector::toString(double precision) const
{
    std::string text = "(";
    for (unsigned long i = 0; i < getDimension(); ++i) {
        text += (i > 0 ? "," : "") + COM_Real::toString((*this)[i], precision);
    }
    return text + ")";
}

void LA_RealVector::rotate(const LA_RealVector& axis, double angle)
{
    const double s = scalarProduct(axis);
    const COM_Scoped u(LA_RealVector::New(*this));
    u->sub(s, axis);
    const COM_Scoped v(LA_RealVector::New(axis));
    v->vectorProduct(*u);
    const double length = v->norm();
    if (length != 0.0) {
        v->dividedBy(length);
    }
    const double radius = u->norm();
    u->multipliedBy(std::cos(angle));
    u->add(std::sin(angle) * radius, *v);
    u->add(s, axis);
    setValues(*u); // last: the axis may be this vector
}
