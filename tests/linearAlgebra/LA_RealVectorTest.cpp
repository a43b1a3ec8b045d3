#include "linearAlgebra/LA_RealVector.h"

#include "common/COM_Scoped.h"
#include "support/Description.h"
#include "support/Locales.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

using Values = std::vector<double>;

LA_RealVector* newVector(const Values& values)
{
    auto* const vector = LA_RealVector::New(0UL);
    vector->setValues(values);
    return vector;
}

Values valuesOf(const LA_RealVector& vector)
{
    return {vector.getValues(), vector.getValues() + vector.getDimension()};
}

void expectNear(const LA_RealVector& vector, const Values& expected)
{
    ASSERT_EQ(vector.getDimension(), expected.size()) << vector.toString();
    for (unsigned long i = 0; i < expected.size(); ++i) {
        // A few roundings of numbers near 1.
        EXPECT_NEAR(vector[i], expected[i], 1e-15) << vector.toString();
    }
}

} // namespace

TEST(LA_RealVector, TheChainOfTypesEndsWithItsName)
{
    EXPECT_EQ(COM_Scoped(LA_RealVector::New(1UL))->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Vector",
                                        "LA_RealVector"}));
}

TEST(LA_RealVector, TheTextHasSevenDigitsOfEachValue)
{
    EXPECT_EQ(COM_Scoped(newVector({1.0, -0.1234567891, 1e100}))->toString(),
              "(1.000000e+00,-1.234568e-01,1.000000e+100)");
    EXPECT_EQ(COM_Scoped(newVector({infinity}))->toString(), "(     inf)");
    EXPECT_EQ(COM_Scoped(newVector({}))->toString(), "()");
}

TEST(LA_RealVector, TheTextMayBeRoundedDownToAStep)
{
    EXPECT_EQ(COM_Scoped(newVector({1.75, -1.75}))->toString(0.5), "(1.500000e+00,-2.000000e+00)");
    EXPECT_EQ(COM_Scoped(newVector({}))->toString(0.5), "()");
}

TEST(LA_RealVector, AValueIsReadFromAText)
{
    const COM_Scoped v(newVector({0.0, 0.0}));
    v->setValueFromString(1, "1.5D3");
    v->setValueFromString(0, "x");
    v->setValueFromString(2, "7");
    EXPECT_EQ(valuesOf(*v), (Values{0.0, 1500.0}));
}

TEST(LA_RealVector, SignsAreLostInModuliAndCountInComparisons)
{
    const COM_Scoped v(newVector({-3.0, 2.0, -0.0}));
    const COM_Scoped out(newVector({}));
    v->vabs(*out);
    EXPECT_EQ(valuesOf(*out), (Values{3.0, 2.0, 0.0}));
    EXPECT_FALSE(std::signbit((*out)[2]));
    const COM_Scoped w(newVector({1.0, -5.0}));
    w->min(*v);
    EXPECT_EQ(valuesOf(*w), (Values{-3.0, -5.0}));
    w->max(*v);
    EXPECT_EQ(valuesOf(*w), (Values{-3.0, 2.0}));
    v->vabs(*v);
    EXPECT_EQ(valuesOf(*v), (Values{3.0, 2.0, 0.0}));
}

TEST(LA_RealVector, ANormalizedVectorHasTheLengthOne)
{
    const COM_Scoped v(newVector({3.0, -4.0}));
    v->normalize();
    EXPECT_EQ(valuesOf(*v), (Values{0.6, -0.8}));
    const COM_Scoped zero(newVector({0.0}));
    zero->normalize();
    EXPECT_TRUE(std::isnan((*zero)[0]));
}

TEST(LA_RealVector, TheCrossProductIsExactForSmallNumbers)
{
    const COM_Scoped v(newVector({1.0, 2.0, 3.0}));
    v->vectorProduct(*COM_Scoped(newVector({4.0, 5.0, 6.0})));
    EXPECT_EQ(valuesOf(*v), (Values{-3.0, 6.0, -3.0}));
}

