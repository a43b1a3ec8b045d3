#include "common/COM_Real.h"

#include "common/COM_Scoped.h"
#include "support/CaseName.h"
#include "support/Locales.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// What printf writes. The tests run in the C locale unless one says otherwise.
std::string printed(double x, unsigned long width, unsigned long precision)
{
    const std::string format = "%" + std::to_string(width) + "." + std::to_string(precision) + "e";
    std::vector<char> text(static_cast<std::size_t>(width) + precision + 32);
    std::snprintf(text.data(), text.size(), format.c_str(), x);
    return text.data();
}

/// Doubles of every sign and exponent, not-a-numbers and infinities included.
class BitPatterns
{
public:
    double next() { return std::bit_cast<double>(static_cast<std::uint64_t>(mRandom())); }

private:
    std::mt19937_64 mRandom{20};
};

constexpr double notableNumbers[] = {0.0,
                                     1.0,
                                     0.1,
                                     1.5,
                                     2.5,
                                     3.5,
                                     9.9999994,
                                     9.9999995,
                                     9.9999996,
                                     0.1234567891,
                                     123456.5,
                                     1234567.5,
                                     1e5,
                                     1e22,
                                     1e23,
                                     1e99,
                                     9.9999999e99,
                                     1e100,
                                     1e-99,
                                     1e-100,
                                     1e-300,
                                     1e300,
                                     1.7976931348623157e308,
                                     2.2250738585072014e-308,
                                     4.9406564584124654e-324,
                                     299792458.0,
                                     6.62607015e-34,
                                     infinity,
                                     notANumber};

struct TextCase
{
    const char* mText;
    double mValue;
};

void PrintTo(const TextCase& row, std::ostream* out)
{
    *out << caseName(row.mText);
}

class COM_RealTextTest : public testing::TestWithParam<TextCase>
{};

using Roots = std::vector<double>;

Roots rootsOf2(double a, double b, double c)
{
    double x[2] = {notANumber, notANumber};
    unsigned long n = 99;
    COM_Real::solveEq2(a, b, c, x, n);
    EXPECT_LE(n, 2UL);
    return {x, x + std::min(n, 2UL)};
}

Roots rootsOf3(double a, double b, double c, double d)
{
    double x[3] = {notANumber, notANumber, notANumber};
    unsigned long n = 99;
    COM_Real::solveEq3(a, b, c, d, x, n);
    EXPECT_LE(n, 3UL);
    return {x, x + std::min(n, 3UL)};
}

/// Roots of scale (x - p)(x - q).
Roots rootsOfProduct(double scale, double p, double q)
{
    return rootsOf2(scale, -scale * (p + q), scale * p * q);
}

/// Roots of scale (x - p)(x - q)(x - r).
Roots rootsOfProduct(double scale, double p, double q, double r)
{
    return rootsOf3(scale, -scale * (p + q + r), scale * (p * q + q * r + p * r),
                    -scale * p * q * r);
}

void expectRoots(const Roots& found, const Roots& expected, double tolerance)
{
    ASSERT_EQ(found.size(), expected.size()) << testing::PrintToString(found);
    for (std::size_t i = 0; i < found.size(); ++i) {
        EXPECT_NEAR(found[i], expected[i], tolerance);
    }
}

} // namespace

