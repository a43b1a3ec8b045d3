#include "linearAlgebra/LA_ComplexMatrix.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_IntegerMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "support/Description.h"

#include <gtest/gtest.h>

#include <complex>
#include <string>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Values = std::vector<Complex>;

LA_ComplexMatrix* newMatrix(const Values& values, unsigned long n, unsigned long p)
{
    auto* const matrix = LA_ComplexMatrix::New(n, p);
    matrix->setValues(values, n, p);
    return matrix;
}

Values valuesOf(const LA_ComplexMatrix& matrix)
{
    return {matrix.getValues(),
            matrix.getValues() + matrix.getLinesNumber() * matrix.getColumnsNumber()};
}

} // namespace

TEST(LA_ComplexMatrix, TheChainOfTypesEndsWithItsName)
{
    EXPECT_EQ(COM_Scoped(LA_ComplexMatrix::New(1, 1))->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Matrix",
                                        "LA_ComplexMatrix"}));
}

TEST(LA_ComplexMatrix, TheTextHasATabBehindEachValueAndALineForEachLine)
{
    EXPECT_EQ(COM_Scoped(newMatrix({{1.0, 2.0}, {-0.5, 1e100}}, 2, 1))->toString(),
              "(1.000000e+00,2.000000e+00)\t\n(-5.000000e-01,1.000000e+100)\t\n");
    EXPECT_EQ(COM_Scoped(newMatrix({{INFINITY, 0.0}}, 1, 1))->toString(),
              "(     inf,0.000000e+00)\t\n");
}

TEST(LA_ComplexMatrix, AnElementIsReadFromAText)
{
    const COM_Scoped m(LA_ComplexMatrix::New(1, 2));
    m->setValueFromString(0, 1, "(1.5,-2)");
    m->setValueFromString(1, 0, "(7,7)");
    EXPECT_EQ(valuesOf(*m), (Values{{0.0, 0.0}, {1.5, -2.0}}));
}

TEST(LA_ComplexMatrix, ARealOrAnIntegerMatrixMayBeCopiedIntoAComplexOne)
{
    const COM_Scoped m(newMatrix({{1.0, 1.0}, {2.0, 2.0}}, 2, 1));
    const COM_Scoped real(LA_RealMatrix::New(1, 2));
    real->setValue(0, 0, -1.5);
    m->setValues(*real);
    EXPECT_EQ(m->getLinesNumber(), 1UL);
    EXPECT_EQ(valuesOf(*m), (Values{{-1.5, 0.0}, {0.0, 0.0}}));
    const COM_Scoped integers(LA_IntegerMatrix::New(1, 1));
    integers->setValue(0, 0, 7);
    real->setValues(*integers);
    EXPECT_EQ(real->getValue(0, 0), 7.0);
    EXPECT_EQ(real->getColumnsNumber(), 1UL);
}

TEST(LA_ComplexMatrix, TheProductIsThatOfComplexNumbers)
{
    const COM_Scoped a(newMatrix({{0.0, 1.0}, {1.0, 0.0}}, 1, 2));
    const COM_Scoped b(newMatrix({{0.0, 1.0}, {2.0, 3.0}}, 2, 1));
    const COM_Scoped r(LA_ComplexMatrix::New(1, 1));
    a->matMult(*b, *r);
    EXPECT_EQ(valuesOf(*r), Values{Complex(1.0, 3.0)});
}

TEST(LA_ComplexMatrix, TheNormCountsBothParts)
{
    const COM_Scoped m(newMatrix({{3.0, -4.0}, {0.0, 12.0}}, 1, 2));
    EXPECT_EQ(m->norm2(), 169.0);
    EXPECT_EQ(m->norm(), 13.0);
}

TEST(LA_ComplexMatrix, TheLargestElementIsThatOfTheLargestModulus)
{
    const COM_Scoped m(newMatrix({{3.0, 0.0}, {-2.0, -3.0}, {0.0, 1.0}}, 1, 3));
    EXPECT_EQ(m->getMaxValue(), Complex(-2.0, -3.0));
}

TEST(LA_ComplexMatrix, TheAdjointIsConjugatedAndTransposed)
{
    const COM_Scoped m(newMatrix({{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}, {7.0, 8.0}}, 2, 2));
    m->transConjugate();
    EXPECT_EQ(valuesOf(*m), (Values{{1.0, -2.0}, {5.0, -6.0}, {3.0, -4.0}, {7.0, -8.0}}));
    m->transConjugate();
    EXPECT_EQ(valuesOf(*m), (Values{{1.0, 2.0}, {3.0, 4.0}, {5.0, 6.0}, {7.0, 8.0}}));
}

TEST(LA_ComplexMatrix, TheAdjointOfAWideMatrixTouchesOnlyItsSquare)
{
    const COM_Scoped m(
        newMatrix({{1.0, 2.0}, {3.0, 4.0}, {9.0, 9.0}, {5.0, 6.0}, {7.0, 8.0}, {0.0, 9.0}}, 2, 3));
    m->transConjugate();
    EXPECT_EQ(valuesOf(*m),
              (Values{{1.0, -2.0}, {5.0, -6.0}, {9.0, 9.0}, {3.0, -4.0}, {7.0, -8.0}, {0.0, 9.0}}));
}

TEST(LA_ComplexMatrix, AMatrixWithMoreLinesThanColumnsHasNoAdjointInPlace)
{
    const COM_Scoped m(newMatrix({{1.0, 2.0}, {3.0, 4.0}}, 2, 1));
    m->transConjugate();
    EXPECT_EQ(valuesOf(*m), (Values{{1.0, 2.0}, {3.0, 4.0}}));
}

TEST(LA_ComplexMatrix, ConjugationTurnsTheSignOfEachImaginaryPart)
{
    const COM_Scoped m(newMatrix({{1.0, 2.0}, {3.0, -4.0}}, 1, 2));
    m->conjugate();
    EXPECT_EQ(valuesOf(*m), (Values{{1.0, -2.0}, {3.0, 4.0}}));
}

TEST(LA_ComplexMatrix, WhatOneMatrixLacksCountsWholeInTheDistance)
{
    const COM_Scoped m(newMatrix({{1.0, 1.0}, {2.0, 0.0}, {3.0, 0.0}, {4.0, 0.0}}, 2, 2));
    const COM_Scoped w(newMatrix({{0.0, 1.0}, {2.0, 2.0}, {0.0, 5.0}}, 1, 3));
    // (0,0): 1, (0,1): 4, (0,2): 25, (1,0): 9, (1,1): 16
    EXPECT_EQ(m->distance2To(*w), 55.0);
    EXPECT_EQ(w->distance2To(*m), 55.0);
    EXPECT_EQ(m->distance2To(*m), 0.0);
}

TEST(LA_ComplexMatrix, StoredValuesStandInParentheses)
{
    const COM_Scoped m(newMatrix({{0.1234567891, -1.0}}, 1, 1));
    EXPECT_EQ(Description(*m).text(),
              "{mColumnsNumber=[1] mLinesNumber=[1] mValues=[(1.234568e-01,-1.000000e+00)]}");
    const COM_Scoped copy(LA_ComplexMatrix::New(2, 2));
    copy->loadFromMetaClass(Description(*m).node());
    EXPECT_EQ(valuesOf(*copy), Values{Complex(0.1234568, -1.0)});
}
