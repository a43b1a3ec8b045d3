#include "linearAlgebra/LA_ComplexVector.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/Description.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <string>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Values = std::vector<Complex>;
using Reals = std::vector<double>;

LA_ComplexVector* newVector(const Values& values)
{
    auto* const vector = LA_ComplexVector::New(0UL);
    vector->setValues(values);
    return vector;
}

Values valuesOf(const LA_ComplexVector& vector)
{
    return {vector.getValues(), vector.getValues() + vector.getDimension()};
}

Reals valuesOf(const LA_RealVector& vector)
{
    return {vector.getValues(), vector.getValues() + vector.getDimension()};
}

} // namespace

TEST(LA_ComplexVector, TheChainOfTypesEndsWithItsName)
{
    EXPECT_EQ(COM_Scoped(LA_ComplexVector::New(1UL))->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Vector",
                                        "LA_ComplexVector"}));
}

TEST(LA_ComplexVector, TheTextEndsWithANewLine)
{
    EXPECT_EQ(COM_Scoped(newVector({{1.0, -2.0}, {0.0, 1e100}}))->toString(),
              "((1.000000e+00,-2.000000e+00),(0.000000e+00,1.000000e+100))\n");
    EXPECT_EQ(COM_Scoped(newVector({{INFINITY, 0.0}}))->toString(), "((    inf,0.000000e+00))\n");
    EXPECT_EQ(COM_Scoped(newVector({}))->toString(), "()\n");
}

TEST(LA_ComplexVector, AValueIsReadFromAText)
{
    const COM_Scoped v(newVector({{}, {}}));
    v->setValueFromString(0, "(1.5,-2D0)");
    v->setValueFromString(1, "3");
    v->setValueFromString(2, "(1,1)");
    EXPECT_EQ(valuesOf(*v), (Values{{1.5, -2.0}, {0.0, 0.0}}));
}

TEST(LA_ComplexVector, TheScalarProductDoesNotConjugate)
{
    const COM_Scoped v(newVector({{0.0, 1.0}, {1.0, 1.0}}));
    EXPECT_EQ(v->scalarProduct(*v), Complex(-1.0, 2.0));
}

TEST(LA_ComplexVector, AComplexFactorTurnsEveryValue)
{
    const COM_Scoped v(newVector({{1.0, 0.0}, {0.0, 2.0}}));
    v->multipliedBy(Complex(0.0, 1.0));
    EXPECT_EQ(valuesOf(*v), (Values{{0.0, 1.0}, {-2.0, 0.0}}));
    v->dividedBy(Complex(0.0, 1.0));
    EXPECT_EQ(valuesOf(*v), (Values{{1.0, 0.0}, {0.0, 2.0}}));
    v->add(Complex(0.0, 1.0), *COM_Scoped(newVector({{0.0, 1.0}})));
    EXPECT_EQ(valuesOf(*v), (Values{{0.0, 0.0}, {0.0, 2.0}}));
}

TEST(LA_ComplexVector, NormsAndDistancesCountBothParts)
{
    const COM_Scoped v(newVector({{3.0, 4.0}, {0.0, -12.0}}));
    EXPECT_EQ(v->norm2(), 169.0);
    EXPECT_EQ(v->norm(), 13.0);
    EXPECT_EQ(v->distance2To(*COM_Scoped(newVector({{2.0, 2.0}}))), 5.0 + 144.0);
    v->normalize();
    EXPECT_NEAR(v->norm(), 1.0, 1e-15);
}

TEST(LA_ComplexVector, ModuliNeitherOverflowNorUnderflow)
{
    const COM_Scoped v(newVector({{3e200, -4e200}, {-3e-200, 4e-200}, {0.0, 0.0}, {0.0, -2.0}}));
    const COM_Scoped out(LA_RealVector::New(0UL));
    v->vabs(*out);
    ASSERT_EQ(out->getDimension(), 4UL);
    EXPECT_DOUBLE_EQ((*out)[0], 5e200);
    EXPECT_DOUBLE_EQ((*out)[1], 5e-200);
    EXPECT_EQ((*out)[2], 0.0);
    EXPECT_EQ((*out)[3], 2.0);
}