TEST(COM_Real, ABoxHoldsItsValue)
{
    const COM_Scoped box(COM_Real::New(-2.5));
    EXPECT_EQ(box->getReferenceCount(), 1);
    EXPECT_EQ(box->getReal(), -2.5);
    EXPECT_EQ(box->toString(), "-2.500000e+00");
    box->setReal(0.25);
    EXPECT_EQ(box->toString(), "2.500000e-01");
    EXPECT_EQ(box->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Real"}));
    EXPECT_EQ(COM_Scoped(COM_Real::New())->getReal(), 0.0);
}

TEST(COM_Real, OneIsWrittenWithSixZerosAndTheExponentZero)
{
    EXPECT_EQ(COM_Real::toString(1.0, 8, 6), "1.000000e+00");
    EXPECT_EQ(COM_Real::toString(1.0), "1.000000e+00");
}

TEST(COM_Real, SpecialValuesAreWrittenInSmallLettersUpToTheWidth)
{
    EXPECT_EQ(COM_Real::toString(0.0), "0.000000e+00");
    EXPECT_EQ(COM_Real::toString(-0.0), "-0.000000e+00");
    EXPECT_EQ(COM_Real::toString(infinity), "     inf");
    EXPECT_EQ(COM_Real::toString(-infinity), "    -inf");
    EXPECT_EQ(COM_Real::toString(std::copysign(notANumber, 1.0)), "     nan");
    EXPECT_EQ(COM_Real::toString(std::copysign(notANumber, -1.0)), "    -nan");
    EXPECT_EQ(COM_Real::toString(1e100), "1.000000e+100");
    EXPECT_EQ(COM_Real::toString(-4.9406564584124654e-324), "-4.940656e-324");
}

TEST(COM_Real, EveryTextIsThatOfPrintf)
{
    for (const double number : notableNumbers) {
        for (const unsigned long width : {0UL, 1UL, 7UL, 8UL, 13UL, 14UL, 20UL, 99UL}) {
            for (unsigned long precision = 0; precision <= 20; ++precision) {
                for (const double x : {number, -number}) {
                    ASSERT_EQ(COM_Real::toString(x, width, precision),
                              printed(x, width, precision));
                }
            }
        }
    }
}

TEST(COM_Real, TheTextsOfAllBitPatternsAreThoseOfPrintf)
{
    BitPatterns numbers;
    for (int i = 0; i < 50000; ++i) {
        const double x = numbers.next();
        ASSERT_EQ(COM_Real::toString(x), printed(x, 8, 6));
    }
}

TEST(COM_Real, WidthsAndPrecisionsBeyondAnyBufferArePrintedWhole)
{
    EXPECT_EQ(COM_Real::toString(0.1, 8, 1000), printed(0.1, 8, 1000));
    EXPECT_EQ(COM_Real::toString(4.9406564584124654e-324, 8, 900),
              printed(4.9406564584124654e-324, 8, 900));
    EXPECT_EQ(COM_Real::toString(0.1, 5000, 6), printed(0.1, 5000, 6));
    EXPECT_EQ(COM_Real::toString(infinity, 500, 6), std::string(497, ' ') + "inf");
}

TEST(COM_Real, AppendingGivesTheTextOfToStringBehindWhatIsThere)
{
    BitPatterns numbers;
    std::string text;
    std::string expected;
    for (int i = 0; i < 20000; ++i) {
        const double x = numbers.next();
        const auto width = static_cast<unsigned long>(i % 40);
        const auto precision = static_cast<unsigned long>(i % 31);
        text = "ab";
        COM_Real::append(text, x, width, precision);
        expected = "ab" + printed(x, width, precision);
        ASSERT_EQ(text, expected);
    }
}

TEST(COM_Real, SevenDigitsAreThoseOfTheCLibrary)
{
    BitPatterns numbers;
    for (int i = 0; i < 300000; ++i) {
        const double x = numbers.next();
        ASSERT_EQ(COM_Real::toString(x, 7, 6), printed(x, 7, 6));
    }
    // Beside the middle between two texts, where one bit decides, and beside powers of ten.
    for (int exponent = -320; exponent <= 308; ++exponent) {
        for (const char* digits : {"1", "1.0000005", "9.9999995", "9.999999", "1.2345675",
                                   "5.0000005", "2.4999995", "7.5000015"}) {
            double x = std::strtod((digits + ("e" + std::to_string(exponent))).c_str(), nullptr);
            for (int step = 0; step < 3; ++step) {
                x = std::nextafter(x, 0.0);
            }
            for (int step = -3; step <= 3; ++step) {
                ASSERT_EQ(COM_Real::toString(x, 7, 6), printed(x, 7, 6));
                ASSERT_EQ(COM_Real::toString(-x, 7, 6), printed(-x, 7, 6));
                x = std::nextafter(x, infinity);
            }
        }
    }
    // Ties go to the even digit.
    for (const double x : {1234567.5, 1234568.5, 0.5, 2097152.5, 4194303.5, 9999999.5}) {
        ASSERT_EQ(COM_Real::toString(x, 7, 6), printed(x, 7, 6));
    }
}

TEST(COM_Real, ANumberIsRoundedDownToAMultipleOfTheStep)
{
    EXPECT_EQ(COM_Real::toString(1.75, 0.5), "1.500000e+00");
    EXPECT_EQ(COM_Real::toString(1.5, 0.5), "1.500000e+00");
    EXPECT_EQ(COM_Real::toString(-1.75, 0.5), "-2.000000e+00");
    EXPECT_EQ(COM_Real::toString(1234.0, 100.0), "1.200000e+03");
    EXPECT_EQ(COM_Real::toString(0.2, 0.5), "0.000000e+00");
    EXPECT_EQ(COM_Real::toString(1.75, -0.5), "2.000000e+00");
    EXPECT_EQ(COM_Real::toString(infinity, 0.5), "     inf");
}

TEST(COM_Real, AStepOfZeroGivesWhatTheFormulaGives)
{
    const volatile double zero = 0.0;
    EXPECT_EQ(COM_Real::toString(1.0, 0.0), printed(zero * std::floor(1.0 / zero), 8, 6));
}

TEST_P(COM_RealTextTest, TextsAreReadAsTheCLibraryReadsThem)
{
    const double value = COM_Real::parseReal(GetParam().mText);
    if (std::isnan(GetParam().mValue)) {
        EXPECT_TRUE(std::isnan(value)) << value;
    } else {
        EXPECT_EQ(value, GetParam().mValue);
        EXPECT_EQ(std::signbit(value), std::signbit(GetParam().mValue));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_RealTextTest,
    testing::Values(
        TextCase{"", 0.0}, TextCase{"1.5", 1.5}, TextCase{"-1.5", -1.5}, TextCase{"+1.5", 1.5},
        TextCase{" \t\n\v\f\r1.5", 1.5}, TextCase{".5", 0.5}, TextCase{"5.", 5.0},
        TextCase{"1e3", 1000.0}, TextCase{"1E+3", 1000.0}, TextCase{"1.5D3", 1500.0},
        TextCase{"1.5d3", 1500.0}, TextCase{"1.5d-3", 1.5e-3}, TextCase{"1.5D+03", 1500.0},
        TextCase{"-2.5D0]", -2.5}, TextCase{"1e", 1.0}, TextCase{"1d", 1.0}, TextCase{"1d+", 1.0},
        TextCase{"1.5abc", 1.5}, TextCase{"1,5", 1.0}, TextCase{"1 5", 1.0}, TextCase{"abc", 0.0},
        TextCase{"D3", 0.0}, TextCase{"- 1", 0.0}, TextCase{"--1", 0.0}, TextCase{".", 0.0},
        TextCase{"e5", 0.0}, TextCase{"-0", -0.0}, TextCase{"0x1.8p3", 12.0},
        TextCase{"0X10", 16.0}, TextCase{"1e308", 1e308}, TextCase{"1e309", infinity},
        TextCase{"-1e309", -infinity}, TextCase{"1d400", infinity}, TextCase{"1e-400", 0.0},
        TextCase{"-1e-400", -0.0}, TextCase{"4.9406564584124654e-324", 4.9406564584124654e-324},
        TextCase{"1e-310", 1e-310}, TextCase{"inf", infinity}, TextCase{"-inf", -infinity},
        TextCase{"INFINITY", infinity}, TextCase{"     inf", infinity}, TextCase{"nan", notANumber},
        TextCase{"-nan", notANumber}, TextCase{"NaN(1)", notANumber}, TextCase{"0.1", 0.1},
        TextCase{"9007199254740993", 9007199254740992.0}, TextCase{"\240 5", 0.0}));

TEST(COM_Real, EveryLetterDIsReadAsEInHexadecimalNumbersToo)
{
    EXPECT_EQ(COM_Real::parseReal("0xD"), 14.0);
    EXPECT_EQ(COM_Real::parseReal("0xad"), 174.0);
}

TEST(COM_Real, TheLengthOfANumberEndsBehindItsLastCharacter)
{
    const std::vector<std::pair<std::string, std::size_t>> table{
        {"", 0},      {"abc", 0},    {"  x", 0},    {"1.5", 3},   {" -1.5 ", 5}, {"1.5D3", 5},
        {"1.5d3", 5}, {"1.5d+x", 3}, {"1.5\t2", 3}, {"1,5", 1},   {"inf", 3},    {"infinity", 8},
        {"nan", 3},   {"0x1p3]", 5}, {"1e400", 5},  {"1D3D4", 3}, {".", 0}};
    for (const auto& [text, expected] : table) {
        std::size_t length = 99;
        const double value = COM_Real::parseReal(text, length);
        EXPECT_EQ(length, expected) << text;
        const double alone = COM_Real::parseReal(text);
        EXPECT_TRUE(value == alone || (std::isnan(value) && std::isnan(alone))) << text;
    }
}

TEST(COM_Real, ReadingStopsAtAZeroByte)
{
    EXPECT_EQ(COM_Real::parseReal(std::string("1.5\0009", 5)), 1.5);
}

TEST(COM_Real, LongTextsAreReadToTheLastDigit)
{
    const std::string digits = "0." + std::string(2000, '0') + "1e2001";
    EXPECT_EQ(COM_Real::parseReal(digits), 1.0);
    EXPECT_EQ(COM_Real::parseReal("1" + std::string(400, '0')), infinity);
    EXPECT_EQ(COM_Real::parseReal(std::string(100000, ' ') + "2"), 2.0);
}

TEST(COM_Real, SevenDigitsOfEveryNumberComeBack)
{
    BitPatterns numbers;
    for (int i = 0; i < 20000; ++i) {
        const double x = numbers.next();
        const std::string text = COM_Real::toString(x);
        const double read = COM_Real::parseReal(text);
        ASSERT_EQ(COM_Real::toString(read), text);
        if (std::isnan(x)) {
            ASSERT_TRUE(std::isnan(read));
        } else {
            ASSERT_EQ(read, std::strtod(text.c_str(), nullptr));
        }
    }
    EXPECT_EQ(COM_Real::parseReal(COM_Real::toString(0.1234567891)), 0.1234568);
}

TEST(COM_Real, NoLocaleChangesATextOrItsReading)
{
    const CommaLocale locale;
    EXPECT_EQ(COM_Real::toString(1234.5), "1.234500e+03") << CommaLocale::libraryMark();
    EXPECT_EQ(COM_Real::toString(1234.5, 1.0), "1.234000e+03");
    EXPECT_EQ(COM_Real::parseReal("1.5"), 1.5);
    EXPECT_EQ(COM_Real::parseReal("1,5"), 1.0);
    EXPECT_EQ(COM_Real::parseReal("1.5D3"), 1500.0);
    std::string text;
    COM_Real::append(text, 0.5, 8, 6);
    EXPECT_EQ(text, "5.000000e-01");
}

TEST(COM_Real, ANumberIsCutToWhatALongCanHold)
{
    EXPECT_EQ(COM_Real::toLong(2.9), 2);
    EXPECT_EQ(COM_Real::toLong(-2.9), -2);
    EXPECT_EQ(COM_Real::toLong(-0.0), 0);
    EXPECT_EQ(COM_Real::toLong(9007199254740993.0), 9007199254740992);
    EXPECT_EQ(COM_Real::toLong(9223372036854774784.0), 9223372036854774784);
    EXPECT_EQ(COM_Real::toLong(9223372036854775808.0), std::numeric_limits<long>::max());
    EXPECT_EQ(COM_Real::toLong(-9223372036854775808.0), std::numeric_limits<long>::min());
    EXPECT_EQ(COM_Real::toLong(-1e300), std::numeric_limits<long>::min());
    EXPECT_EQ(COM_Real::toLong(infinity), std::numeric_limits<long>::max());
    EXPECT_EQ(COM_Real::toLong(-infinity), std::numeric_limits<long>::min());
    EXPECT_EQ(COM_Real::toLong(notANumber), 0);
}

TEST(COM_Real, SortingGivesTheOrderOfTheStandardLibrary)
{
    std::mt19937 random(3);
    for (int n = 0; n < 200; ++n) {
        std::vector<double> values(static_cast<std::size_t>(n));
        for (double& value : values) {
            value = static_cast<double>(random() % 50) - 25.0;
        }
        std::vector<double> expected = values;
        std::sort(expected.begin(), expected.end());
        COM_Real::shellSort(values.data(), n);
        ASSERT_EQ(values, expected) << n;
    }
}

TEST(COM_Real, SortingLargeArraysOfAnyNumbersWorksToo)
{
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> distribution(-1e300, 1e300);
    std::vector<double> values(20000);
    for (double& value : values) {
        value = distribution(random);
    }
    values[7] = infinity;
    values[8] = -infinity;
    std::vector<double> expected = values;
    std::sort(expected.begin(), expected.end());
    COM_Real::shellSort(values.data(), static_cast<int>(values.size()));
    EXPECT_EQ(values, expected);
}

TEST(COM_Real, SortingTouchesOnlyTheValuesNamed)
{
    double values[] = {3.0, 1.0, 2.0, 0.0};
    COM_Real::shellSort(values, 3);
    EXPECT_EQ((Roots{values, values + 4}), (Roots{1.0, 2.0, 3.0, 0.0}));
    COM_Real::shellSort(values, 0);
    COM_Real::shellSort(values, -5);
    COM_Real::shellSort(values + 3, 1);
    EXPECT_EQ((Roots{values, values + 4}), (Roots{1.0, 2.0, 3.0, 0.0}));
}

TEST(COM_Real, AQuadraticHasTwoRootsOneOrNone)
{
    EXPECT_EQ(rootsOf2(1.0, -3.0, 2.0), (Roots{1.0, 2.0}));
    EXPECT_EQ(rootsOf2(-1.0, 3.0, -2.0), (Roots{1.0, 2.0}));
    EXPECT_EQ(rootsOf2(1.0, 0.0, -4.0), (Roots{-2.0, 2.0}));
    EXPECT_EQ(rootsOf2(1.0, -2.0, 0.0), (Roots{0.0, 2.0}));
    EXPECT_EQ(rootsOf2(2.0, 2.0, 0.5), (Roots{-0.5}));
    EXPECT_EQ(rootsOf2(3.0, 0.0, 0.0), (Roots{0.0}));
    EXPECT_EQ(rootsOf2(1.0, 0.0, 1.0), Roots{});
    EXPECT_EQ(rootsOf2(1.0, 1.0, 1.0), Roots{});
}

TEST(COM_Real, AQuadraticWithoutItsHighestTermIsALine)
{
    EXPECT_EQ(rootsOf2(0.0, 2.0, 4.0), (Roots{-2.0}));
    EXPECT_EQ(rootsOf2(0.0, 0.0, 4.0), Roots{});
    EXPECT_EQ(rootsOf2(0.0, 0.0, 0.0), Roots{});
}

TEST(COM_Real, RootsOfVeryDifferentSizeKeepTheirDigits)
{
    const Roots roots = rootsOf2(1.0, -(1e8 + 1e-8), 1.0);
    ASSERT_EQ(roots.size(), 2UL);
    EXPECT_DOUBLE_EQ(roots[0], 1e-8);
    EXPECT_DOUBLE_EQ(roots[1], 1e8);
}

TEST(COM_Real, QuadraticsMadeFromTheirRootsGiveThemBack)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> distribution(-10.0, 10.0);
    for (int i = 0; i < 2000; ++i) {
        double p = distribution(random);
        double q = distribution(random);
        if (p > q) {
            std::swap(p, q);
        }
        // Roots lose half of their digits as they meet: sqrt(eps) = 1.5e-8 at a distance of nothing.
        if (q - p > 1e-3) {
            expectRoots(rootsOfProduct(distribution(random), p, q), {p, q}, 1e-9);
        }
    }
}

TEST(COM_Real, TheScaleOfAQuadraticDoesNotMoveItsRoots)
{
    // Powers of two, which leave the coefficients exact; their squares stay inside the range of doubles.
    for (const int exponent : {-500, -100, 0, 100, 500}) {
        const double scale = std::ldexp(1.0, exponent);
        SCOPED_TRACE(scale);
        expectRoots(rootsOfProduct(scale, 1.0, 2.0), {1.0, 2.0}, 1e-14);
        expectRoots(rootsOfProduct(scale, 1.5, 1.5), {1.5}, 1e-14);
    }
}

TEST(COM_Real, RootsOfAnySizeAreFoundInAQuadratic)
{
    for (const double size : {1e-150, 1e-30, 1e30, 1e150}) {
        SCOPED_TRACE(size);
        expectRoots(rootsOfProduct(1.0, size, 3.0 * size), {size, 3.0 * size}, 1e-14 * size);
        expectRoots(rootsOfProduct(1.0, -2.0 * size, -2.0 * size), {-2.0 * size}, 1e-14 * size);
    }
}

TEST(COM_Real, ACubicHasOneTwoOrThreeRoots)
{
    expectRoots(rootsOfProduct(1.0, 1.0, 2.0, 3.0), {1.0, 2.0, 3.0}, 1e-14);
    expectRoots(rootsOfProduct(-2.0, -1.0, 0.0, 4.0), {-1.0, 0.0, 4.0}, 1e-14);
    expectRoots(rootsOfProduct(1.0, 1.0, 1.0, 3.0), {1.0, 3.0}, 1e-14);
    expectRoots(rootsOfProduct(1.0, -3.0, 7.0, -3.0), {-3.0, 7.0}, 1e-14);
    expectRoots(rootsOfProduct(1.0, 0.0, 0.0, 5.0), {0.0, 5.0}, 1e-14);
    expectRoots(rootsOfProduct(1.0, 2.0, 2.0, 2.0), {2.0}, 1e-14);
    expectRoots(rootsOf3(1.0, 0.0, 0.0, 0.0), {0.0}, 0.0);
    expectRoots(rootsOf3(1.0, 0.0, 0.0, -8.0), {2.0}, 1e-14);
    expectRoots(rootsOf3(1.0, 0.0, 0.0, 8.0), {-2.0}, 1e-14);
    expectRoots(rootsOf3(1.0, 0.0, 1.0, 0.0), {0.0}, 1e-14);
    expectRoots(rootsOf3(1.0, -1.0, 1.0, -1.0), {1.0}, 1e-12);
}

TEST(COM_Real, ACubicWithoutItsHighestTermIsAQuadratic)
{
    EXPECT_EQ(rootsOf3(0.0, 1.0, -3.0, 2.0), (Roots{1.0, 2.0}));
    EXPECT_EQ(rootsOf3(0.0, 0.0, 2.0, 4.0), (Roots{-2.0}));
    EXPECT_EQ(rootsOf3(0.0, 0.0, 0.0, 4.0), Roots{});
}

TEST(COM_Real, CubicsMadeFromTheirRootsGiveThemBack)
{
    std::mt19937 random(6);
    std::uniform_real_distribution<double> distribution(-10.0, 10.0);
    for (int i = 0; i < 5000; ++i) {
        Roots roots{distribution(random), distribution(random), distribution(random)};
        std::sort(roots.begin(), roots.end());
        if (roots[1] - roots[0] > 0.5 && roots[2] - roots[1] > 0.5) {
            SCOPED_TRACE(testing::PrintToString(roots));
            // A root moves by eps |p(x)| / |p'(x)|: 1e-16 * 1000 / 0.5 for the closest, with room.
            expectRoots(rootsOfProduct(1.0 + i, roots[0], roots[1], roots[2]), roots, 1e-11);
        }
    }
}

TEST(COM_Real, CubicsWithOneRealRootGiveItBack)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> distribution(-5.0, 5.0);
    for (int i = 0; i < 5000; ++i) {
        const double r = distribution(random);
        const double re = distribution(random);
        const double im = 0.5 + std::fabs(distribution(random));
        const double q = re * re + im * im;
        // (x - r)(x^2 - 2 re x + q)
        SCOPED_TRACE(testing::PrintToString(Roots{r, re, im}));
        expectRoots(rootsOf3(1.0, -(r + 2.0 * re), q + 2.0 * r * re, -r * q), {r}, 1e-10);
    }
}

