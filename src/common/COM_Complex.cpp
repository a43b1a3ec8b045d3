#include "common/COM_Complex.h"

#include "common/COM_Real.h"

namespace {

/// The text between the positions of two marks, empty unless both marks are there in this order.
std::string between(const std::string& text, std::size_t first, std::size_t last)
{
    if (first == std::string::npos || last == std::string::npos || last < first) {
        return {};
    }
    return text.substr(first + 1, last - first - 1);
}

} // namespace

COM_Complex::COM_Complex(const std::complex<double>& value)
    : mComplex(value)
{
    COM_TYPE(COM_Complex);
}

std::string COM_Complex::toString() const
{
    return toString(mComplex);
}

std::string COM_Complex::toString(const std::complex<double>& c)
{
    return toString(c, 8, 6);
}

std::string COM_Complex::toString(const std::complex<double>& c, unsigned long width,
                                  unsigned long precision)
{
    return "(" + COM_Real::toString(c.real(), width, precision) + ","
           + COM_Real::toString(c.imag(), width, precision) + ")";
}

std::complex<double> COM_Complex::parseComplex(const std::string& text)
{
    const std::size_t open = text.find('(');
    const std::size_t comma = text.find(',');
    const std::size_t close = text.find(')');
    return {COM_Real::parseReal(between(text, open, comma)),
            COM_Real::parseReal(between(text, comma, close))};
}
