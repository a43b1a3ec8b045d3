#include "common/COM_Real.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <numbers>
#include <vector>

namespace {

constexpr unsigned long defaultWidth = 8;
constexpr unsigned long defaultPrecision = 6; ///< Of forms and result files: seven digits.
constexpr unsigned long mostAppended = 30;    ///< Precision that `append` goes up to.
constexpr unsigned long longest =
    100000;                        ///< A double has at most 767 digits; more are zeros or blanks.
constexpr double rounding = 1e-12; ///< Step of `surround`.

locale_t cLocale()
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// A power of ten, wrong by 2^-64 of itself at most.
struct Power
{
    std::uint64_t mMantissa; ///< With its first bit set.
    int mExponent;           ///< Of two, to be multiplied with.
};

constexpr int greatestPower = 330;
using Powers = std::array<Power, 2 * greatestPower + 1>;

/// Where a power stands in the table.
std::size_t placeOf(int power)
{
    const int place = power + greatestPower;
    return static_cast<std::size_t>(place);
}

/// Where a long double holds the mantissas.
constexpr bool hasPowers = std::numeric_limits<long double>::digits >= 64;

Powers computePowers()
{
    constexpr int bits = 64;
    Powers powers{};
    for (int i = -greatestPower; i <= greatestPower; ++i) {
        Power& power = powers.at(placeOf(i));
        const long double value = strtold_l(("1e" + std::to_string(i)).c_str(), nullptr, cLocale());
        const long double fraction = std::frexp(value, &power.mExponent);
        power.mMantissa = static_cast<std::uint64_t>(std::ldexp(fraction, bits));
        power.mExponent -= bits;
    }
    return powers;
}

/// The digits of `x` and its exponent of ten, as 1234567 and 3 for 1234.567. False for a number that is not normal, and
/// where the product with a power of ten is too near to the middle between two numbers of seven digits.
bool findSevenDigits(double x, unsigned& digits, int& exponent)
{
    static const Powers powers = computePowers();
    constexpr int bias = 1023;
    constexpr int places = 52;
    constexpr unsigned beyond = 10'000'000;
    constexpr std::uint64_t half = std::uint64_t{1} << 63U;
    constexpr std::uint64_t close = half >> 29U; // the error of the product is below 2^-36 here
    __extension__ using Product = unsigned __int128;

    const auto bits = std::bit_cast<std::uint64_t>(x);
    const int binary = static_cast<int>((bits >> static_cast<unsigned>(places)) & 0x7ffU) - bias;
    if (binary == -bias || binary == bias + 1) {
        return false;
    }
    constexpr std::uint64_t one = std::uint64_t{1} << static_cast<unsigned>(places);
    const std::uint64_t mantissa = (bits & (one - 1)) | one;
    // That of 2^binary, by log10(2) to 18 binary places: the one of x, or one below it.
    exponent = (binary * 78913) >> 18;
    for (;; ++exponent) {
        const Power& power = powers[placeOf(static_cast<int>(defaultPrecision) - exponent)];
        const Product product = static_cast<Product>(mantissa) * power.mMantissa;
        const auto shift = static_cast<unsigned>(places - binary - power.mExponent); // 88 to 97
        digits = static_cast<unsigned>(product >> shift);
        if (digits >= beyond) {
            continue;
        }
        const auto fraction = static_cast<std::uint64_t>(product >> (shift - 64));
        if (fraction - (half - close) < 2 * close) {
            return false;
        }
        digits += fraction >= half ? 1 : 0;
        if (digits == beyond) {
            digits /= 10;
            ++exponent;
        }
        return true;
    }
}

char* writePair(char* to, unsigned pair)
{
    to[0] = static_cast<char>('0' + pair / 10);
    to[1] = static_cast<char>('0' + pair % 10);
    return to + 2;
}

/// Writes the number with one digit before the point and six behind it.
char* writeSevenDigits(char* to, bool isNegative, unsigned digits, int exponent)
{
    *to = '-';
    to += isNegative ? 1 : 0;
    *to++ = static_cast<char>('0' + digits / 1000000);
    *to++ = '.';
    to = writePair(to, digits / 10000 % 100);
    to = writePair(to, digits / 100 % 100);
    to = writePair(to, digits % 100);
    *to++ = 'e';
    *to++ = exponent < 0 ? '-' : '+';
    auto size = static_cast<unsigned>(std::abs(exponent));
    if (size >= 100) {
        *to++ = static_cast<char>('0' + size / 100);
        size %= 100;
    }
    return writePair(to, size);
}

/// Writes `x` in scientific form to [first, last), with the characters of printf, and returns its end.
char* scientific(char* first, char* last, double x, unsigned long precision)
{
    if constexpr (hasPowers) {
        unsigned digits = 0;
        int exponent = 0;
        if (precision == defaultPrecision && (x == 0.0 || findSevenDigits(x, digits, exponent))) {
            return writeSevenDigits(first, std::signbit(x), digits, exponent);
        }
    }
    return std::to_chars(first, last, x, std::chars_format::scientific, static_cast<int>(precision))
        .ptr;
}

} // namespace

