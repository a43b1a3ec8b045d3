#include "gui2d/GUI2D_Curve.h"

#include "common/COM_Color.h"
#include "gui2d/GUI2D_ClassFactory.h"
#include "gui2d/GUI2D_Plotter.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "TestDrawPanel.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

class GUI2D_CurveTest : public testing::Test
{
protected:
    void setX(const std::vector<double>& values) { set(values, true); }
    void setY(const std::vector<double>& values) { set(values, false); }
    void set(const std::vector<double>& values, bool isX)
    {
        const COM_Scoped vector(LA_RealVector::New(0UL));
        vector->setValues(values);
        isX ? mCurve->setXValues(*vector) : mCurve->setYValues(*vector);
        EXPECT_EQ(vector->getReferenceCount(), 1) << "the curve has a copy";
    }
    static std::vector<double> valuesOf(const LA_RealVector* vector)
    {
        return {vector->getValues(), vector->getValues() + vector->getDimension()};
    }

    const COM_Scoped<GUI2D_Curve> mCurve{GUI2D_Curve::New()};
};

} // namespace

TEST_F(GUI2D_CurveTest, StartsWithItsDefaults)
{
    EXPECT_EQ(mCurve->getName(), "Curve");
    EXPECT_TRUE(mCurve->isShown());
    EXPECT_EQ(mCurve->getXValues(), nullptr);
    EXPECT_EQ(mCurve->getYValues(), nullptr);
    EXPECT_EQ(mCurve->getColor(), nullptr);
    EXPECT_EQ(mCurve->getXMaxAmplitude(), -1.0);
    EXPECT_EQ(mCurve->getYMaxAmplitude(), -1.0);
    EXPECT_EQ(mCurve->getXMax(), -1.0);
    EXPECT_EQ(mCurve->getXMin(), 1.0);
    EXPECT_EQ(mCurve->getYMax(), -1.0);
    EXPECT_EQ(mCurve->getYMin(), 1.0);
    EXPECT_EQ(mCurve->getMinDeltaX(), 0.0);
    EXPECT_EQ(mCurve->getMaxDeltaY(), 0.0);
    EXPECT_EQ(mCurve->getMeanDeltaY(), 0.0);
    EXPECT_EQ(mCurve->getPointsNumber(), 0U);
    EXPECT_EQ(mCurve->getReferenceCount(), 1);
    EXPECT_EQ(mCurve->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "GUI2D_Curve"}));
}

TEST_F(GUI2D_CurveTest, OneValueHasNoSteps)
{
    setX({3.0});
    EXPECT_EQ(mCurve->getXMin(), 3.0);
    EXPECT_EQ(mCurve->getXMax(), 3.0);
    EXPECT_EQ(mCurve->getXMaxAmplitude(), 3.0);
    EXPECT_EQ(mCurve->getMinDeltaX(), 0.0);
    EXPECT_EQ(mCurve->getMaxDeltaX(), 0.0);
    EXPECT_EQ(mCurve->getMeanDeltaX(), 0.0);
    setX({-3.0});
    EXPECT_EQ(mCurve->getXMax(), -3.0);
    EXPECT_EQ(mCurve->getXMaxAmplitude(), 1.0);
    setX({0.0});
    EXPECT_EQ(mCurve->getXMaxAmplitude(), 1.0);
}

TEST_F(GUI2D_CurveTest, TwoValuesHaveOneStepAndNoMean)
{
    setY({3.0, -5.0});
    EXPECT_EQ(mCurve->getYMaxAmplitude(), 5.0);
    EXPECT_EQ(mCurve->getMinDeltaY(), -8.0);
    EXPECT_EQ(mCurve->getMaxDeltaY(), -8.0);
    EXPECT_EQ(mCurve->getMeanDeltaY(), 0.0);
    EXPECT_EQ(mCurve->getYMin(), -5.0);
    EXPECT_EQ(mCurve->getYMax(), 3.0);
}