TEST(LA_RealVector, TheLogarithmOfZeroIsThatOfTheFloor)
{
    const COM_Scoped v(newVector({0.0, -0.0, 1e-51, -1e-300}));
    v->logTransform();
    for (unsigned long i = 0; i < 4; ++i) {
        EXPECT_EQ((*v)[i], -50.0 * std::log(10.0));
    }
    const COM_Scoped w(newVector({0.0, 1e-51}));
    w->log10Transform();
    EXPECT_EQ(valuesOf(*w), (Values{-50.0, -50.0}));
}

TEST(LA_RealVector, TheLogarithmIsThatOfTheModulus)
{
    const COM_Scoped v(newVector({1.0, -std::numbers::e, 1e-50, 1e300}));
    v->logTransform();
    EXPECT_EQ(valuesOf(*v),
              (Values{0.0, std::log(std::numbers::e), std::log(1e-50), std::log(1e300)}));
    const COM_Scoped w(newVector({-100.0, 1e-50, 0.5}));
    w->log10Transform();
    EXPECT_EQ(valuesOf(*w), (Values{2.0, std::log10(1e-50), std::log10(0.5)}));
}

TEST(LA_RealVector, ARotationTurnsAboutTheAxisToTheLeft)
{
    const COM_Scoped z(newVector({0.0, 0.0, 1.0}));
    const COM_Scoped v(newVector({1.0, 0.0, 0.0}));
    v->rotate(*z, std::numbers::pi / 2.0);
    expectNear(*v, {0.0, 1.0, 0.0});
    v->rotate(*z, std::numbers::pi / 2.0);
    expectNear(*v, {-1.0, 0.0, 0.0});
}

TEST(LA_RealVector, ARotationKeepsThePartAlongTheAxisAndTheLength)
{
    const COM_Scoped axis(newVector({1.0 / 3.0, 2.0 / 3.0, 2.0 / 3.0}));
    const COM_Scoped v(newVector({0.3, -0.5, 0.7}));
    const COM_Scoped before(LA_RealVector::New(*v));
    v->rotate(*axis, 1.0);
    EXPECT_NEAR(v->scalarProduct(*axis), before->scalarProduct(*axis), 1e-15);
    EXPECT_NEAR(v->norm(), before->norm(), 1e-15);
    EXPECT_GT(v->distanceTo(*before), 0.1);
    v->rotate(*axis, -1.0);
    expectNear(*v, valuesOf(*before));
}

TEST(LA_RealVector, AVectorAlongTheAxisStays)
{
    const COM_Scoped z(newVector({0.0, 0.0, 1.0}));
    const COM_Scoped v(newVector({0.0, 0.0, -2.0}));
    v->rotate(*z, 0.7);
    EXPECT_EQ(valuesOf(*v), (Values{0.0, 0.0, -2.0}));
}

TEST(LA_RealVector, AnAxisRotatedAboutItselfStays)
{
    const COM_Scoped z(newVector({0.0, 0.0, 1.0}));
    z->rotate(*z, 0.7);
    EXPECT_EQ(valuesOf(*z), (Values{0.0, 0.0, 1.0}));
}

TEST(LA_RealVector, AFlatVectorRotatesIntoSpace)
{
    const COM_Scoped z(newVector({0.0, 0.0, 1.0}));
    const COM_Scoped v(newVector({1.0, 0.0}));
    v->rotate(*z, std::numbers::pi / 2.0);
    expectNear(*v, {0.0, 1.0, 0.0});
}

TEST(LA_RealVector, StoredValuesHaveSevenDigits)
{
    const COM_Scoped v(newVector({0.1234567891, -1.0}));
    EXPECT_EQ(Description(*v).text(), "{mDimension=[2] mValues=[1.234568e-01|-1.000000e+00]}");
    const COM_Scoped copy(newVector({}));
    copy->loadFromMetaClass(Description(*v).node());
    EXPECT_EQ(valuesOf(*copy), (Values{0.1234568, -1.0}));
}

TEST(LA_RealVector, NoLocaleChangesAText)
{
    const CommaLocale locale;
    const COM_Scoped v(newVector({1234.5}));
    EXPECT_EQ(v->toString(), "(1.234500e+03)");
    v->setValueFromString(0, "0.5");
    EXPECT_EQ((*v)[0], 0.5);
}