TEST(COM_Real, TheScaleOfACubicDoesNotMoveItsRoots)
{
    for (const int exponent : {-1000, -600, -100, 0, 100, 600, 1000}) {
        const double scale = std::ldexp(1.0, exponent);
        SCOPED_TRACE(scale);
        expectRoots(rootsOfProduct(scale, 1.0, 2.0, 3.0), {1.0, 2.0, 3.0}, 1e-13);
        expectRoots(rootsOfProduct(scale, 1.0, 1.0, 3.0), {1.0, 3.0}, 1e-13);
        expectRoots(rootsOfProduct(scale, 1.0, 1.0, 1.0), {1.0}, 1e-13);
    }
}

TEST(COM_Real, RootsOfAnySizeAreFoundInACubic)
{
    for (const double size : {1e-100, 1e-30, 1e-6, 1e6, 1e30, 1e100}) {
        SCOPED_TRACE(size);
        expectRoots(rootsOfProduct(1.0, size, 2.0 * size, 3.0 * size),
                    {size, 2.0 * size, 3.0 * size}, 1e-13 * size);
        expectRoots(rootsOfProduct(1.0, size, size, -3.0 * size), {-3.0 * size, size},
                    1e-13 * size);
        expectRoots(rootsOfProduct(1.0, size, size, size), {size}, 1e-13 * size);
    }
}

