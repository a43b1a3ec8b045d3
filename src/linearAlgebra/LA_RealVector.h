#pragma once
#include "linearAlgebra/LA_Vector.h"

extern template class LA_Vector<double>;

/// A vector of double.
class LA_RealVector : public LA_Vector<double>
{
    COM_CLASS(LA_RealVector)
public:
    void setValueFromString(unsigned long index, const std::string& text) override;
    double norm2() const override;
    void vabs(LA_RealVector& out) const override;
    double distance2To(const LA_Vector<double>& v) const override;
    using LA_Vector<double>::min;
    using LA_Vector<double>::max;
    void min(const LA_Vector<double>& v) override;
    void max(const LA_Vector<double>& v) override;
    /// ln|x|; below a modulus of 1e-50, -50 ln 10.
    void logTransform() override;
    /// log10|x|; below a modulus of 1e-50, -50.
    void log10Transform() override;
    /// "(", the values with seven significant digits, joined by ",", ")".
    std::string toString() const override;
    /// The same with the values rounded down to multiples of `precision`.
    virtual std::string toString(double precision) const;

    /// Rotates about the unit vector `axis` by `angle`, in radians. With s = this . axis and
    /// u = this - s axis: cos(angle) u + sin(angle) |u| v + s axis, v being the unit vector along
    /// axis x u.
    void rotate(const LA_RealVector& axis, double angle);

protected:
    explicit LA_RealVector(unsigned long n);
    LA_RealVector(const LA_RealVector& v);
    explicit LA_RealVector(const LA_RealVector* v)
        : LA_RealVector(*v)
    {}
    ~LA_RealVector() override = default;
};