TEST_F(GUI2D_CurveTest, TheMeanLacksTheFirstStep)
{
    setX({0.0, 1.0, 3.0});
    EXPECT_EQ(mCurve->getMeanDeltaX(), 1.0);
    EXPECT_EQ(mCurve->getMinDeltaX(), 1.0);
    EXPECT_EQ(mCurve->getMaxDeltaX(), 2.0);
}

TEST_F(GUI2D_CurveTest, AmplitudesCountEachValueButTheFirstWithoutItsSign)
{
    setX({-7.0, 2.0, -3.0});
    EXPECT_EQ(mCurve->getXMaxAmplitude(), 3.0);
    EXPECT_EQ(mCurve->getXMin(), -7.0);
    EXPECT_EQ(mCurve->getXMax(), 2.0);
}

TEST_F(GUI2D_CurveTest, AnEmptyVectorKeepsTheBounds)
{
    setX({2.0, 5.0});
    setX({});
    EXPECT_EQ(mCurve->getXMin(), 2.0);
    EXPECT_EQ(mCurve->getXMax(), 5.0);
    EXPECT_EQ(mCurve->getXMaxAmplitude(), 1.0);
    EXPECT_EQ(mCurve->getMinDeltaX(), 0.0);
    EXPECT_EQ(mCurve->getMaxDeltaX(), 0.0);
    setY({});
    EXPECT_EQ(mCurve->getYMin(), 1.0);
    EXPECT_EQ(mCurve->getYMax(), -1.0);
}

TEST_F(GUI2D_CurveTest, ThePointsAreAsManyAsBothVectorsHave)
{
    setX({1.0, 2.0, 3.0});
    EXPECT_EQ(mCurve->getPointsNumber(), 0U);
    setY({1.0, 2.0});
    EXPECT_EQ(mCurve->getPointsNumber(), 2U);
    setX({1.0});
    EXPECT_EQ(mCurve->getPointsNumber(), 1U);
}

TEST_F(GUI2D_CurveTest, ItsOwnValuesMayBeSetAgain)
{
    setX({1.0, 4.0});
    mCurve->setXValues(*mCurve->getXValues());
    EXPECT_EQ(valuesOf(mCurve->getXValues()), (std::vector<double>{1.0, 4.0}));
}

TEST_F(GUI2D_CurveTest, DividingDividesValuesAndFigures)
{
    setY({2.0, 4.0, 8.0});
    mCurve->divideYValues(-2.0);
    EXPECT_EQ(valuesOf(mCurve->getYValues()), (std::vector<double>{-1.0, -2.0, -4.0}));
    EXPECT_EQ(mCurve->getYMax(), -4.0);
    EXPECT_EQ(mCurve->getYMin(), -1.0);
    EXPECT_EQ(mCurve->getYMaxAmplitude(), -4.0);
    EXPECT_EQ(mCurve->getMinDeltaY(), -1.0);
    EXPECT_EQ(mCurve->getMaxDeltaY(), -2.0);
    EXPECT_EQ(mCurve->getMeanDeltaY(), -1.0);
    EXPECT_EQ(mCurve->getXMax(), -1.0);
    mCurve->divideXValues(2.0);
    EXPECT_EQ(mCurve->getXMax(), -0.5);
}

TEST_F(GUI2D_CurveTest, DividingByZeroLeavesTheValuesButNotTheFigures)
{
    setX({-1.0, 2.0});
    mCurve->divideXValues(0.0);
    EXPECT_EQ(valuesOf(mCurve->getXValues()), (std::vector<double>{-1.0, 2.0}));
    EXPECT_TRUE(std::isinf(mCurve->getXMax()));
    EXPECT_LT(mCurve->getXMin(), 0.0);
    EXPECT_TRUE(std::isinf(mCurve->getXMin()));
    EXPECT_TRUE(std::isnan(mCurve->getMeanDeltaX()));
}