TEST(COM_Real, ThreeRootsAFewPercentApartAreAllFound)
{
    // The coefficients are good to eps = 2e-16, so each root is to eps / 0.04^2 = 1e-13, with room.
    expectRoots(rootsOfProduct(1.0, 1.0, 1.04, 1.08), {1.0, 1.04, 1.08}, 1e-11);
}

TEST(COM_Real, TwoRootsCloseTogetherAreTwoBesideAThirdFarAway)
{
    expectRoots(rootsOfProduct(1.0, 1.0, 1.0001, 5.0), {1.0, 1.0001, 5.0}, 1e-10);
}

TEST(COM_Real, RootsOfDifferentSizeAreAllFoundInACubic)
{
    // The two smaller ones are 1e-3 of the largest apart: eps * 1e3 / 1e-3 = 2e-10, with room.
    expectRoots(rootsOfProduct(1.0, 1e-3, 1.0, 1e3), {1e-3, 1.0, 1e3}, 1e-9);
    expectRoots(rootsOfProduct(1.0, -1e3, 1e-3, 1.0), {-1e3, 1e-3, 1.0}, 1e-9);
}

TEST(COM_Real, SmallRootsOfACubicKeepTheirDigits)
{
    expectRoots(rootsOf3(1e-17, 1.0, -3.0, 2.0), {-1e17, 1.0, 2.0}, 32.0);
    const Roots small = rootsOf3(1e-17, 1.0, -3.0, 2.0);
    EXPECT_NEAR(small[1], 1.0, 1e-14);
    EXPECT_NEAR(small[2], 2.0, 1e-14);
    const Roots tiny = rootsOfProduct(1.0, 1e-9, 1.0, 100.0);
    ASSERT_EQ(tiny.size(), 3UL);
    EXPECT_NEAR(tiny[0], 1e-9, 1e-23);
    EXPECT_EQ(rootsOf3(1.0, -1e6, 1.0, -1e6).size(), 1UL) << "the other two are imaginary";
    EXPECT_EQ(rootsOfProduct(1.0, 1.0, 1.0, 1e6).size(), 2UL);
}

TEST(COM_Real, RootsThatHardlyDifferAreOne)
{
    expectRoots(rootsOfProduct(1.0, 1.0, 1.0 + 1e-9, 3.0), {1.0, 3.0}, 1e-8);
    expectRoots(rootsOfProduct(1.0, 1.0, 1.0 + 1e-9, 1.0 + 2e-9), {1.0}, 1e-8);
}

TEST(COM_Real, TwoRootsMeetWhereTheDiscriminantRoundsToZero)
{
    // x^3 - 3 x + 2 has the double root 1. With e added to the last term the discriminant, measured by the
    // size of its own errors, is 0.0267 e, and it is rounded to multiples of 1e-12: the step is at 1.87e-11.
    EXPECT_EQ(rootsOf3(1.0, 0.0, -3.0, 2.0 - 2.5e-11).size(), 3UL);
    EXPECT_EQ(rootsOf3(1.0, 0.0, -3.0, 2.0 - 1.5e-11).size(), 2UL);
    EXPECT_EQ(rootsOf3(1.0, 0.0, -3.0, 2.0 + 1.5e-11).size(), 2UL);
    EXPECT_EQ(rootsOf3(1.0, 0.0, -3.0, 2.0 + 2.5e-11).size(), 1UL);
}
