#pragma once
#include "linearAlgebra/LA_Vector.h"

extern template class LA_Vector<unsigned long>;

/// A vector of unsigned long.
class LA_IntegerVector : public LA_Vector<unsigned long>
{
    COM_CLASS(LA_IntegerVector)
public:
    void setValueFromString(unsigned long index, const std::string& text) override;
    double norm2() const override;
    void vabs(LA_RealVector& out) const override;
    double distance2To(const LA_Vector<unsigned long>& v) const override;
    using LA_Vector<unsigned long>::min;
    using LA_Vector<unsigned long>::max;
    void min(const LA_Vector<unsigned long>& v) override;
    void max(const LA_Vector<unsigned long>& v) override;
    /// ln x cut to an integer; 0 becomes -50, stored in the unsigned value.
    void logTransform() override;
    /// The same to base 10.
    void log10Transform() override;
    /// "(", the values joined by ",", ")".
    std::string toString() const override;

protected:
    explicit LA_IntegerVector(unsigned long n);
    LA_IntegerVector(const LA_IntegerVector& v);
    explicit LA_IntegerVector(const LA_IntegerVector* v)
        : LA_IntegerVector(*v)
    {}
    ~LA_IntegerVector() override = default;
};
