#pragma once
#include <complex>
#include <string>

/// How the values of matrices and vectors stand in the cells of a table. The way back is the object's own
/// `setValueFromString`.
class GUI_CellValue
{
public:
    /// Seven significant digits.
    static std::string toString(double value);
    /// "(re,im)", each with seven significant digits.
    static std::string toString(const std::complex<double>& value);
    /// Decimal.
    static std::string toString(unsigned long value);

    /// Real numbers are their own conjugates.
    static double conjugate(double value) { return value; }
    static std::complex<double> conjugate(const std::complex<double>& value)
    {
        return std::conj(value);
    }
    static unsigned long conjugate(unsigned long value) { return value; }
};
