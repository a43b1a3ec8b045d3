#include "gui2d/GUI2D_Plotter.h"

#include "common/COM_Color.h"
#include "gui/GUI_RootPanel.h"
#include "gui2d/GUI2D_ClassFactory.h"
#include "gui2d/GUI2D_Curve.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "TestDrawPanel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// A plotter that counts its paints.
class CountingPlotter : public GUI2D_Plotter
{
    COM_CLASS(CountingPlotter)
public:
    void paintElements() override
    {
        ++mPasses;
        GUI2D_Plotter::paintElements();
    }
    using GUI2D_Plotter::computeBounds;
    using GUI2D_Plotter::getFontHeight;
    using GUI2D_Plotter::getTextWidth;

    int mPasses = 0;

protected:
    CountingPlotter() { COM_TYPE(CountingPlotter); }
    ~CountingPlotter() override = default;
};

class GUI2D_PlotterTest : public testing::Test
{
protected:
    GUI2D_PlotterTest()
    {
        printNothing(*mPlotter);
        mPlotter->resize(400, 300);
        mPlotter->updateGraphicsArea();
    }

    GUI2D_Curve& add(const std::vector<double>& x, const std::vector<double>& y,
                     const std::string& name = "curve")
    {
        const COM_Scoped red(COM_Color::New(255, 0, 0));
        mPlotter->addPlot(x, y, name, *red);
        return mPlotter->getCurves()[mPlotter->getPlotsNumber() - 1];
    }
    std::vector<double> extent() const
    {
        const COM_Scoped box(GEO_Box::New());
        mPlotter->computeBoundingBox(*box);
        return {box->getMinPoint()->getValue(0), box->getMinPoint()->getValue(1),
                box->getMaxPoint()->getValue(0), box->getMaxPoint()->getValue(1)};
    }
    unsigned long widthOf(const std::string& text) const
    {
        return static_cast<unsigned long>(mPlotter->getTextWidth(QString::fromStdString(text)));
    }
    /// Whether any pixel of the area is not grey.
    static bool hasColor(const QImage& picture, const QRect& area)
    {
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const QColor color = picture.pixelColor(x, y);
                if (color.red() != color.blue()) {
                    return true;
                }
            }
        }
        return false;
    }

    const COM_Scoped<CountingPlotter> mPlotter{CountingPlotter::New()};
};

} // namespace

TEST_F(GUI2D_PlotterTest, StartsWithoutCurves)
{
    EXPECT_EQ(mPlotter->getPlotsNumber(), 0U);
    EXPECT_EQ(mPlotter->getCurrentIndexBox(), -1);
    EXPECT_EQ(extent(), (std::vector<double>{-1.0, -1.0, 1.0, 1.0}));
    EXPECT_TRUE(mPlotter->isLegendsPrinted());
    EXPECT_FALSE(mPlotter->isSubTitlesPrinted());
    EXPECT_EQ(mPlotter->getMinPointsNumber(), 0U);
    EXPECT_EQ(mPlotter->getMaxPointsNumber(), 0U);
    EXPECT_EQ(mPlotter->getMeanDeltaX(), 0.0);
    EXPECT_EQ(mPlotter->getMaxDeltaY(), 0.0);
    mPlotter->computeBounds();
    EXPECT_EQ(mPlotter->getCurrentIndexBox(), -1);
    pictureOf(*mPlotter);
    EXPECT_EQ(mPlotter->getEastWidth(), 10U);
}

TEST(GUI2D_Plotter, MayStandInAPanel)
{
    const COM_Scoped root(GUI_RootPanel::New());
    const COM_Scoped first(GUI2D_Plotter::New(*root));
    const COM_Scoped second(GUI2D_Plotter::New(static_cast<GUI_ParentPanel*>(root.get())));
    const COM_Scoped alone(GUI2D_Plotter::New());
    EXPECT_EQ(first->getParent(), root.get());
    EXPECT_EQ(second->parentWidget(), root.get());
    EXPECT_EQ(alone->getParent(), nullptr);
    EXPECT_EQ(first->getTypes().back(), "GUI2D_Plotter");
    EXPECT_EQ(first->getClassName(), "13GUI2D_Plotter");
    EXPECT_TRUE(first->instanceOf("GUI2D_DrawPanel"));
}