TEST_F(GUI2D_CurveTest, BoundsMayBeGiven)
{
    mCurve->setXBounds(2.0, 3.0);
    mCurve->setYBounds(-4.0, 5.0);
    EXPECT_EQ(mCurve->getXMin(), 2.0);
    EXPECT_EQ(mCurve->getXMax(), 3.0);
    EXPECT_EQ(mCurve->getYMin(), -4.0);
    EXPECT_EQ(mCurve->getYMax(), 5.0);
}

TEST_F(GUI2D_CurveTest, TheColorIsShared)
{
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    mCurve->setColor(*red);
    EXPECT_EQ(mCurve->getColor(), red.get());
    EXPECT_EQ(red->getReferenceCount(), 2);
    mCurve->setColor(red.get());
    EXPECT_EQ(red->getReferenceCount(), 2);
    mCurve->setColor(nullptr);
    EXPECT_EQ(mCurve->getColor(), nullptr);
    mCurve->setColor(red.get());
    mCurve->resetColor();
    EXPECT_EQ(mCurve->getColor(), nullptr);
    EXPECT_EQ(red->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- picture

namespace {

/// A plotter of 170 x 80 pixels without texts that shows 0 <= x <= 8, 0 <= y <= 4 at 20 pixels a unit.
class GUI2D_CurvePictureTest : public GUI2D_CurveTest
{
protected:
    GUI2D_CurvePictureTest()
    {
        mPlotter->resize(170, 80);
        printNothing(*mPlotter);
        mPlotter->showLegends(false);
        mPlotter->updateGraphicsArea();
        const COM_Scoped white(COM_Color::New(255, 255, 255));
        mPlotter->addPlot({0.0, 8.0}, {0.0, 4.0}, "frame", *white);
        mPlotter->getCurves()[0].setShown(false);
        mPlotter->getCurves().add(*mCurve);
    }

    const COM_Scoped<GUI2D_Plotter> mPlotter{GUI2D_Plotter::New()};
};

} // namespace

TEST_F(GUI2D_CurvePictureTest, JoinsItsPoints)
{
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    mCurve->setColor(*red);
    setX({1.0, 3.0, 3.0, 20.0, 21.0});
    setY({1.0, 1.0, 3.0, 3.0, 2.0});
    ExpectedPicture expected(170, 80);
    expected.box(20, 60, 60, 60, Qt::red);
    expected.box(60, 20, 60, 60, Qt::red);
    expected.box(60, 20, 159, 20, Qt::red);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPlotter), expected), "");
    mCurve->setShown(false);
    expected.box(1, 1, 158, 78, Qt::white);
    EXPECT_EQ(difference(pictureOf(*mPlotter), expected), "");
}

TEST_F(GUI2D_CurvePictureTest, ItsPointsAreInTheUnitsOfTheUser)
{
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    mPlotter->addPlot({0.0, 800.0}, {0.0, 4e9}, "frame", *red);
    mPlotter->getCurves()[2].setShown(false);
    mPlotter->getCurves().remove(0UL);
    mPlotter->curvesYNormalization("frame", 1.0);
    mCurve->setColor(*red);
    setX({100.0, 300.0, 300.0});
    setY({1e9, 1e9, 3e9});
    ExpectedPicture expected(170, 80);
    expected.box(20, 60, 60, 60, Qt::red);
    expected.box(60, 20, 60, 60, Qt::red);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPlotter), expected), "");
}

TEST_F(GUI2D_CurvePictureTest, WithoutColorItIsBlack)
{
    setX({1.0, 3.0, 4.0});
    setY({1.0, 1.0});
    ExpectedPicture expected(170, 80);
    expected.box(20, 60, 60, 60, Qt::black);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPlotter), expected), "");
}

TEST_F(GUI2D_CurvePictureTest, WithoutBothVectorsNothingIsDrawn)
{
    ExpectedPicture expected(170, 80);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPlotter), expected), "");
    setX({1.0, 3.0});
    EXPECT_EQ(difference(pictureOf(*mPlotter), expected), "");
    setY({1.0});
    EXPECT_EQ(difference(pictureOf(*mPlotter), expected), "") << "one point is no line";
}

