#include "geometry/GEO_Point.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "support/Description.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;

Values valuesOf(const GEO_Point& point)
{
    return {point.getValues(), point.getValues() + point.getDimension()};
}

void expectNear(const GEO_Point& point, const Values& expected)
{
    ASSERT_EQ(point.getDimension(), expected.size());
    for (unsigned long i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(point[i], expected[i], 1e-15) << "coordinate " << i; // some roundings of 1
    }
}

} // namespace

TEST(GEO_Point, ANewPointIsTheOriginOfThePlaneHeldByItsMaker)
{
    const COM_Scoped point(GEO_Point::New());
    EXPECT_EQ(valuesOf(*point), (Values{0.0, 0.0}));
    EXPECT_EQ(point->getReferenceCount(), 1);
}

TEST(GEO_Point, APointIsAVectorAndAGeometricObject)
{
    const COM_Scoped point(GEO_Point::New());
    EXPECT_EQ(point->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Vector",
                                        "LA_RealVector", "GEO_Object", "GEO_Point"}));
}

TEST(GEO_Point, TheNumberOfCoordinatesIsTheDimension)
{
    const COM_Scoped onLine(GEO_Point::New(-0.5));
    EXPECT_EQ(onLine->getDimension(), 1UL);
    EXPECT_EQ(onLine->getValue(0), -0.5);
    const COM_Scoped flat(GEO_Point::New(1.0, 2.0));
    const COM_Scoped spatial(GEO_Point::New(1.0, 2.0, 3.0));
    EXPECT_EQ(valuesOf(*flat), (Values{1.0, 2.0}));
    EXPECT_EQ(valuesOf(*spatial), (Values{1.0, 2.0, 3.0}));
}

TEST(GEO_Point, ACopyHasTheCoordinatesAndNothingElseInCommon)
{
    const COM_Scoped point(GEO_Point::New(1.0, 2.0, 3.0));
    const COM_Scoped copy(GEO_Point::New(*point));
    const COM_Scoped copyByPointer(GEO_Point::New(point.get()));
    (*point)[0] = 9.0;
    EXPECT_EQ(valuesOf(*copy), (Values{1.0, 2.0, 3.0}));
    EXPECT_EQ(valuesOf(*copyByPointer), (Values{1.0, 2.0, 3.0}));
    EXPECT_EQ(copy->getTypes(), point->getTypes());
    EXPECT_EQ(copy->getReferenceCount(), 1);
    EXPECT_EQ(point->getReferenceCount(), 1);
}

TEST(GEO_Point, ACopyOfAPointOnALineKeepsItsOneCoordinate)
{
    const COM_Scoped point(GEO_Point::New());
    point->setDimension(1);
    point->setValue(0, 0.25);
    const COM_Scoped copy(GEO_Point::New(*point));
    EXPECT_EQ(valuesOf(*copy), (Values{0.25}));
}

TEST(GEO_Point, SettingTheLocationTakesCoordinatesAndDimension)
{
    const COM_Scoped point(GEO_Point::New());
    point->setLocation(1.0, 2.0, 3.0);
    EXPECT_EQ(valuesOf(*point), (Values{1.0, 2.0, 3.0}));
    point->setLocation(4.0, 5.0);
    EXPECT_EQ(valuesOf(*point), (Values{4.0, 5.0}));
    const COM_Scoped other(GEO_Point::New(6.0, 7.0, 8.0));
    point->setLocation(*other);
    EXPECT_EQ(valuesOf(*point), (Values{6.0, 7.0, 8.0}));
    other->setLocation(0.5, 1.5);
    point->setLocation(other.get());
    EXPECT_EQ(valuesOf(*point), (Values{0.5, 1.5}));
    point->setLocation(*point);
    EXPECT_EQ(valuesOf(*point), (Values{0.5, 1.5}));
}

TEST(GEO_Point, TheVectorLeadsFromHereToTheOther)
{
    const COM_Scoped point(GEO_Point::New(1.0, 2.0));
    const COM_Scoped other(GEO_Point::New(5.0, 9.0));
    point->vector(*other);
    EXPECT_EQ(valuesOf(*point), (Values{4.0, 7.0}));
    point->vector(other.get());
    EXPECT_EQ(valuesOf(*point), (Values{1.0, 2.0}));
}

TEST(GEO_Point, TheVectorHasTheLargerDimensionWithMissingCoordinatesAsZero)
{
    const COM_Scoped flat(GEO_Point::New(1.0, 2.0));
    const COM_Scoped spatial(GEO_Point::New(5.0, 9.0, 3.0));
    const COM_Scoped toSpatial(GEO_Point::New(*flat));
    toSpatial->vector(*spatial);
    EXPECT_EQ(valuesOf(*toSpatial), (Values{4.0, 7.0, 3.0}));
    const COM_Scoped toFlat(GEO_Point::New(*spatial));
    toFlat->vector(*flat);
    EXPECT_EQ(valuesOf(*toFlat), (Values{-4.0, -7.0, -3.0}));
}

TEST(GEO_Point, TheVectorToItselfIsZero)
{
    const COM_Scoped point(GEO_Point::New(1.0, 2.0, 3.0));
    point->vector(*point);
    EXPECT_EQ(valuesOf(*point), (Values{0.0, 0.0, 0.0}));
}

