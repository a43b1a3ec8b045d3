#pragma once
#include "common/COM_Object.h"

#include <string>

/// A boxed real, and the texts of reals in forms and files. No operation depends on the locale.
class COM_Real : public COM_Object
{
    COM_CLASS(COM_Real)
public:
    void setReal(double value) { mReal = value; }
    double getReal() const { return mReal; }

    /// Seven significant digits: `toString(x, 8, 6)`.
    std::string toString() const override;
    static std::string toString(double x);
    /// What printf writes for "%<width>.<precision>e": blanks in front up to `width`, infinities and
    /// not-a-numbers as inf and nan.
    static std::string toString(double x, unsigned long width, unsigned long precision);
    /// `x` rounded down to a multiple of `step`.
    static std::string toString(double x, double step);
    /// Appends the text of `toString(x)`.
    static void append(std::string& text, double x);
    /// Appends the text of `toString(x, width, precision)` for a precision of at most 30, without
    /// allocating when `text` has room: result files are written with it.
    static void append(std::string& text, double x, unsigned long width, unsigned long precision);

    /// Reads a number as the C library does, with Fortran exponents ("1.5D3"): blanks and a sign may
    /// stand in front, hexadecimal numbers, inf and nan are known, reading stops at the first foreign
    /// character, no number gives 0. Every letter D counts as an E, also as a hexadecimal digit.
    static double parseReal(const std::string& text);
    /// The same, telling how many characters the number takes: none when there is no number.
    static double parseReal(const std::string& text, std::size_t& length);

    /// `x` without its fraction, cut to what a long can hold; not-a-number gives 0.
    static long toLong(double x);

    /// Sorts `values[0..n)` in place, ascending, by Shell's method.
    static void shellSort(double* values, int n);

    /// Real roots of a x^2 + b x + c = 0, ascending and each once: at most 2 go to `x`, their number to
    /// `n`. A polynomial without unknown has none. Requires: b^2 and a c neither overflow nor vanish.
    static void solveEq2(double a, double b, double c, double* x, unsigned long& n);
    /// Real roots of a x^3 + b x^2 + c x + d = 0, ascending and each once: at most 3 go to `x`, their
    /// number to `n`. Cardano's formulas, in trigonometric form where there are three roots; two roots that
    /// are small beside the third are those of the quotient. Roots that are less than a few 1e-6 of the
    /// largest apart, of the larger of such two where they are small, count as one.
    static void solveEq3(double a, double b, double c, double d, double* x, unsigned long& n);

protected:
    explicit COM_Real(double value = 0.0);
    ~COM_Real() override = default;

private:
    /// Roots of y^3 + b y^2 + c y + d whose largest is far from the other two: divides it out and solves the
    /// rest, so that small roots keep their digits. Others stay as they are.
    static void refineSmallRoots(double b, double c, double d, double* x, unsigned long& n);
    /// The magnitude rounded to a multiple of 1e-12, with the sign given back.
    static double surround(double x);
    /// -1, 0 or 1.
    static double sgn(double x);

    double mReal;
};