// ---------------------------------------------------------------- curves

TEST_F(GUI2D_PlotterTest, AddsCopiesInDrawingOrder)
{
    const COM_Scoped x(LA_RealVector::New(2UL));
    const COM_Scoped y(LA_RealVector::New(2UL));
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    x->setValues(1.0, 2.0);
    y->setValues(3.0, 4.0);
    mPlotter->addPlot(*x, *y, "first", false, *red);
    add({0.0}, {0.0}, "second");
    EXPECT_EQ(mPlotter->getPlotsNumber(), 2U);
    const GUI2D_Curve& curve = mPlotter->getCurves()[0];
    EXPECT_EQ(curve.getName(), "first");
    EXPECT_FALSE(curve.isShown());
    EXPECT_EQ(curve.getColor(), red.get());
    EXPECT_NE(curve.getXValues(), x.get());
    EXPECT_EQ(curve.getXValues()->toString(), x->toString());
    EXPECT_EQ(curve.getYValues()->toString(), y->toString());
    EXPECT_EQ(curve.getReferenceCount(), 1);
    EXPECT_TRUE(mPlotter->getCurves()[1].isShown());
}

TEST_F(GUI2D_PlotterTest, TheFirstCurveGivesItsFigures)
{
    add({0.0, 1.0, 3.0}, {5.0, 4.0, 6.0, 7.0});
    EXPECT_EQ(extent(), (std::vector<double>{0.0, 4.0, 3.0, 7.0}));
    EXPECT_EQ(mPlotter->getMinPointsNumber(), 3U);
    EXPECT_EQ(mPlotter->getMaxPointsNumber(), 3U);
    EXPECT_EQ(mPlotter->getMeanDeltaX(), 1.0);
    EXPECT_EQ(mPlotter->getMinDeltaX(), 1.0);
    EXPECT_EQ(mPlotter->getMaxDeltaX(), 2.0);
    EXPECT_EQ(mPlotter->getMinDeltaY(), -1.0);
    EXPECT_EQ(mPlotter->getMaxDeltaY(), 2.0);
    EXPECT_EQ(mPlotter->getMeanDeltaY(), 1.0);
}

TEST_F(GUI2D_PlotterTest, FurtherCurvesAreFoldedInHiddenOrNot)
{
    add({0.0, 1.0, 3.0}, {5.0, 4.0, 6.0});
    add({-1.0, 4.0}, {1.0, 9.0}).setShown(false);
    EXPECT_EQ(extent(), (std::vector<double>{-1.0, 1.0, 4.0, 9.0}));
    EXPECT_EQ(mPlotter->getMinPointsNumber(), 2U);
    EXPECT_EQ(mPlotter->getMaxPointsNumber(), 3U);
    EXPECT_EQ(mPlotter->getMeanDeltaX(), (1.0 * 1.0 + 0.0) / 2.0);
    EXPECT_EQ(mPlotter->getMeanDeltaY(), (1.0 * 1.0 + 0.0) / 2.0);
    EXPECT_EQ(mPlotter->getMinDeltaX(), 1.0);
    EXPECT_EQ(mPlotter->getMaxDeltaX(), 2.0) << "the smaller of 2 and 5";
    EXPECT_EQ(mPlotter->getMinDeltaY(), -1.0);
    EXPECT_EQ(mPlotter->getMaxDeltaY(), 2.0) << "the smaller of 2 and 8";
    add({0.0, 0.5, 3.5}, {1.0, 1.0, 1.0});
    EXPECT_EQ(mPlotter->getMeanDeltaX(), (0.5 * 2.0 + 1.5) / 3.0);
    EXPECT_EQ(mPlotter->getMinDeltaX(), 0.5);
    EXPECT_EQ(mPlotter->getMaxDeltaY(), 0.0);
}

TEST_F(GUI2D_PlotterTest, EachCurveIsANewView)
{
    add({0.0, 8.0}, {0.0, 4.0});
    EXPECT_EQ(mPlotter->getCurrentIndexBox(), 0);
    add({0.0, 1.0}, {0.0, 9.0});
    EXPECT_EQ(mPlotter->getCurrentIndexBox(), 1);
    EXPECT_EQ(mPlotter->getMapping().mHeight, 9.0);
    mPlotter->back();
    EXPECT_EQ(mPlotter->getMapping().mHeight, 4.0);
}

