#include "common/COM_Complex.h"

#include "common/COM_Scoped.h"
#include "support/CaseName.h"
#include "support/Locales.h"

#include <gtest/gtest.h>

#include <complex>
#include <string>
#include <vector>

namespace {

using Complex = std::complex<double>;

struct TextCase
{
    const char* mText;
    Complex mValue;
};

void PrintTo(const TextCase& row, std::ostream* out)
{
    *out << caseName(row.mText);
}

class COM_ComplexTextTest : public testing::TestWithParam<TextCase>
{};

} // namespace

TEST(COM_Complex, ABoxHoldsItsValue)
{
    const COM_Scoped box(COM_Complex::New(Complex(1.0, -2.0)));
    EXPECT_EQ(box->getReferenceCount(), 1);
    EXPECT_EQ(box->getComplex(), Complex(1.0, -2.0));
    EXPECT_EQ(box->toString(), "(1.000000e+00,-2.000000e+00)");
    box->setComplex({0.0, 3.0});
    EXPECT_EQ(box->toString(), "(0.000000e+00,3.000000e+00)");
    EXPECT_EQ(box->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Complex"}));
    EXPECT_EQ(COM_Scoped(COM_Complex::New())->getComplex(), Complex(0.0, 0.0));
}

TEST(COM_Complex, TheImaginaryUnitIsZeroAndOne)
{
    EXPECT_EQ(COM_Complex::C_I, Complex(0.0, 1.0));
    EXPECT_EQ(COM_Complex::C_I * COM_Complex::C_I, Complex(-1.0, 0.0));
}

TEST(COM_Complex, TheTextIsBothPartsInParentheses)
{
    EXPECT_EQ(COM_Complex::toString(Complex(0.1234567891, -1e-100)),
              "(1.234568e-01,-1.000000e-100)");
    EXPECT_EQ(COM_Complex::toString(Complex(1.0, 2.0), 12, 2), "(    1.00e+00,    2.00e+00)");
    EXPECT_EQ(COM_Complex::toString(Complex(INFINITY, 0.0), 7, 6), "(    inf,0.000000e+00)");
    EXPECT_EQ(COM_Complex::toString(Complex(INFINITY, 0.0)), "(     inf,0.000000e+00)");
}

TEST_P(COM_ComplexTextTest, TextsAreReadBetweenTheirMarks)
{
    EXPECT_EQ(COM_Complex::parseComplex(GetParam().mText), GetParam().mValue);
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_ComplexTextTest,
    testing::Values(TextCase{"(1,2)", {1.0, 2.0}}, TextCase{"( 1.5 , -2.5 )", {1.5, -2.5}},
                    TextCase{"(1.5D3,2d-1)", {1500.0, 0.2}}, TextCase{"x(1,2)y", {1.0, 2.0}},
                    TextCase{"(1,2)(3,4)", {1.0, 2.0}}, TextCase{"(1,2,3)", {1.0, 2.0}},
                    TextCase{"(,)", {0.0, 0.0}}, TextCase{"()", {0.0, 0.0}},
                    TextCase{"1,2", {0.0, 0.0}}, TextCase{"5", {0.0, 0.0}},
                    TextCase{"", {0.0, 0.0}}, TextCase{",7(3)", {0.0, 7.0}},
                    TextCase{")(7,3", {7.0, 0.0}}, TextCase{",", {0.0, 0.0}},
                    TextCase{")(", {0.0, 0.0}}));

TEST(COM_Complex, TextsWithTheirMarksInAnyOrderAreReadWithoutHarm)
{
    // Every arrangement of up to five marks and digits: nothing is read outside the text.
    const std::string letters = "(,)7";
    for (int code = 0; code < 1024; ++code) {
        std::string text;
        for (int rest = code, i = 0; i < 5; ++i, rest /= 4) {
            text += letters[static_cast<std::size_t>(rest % 4)];
        }
        const Complex value = COM_Complex::parseComplex(text);
        ASSERT_GE(value.real(), 0.0) << text;
        ASSERT_LE(value.real(), 777.0) << text;
        ASSERT_GE(value.imag(), 0.0) << text;
        ASSERT_LE(value.imag(), 777.0) << text;
    }
}

TEST(COM_Complex, NoLocaleChangesATextOrItsReading)
{
    const CommaLocale locale;
    EXPECT_EQ(COM_Complex::toString(Complex(1234.5, 0.5)), "(1.234500e+03,5.000000e-01)");
    EXPECT_EQ(COM_Complex::parseComplex("(1.5,2.5)"), Complex(1.5, 2.5));
}