COM_Real::COM_Real(double value)
    : mReal(value)
{
    COM_TYPE(COM_Real);
}

std::string COM_Real::toString() const
{
    return toString(mReal);
}

std::string COM_Real::toString(double x)
{
    return toString(x, defaultWidth, defaultPrecision);
}

std::string COM_Real::toString(double x, unsigned long width, unsigned long precision)
{
    const unsigned long length = std::min(width, longest);
    if (precision <= mostAppended) {
        std::string text;
        append(text, x, length, precision);
        return text;
    }
    const unsigned long digits = std::min(precision, longest);
    std::vector<char> buffer(digits + 32);
    const char* const end = scientific(buffer.data(), buffer.data() + buffer.size(), x, digits);
    std::string text(static_cast<const char*>(buffer.data()), end);
    if (text.size() < length) {
        text.insert(0, length - text.size(), ' ');
    }
    return text;
}

std::string COM_Real::toString(double x, double step)
{
    return toString(step * std::floor(x / step));
}

void COM_Real::append(std::string& text, double x)
{
    append(text, x, defaultWidth, defaultPrecision);
}

void COM_Real::append(std::string& text, double x, unsigned long width, unsigned long precision)
{
    char buffer[64];
    const char* const end =
        scientific(buffer, buffer + sizeof buffer, x, std::min(precision, mostAppended));
    const auto length = static_cast<unsigned long>(end - buffer);
    if (length < width) {
        text.append(width - length, ' ');
    }
    text.append(static_cast<const char*>(buffer), length);
}

double COM_Real::parseReal(const std::string& text)
{
    std::size_t length = 0;
    return parseReal(text, length);
}

double COM_Real::parseReal(const std::string& text, std::size_t& length)
{
    std::string number = text;
    std::replace(number.begin(), number.end(), 'D', 'E');
    std::replace(number.begin(), number.end(), 'd', 'e');
    char* end = nullptr;
    const double value = strtod_l(number.c_str(), &end, cLocale());
    length = static_cast<std::size_t>(end - number.c_str());
    return value;
}

long COM_Real::toLong(double x)
{
    constexpr double beyond = 9223372036854775808.0; // 2^63
    if (x >= beyond) {
        return std::numeric_limits<long>::max();
    }
    if (x < -beyond) {
        return std::numeric_limits<long>::min();
    }
    return x == x ? static_cast<long>(x) : 0;
}

void COM_Real::shellSort(double* values, int n)
{
    for (int gap = n / 2; gap > 0; gap /= 2) {
        for (int i = gap; i < n; ++i) {
            const double value = values[i];
            int j = i;
            for (; j >= gap && values[j - gap] > value; j -= gap) {
                values[j] = values[j - gap];
            }
            values[j] = value;
        }
    }
}

void COM_Real::solveEq2(double a, double b, double c, double* x, unsigned long& n)
{
    n = 0;
    if (a == 0.0) {
        if (b != 0.0) {
            x[n++] = -c / b;
        }
        return;
    }
    const double discriminant = b * b - 4.0 * a * c;
    if (discriminant < 0.0) {
        return;
    }
    if (discriminant == 0.0) {
        x[n++] = -b / (2.0 * a);
        return;
    }
    // The root of larger magnitude first: -b and the square root then have one sign and do not cancel.
    const double q = -0.5 * (b + (b < 0.0 ? -std::sqrt(discriminant) : std::sqrt(discriminant)));
    x[0] = q / a;
    x[1] = c / q;
    n = 2;
    shellSort(x, 2);
}