TEST(GEO_Point, ATranslationAddsTheVector)
{
    const COM_Scoped point(GEO_Point::New(1.0, 2.0));
    const COM_Scoped by(GEO_Point::New(10.0, 20.0, 30.0));
    point->translate(*by);
    EXPECT_EQ(valuesOf(*point), (Values{11.0, 22.0, 30.0}));
    point->translate(by.get());
    EXPECT_EQ(valuesOf(*point), (Values{21.0, 42.0, 60.0}));
    point->translate(*point);
    EXPECT_EQ(valuesOf(*point), (Values{42.0, 84.0, 120.0}));
}

TEST(GEO_Point, AHomothetyScalesTheDistanceFromTheCentre)
{
    const COM_Scoped point(GEO_Point::New(3.0, 5.0));
    const COM_Scoped centre(GEO_Point::New(1.0, 1.0));
    point->homothetize(*centre, 2.0);
    EXPECT_EQ(valuesOf(*point), (Values{5.0, 9.0}));
    point->homothetize(centre.get(), -0.5);
    EXPECT_EQ(valuesOf(*point), (Values{-1.0, -3.0}));
}

TEST(GEO_Point, AHomothetyAboutThePointItselfLeavesIt)
{
    const COM_Scoped point(GEO_Point::New(3.0, 5.0));
    point->homothetize(*point, 7.0);
    EXPECT_EQ(valuesOf(*point), (Values{3.0, 5.0}));
}

TEST(GEO_Point, AQuarterTurnAboutTheThirdAxisTakesTheFirstToTheSecond)
{
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValue(2, 1.0);
    const COM_Scoped point(GEO_Point::New(1.0, 0.0, 0.25));
    point->rotate(*axis, std::numbers::pi / 2.0);
    expectNear(*point, {0.0, 1.0, 0.25});
    point->rotate(axis.get(), std::numbers::pi / 2.0);
    expectNear(*point, {-1.0, 0.0, 0.25});
}

TEST(GEO_Point, ARotationAboutACentreKeepsTheDistanceFromIt)
{
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValue(2, 1.0);
    const COM_Scoped centre(GEO_Point::New(1.0, 1.0, 0.0));
    const COM_Scoped point(GEO_Point::New(2.0, 1.0, 0.5));
    point->rotate(*centre, *axis, std::numbers::pi / 2.0);
    expectNear(*point, {1.0, 2.0, 0.5});
    point->rotate(centre.get(), axis.get(), std::numbers::pi);
    expectNear(*point, {1.0, 0.0, 0.5});
}

TEST(GEO_Point, ARotationAboutASlantedAxisExchangesTheCoordinates)
{
    // A third of a turn about (1, 1, 1) takes x to y, y to z and z to x.
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValues(1.0, 1.0, 1.0);
    axis->normalize();
    const COM_Scoped point(GEO_Point::New(0.5, 0.25, 0.125));
    point->rotate(*axis, 2.0 * std::numbers::pi / 3.0);
    expectNear(*point, {0.125, 0.5, 0.25});
}

TEST(GEO_Point, APointOnTheAxisStaysThere)
{
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValue(2, 1.0);
    const COM_Scoped centre(GEO_Point::New(1.0, 1.0, 0.0));
    const COM_Scoped point(GEO_Point::New(1.0, 1.0, 7.0));
    point->rotate(*centre, *axis, 1.0);
    EXPECT_EQ(valuesOf(*point), (Values{1.0, 1.0, 7.0}));
}

TEST(GEO_Point, APointThatIsItsOwnCentreStaysThere)
{
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValue(2, 1.0);
    const COM_Scoped point(GEO_Point::New(3.0, 4.0, 5.0));
    point->rotate(*point, *axis, 1.0);
    EXPECT_EQ(valuesOf(*point), (Values{3.0, 4.0, 5.0}));
}

TEST(GEO_Point, ARotatedPointOfThePlaneIsInSpace)
{
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValue(2, 1.0);
    const COM_Scoped point(GEO_Point::New(0.0, 1.0));
    point->rotate(*axis, std::numbers::pi / 2.0);
    expectNear(*point, {-1.0, 0.0, 0.0});
}

TEST(GEO_Point, TheTextIsThatOfTheVector)
{
    const COM_Scoped point(GEO_Point::New(1.0, -0.25));
    EXPECT_EQ(point->toString(), "(1.000000e+00,-2.500000e-01)");
    EXPECT_EQ(point->toString(0.5), "(1.000000e+00,-5.000000e-01)");
}

TEST(GEO_Point, TheKeysAreThoseOfTheVector)
{
    const COM_Scoped point(GEO_Point::New(1.0, -0.25));
    EXPECT_EQ(Description(*point).text(), "{mDimension=[2] mValues=[1.000000e+00|-2.500000e-01]}");
}

TEST(GEO_Point, AStoredPointComesBackInItsDimension)
{
    const COM_Scoped point(GEO_Point::New(1.0, -0.25, 8.0));
    const Description description(*point);
    const COM_Scoped other(GEO_Point::New());
    other->loadFromMetaClass(description.node());
    EXPECT_EQ(valuesOf(*other), (Values{1.0, -0.25, 8.0}));
}

TEST(GEO_Point, AChangeOfStateOfAPointConcernsNobody)
{
    const COM_Scoped point(GEO_Point::New(1.0, 2.0));
    point->stateChanged();
    EXPECT_EQ(valuesOf(*point), (Values{1.0, 2.0}));
    EXPECT_EQ(point->getReferenceCount(), 1);
}