// ---------------------------------------------------------------- persistence

TEST_F(GUI2D_CurveTest, TheKeysAreTheFileFormat)
{
    EXPECT_EQ(Description(*mCurve).keys(),
              (std::vector<std::string>{"mAbsXMax", "mAbsYMax", "mIsShown", "mName"}));
    setX({1.0});
    setY({1.0});
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    mCurve->setColor(*color);
    const Description description(*mCurve);
    EXPECT_EQ(description.keys(), (std::vector<std::string>{"mAbsXMax", "mAbsYMax", "mColor",
                                                            "mIsShown", "mName", "mX", "mY"}));
    EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields("mColor")),
              "[Color[1,2,3]]");
}

TEST_F(GUI2D_CurveTest, AMissingKeyIsAnnouncedAndChangesNothing)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    mCurve->setColor(*color);
    mCurve->setName("kept");
    setX({1.0, 5.0});
    const COM_Scoped node(MM_Class::New());
    node->setName("Empty");
    std::string expected;
    for (const char* const key :
         {"mName", "mIsShown", "mX", "mY", "mAbsXMax", "mAbsYMax", "mColor"}) {
        expected += std::string("no attribute ") + key + " stored in class Empty.\n";
    }
    EXPECT_EQ(printedBy([&] { mCurve->loadFromMetaClass(*node); }), expected);
    EXPECT_EQ(mCurve->getName(), "kept");
    EXPECT_EQ(mCurve->getColor(), color.get());
    EXPECT_EQ(mCurve->getXMax(), 5.0);
}

TEST_F(GUI2D_CurveTest, StoredAmplitudesAreThoseOfTheirAxes)
{
    setX({1.0, 5.0});
    setY({2.0, 3.0});
    const Description description(*mCurve);
    replace(description.node(), "mAbsXMax", "7.000000e+00");
    replace(description.node(), "mAbsYMax", "8.000000e+00");
    const COM_Scoped loaded(GUI2D_Curve::New());
    printedBy([&] { loaded->loadFromMetaClass(description.node()); });
    EXPECT_EQ(loaded->getXMaxAmplitude(), 7.0);
    EXPECT_EQ(loaded->getYMaxAmplitude(), 8.0);
}

TEST_F(GUI2D_CurveTest, EverythingStoredComesBackAndTheRestIsComputed)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    mCurve->setColor(*color);
    mCurve->setName("Ex at <1>");
    mCurve->setShown(false);
    setX({-7.0, 2.0, -3.0});
    setY({0.5, 1.5});
    mCurve->divideYValues(-1.0);
    const TestDirectory directory;
    COM_Scoped(GUI2D_ClassFactory::New())->save(directory.file("curve"), *mCurve);
    const COM_Scoped factory(GUI2D_ClassFactory::New());
    const COM_Scoped object(factory->load(directory.file("curve")));
    const auto* const loaded = dynamic_cast<GUI2D_Curve*>(object.get());
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->getName(), "Ex at <1>");
    EXPECT_FALSE(loaded->isShown());
    EXPECT_EQ(valuesOf(loaded->getXValues()), (std::vector<double>{-7.0, 2.0, -3.0}));
    EXPECT_EQ(valuesOf(loaded->getYValues()), (std::vector<double>{-0.5, -1.5}));
    EXPECT_EQ(loaded->getXMin(), -7.0);
    EXPECT_EQ(loaded->getMinDeltaX(), -5.0);
    EXPECT_EQ(loaded->getYMax(), -0.5);
    EXPECT_EQ(loaded->getXMaxAmplitude(), 3.0);
    EXPECT_EQ(loaded->getYMaxAmplitude(), -1.5) << "as stored, not as computed";
    ASSERT_NE(loaded->getColor(), nullptr);
    EXPECT_EQ(loaded->getColor()->toString(), "Color[1,2,3]");
}