void COM_Real::solveEq3(double a, double b, double c, double d, double* x, unsigned long& n)
{
    if (a == 0.0) {
        solveEq2(b, c, d, x, n);
        return;
    }
    // Scaled so that the coefficients are at most 1, y = x / scale.
    const double scale =
        std::max({std::fabs(b / a), std::sqrt(std::fabs(c / a)), std::cbrt(std::fabs(d / a))});
    n = 1;
    if (scale == 0.0) {
        x[0] = 0.0;
        return;
    }
    const double b1 = b / a / scale;
    const double c1 = c / a / scale / scale;
    const double d1 = d / a / scale / scale / scale;
    // y = z - b1 / 3 gives z^3 + p z + q = 0.
    const double p = c1 - b1 * b1 / 3.0;
    const double q = 2.0 * b1 * b1 * b1 / 27.0 - b1 * c1 / 3.0 + d1;
    const double discriminant = q * q / 4.0 + p * p * p / 27.0;
    // Errors of p and q move the discriminant by their size times |q| + p^2: measured by this, a fixed step
    // tells roots that meet from roots that are close together.
    const double size = std::fabs(q) + p * p;
    const double sign = size == 0.0 ? 0.0 : surround(discriminant / size);
    if (sign > 0.0) {
        const double root = std::sqrt(discriminant);
        const double u = std::cbrt(-q / 2.0 - sgn(q) * root);
        x[0] = u - (u == 0.0 ? 0.0 : p / (3.0 * u));
    } else if (sign < 0.0) {
        const double radius = 2.0 * std::sqrt(-p / 3.0);
        const double angle = std::acos(std::clamp(3.0 * q / (p * radius), -1.0, 1.0)) / 3.0;
        n = 3;
        for (int k = 0; k < 3; ++k) {
            x[k] = radius * std::cos(angle - 2.0 * std::numbers::pi * k / 3.0);
        }
    } else if (surround(p) == 0.0) {
        x[0] = 0.0;
    } else {
        n = 2;
        x[0] = 3.0 * q / p;
        x[1] = -1.5 * q / p;
    }
    for (unsigned long k = 0; k < n; ++k) {
        x[k] = x[k] - b1 / 3.0;
    }
    refineSmallRoots(b1, c1, d1, x, n);
    for (unsigned long k = 0; k < n; ++k) {
        x[k] *= scale;
    }
    shellSort(x, static_cast<int>(n));
}

void COM_Real::refineSmallRoots(double b, double c, double d, double* x, unsigned long& n)
{
    double largest =
        *std::max_element(x, x + n, [](double l, double r) { return std::fabs(l) < std::fabs(r); });
    // (y - largest) (y^2 + e y + f): f is the product of the other two, real or not.
    if (std::fabs(d) > std::fabs(largest * largest * largest) / 16.0) {
        return;
    }
    for (int step = 0; step < 2; ++step) {
        const double value = ((largest + b) * largest + c) * largest + d;
        largest -= value / ((3.0 * largest + 2.0 * b) * largest + c);
    }
    const double f = -d / largest;
    const double e = (f - c) / largest;
    const double scale = std::max(std::fabs(e), std::sqrt(std::fabs(f)));
    const double e1 = scale == 0.0 ? 0.0 : e / scale;
    const double f1 = scale == 0.0 ? 0.0 : f / scale / scale;
    const double discriminant = e1 * e1 - 4.0 * f1;
    x[0] = largest;
    n = 1;
    if (surround(discriminant) == 0.0) {
        x[n++] = -0.5 * e;
    } else if (discriminant > 0.0) {
        unsigned long others = 0;
        solveEq2(1.0, e1, f1, x + 1, others);
        std::for_each(x + 1, x + 1 + others, [scale](double& y) { y *= scale; });
        n += others;
    }
}

double COM_Real::surround(double x)
{
    return sgn(x) * std::floor(std::fabs(x) / rounding + 0.5) * rounding;
}

double COM_Real::sgn(double x)
{
    return static_cast<double>((x > 0.0) - (x < 0.0));
}
