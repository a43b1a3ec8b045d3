#include "geometry/GEO_Box.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_ClassFactory.h"
#include "geometry/GEO_Point.h"
#include "metaModel/MM_Package.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;

Values valuesOf(const GEO_Point& point)
{
    return {point.getValues(), point.getValues() + point.getDimension()};
}

void expectBox(const GEO_Box& box, const Values& min, const Values& max)
{
    EXPECT_EQ(valuesOf(*box.getMinPoint()), min);
    EXPECT_EQ(valuesOf(*box.getMaxPoint()), max);
}

/// A box from (1, 2, 3) to (3, 6, 11).
class GEO_BoxTest : public testing::Test
{
protected:
    const COM_Scoped<GEO_Point> mP{GEO_Point::New(1.0, 2.0, 3.0)};
    const COM_Scoped<GEO_Point> mQ{GEO_Point::New(3.0, 6.0, 11.0)};
    const COM_Scoped<GEO_Box> mBox{GEO_Box::New(*mP, *mQ)};
};

} // namespace

TEST_F(GEO_BoxTest, ANewBoxIsTheOriginOfSpace)
{
    const COM_Scoped box(GEO_Box::New());
    expectBox(*box, {0.0, 0.0, 0.0}, {0.0, 0.0, 0.0});
    EXPECT_EQ(box->getReferenceCount(), 1);
    EXPECT_EQ(box->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object", "GEO_Box"}));
}

TEST_F(GEO_BoxTest, ABoxOwnsItsPointsAndHoldsNoneOfThoseItIsMadeOf)
{
    EXPECT_EQ(mBox->getMinPoint()->getReferenceCount(), 1);
    EXPECT_EQ(mBox->getMaxPoint()->getReferenceCount(), 1);
    EXPECT_EQ(mP->getReferenceCount(), 1);
    EXPECT_EQ(mQ->getReferenceCount(), 1);
    (*mP)[0] = 100.0;
    expectBox(*mBox, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
}

TEST_F(GEO_BoxTest, ABoxOfOnePointHasTwoCopiesOfIt)
{
    const COM_Scoped box(GEO_Box::New(*mP));
    expectBox(*box, {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0});
    EXPECT_NE(box->getMinPoint(), box->getMaxPoint());
}

TEST_F(GEO_BoxTest, ABoxOfTwoPointsSortsTheirCoordinates)
{
    const COM_Scoped p(GEO_Point::New(1.0, 6.0, 3.0));
    const COM_Scoped q(GEO_Point::New(3.0, 2.0, 11.0));
    expectBox(*COM_Scoped(GEO_Box::New(*p, *q)), {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
}

TEST_F(GEO_BoxTest, ABoxOfAPointAndThreeSizesReachesFromThePoint)
{
    const COM_Scoped box(GEO_Box::New(*mP, 10.0, 20.0, 30.0));
    expectBox(*box, {1.0, 2.0, 3.0}, {11.0, 22.0, 33.0});
}

TEST_F(GEO_BoxTest, ACopyHasPointsOfItsOwn)
{
    const COM_Scoped copy(GEO_Box::New(*mBox));
    (*mBox->getMinPoint())[0] = 0.0;
    expectBox(*copy, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
    EXPECT_EQ(copy->getTypes(), mBox->getTypes());
}

TEST_F(GEO_BoxTest, SettingToAValueGivesItToAllCoordinates)
{
    mBox->setTo(4.5);
    expectBox(*mBox, {4.5, 4.5, 4.5}, {4.5, 4.5, 4.5});
}

TEST_F(GEO_BoxTest, SettingToTwoPointsWithTheSecondBelowStillGivesMinBelowMax)
{
    mBox->setTo(*mQ, *mP);
    expectBox(*mBox, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
}

TEST_F(GEO_BoxTest, SettingToItsOwnPointsInExchangeLeavesTheBox)
{
    mBox->setTo(*mBox->getMaxPoint(), *mBox->getMinPoint());
    expectBox(*mBox, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
}

TEST_F(GEO_BoxTest, SettingASideMovesTheMaximum)
{
    mBox->setWidth(10.0);
    expectBox(*mBox, {1.0, 2.0, 3.0}, {11.0, 6.0, 11.0});
    mBox->setHeight(20.0);
    expectBox(*mBox, {1.0, 2.0, 3.0}, {11.0, 22.0, 11.0});
    mBox->setLength(30.0);
    expectBox(*mBox, {1.0, 2.0, 3.0}, {11.0, 22.0, 33.0});
}

TEST_F(GEO_BoxTest, TheSidesAreDifferencesOfCoordinates)
{
    EXPECT_EQ(mBox->getWidth(), 2.0);
    EXPECT_EQ(mBox->getHeight(), 4.0);
    EXPECT_EQ(mBox->getLength(), 8.0);
    EXPECT_EQ(mBox->getDiagonalSize(), std::sqrt(84.0));
}

TEST_F(GEO_BoxTest, TheSidesOfABoxTurnedInsideOutArePositive)
{
    mBox->setWidth(-2.0);
    mBox->setHeight(-4.0);
    mBox->setLength(-8.0);
    EXPECT_EQ(mBox->getWidth(), 2.0);
    EXPECT_EQ(mBox->getHeight(), 4.0);
    EXPECT_EQ(mBox->getLength(), 8.0);
}

TEST_F(GEO_BoxTest, TheBoundsAreInside)
{
    EXPECT_TRUE(mBox->isInside(*mP));
    EXPECT_TRUE(mBox->isInside(*mQ));
    EXPECT_TRUE(mBox->isInside(*COM_Scoped(GEO_Point::New(2.0, 4.0, 5.0))));
}

TEST_F(GEO_BoxTest, EachCoordinateAloneCanLieOutside)
{
    for (unsigned long i = 0; i < 3; ++i) {
        const COM_Scoped below(GEO_Point::New(*mP));
        (*below)[i] -= 0.5;
        EXPECT_FALSE(mBox->isInside(*below)) << i;
        const COM_Scoped above(GEO_Point::New(*mQ));
        (*above)[i] += 0.5;
        EXPECT_FALSE(mBox->isInside(*above)) << i;
    }
}

TEST_F(GEO_BoxTest, InsideReadsThreeCoordinatesSoThatAPointOfThePlaneHasAThirdOneOfZero)
{
    EXPECT_FALSE(mBox->isInside(*COM_Scoped(GEO_Point::New(2.0, 4.0))));
    (*mBox->getMinPoint())[2] = 0.0;
    EXPECT_TRUE(mBox->isInside(*COM_Scoped(GEO_Point::New(2.0, 4.0))));
}

TEST_F(GEO_BoxTest, ANotANumberIsNotInside)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(mBox->isInside(*COM_Scoped(GEO_Point::New(nan, 4.0, 5.0))));
}

TEST_F(GEO_BoxTest, CombiningWithAPointReachesIt)
{
    mBox->combine(*COM_Scoped(GEO_Point::New(0.0, 4.0, 20.0)));
    expectBox(*mBox, {0.0, 2.0, 3.0}, {3.0, 6.0, 20.0});
}

TEST_F(GEO_BoxTest, CombiningWithABoxHoldsBoth)
{
    const COM_Scoped p(GEO_Point::New(0.0, 3.0, 4.0));
    const COM_Scoped q(GEO_Point::New(2.0, 7.0, 5.0));
    mBox->combine(*COM_Scoped(GEO_Box::New(*p, *q)));
    expectBox(*mBox, {0.0, 2.0, 3.0}, {3.0, 7.0, 11.0});
    mBox->combine(*mBox);
    expectBox(*mBox, {0.0, 2.0, 3.0}, {3.0, 7.0, 11.0});
}

TEST_F(GEO_BoxTest, AnOffsetGrowsTheBoxOnAllSides)
{
    mBox->offset(0.5, 1.0, -2.0);
    expectBox(*mBox, {0.5, 1.0, 5.0}, {3.5, 7.0, 9.0});
}

TEST_F(GEO_BoxTest, ATranslationMovesBothPoints)
{
    mBox->translate(*COM_Scoped(GEO_Point::New(10.0, 20.0, 30.0)));
    expectBox(*mBox, {11.0, 22.0, 33.0}, {13.0, 26.0, 41.0});
}

TEST_F(GEO_BoxTest, ATranslationByAPointOfTheBoxItselfMovesBothPointsAlike)
{
    mBox->translate(*mBox->getMinPoint());
    expectBox(*mBox, {2.0, 4.0, 6.0}, {4.0, 8.0, 14.0});
}

TEST_F(GEO_BoxTest, AHomothetyScalesTheBoxAboutItsCentre)
{
    mBox->homothetize(*mP, 2.0);
    expectBox(*mBox, {1.0, 2.0, 3.0}, {5.0, 10.0, 19.0});
}

TEST_F(GEO_BoxTest, AHomothetyOfNegativeFactorStillGivesMinBelowMax)
{
    mBox->homothetize(*COM_Scoped(GEO_Point::New(0.0, 0.0, 0.0)), -1.0);
    expectBox(*mBox, {-3.0, -6.0, -11.0}, {-1.0, -2.0, -3.0});
}

TEST_F(GEO_BoxTest, AHomothetyAboutAPointOfTheBoxItselfLeavesThatPoint)
{
    mBox->homothetize(*mBox->getMaxPoint(), 2.0);
    expectBox(*mBox, {-1.0, -2.0, -5.0}, {3.0, 6.0, 11.0});
}

TEST_F(GEO_BoxTest, ARotationGivesTheBoxAroundTheRotatedCorners)
{
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValue(2, 1.0);
    const COM_Scoped origin(GEO_Point::New(0.0, 0.0, 0.0));
    mBox->rotate(*origin, *axis, std::numbers::pi / 2.0);
    // (x, y, z) goes to (-y, x, z), up to the rounding of the angle.
    const Values min{-6.0, 1.0, 3.0};
    const Values max{-2.0, 3.0, 11.0};
    for (unsigned long i = 0; i < 3; ++i) {
        EXPECT_NEAR((*mBox->getMinPoint())[i], min[i], 1e-14) << i;
        EXPECT_NEAR((*mBox->getMaxPoint())[i], max[i], 1e-14) << i;
    }
}

TEST_F(GEO_BoxTest, ARotationByHalfARightAngleTakesAllCornersIntoAccount)
{
    const COM_Scoped p(GEO_Point::New(-1.0, -1.0, -1.0));
    const COM_Scoped q(GEO_Point::New(1.0, 1.0, 1.0));
    const COM_Scoped box(GEO_Box::New(*p, *q));
    const COM_Scoped axis(LA_RealVector::New(3));
    axis->setValue(2, 1.0);
    box->rotate(*COM_Scoped(GEO_Point::New(0.0, 0.0, 0.0)), *axis, std::numbers::pi / 4.0);
    for (unsigned long i = 0; i < 2; ++i) {
        EXPECT_NEAR((*box->getMinPoint())[i], -std::numbers::sqrt2, 1e-15);
        EXPECT_NEAR((*box->getMaxPoint())[i], std::numbers::sqrt2, 1e-15);
    }
    EXPECT_EQ((*box->getMinPoint())[2], -1.0);
    EXPECT_EQ((*box->getMaxPoint())[2], 1.0);
}

TEST_F(GEO_BoxTest, AZoomByOneLeavesTheBoxUnchanged)
{
    mBox->zoom(1.0);
    expectBox(*mBox, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
}

TEST_F(GEO_BoxTest, AZoomByTwoDoublesEachSideAboutTheCentre)
{
    mBox->zoom(2.0);
    expectBox(*mBox, {0.0, 0.0, -1.0}, {4.0, 8.0, 15.0});
}

TEST_F(GEO_BoxTest, AZoomByZeroLeavesTheCentre)
{
    mBox->zoom(0.0);
    expectBox(*mBox, {2.0, 4.0, 7.0}, {2.0, 4.0, 7.0});
}

TEST_F(GEO_BoxTest, AZoomOfABoxTurnedInsideOutGivesMinBelowMax)
{
    mBox->setWidth(-2.0);
    mBox->zoom(2.0);
    expectBox(*mBox, {-2.0, 0.0, -1.0}, {2.0, 8.0, 15.0});
}

TEST_F(GEO_BoxTest, PositiveScalesDivideTheFirstTwoCoordinates)
{
    mBox->adimensionize(2.0, 4.0);
    expectBox(*mBox, {0.5, 0.5, 3.0}, {1.5, 1.5, 11.0});
}

TEST_F(GEO_BoxTest, ScalesThatAreNotPositiveChangeNothing)
{
    mBox->adimensionize(0.0, -4.0);
    expectBox(*mBox, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
    mBox->adimensionize(2.0, 0.0);
    expectBox(*mBox, {0.5, 2.0, 3.0}, {1.5, 6.0, 11.0});
    mBox->adimensionize(-1.0, 2.0);
    expectBox(*mBox, {0.5, 1.0, 3.0}, {1.5, 3.0, 11.0});
}

TEST_F(GEO_BoxTest, BoxesAreEqualWhenBothPointsLieStrictlyNearerThanTheTolerance)
{
    const COM_Scoped other(GEO_Box::New(*mBox));
    EXPECT_TRUE(mBox->isEquals(*other, 1e-300));
    EXPECT_FALSE(mBox->isEquals(*other, 0.0));
    (*other->getMinPoint())[1] += 0.25;
    EXPECT_FALSE(mBox->isEquals(*other, 0.25));
    EXPECT_TRUE(mBox->isEquals(*other, 0.5));
    (*other->getMaxPoint())[2] += 0.75;
    EXPECT_FALSE(mBox->isEquals(*other, 0.5));
    EXPECT_TRUE(mBox->isEquals(*other, 1.0));
}

TEST_F(GEO_BoxTest, TheTextTellsBothPoints)
{
    EXPECT_EQ(mBox->toString(), " Min:(1.000000e+00,2.000000e+00,3.000000e+00)\n"
                                " Max:(3.000000e+00,6.000000e+00,1.100000e+01)\n");
}

TEST_F(GEO_BoxTest, TheKeysAreFrozen)
{
    EXPECT_EQ(Description(*mBox).keys(), (std::vector<std::string>{"mMaxPoint", "mMinPoint"}));
}

TEST_F(GEO_BoxTest, BothPointsAreWrittenUnderTheirKeys)
{
    const COM_Scoped package(MM_Package::New());
    {
        const COM_Scoped root(MM_Class::New());
        root->setId("box");
        root->setName("GEO_Box");
        package->setRootMetaClass(*root);
        mBox->saveToMetaClass(*root);
    }
    const std::string min = mBox->getMinPoint()->getIdentityString();
    const std::string max = mBox->getMaxPoint()->getIdentityString();
    const std::string text = Description::textOf(*package);
    EXPECT_NE(text.find("box(GEO_Box){mMaxPoint=[" + max + "] mMinPoint=[" + min + "]}"),
              std::string::npos)
        << text;
}

TEST_F(GEO_BoxTest, ASavedBoxComesBackThroughTheFactory)
{
    const TestDirectory directory;
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("box"), *mBox);
    const COM_Scoped factory(GEO_ClassFactory::New());
    const COM_Scoped object(factory->load(directory.file("box")));
    auto* const box = dynamic_cast<GEO_Box*>(object.get());
    ASSERT_NE(box, nullptr);
    expectBox(*box, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
    EXPECT_EQ(box->toString(), mBox->toString());
}

TEST_F(GEO_BoxTest, ALoadedBoxReleasesThePointsItHad)
{
    const TestDirectory directory;
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("box"), *mBox);
    const COM_Scoped other(GEO_Box::New());
    const COM_Scoped min(other->getMinPoint());
    const COM_Scoped max(other->getMaxPoint());
    min->addReference(nullptr);
    max->addReference(nullptr);
    {
        const COM_Scoped factory(GEO_ClassFactory::New());
        EXPECT_EQ(factory->load(directory.file("box"), *other), other.get());
    }
    EXPECT_EQ(min->getReferenceCount(), 1);
    EXPECT_EQ(max->getReferenceCount(), 1);
    EXPECT_EQ(other->getMinPoint()->getReferenceCount(), 1);
    EXPECT_EQ(other->getMaxPoint()->getReferenceCount(), 1);
    expectBox(*other, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
}

TEST_F(GEO_BoxTest, ABoxSavedLoadedAndSavedAgainGivesTheSameFileButForTheIdentities)
{
    const TestDirectory directory;
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("first"), *mBox);
    const COM_Scoped factory(GEO_ClassFactory::New());
    const COM_Scoped object(factory->load(directory.file("first")));
    ASSERT_NE(object.get(), nullptr);
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("second"), *object);
    // An identity is everything from an "@" to the next quote or tag.
    const auto withoutIdentities = [](const std::string& text) {
        std::string rest;
        bool isIdentity = false;
        for (const char letter : text) {
            isIdentity = letter == '@' || (isIdentity && letter >= '0' && letter <= '9');
            rest += isIdentity ? "" : std::string(1, letter);
        }
        return rest;
    };
    const std::string first = directory.read("first");
    const std::string second = directory.read("second");
    EXPECT_NE(first, second);
    EXPECT_EQ(withoutIdentities(first), withoutIdentities(second));
    EXPECT_NE(first.find("mMinPoint"), std::string::npos);
}

TEST_F(GEO_BoxTest, AFileWithoutPointsLeavesTheBoxAsItIs)
{
    const COM_Scoped node(MM_Class::New());
    node->setName("GEO_Box");
    printedBy([&] { mBox->loadFromMetaClass(*node); });
    expectBox(*mBox, {1.0, 2.0, 3.0}, {3.0, 6.0, 11.0});
}