TEST(LA_ComplexVector, TheModulusDecidesWhichValueIsSmaller)
{
    const COM_Scoped v(newVector({{-3.0, 0.0}, {1.0, 1.0}, {5.0, 0.0}}));
    const COM_Scoped w(newVector({{0.0, 2.0}, {2.0, 0.0}}));
    const COM_Scoped least(LA_ComplexVector::New(*v));
    const COM_Scoped most(LA_ComplexVector::New(*v));
    least->min(*w);
    most->max(*w);
    EXPECT_EQ(valuesOf(*least), (Values{{0.0, 2.0}, {1.0, 1.0}, {5.0, 0.0}}));
    EXPECT_EQ(valuesOf(*most), (Values{{-3.0, 0.0}, {2.0, 0.0}, {5.0, 0.0}}));
}

TEST(LA_ComplexVector, OfTwoEqualModuliTheOtherVectorsValueIsTaken)
{
    const COM_Scoped other(newVector({{0.0, 1.0}}));
    const COM_Scoped least(newVector({{1.0, 0.0}}));
    const COM_Scoped most(newVector({{1.0, 0.0}}));
    least->min(*other);
    most->max(*other);
    EXPECT_EQ((*least)[0], Complex(0.0, 1.0));
    EXPECT_EQ((*most)[0], Complex(0.0, 1.0));
}

TEST(LA_ComplexVector, TheLogarithmHasTheModulusAndThePhase)
{
    const COM_Scoped v(
        newVector({{0.0, 1.0}, {-std::numbers::e, 0.0}, {0.0, 0.0}, {1e-51, 1e-51}}));
    v->logTransform();
    EXPECT_EQ((*v)[0], Complex(0.0, std::numbers::pi / 2.0));
    EXPECT_EQ((*v)[1], Complex(std::log(std::numbers::e), std::numbers::pi));
    EXPECT_EQ((*v)[2], Complex(-50.0 * std::log(10.0), 0.0));
    EXPECT_EQ((*v)[3], Complex(-50.0 * std::log(10.0), std::numbers::pi / 4.0));
}

TEST(LA_ComplexVector, TheDecimalLogarithmHasTheModulusAndThePhase)
{
    const COM_Scoped v(newVector({{0.0, -100.0}, {0.0, 0.0}}));
    v->log10Transform();
    EXPECT_EQ(valuesOf(*v), (Values{{2.0, -std::numbers::pi / 2.0}, {-50.0, 0.0}}));
    const COM_Scoped small(newVector({{0.0, 1e-51}, {1e-50, 0.0}}));
    small->log10Transform();
    EXPECT_EQ(valuesOf(*small),
              (Values{{-50.0, std::numbers::pi / 2.0}, {std::log10(1e-50), 0.0}}));
}

TEST(LA_ComplexVector, ThePartsAreCopiedIntoRealVectors)
{
    const COM_Scoped v(newVector({{1.0, 2.0}, {3.0, 4.0}}));
    const COM_Scoped out(LA_RealVector::New(5UL));
    v->getRealPart(*out);
    EXPECT_EQ(valuesOf(*out), (Reals{1.0, 3.0}));
    v->getImagPart(*out);
    EXPECT_EQ(valuesOf(*out), (Reals{2.0, 4.0}));
    const COM_Scoped empty(LA_RealVector::New(0UL));
    v->getImagPart(*empty);
    EXPECT_EQ(valuesOf(*empty), (Reals{2.0, 4.0}));
}

TEST(LA_ComplexVector, StoredValuesStandInParentheses)
{
    const COM_Scoped v(newVector({{0.1234567891, -1.0}}));
    EXPECT_EQ(Description(*v).text(), "{mDimension=[1] mValues=[(1.234568e-01,-1.000000e+00)]}");
    const COM_Scoped copy(newVector({}));
    copy->loadFromMetaClass(Description(*v).node());
    EXPECT_EQ(valuesOf(*copy), (Values{{0.1234568, -1.0}}));
}
