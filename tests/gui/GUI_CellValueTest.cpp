#include "gui/GUI_CellValue.h"

#include <gtest/gtest.h>

#include <limits>

using Complex = std::complex<double>;

TEST(GUI_CellValue, WritesSevenDigitsOfARealNumber)
{
    EXPECT_EQ(GUI_CellValue::toString(0.0), "0.000000e+00");
    EXPECT_EQ(GUI_CellValue::toString(-1.23456789), "-1.234568e+00");
    EXPECT_EQ(GUI_CellValue::toString(1e-300), "1.000000e-300");
    EXPECT_EQ(GUI_CellValue::toString(std::numeric_limits<double>::infinity()), "     inf");
}

TEST(GUI_CellValue, WritesSevenDigitsOfEachPartOfAComplexNumber)
{
    EXPECT_EQ(GUI_CellValue::toString(Complex(1.5, -0.25)), "(1.500000e+00,-2.500000e-01)");
    EXPECT_EQ(GUI_CellValue::toString(Complex(0.0, std::numeric_limits<double>::infinity())),
              "(0.000000e+00,    inf)");
}

TEST(GUI_CellValue, WritesIntegersInDecimal)
{
    EXPECT_EQ(GUI_CellValue::toString(0UL), "0");
    EXPECT_EQ(GUI_CellValue::toString(std::numeric_limits<unsigned long>::max()),
              "18446744073709551615");
}

TEST(GUI_CellValue, ConjugatesComplexNumbersAlone)
{
    EXPECT_EQ(GUI_CellValue::conjugate(-2.5), -2.5);
    EXPECT_EQ(GUI_CellValue::conjugate(7UL), 7UL);
    EXPECT_EQ(GUI_CellValue::conjugate(Complex(1.0, 2.0)), Complex(1.0, -2.0));
}
