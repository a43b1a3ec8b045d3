#pragma once
#include "common/COM_Object.h"

#include <complex>
#include <string>

/// A boxed complex number, and the texts of complex numbers: "(re,im)".
class COM_Complex : public COM_Object
{
    COM_CLASS(COM_Complex)
public:
    static constexpr std::complex<double> C_I{0.0, 1.0}; ///< The imaginary unit.

    void setComplex(const std::complex<double>& value) { mComplex = value; }
    std::complex<double> getComplex() const { return mComplex; }

    std::string toString() const override;
    /// Both parts with seven significant digits: `toString(c, 8, 6)`.
    static std::string toString(const std::complex<double>& c);
    /// "(", real part, ",", imaginary part, ")", each as `COM_Real::toString` writes it.
    static std::string toString(const std::complex<double>& c, unsigned long width,
                                unsigned long precision);
    /// Reads what stands between the first "(", the first "," and the first ")". A piece that lacks one
    /// of its marks counts as empty, and so as 0.
    static std::complex<double> parseComplex(const std::string& text);

protected:
    explicit COM_Complex(const std::complex<double>& value = {});
    ~COM_Complex() override = default;

private:
    std::complex<double> mComplex;
};