TEST_F(GUI2D_PlotterTest, CurvesWithoutPointsCountWithTheirBounds)
{
    add({}, {});
    EXPECT_EQ(extent(), (std::vector<double>{1.0, 1.0, -1.0, -1.0}));
    EXPECT_EQ(mPlotter->getMaxPointsNumber(), 0U);
    add({0.0, 8.0}, {0.0, 4.0});
    EXPECT_EQ(extent(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    EXPECT_EQ(mPlotter->getMinPointsNumber(), 0U);
    EXPECT_EQ(mPlotter->getMaxPointsNumber(), 2U);
    EXPECT_EQ(pictureOf(*mPlotter).size(), mPlotter->size());
}

TEST_F(GUI2D_PlotterTest, ValuesThatAreNotFiniteDoNotEndIt)
{
    const double infinity = std::numeric_limits<double>::infinity();
    add({0.0, 1.0, 2.0}, {0.0, std::nan(""), infinity});
    add({-infinity, 1.0}, {1.0, 2.0});
    mPlotter->printScale(true);
    mPlotter->printGrid(true);
    mPlotter->printAxes(true);
    EXPECT_EQ(pictureOf(*mPlotter).size(), mPlotter->size());
    EXPECT_EQ(mPlotter->getMapping().mWidth, 1.0);
}

TEST_F(GUI2D_PlotterTest, NormalizationDividesTheCurvesWhoseNamesContainTheKey)
{
    add({0.0, 1.0}, {0.0, 8.0}, "Ex at 3");
    add({0.0, 1.0}, {0.0, 6.0}, "Ey at 3");
    mPlotter->curvesYNormalization("Ex", 2.0);
    EXPECT_EQ(mPlotter->getCurves()[0].getYMax(), 4.0);
    EXPECT_EQ(mPlotter->getCurves()[1].getYMax(), 6.0);
    EXPECT_EQ(extent(), (std::vector<double>{0.0, 0.0, 1.0, 6.0}));
    EXPECT_EQ(mPlotter->getCurrentIndexBox(), 2);
    mPlotter->curvesYNormalization("3", 2.0);
    EXPECT_EQ(extent(), (std::vector<double>{0.0, 0.0, 1.0, 3.0}));
}

TEST_F(GUI2D_PlotterTest, NormalizationComputesAllFiguresAnew)
{
    add({0.0, 1.0, 2.0}, {0.0, 4.0, 12.0}, "Ex");
    add({0.0, 3.0, 8.0, 9.0}, {10.0, 20.0, 30.0, 50.0}, "Ey");
    mPlotter->curvesYNormalization("E", 2.0);
    EXPECT_EQ(extent(), (std::vector<double>{0.0, 0.0, 9.0, 25.0}));
    EXPECT_EQ(mPlotter->getMinPointsNumber(), 3U);
    EXPECT_EQ(mPlotter->getMaxPointsNumber(), 4U);
    EXPECT_EQ(mPlotter->getMinDeltaX(), 1.0);
    EXPECT_EQ(mPlotter->getMaxDeltaX(), 1.0);
    EXPECT_EQ(mPlotter->getMinDeltaY(), 2.0);
    EXPECT_EQ(mPlotter->getMaxDeltaY(), 4.0);
    // Steps but the first over their number: 1 / 2 and 6 / 3; 4 / 2 and 15 / 3.
    EXPECT_EQ(mPlotter->getMeanDeltaX(), (0.5 + 2.0) / 2.0);
    EXPECT_EQ(mPlotter->getMeanDeltaY(), (2.0 + 5.0) / 2.0);
}

TEST_F(GUI2D_PlotterTest, NormalizationWithoutAMatchPushesNoView)
{
    add({0.0, 1.0}, {0.0, 8.0}, "Ex");
    mPlotter->curvesYNormalization("Rho", 2.0);
    EXPECT_EQ(mPlotter->getCurrentIndexBox(), 0);
    EXPECT_EQ(mPlotter->getCurves()[0].getYMax(), 8.0);
}

TEST_F(GUI2D_PlotterTest, NormalizationByZeroKeepsTheValues)
{
    add({0.0, 1.0}, {0.0, 8.0}, "Ex");
    mPlotter->curvesYNormalization("Ex", 0.0);
    EXPECT_EQ((*mPlotter->getCurves()[0].getYValues())[1], 8.0);
    EXPECT_TRUE(std::isinf(extent()[3]));
    EXPECT_EQ(pictureOf(*mPlotter).size(), mPlotter->size());
}

TEST_F(GUI2D_PlotterTest, RecomputedMeansWeighEachCurveAsOneOfAll)
{
    add({0.0, 1.0, 3.0}, {0.0, 0.0, 0.0});
    add({0.0, 1.0, 5.0}, {0.0, 0.0, 0.0});
    add({0.0, 1.0, 7.0}, {0.0, 0.0, 0.0});
    EXPECT_EQ(mPlotter->getMeanDeltaX(), (1.5 * 2.0 + 3.0) / 3.0);
    mPlotter->computeBounds();
    EXPECT_EQ(mPlotter->getMeanDeltaX(), (((1.0 * 2.0 + 2.0) / 3.0) * 2.0 + 3.0) / 3.0);
}

// ---------------------------------------------------------------- picture

TEST_F(GUI2D_PlotterTest, LaterCurvesLieAboveEarlierOnes)
{
    mPlotter->showLegends(false);
    const COM_Scoped blue(COM_Color::New(0, 0, 255));
    add({0.0, 8.0}, {2.0, 2.0});
    mPlotter->addPlot({0.0, 4.0, 8.0, 8.0}, {2.0, 2.0, 0.0, 4.0}, "over", *blue);
    const QImage picture = pictureOf(*mPlotter);
    const GUI2D_Mapping m = mPlotter->getMapping();
    EXPECT_EQ(picture.pixelColor(m.pixel(2.0, 2.0)), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(m.pixel(6.0, 2.0)), QColor(Qt::red));
}

TEST_F(GUI2D_PlotterTest, LegendsMakeTheEastMarginAsWideAsTheLongestShownName)
{
    add({0.0, 1.0}, {0.0, 1.0}, "short");
    add({0.0, 1.0}, {0.0, 1.0}, "much longer");
    add({0.0, 1.0}, {0.0, 1.0}, "hidden and by far the longest").setShown(false);
    const QImage picture = pictureOf(*mPlotter);
    EXPECT_EQ(mPlotter->getEastWidth(), widthOf("much longer") + widthOf(" "));
    EXPECT_EQ(mPlotter->mPasses, 2);
    const int left = 400 - static_cast<int>(mPlotter->getEastWidth());
    const int height = mPlotter->getFontHeight();
    EXPECT_TRUE(hasColor(picture, QRect(left, 0, 400 - left, height)));
    EXPECT_TRUE(hasColor(picture, QRect(left, height + 4, 400 - left, height)));
    EXPECT_FALSE(hasColor(picture, QRect(left, 3 * height, 400 - left, 300 - 3 * height)));
    pictureOf(*mPlotter);
    EXPECT_EQ(mPlotter->mPasses, 3);
}

TEST_F(GUI2D_PlotterTest, LegendsWithoutRoomGoOnInFurtherColumns)
{
    const int height = mPlotter->getFontHeight();
    mPlotter->resize(500, 4 * height); // three names in a column
    for (int i = 0; i < 7; ++i) {
        add({0.0, 1.0}, {0.0, 1.0}, "name");
    }
    mPlotter->mPasses = 0;
    const QImage picture = pictureOf(*mPlotter);
    EXPECT_EQ(mPlotter->mPasses, 2);
    const unsigned long column = widthOf("name") + widthOf(" ");
    EXPECT_EQ(mPlotter->getEastWidth(), 3 * column);
    const int left = 500 - static_cast<int>(3 * column);
    const auto cell = [&](int x, int y) {
        return QRect(left + x * static_cast<int>(column), y * height + 4, static_cast<int>(column),
                     height);
    };
    EXPECT_TRUE(hasColor(picture, cell(0, 2)));
    EXPECT_TRUE(hasColor(picture, cell(1, 2)));
    EXPECT_TRUE(hasColor(picture, cell(2, 0)));
    EXPECT_FALSE(hasColor(picture, cell(2, 1)));
    // Fewer names make the margin narrower again.
    for (unsigned long i = 2; i < 7; ++i) {
        mPlotter->getCurves()[i].setShown(false);
    }
    pictureOf(*mPlotter);
    EXPECT_EQ(mPlotter->getEastWidth(), column);
}

TEST_F(GUI2D_PlotterTest, LegendsAndTheFactorOfTheScaleShareTheMargin)
{
    mPlotter->printScale(true);
    mPlotter->setPXFactor(-123456);
    add({0.0, 8.0}, {0.0, 4.0}, "i");
    mPlotter->mPasses = 0;
    pictureOf(*mPlotter);
    EXPECT_LE(mPlotter->mPasses, 4);
    EXPECT_EQ(mPlotter->getEastWidth(), widthOf("i") + widthOf(" "));
}

TEST_F(GUI2D_PlotterTest, SubTitlesStandInALineAboveTheGraphics)
{
    mPlotter->showLegends(false);
    mPlotter->showSubTitles(true);
    add({0.0, 1.0}, {0.0, 1.0}, "one");
    add({0.0, 1.0}, {0.0, 1.0}, "two");
    const QImage picture = pictureOf(*mPlotter);
    const int height = mPlotter->getFontHeight();
    EXPECT_EQ(mPlotter->getNorthWidth(), static_cast<unsigned long>(height / 2 + 2 * height));
    const int total =
        static_cast<int>(widthOf("( ") + widthOf("one ") + widthOf("two ") + widthOf(")"));
    const int left = (400 - total) / 2;
    const auto row = [&](int x, int width) { return QRect(x, height + 2, width, height); };
    EXPECT_FALSE(hasColor(picture, row(0, left - 1)));
    EXPECT_TRUE(hasColor(picture, row(left, static_cast<int>(widthOf("( ")))));
    EXPECT_TRUE(hasColor(picture, row(left + total - static_cast<int>(widthOf(")")),
                                      static_cast<int>(widthOf(")")))));
    EXPECT_FALSE(hasColor(picture, row(left + total + 1, 399 - left - total)));
}

TEST_F(GUI2D_PlotterTest, SubTitlesWiderThanThePanelGoOnInFurtherLines)
{
    mPlotter->showLegends(false);
    mPlotter->showSubTitles(true);
    const std::string name = "a name of some length";
    mPlotter->resize(static_cast<int>(2 * widthOf(name + " ") + widthOf("( ")) + 2, 300);
    for (int i = 0; i < 5; ++i) {
        add({0.0, 1.0}, {0.0, 1.0}, name);
    }
    mPlotter->mPasses = 0;
    pictureOf(*mPlotter);
    const int height = mPlotter->getFontHeight();
    EXPECT_EQ(mPlotter->getNorthWidth(), static_cast<unsigned long>(height / 2 + 4 * height));
    EXPECT_EQ(mPlotter->mPasses, 2);
}

TEST_F(GUI2D_PlotterTest, AFullColumnOfLegendsKeepsRoomForTheNext)
{
    const int height = mPlotter->getFontHeight();
    mPlotter->resize(500, 4 * height); // three names in a column
    const auto blank = static_cast<int>(widthOf(" "));
    const auto column = static_cast<int>(widthOf("longest")) + blank;
    add({0.0}, {0.0}, "longest").setColor(nullptr);
    add({0.0}, {0.0}, "hidden").setShown(false);
    add({0.0}, {0.0}, "one");
    add({0.0}, {0.0}, "two");
    GUI2D_Curve& fourth = add({0.0}, {0.0}, "four");
    const int left = 500 - 2 * column;
    for (const bool isFourth : {false, true}) {
        fourth.setShown(isFourth);
        const QImage picture = pictureOf(*mPlotter);
        EXPECT_EQ(mPlotter->getEastWidth(), static_cast<unsigned long>(2 * column));
        PaintedPicture expected(*mPlotter);
        expected.frame(0, 0, left - 1, 4 * height - 1, Qt::black);
        expected.text(left + blank, height, "longest", Qt::black);
        expected.text(left + blank, 2 * height, "one", Qt::red);
        expected.text(left + blank, 3 * height, "two", Qt::red);
        if (isFourth) {
            expected.text(left + column + blank, height, "four", Qt::red);
        }
        EXPECT_EQ(difference(picture, expected.image()), "") << isFourth;
    }
}

TEST_F(GUI2D_PlotterTest, AHiddenFirstNameSpacesTheFirstShownOne)
{
    mPlotter->showLegends(false);
    mPlotter->showSubTitles(true);
    mPlotter->setTitleColor(Qt::darkGreen);
    add({0.0}, {0.0}, "a longer name").setShown(false);
    add({0.0}, {0.0}, "one");
    add({0.0}, {0.0}, "two").setColor(nullptr);
    const auto width = [this](const char* text) { return static_cast<int>(widthOf(text)); };
    const int total = width("( ") + width("one ") + width("two ") + width(")");
    for (const bool isNarrow : {false, true}) {
        // In the narrow panel there is room for the first name alone.
        mPlotter->resize(isNarrow ? total + 2 : 400, 300);
        const QImage picture = pictureOf(*mPlotter);
        const int panel = mPlotter->QWidget::width();
        const int height = mPlotter->getFontHeight();
        const int left = (panel - total) / 2;
        const int second = left + width("( ") + width("a longer name ");
        ASSERT_EQ(second + width("two ") > panel, isNarrow);
        const int north = height / 2 + (isNarrow ? 3 : 2) * height;
        EXPECT_EQ(mPlotter->getNorthWidth(), static_cast<unsigned long>(north));
        PaintedPicture expected(*mPlotter);
        expected.frame(0, north, panel - 10 - 1, 299, Qt::black);
        expected.text(left, 2 * height, "( ", Qt::darkGreen);
        expected.text(left + width("( "), 2 * height, "one", Qt::red);
        expected.text(isNarrow ? 0 : second, (isNarrow ? 3 : 2) * height, "two", Qt::black);
        expected.text((isNarrow ? 0 : second) + width("two "), (isNarrow ? 3 : 2) * height, ")",
                      Qt::darkGreen);
        EXPECT_EQ(difference(picture, expected.image()), "") << isNarrow;
    }
}

TEST_F(GUI2D_PlotterTest, WithoutShownCurvesTheParenthesesRemain)
{
    mPlotter->showSubTitles(true);
    add({0.0, 1.0}, {0.0, 1.0}, "hidden").setShown(false);
    pictureOf(*mPlotter);
    EXPECT_EQ(mPlotter->getEastWidth(), widthOf(" "));
    EXPECT_EQ(
        mPlotter->getNorthWidth(),
        static_cast<unsigned long>(mPlotter->getFontHeight() / 2 + 2 * mPlotter->getFontHeight()));
}

// ---------------------------------------------------------------- persistence

namespace {

/// Those of the panel, then the plotter's own.
std::vector<std::string> plotterKeys()
{
    std::vector<std::string> keys = panelKeys();
    for (const char* const key : {"mXMin", "mXMax", "mYMin", "mYMax", "mMinDeltaX", "mMinDeltaY",
                                  "mMaxDeltaX", "mMaxDeltaY", "mMeanDeltaX", "mMeanDeltaY",
                                  "mLegendsPrinted", "mSubTitlesPrinted", "mCurves"}) {
        keys.emplace_back(key);
    }
    return keys;
}

} // namespace

TEST_F(GUI2D_PlotterTest, TheKeysAreTheFileFormat)
{
    std::vector<std::string> expected = plotterKeys();
    std::sort(expected.begin(), expected.end()); // as a node keeps them
    EXPECT_EQ(Description(*mPlotter).keys(), expected);
}

TEST_F(GUI2D_PlotterTest, AMissingKeyIsAnnouncedAndChangesNothing)
{
    add({0.0, 8.0}, {0.0, 4.0});
    std::string expected;
    for (const std::string& key : plotterKeys()) {
        expected += "no attribute " + key + " stored in class Empty.\n";
    }
    const COM_Scoped node(MM_Class::New());
    node->setName("Empty");
    EXPECT_EQ(printedBy([&] { mPlotter->loadFromMetaClass(*node); }), expected);
    EXPECT_EQ(mPlotter->getPlotsNumber(), 1U);
    EXPECT_EQ(extent(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
}

TEST_F(GUI2D_PlotterTest, EachFigureHasItsKey)
{
    GUI2D_Curve& curve = add({1.5, 2.0, 4.0}, {10.0, 30.0, 90.0});
    mPlotter->showLegends(false);
    const Description description(*mPlotter);
    const auto stored = [&description](const char* key) {
        return Description::textOf(*description.node().getFromMetaFields(key));
    };
    EXPECT_EQ(stored("mXMin"), "[1.500000e+00]");
    EXPECT_EQ(stored("mXMax"), "[4.000000e+00]");
    EXPECT_EQ(stored("mYMin"), "[1.000000e+01]");
    EXPECT_EQ(stored("mYMax"), "[9.000000e+01]");
    EXPECT_EQ(stored("mMinDeltaX"), "[5.000000e-01]");
    EXPECT_EQ(stored("mMaxDeltaX"), "[2.000000e+00]");
    EXPECT_EQ(stored("mMeanDeltaX"), "[1.000000e+00]");
    EXPECT_EQ(stored("mMinDeltaY"), "[2.000000e+01]");
    EXPECT_EQ(stored("mMaxDeltaY"), "[6.000000e+01]");
    EXPECT_EQ(stored("mMeanDeltaY"), "[3.000000e+01]");
    EXPECT_EQ(stored("mLegendsPrinted"), "[0]");
    EXPECT_EQ(stored("mSubTitlesPrinted"), "[0]");
    EXPECT_EQ(stored("mCurves"), "[" + curve.getIdentityString() + "]");
}

TEST_F(GUI2D_PlotterTest, EachKeyIsAFieldOfItsOwn)
{
    KeyValues values = {{"mLegendsPrinted", "0"}, {"mSubTitlesPrinted", "1"}};
    for (const char* const key : {"mXMin", "mXMax", "mYMin", "mYMax", "mMinDeltaX", "mMinDeltaY",
                                  "mMaxDeltaX", "mMaxDeltaY", "mMeanDeltaX", "mMeanDeltaY"}) {
        values.emplace_back(key, "2.500000e+00");
    }
    const COM_Scoped empty(GUI2D_Plotter::New());
    expectEachKeyIsAField(*empty, values);
}

TEST(GUI2D_Plotter, AFileBringsThePlotBack)
{
    const COM_Scoped blue(COM_Color::New(0, 0, 255));
    const COM_Scoped plotter(GUI2D_Plotter::New());
    plotter->addPlot({0.0, 1.0, 3.0}, {5.0, 4.0, 6.0}, "Ex", *blue);
    plotter->addPlot({-1.0, 4.0}, {1.0, 9.0}, "Ey", *blue);
    plotter->getCurves()[1].setShown(false);
    plotter->getCurves()[1].setColor(nullptr);
    plotter->zoom(0.5);
    plotter->back();
    plotter->showLegends(false);
    plotter->showSubTitles(true);
    plotter->setTitle("Saved");
    plotter->setScaleColor(QColor(1, 2, 3));
    const TestDirectory directory;
    COM_Scoped(GUI2D_ClassFactory::New())->save(directory.file("plot.xml"), *plotter);

    const COM_Scoped made(GUI2D_ClassFactory::New());
    std::string printed;
    MM_Object* object = nullptr;
    printed = printedBy([&] { object = made->load(directory.file("plot.xml")); });
    const COM_Scoped owned(object);
    const std::string colorless = "no attribute mColor stored in class 11GUI2D_Curve.\n";
    EXPECT_EQ(printed, colorless);
    const COM_Scoped present(GUI2D_Plotter::New());
    present->addPlot({0.0, 100.0}, {0.0, 100.0}, "former", *blue);
    const COM_Scoped into(GUI2D_ClassFactory::New());
    EXPECT_EQ(printedBy([&] { into->load(directory.file("plot.xml"), *present); }), colorless);

    for (GUI2D_Plotter* const loaded : {dynamic_cast<GUI2D_Plotter*>(object), present.get()}) {
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(loaded->getTitle(), "Saved");
        EXPECT_EQ(loaded->getScaleColor(), QColor(1, 2, 3));
        EXPECT_FALSE(loaded->isLegendsPrinted());
        EXPECT_TRUE(loaded->isSubTitlesPrinted());
        ASSERT_EQ(loaded->getPlotsNumber(), 2U);
        for (unsigned long i = 0; i < 2; ++i) {
            const GUI2D_Curve& curve = loaded->getCurves()[i];
            const GUI2D_Curve& original = plotter->getCurves()[i];
            EXPECT_EQ(curve.getName(), original.getName());
            EXPECT_EQ(curve.isShown(), original.isShown());
            EXPECT_EQ(curve.getXValues()->toString(), original.getXValues()->toString());
            EXPECT_EQ(curve.getYValues()->toString(), original.getYValues()->toString());
            EXPECT_EQ(curve.getMaxDeltaX(), original.getMaxDeltaX());
        }
        ASSERT_NE(loaded->getCurves()[0].getColor(), nullptr);
        EXPECT_TRUE(loaded->getCurves()[0].getColor()->isEquals(*blue));
        EXPECT_EQ(loaded->getCurves()[1].getColor(), nullptr);
        EXPECT_EQ(loaded->getCurrentIndexBox(), 1);
        ASSERT_EQ(loaded->getDrawingBoxes().size(), 3U);
        for (unsigned long i = 0; i < 3; ++i) {
            EXPECT_TRUE(
                loaded->getDrawingBoxes()[i].isEquals(plotter->getDrawingBoxes()[i], 1e-12));
        }
        EXPECT_EQ(loaded->getMapping().mWidth, plotter->getMapping().mWidth);
        EXPECT_EQ(loaded->getMapping().mOriginY, plotter->getMapping().mOriginY);
        EXPECT_EQ(loaded->getMeanDeltaX(), plotter->getMeanDeltaX());
        EXPECT_EQ(loaded->getMaxDeltaY(), plotter->getMaxDeltaY());
        // Not stored, computed from the curves.
        EXPECT_EQ(loaded->getMinPointsNumber(), 2U);
        EXPECT_EQ(loaded->getMaxPointsNumber(), 3U);
        // The next curve joins those of the file.
        loaded->addPlot({0.0, 1.0}, {0.0, 1.0}, "new", *blue);
        const COM_Scoped box(GEO_Box::New());
        loaded->computeBoundingBox(*box);
        EXPECT_EQ(box->getMinPoint()->getValue(0), -1.0);
        EXPECT_EQ(box->getMaxPoint()->getValue(1), 9.0);
    }
}

namespace {

class ForeignLine : public GUI2D_Curve
{
    COM_CLASS(ForeignLine)
protected:
    ForeignLine() { COM_TYPE(ForeignLine); }
    ~ForeignLine() override = default;
};

} // namespace

TEST(GUI2D_Plotter, ACurveOfAClassThatNoFactoryKnowsIsAnnouncedAndMissing)
{
    const COM_Scoped blue(COM_Color::New(0, 0, 255));
    const COM_Scoped plotter(GUI2D_Plotter::New());
    const COM_Scoped foreign(ForeignLine::New());
    plotter->getCurves().add(*foreign);
    plotter->addPlot({0.0, 1.0}, {0.0, 1.0}, "kept", *blue);
    const TestDirectory directory;
    COM_Scoped(GUI2D_ClassFactory::New())->save(directory.file("plot.xml"), *plotter);

    const COM_Scoped loaded(GUI2D_Plotter::New());
    const COM_Scoped factory(GUI2D_ClassFactory::New());
    EXPECT_EQ(printedBy([&] { factory->load(directory.file("plot.xml"), *loaded); }),
              "impossible to create an instance of " + foreign->getIdentityString()
                  + " from class 13GUI2D_Plotter.\n");
    ASSERT_EQ(loaded->getPlotsNumber(), 1U);
    EXPECT_EQ(loaded->getCurves()[0].getName(), "kept");
}
