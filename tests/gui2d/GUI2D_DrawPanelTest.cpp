#include "gui2d/GUI2D_DrawPanel.h"

#include "common/COM_Color.h"
#include "common/COM_Real.h"
#include "dictionary/DICO_Dictionary.h"
#include "geometry/GEO_ClassFactory.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "support/Description.h"
#include "support/DialogAnswers.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestWindows.h"
#include "TestDrawPanel.h"

#include <QImageReader>
#include <QPrintDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// A panel of 170 x 80 pixels, of which the right 10 are margin, for data in 0 <= x <= 8, 0 <= y <= 4: 20
/// pixels a unit.
class GUI2D_DrawPanelTest : public testing::Test
{
protected:
    GUI2D_DrawPanelTest()
    {
        mPanel->resize(170, 80);
        mPanel->updateGraphicsArea();
    }

    /// The view as (x min, y min, x max, y max), in model units.
    std::vector<double> view() const
    {
        const GUI2D_Mapping m = mPanel->getMapping();
        return {m.xMin(), m.yMin(), m.xMax(), m.yMax()};
    }
    std::vector<double> box(unsigned long index) const
    {
        return cornersOf(mPanel->getDrawingBoxes()[index]);
    }
    static std::vector<double> cornersOf(const GEO_Box& box)
    {
        return {box.getMinPoint()->getValue(0), box.getMinPoint()->getValue(1),
                box.getMaxPoint()->getValue(0), box.getMaxPoint()->getValue(1)};
    }
    /// Prints nothing but the axes, in blue, over that extent.
    void showAxes(double xMin, double yMin, double xMax, double yMax) const
    {
        mPanel->printNothing();
        mPanel->printAxes(true);
        mPanel->setAxesColor(Qt::blue);
        mPanel->setExtent(xMin, yMin, xMax, yMax);
        mPanel->fitToGraphics();
    }
    static void turnWheel(QWidget& panel, const QPoint& place, int angle)
    {
        QWheelEvent event(place, panel.mapToGlobal(place), {}, {0, angle}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&panel, &event);
    }

    const COM_Scoped<TestDrawPanel> mPanel{TestDrawPanel::New()};
};

/// The same panel in a window with a menu.
class GUI2D_DrawPanelWindowTest : public testing::Test
{
protected:
    GUI2D_DrawPanelWindowTest()
        : mLang(GUI_Object::getLang())
        , mRoot(mFamily.addPanel())
        , mPanel(TestDrawPanel::New(&mRoot))
    {
        GUI_Object::setLang(DICO_Dictionary::LANG_EN);
        mFamily.mRoot->show();
        mPanel->setGeometry(5, 5, 170, 80);
        mPanel->printNothing();
        mPanel->show();
        mPanel->updateGraphicsArea();
        mPanel->fitToGraphics();
        mFamily.mPanel->mUpdates = 0;
    }
    ~GUI2D_DrawPanelWindowTest() override { GUI_Object::setLang(mLang); }

    std::string status() const
    {
        return mFamily.mRoot->statusBar()->currentMessage().toStdString();
    }
    void press(int x, int y) { QTest::mousePress(mPanel.get(), Qt::LeftButton, {}, {x, y}); }
    void moveMouse(int x, int y)
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, y), mPanel->mapToGlobal(QPointF(x, y)),
                          Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(mPanel.get(), &event);
    }
    void release(int x, int y) { QTest::mouseRelease(mPanel.get(), Qt::LeftButton, {}, {x, y}); }

    unsigned char mLang;
    TestFamily mFamily;
    GUI_RootPanel& mRoot;
    const COM_Scoped<TestDrawPanel> mPanel;
};

} // namespace

// ---------------------------------------------------------------- a new panel

TEST_F(GUI2D_DrawPanelTest, StartsWithItsDefaults)
{
    EXPECT_EQ(GUI2D_DrawPanel::REAL_SCALE_TYPE, 0);
    EXPECT_EQ(GUI2D_DrawPanel::INTEGER_SCALE_TYPE, 1);
    EXPECT_EQ(GUI2D_DrawPanel::WEST_DIRECTION, 2);
    EXPECT_EQ(GUI2D_DrawPanel::EAST_DIRECTION, 3);
    EXPECT_EQ(GUI2D_DrawPanel::NORTH_DIRECTION, 4);
    EXPECT_EQ(GUI2D_DrawPanel::SOUTH_DIRECTION, 5);
    EXPECT_EQ(GUI2D_DrawPanel::NO_BRUSH, 0);
    EXPECT_EQ(GUI2D_DrawPanel::SOLID_LINE, 1);
    EXPECT_EQ(mPanel->getTitle(), "Title");
    EXPECT_EQ(mPanel->getXLabel(), "XLabel");
    EXPECT_EQ(mPanel->getYLabel(), "YLabel");
    EXPECT_EQ(mPanel->getStatusMessage(), "Current Point");
    EXPECT_EQ(mPanel->getZoomFactor(), 1.2);
    EXPECT_EQ(mPanel->getPanX(), 10U);
    EXPECT_EQ(mPanel->getPanY(), 10U);
    EXPECT_EQ(mPanel->getNbCharsAfterComa(), 6U);
    EXPECT_TRUE(mPanel->getZoomSelection());
    EXPECT_FALSE(mPanel->isOrthonormee());
    EXPECT_EQ(mPanel->getEastWidth(), 10U);
    EXPECT_EQ(mPanel->getWestWidth() + mPanel->getNorthWidth() + mPanel->getSouthWidth(), 0U);
    EXPECT_EQ(mPanel->getBackgroundColor(), QColor(Qt::white));
    EXPECT_EQ(mPanel->getScaleColor(), QColor(Qt::blue));
    EXPECT_TRUE(mPanel->testAttribute(Qt::WA_OpaquePaintEvent));
    EXPECT_TRUE(mPanel->hasMouseTracking());
    EXPECT_EQ(mPanel->getTypes().back(), "TestDrawPanel");
    EXPECT_TRUE(mPanel->instanceOf("GUI_FramePanel"));
    EXPECT_TRUE(mPanel->instanceOf("MM_Object"));
}

TEST_F(GUI2D_DrawPanelTest, StoresWhatItStartsWith)
{
    const std::vector<std::vector<std::string>> expected = {
        {"mStatusMessage", "[Current Point]"},
        {"mOrthonormee", "[0]"},
        {"mXDirection", "[1]"},
        {"mYDirection", "[-1]"},
        {"mGraduationSize", "[5]"},
        {"mNbCharsAfterComa", "[6]"},
        {"mXLabel", "[XLabel]"},
        {"mYLabel", "[YLabel]"},
        {"mTitle", "[Title]"},
        {"mZoomFactor", "[1.200000e+00]"},
        {"mPanX", "[10]"},
        {"mPanY", "[10]"},
        {"mTitlePrinted", "[1]"},
        {"mXLabelPrinted", "[1]"},
        {"mYLabelPrinted", "[1]"},
        {"mAxesPrinted", "[1]"},
        {"mGridPrinted", "[1]"},
        {"mBorderLinePrinted", "[1]"},
        {"mScalePrinted", "[1]"},
        {"mXScaleType", "[0]"},
        {"mYScaleType", "[0]"},
        {"mDraggedRectangle", "[0]"},
        {"mZoomSelection", "[1]"},
        {"mScientificNotation", "[1]"},
        {"mPXFactor", "[0.000000e+00]"},
        {"mPYFactor", "[0.000000e+00]"},
        {"mPXadim", "[0]"},
        {"mPYadim", "[0]"},
        {"mXadim", "[1.000000e+00]"},
        {"mYadim", "[1.000000e+00]"},
        {"mStatusPrinted", "[1]"},
        {"mCurrentIndexBox", "[-1]"},
        {"mBorderColor", "[#ffffff]"},
        {"mBorderLineColor", "[#000000]"},
        {"mScaleColor", "[#0000ff]"},
        {"mXLabelColor", "[#ff0000]"},
        {"mYLabelColor", "[#ff0000]"},
        {"mTitleColor", "[#ff0000]"},
        {"mAxesColor", "[#000000]"},
        {"mGridColor", "[#000000]"},
        {"mDraggedRectangleColor", "[#ff0000]"},
        {"BackgroundColor", "[#ffffff]"},
        {"mDrawingBoxes", "[]"},
    };
    const Description description(*mPanel);
    for (const std::vector<std::string>& row : expected) {
        const MM_Field* const field = description.node().getFromMetaFields(row[0]);
        ASSERT_NE(field, nullptr) << row[0];
        EXPECT_EQ(Description::textOf(*field), row[1]) << row[0];
    }
}

TEST_F(GUI2D_DrawPanelTest, WithoutAViewThereIsNothingToMoveIn)
{
    EXPECT_EQ(mPanel->getCurrentIndexBox(), -1);
    EXPECT_FALSE(mPanel->isBackValid());
    EXPECT_FALSE(mPanel->isNextValid());
    mPanel->zoom(2.0);
    mPanel->zoomAt(2.0, 0.0, 0.0);
    mPanel->pan(GUI2D_DrawPanel::EAST_DIRECTION);
    mPanel->back();
    mPanel->next();
    QTest::mouseClick(mPanel.get(), Qt::LeftButton, {}, {20, 20});
    turnWheel(*mPanel, {20, 20}, 120);
    EXPECT_EQ(mPanel->getCurrentIndexBox(), -1);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 0U);
    const COM_Scoped unit(mPanel->getBounds());
    EXPECT_EQ(cornersOf(*unit), (std::vector<double>{0.0, 0.0, 1.0, 1.0}));
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 1.0, 1.0}));
}

TEST_F(GUI2D_DrawPanelTest, ScaleTypesOtherThanIntegerAreReal)
{
    mPanel->setXScaleType(1);
    mPanel->setYScaleType(1);
    EXPECT_EQ(mPanel->getXScaleType(), 1);
    EXPECT_EQ(mPanel->getYScaleType(), 1);
    mPanel->setXScaleType(7);
    mPanel->setYScaleType(255);
    EXPECT_EQ(mPanel->getXScaleType(), 0);
    EXPECT_EQ(mPanel->getYScaleType(), 0);
}

TEST_F(GUI2D_DrawPanelTest, ReversingTwiceIsNothing)
{
    mPanel->reverseX();
    mPanel->reverseY();
    EXPECT_EQ(mPanel->getXDirection(), -1);
    EXPECT_EQ(mPanel->getYDirection(), 1);
    mPanel->reverseX();
    mPanel->reverseY();
    EXPECT_EQ(mPanel->getXDirection(), 1);
    EXPECT_EQ(mPanel->getYDirection(), -1);
}

TEST_F(GUI2D_DrawPanelTest, DigitsEndAt24)
{
    mPanel->setNbCharsAfterComa(24);
    EXPECT_EQ(mPanel->getNbCharsAfterComa(), 24U);
    mPanel->setNbCharsAfterComa(25);
    EXPECT_EQ(mPanel->getNbCharsAfterComa(), 24U);
}

// ---------------------------------------------------------------- views

TEST_F(GUI2D_DrawPanelTest, FittingShowsTheWholeBoxDividedByPowersOfTen)
{
    mPanel->setExtent(0.0, -200.0, 0.08, 600.0);
    mPanel->fitToGraphics();
    const GUI2D_Mapping m = mPanel->getMapping();
    EXPECT_EQ(m.mXadim, 1.0 / 100.0);
    EXPECT_EQ(m.mYadim, 100.0);
    EXPECT_EQ(view(), (std::vector<double>{0.0, -2.0, 8.0, 6.0}));
    EXPECT_EQ(mPanel->getScaleX(), 20.0);
    EXPECT_EQ(mPanel->getScaleY(), 10.0);
    EXPECT_EQ(mPanel->getCurrentIndexBox(), 0);
}

TEST_F(GUI2D_DrawPanelTest, TheSameScaleOnBothAxesHasOneFactor)
{
    mPanel->setOrthonormee(true);
    mPanel->setExtent(0.0, 0.0, 8.0, 400.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(mPanel->getMapping().mXadim, 100.0);
    EXPECT_EQ(mPanel->getMapping().mYadim, 100.0);
    EXPECT_EQ(box(0), (std::vector<double>{0.0, 0.0, 0.08, 4.0}));
    // 160 x 80 pixels: the width grows, the origin stays.
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    EXPECT_EQ(mPanel->getScaleX(), mPanel->getScaleY());
}

TEST_F(GUI2D_DrawPanelTest, TheSameScaleGrowsTheHeightToo)
{
    mPanel->setOrthonormee(true);
    mPanel->setExtent(0.0, 0.0, 8.0, 1.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(view(), (std::vector<double>{0.0, -3.0, 8.0, 1.0}));
    EXPECT_EQ(mPanel->getScaleX(), 20.0);
    EXPECT_EQ(mPanel->getScaleY(), 20.0);
}

TEST_F(GUI2D_DrawPanelTest, ChangingTheFactorsPushesNoView)
{
    mPanel->setExtent(0.0, 0.0, 8.0, 400.0);
    mPanel->fitToGraphics();
    mPanel->setOrthonormee(true);
    EXPECT_EQ(mPanel->getMapping().mXadim, 100.0);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 1U);
    mPanel->setOrthonormee(false);
    EXPECT_EQ(mPanel->getMapping().mXadim, 1.0);
    EXPECT_EQ(mPanel->getMapping().mYadim, 100.0);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 1U);
    // The larger of both, whichever axis it is.
    mPanel->setExtent(0.0, 0.0, 8000.0, 400.0);
    mPanel->fitToGraphics();
    mPanel->setOrthonormee(true);
    EXPECT_EQ(mPanel->getMapping().mXadim, 1000.0);
    EXPECT_EQ(mPanel->getMapping().mYadim, 1000.0);
}

TEST_F(GUI2D_DrawPanelTest, ChangingTheScaleGrowsTheViewAtOnceAndForGood)
{
    mPanel->setExtent(0.0, 0.0, 8.0, 1.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(mPanel->getScaleY(), 80.0);
    mPanel->setOrthonormee(true);
    EXPECT_EQ(view(), (std::vector<double>{0.0, -3.0, 8.0, 1.0}));
    EXPECT_EQ(mPanel->getScaleY(), 20.0);
    mPanel->setOrthonormee(false);
    EXPECT_EQ(view(), (std::vector<double>{0.0, -3.0, 8.0, 1.0}));
    EXPECT_EQ(box(0), (std::vector<double>{0.0, 0.0, 8.0, 1.0}));
}

TEST_F(GUI2D_DrawPanelTest, AFlatBoxHasNoFactor)
{
    mPanel->setExtent(0.0, 3.0, 8.0, 3.0);
    mPanel->setOrthonormee(false);
    EXPECT_EQ(mPanel->getMapping().mYadim, 1.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(mPanel->getMapping().mYadim, 1.0);
    EXPECT_EQ(mPanel->getMapping().mHeight, 1e-24);
    EXPECT_EQ(mPanel->getMapping().mWidth, 8.0);
}

TEST_F(GUI2D_DrawPanelTest, AFlatBoxThatComesBackIsOneHigh)
{
    // So far from 0 that the smallest extent is lost in the corners of the box.
    mPanel->setExtent(0.0, 3.0, 8.0, 3.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(box(0), (std::vector<double>{0.0, 3.0, 8.0, 3.0}));
    mPanel->zoom(0.5);
    mPanel->back();
    EXPECT_EQ(view(), (std::vector<double>{0.0, 2.0, 8.0, 3.0}));
    EXPECT_EQ(mPanel->getScaleY(), 80.0);
}

TEST_F(GUI2D_DrawPanelTest, AScaleThatIsSetLastsUntilTheAreaIsComputed)
{
    mPanel->fitToGraphics();
    mPanel->setScaleX(3.0);
    mPanel->setScaleY(5.0);
    EXPECT_EQ(mPanel->getScaleX(), 3.0);
    EXPECT_EQ(mPanel->getScaleY(), 5.0);
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    mPanel->updateGraphicsArea();
    EXPECT_EQ(mPanel->getScaleX(), 20.0);
    EXPECT_EQ(mPanel->getScaleY(), 20.0);
}

TEST_F(GUI2D_DrawPanelTest, AFlatBoxAtZeroIsShownAroundItsCentre)
{
    mPanel->setExtent(0.0, 0.0, 8.0, 0.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(view(), (std::vector<double>{0.0, -5e-25, 8.0, 5e-25}));
    EXPECT_EQ(box(0), (std::vector<double>{0.0, -5e-25, 8.0, 5e-25}));
}

TEST_F(GUI2D_DrawPanelTest, ABoxThatIsNotFiniteIsTheUnitBox)
{
    for (const double wrong : {infinity, -infinity, notANumber}) {
        mPanel->setExtent(0.0, 0.0, wrong, 400.0);
        mPanel->fitToGraphics();
        EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 1.0, 1.0}));
        EXPECT_EQ(mPanel->getMapping().mXadim, 1.0);
        EXPECT_EQ(pictureOf(*mPanel).size(), mPanel->size());
    }
    mPanel->setExtent(-1.7e308, 0.0, 1.7e308, 1.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 1.0, 1.0}));
}

TEST_F(GUI2D_DrawPanelTest, ZoomingKeepsTheCentre)
{
    mPanel->fitToGraphics();
    mPanel->zoom(0.5);
    EXPECT_EQ(view(), (std::vector<double>{2.0, 1.0, 6.0, 3.0}));
    EXPECT_EQ(mPanel->getCurrentIndexBox(), 1);
    EXPECT_EQ(mPanel->getScaleX(), 40.0);
}

TEST_F(GUI2D_DrawPanelTest, ZoomingAboutAPointKeepsItsPixel)
{
    mPanel->fitToGraphics();
    const QPoint before = mPanel->getMapping().pixel(2.0, 1.0);
    mPanel->zoomAt(0.5, 2.0, 1.0);
    EXPECT_EQ(view(), (std::vector<double>{1.0, 0.5, 5.0, 2.5}));
    EXPECT_EQ(mPanel->getMapping().pixel(2.0, 1.0), before);
}

TEST_F(GUI2D_DrawPanelTest, PanningMovesByPixels)
{
    mPanel->fitToGraphics();
    mPanel->setPanX(20);
    mPanel->setPanY(40);
    mPanel->pan(GUI2D_DrawPanel::EAST_DIRECTION);
    EXPECT_EQ(view(), (std::vector<double>{1.0, 0.0, 9.0, 4.0}));
    mPanel->pan(GUI2D_DrawPanel::NORTH_DIRECTION);
    EXPECT_EQ(view(), (std::vector<double>{1.0, 2.0, 9.0, 6.0}));
    mPanel->pan(GUI2D_DrawPanel::WEST_DIRECTION);
    EXPECT_EQ(view(), (std::vector<double>{0.0, 2.0, 8.0, 6.0}));
    mPanel->pan(GUI2D_DrawPanel::SOUTH_DIRECTION);
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    mPanel->pan(0);
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 6U);
}

TEST_F(GUI2D_DrawPanelTest, BackAndNextStopAtTheEnds)
{
    mPanel->fitToGraphics();
    mPanel->zoom(0.5);
    EXPECT_TRUE(mPanel->isBackValid());
    EXPECT_FALSE(mPanel->isNextValid());
    mPanel->next();
    EXPECT_EQ(mPanel->getCurrentIndexBox(), 1);
    EXPECT_EQ(view(), (std::vector<double>{2.0, 1.0, 6.0, 3.0}));
    mPanel->back();
    EXPECT_FALSE(mPanel->isBackValid());
    EXPECT_TRUE(mPanel->isNextValid());
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    mPanel->back();
    EXPECT_EQ(mPanel->getCurrentIndexBox(), 0);
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    mPanel->next();
    EXPECT_EQ(view(), (std::vector<double>{2.0, 1.0, 6.0, 3.0}));
}

TEST_F(GUI2D_DrawPanelTest, ANewViewStandsBehindThePresentOneAndBeforeTheLaterOnes)
{
    mPanel->fitToGraphics();
    mPanel->zoom(0.5);
    mPanel->zoom(0.5);
    mPanel->back();
    mPanel->back();
    mPanel->zoom(2.0);
    EXPECT_EQ(mPanel->getCurrentIndexBox(), 1);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 4U);
    EXPECT_EQ(view(), (std::vector<double>{-4.0, -2.0, 12.0, 6.0}));
    mPanel->next();
    EXPECT_EQ(view(), (std::vector<double>{2.0, 1.0, 6.0, 3.0}));
    mPanel->next();
    EXPECT_EQ(view(), (std::vector<double>{3.0, 1.5, 5.0, 2.5}));
    EXPECT_FALSE(mPanel->isNextValid());
}

TEST_F(GUI2D_DrawPanelTest, TheBoundsAreTheCallersOwn)
{
    mPanel->fitToGraphics();
    const COM_Scoped bounds(mPanel->getBounds());
    EXPECT_EQ(cornersOf(*bounds), box(0));
    EXPECT_EQ(bounds->getReferenceCount(), 1);
    bounds->zoom(3.0);
    EXPECT_EQ(box(0), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
}

TEST_F(GUI2D_DrawPanelTest, APanelNarrowerThanItsMarginsShowsNothing)
{
    mPanel->setOrthonormee(true);
    mPanel->fitToGraphics();
    mPanel->setEastWidth(500);
    mPanel->setNorthWidth(500);
    mPanel->updateGraphicsArea();
    int width = -1;
    int height = -1;
    mPanel->getGraphicsSize(width, height);
    EXPECT_EQ(width, 0);
    EXPECT_EQ(height, 0);
    EXPECT_EQ(mPanel->getScaleX(), 0.0);
    EXPECT_EQ(mPanel->getScaleY(), 0.0);
    EXPECT_EQ(view(), (std::vector<double>{0.0, 0.0, 8.0, 4.0}));
    mPanel->pan(GUI2D_DrawPanel::EAST_DIRECTION);
    QTest::mouseClick(mPanel.get(), Qt::LeftButton, {}, {20, 20});
    turnWheel(*mPanel, {20, 20}, 120);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 1U);
    EXPECT_EQ(pictureOf(*mPanel).size(), mPanel->size());
}

TEST_F(GUI2D_DrawPanelTest, MarginsGoBackToThoseOfANewPanel)
{
    pictureOf(*mPanel);
    EXPECT_GT(mPanel->getWestWidth(), 0U);
    EXPECT_GT(mPanel->getNorthWidth(), 0U);
    EXPECT_GT(mPanel->getSouthWidth(), 0U);
    mPanel->resetMargins();
    EXPECT_EQ(mPanel->getWestWidth() + mPanel->getNorthWidth() + mPanel->getSouthWidth(), 0U);
    EXPECT_EQ(mPanel->getEastWidth(), 10U);
}

// ---------------------------------------------------------------- pictures

TEST_F(GUI2D_DrawPanelTest, TheBorderLineSurroundsTheGraphics)
{
    mPanel->printNothing();
    mPanel->fitToGraphics();
    ExpectedPicture expected(170, 80);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, MarginsMaskWhatOverflows)
{
    mPanel->printNothing();
    mPanel->setBackgroundColor(Qt::yellow);
    mPanel->setBorderColor(Qt::gray);
    mPanel->setBorderLineColor(Qt::green);
    mPanel->setNorthWidth(8);
    mPanel->setWestWidth(20);
    mPanel->fitToGraphics();
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    mPanel->mPaint = [&] { mPanel->drawColorBox(-5, -5, 200, 200, *red, *red); };
    ExpectedPicture expected(170, 80, Qt::red);
    expected.box(0, 0, 169, 7, Qt::gray);
    expected.box(0, 0, 19, 79, Qt::gray);
    expected.box(160, 0, 169, 79, Qt::gray);
    expected.frame(20, 8, 159, 79, Qt::green);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
    mPanel->mPaint = nullptr;
    expected.box(21, 9, 158, 78, Qt::yellow);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, LinesFallOnThePixelsOfTheirPoints)
{
    mPanel->printNothing();
    mPanel->fitToGraphics();
    mPanel->mPaint = [&] {
        mPanel->setPen(QColor(Qt::blue), GUI2D_DrawPanel::SOLID_LINE);
        mPanel->moveTo(1.0, 1.0);
        mPanel->lineTo(2.0, 1.0);
        mPanel->lineTo(2.0, 3.0);
        mPanel->moveTo(4.0, 1.0);
        mPanel->lineTo(100.0, 1.0);
        // The pen is up after a point that is nowhere.
        mPanel->moveTo(3.0, 2.0);
        mPanel->lineTo(notANumber, 2.0);
        mPanel->lineTo(5.0, 2.0);
        mPanel->lineTo(6.0, 2.0);
        mPanel->lineTo(6.0, infinity);
    };
    ExpectedPicture expected(170, 80);
    expected.box(20, 60, 40, 60, Qt::blue);
    expected.box(40, 20, 40, 60, Qt::blue);
    expected.box(80, 60, 159, 60, Qt::blue);
    expected.box(100, 40, 120, 40, Qt::blue);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, LinesAreGivenInTheUnitsOfTheUser)
{
    mPanel->printNothing();
    mPanel->setExtent(0.0, 0.0, 800.0, 0.04);
    mPanel->fitToGraphics();
    mPanel->mPaint = [&] {
        mPanel->setPen(QColor(Qt::blue), GUI2D_DrawPanel::SOLID_LINE);
        mPanel->moveTo(100.0, 0.01);
        mPanel->lineTo(200.0, 0.01);
    };
    const QImage picture = pictureOf(*mPanel);
    EXPECT_EQ(picture.pixelColor(20, 60), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(40, 60), QColor(Qt::blue));
    EXPECT_EQ(picture.pixelColor(19, 60), QColor(Qt::white));
    EXPECT_EQ(picture.pixelColor(41, 60), QColor(Qt::white));
}

TEST_F(GUI2D_DrawPanelTest, ThereIsOneKindOfPenAndNoFill)
{
    mPanel->printNothing();
    mPanel->fitToGraphics();
    mPanel->mPaint = [&] {
        mPanel->setPen(QColor(Qt::blue), GUI2D_DrawPanel::SOLID_LINE);
        mPanel->setPen(QColor(Qt::red), 2);
        mPanel->setPen(QColor(Qt::red), 0);
        mPanel->setBrush(QColor(Qt::red), GUI2D_DrawPanel::NO_BRUSH);
        mPanel->setBrush(QColor(Qt::red), 1);
        mPanel->moveTo(1.0, 1.0);
        mPanel->lineTo(2.0, 1.0);
    };
    EXPECT_EQ(pictureOf(*mPanel).pixelColor(30, 60), QColor(Qt::blue));
}

TEST_F(GUI2D_DrawPanelTest, OutsideAPaintNothingIsDrawn)
{
    mPanel->printNothing();
    mPanel->fitToGraphics();
    const QImage before = pictureOf(*mPanel);
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    mPanel->setPen(*red, GUI2D_DrawPanel::SOLID_LINE);
    mPanel->setBrush(*red, GUI2D_DrawPanel::NO_BRUSH);
    mPanel->moveTo(1.0, 1.0);
    mPanel->lineTo(2.0, 1.0);
    mPanel->drawText(10, 10, "text", *red);
    mPanel->drawColorBox(10, 10, 10, 10, *red, *red);
    EXPECT_EQ(difference(pictureOf(*mPanel), before), "");
}

TEST_F(GUI2D_DrawPanelTest, AColorBoxIsFilledWithinItsLine)
{
    mPanel->printNothing();
    mPanel->fitToGraphics();
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    const COM_Scoped blue(COM_Color::New(0, 0, 255));
    mPanel->mPaintInPanels = [&] { mPanel->drawColorBox(10, 20, 6, 5, *red, *blue); };
    ExpectedPicture expected(170, 80);
    expected.frame(0, 0, 159, 79, Qt::black);
    expected.box(10, 20, 15, 24, Qt::blue);
    expected.frame(10, 20, 15, 24, Qt::red);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, TheGridIsDottedOnEachGraduation)
{
    mPanel->printNothing();
    mPanel->printGrid(true);
    mPanel->setGridColor(Qt::green);
    mPanel->fitToGraphics();
    const QImage picture = pictureOf(*mPanel);
    std::vector<int> columns(170, 0);
    std::vector<int> rows(80, 0);
    for (int y = 1; y < 79; ++y) {
        for (int x = 1; x < 159; ++x) {
            const bool isDot = picture.pixelColor(x, y) == QColor(Qt::green);
            ASSERT_TRUE(isDot || picture.pixelColor(x, y) == QColor(Qt::white));
            ASSERT_TRUE(!isDot || x % 20 == 0 || y % 20 == 0) << x << "," << y;
            columns[static_cast<std::size_t>(x)] += isDot ? 1 : 0;
            rows[static_cast<std::size_t>(y)] += isDot ? 1 : 0;
        }
    }
    // Dotted: neither solid nor nearly empty.
    for (std::size_t x = 20; x < 159; x += 20) {
        EXPECT_GT(columns[x], 78 / 4);
        EXPECT_LT(columns[x], 3 * 78 / 4);
    }
    for (std::size_t y = 20; y < 79; y += 20) {
        EXPECT_GT(rows[y], 158 / 4);
        EXPECT_LT(rows[y], 3 * 158 / 4);
    }
}

TEST_F(GUI2D_DrawPanelTest, TheAxesRunThroughZeroWithMarks)
{
    showAxes(-2.0, -1.0, 6.0, 3.0);
    // Zero lies on 40, 60.
    ExpectedPicture expected(170, 80);
    expected.box(40, 0, 40, 79, Qt::blue);
    expected.box(0, 60, 159, 60, Qt::blue);
    for (int x = 0; x <= 160; x += 20) {
        expected.box(x, 55, x, 65, Qt::blue);
    }
    // The marks for Y: from 55 to 65 at the height 160, which lies below the panel.
    expected.box(160, 0, 169, 79, Qt::white);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, TheMarksForYLieAtThePlaceOfTheXValueThatEndedTheGraduations)
{
    mPanel->resize(90, 200);
    showAxes(-1.0, -6.0, 3.0, 4.0);
    // 20 pixels a unit; zero lies on 20, 80; the X graduations end before 4, which would fall on 100.
    ExpectedPicture expected(90, 200);
    expected.box(20, 0, 20, 199, Qt::blue);
    expected.box(0, 80, 79, 80, Qt::blue);
    for (int x = 0; x <= 80; x += 20) {
        expected.box(x, 75, x, 85, Qt::blue);
    }
    expected.box(75, 100, 85, 100, Qt::blue);
    expected.box(80, 0, 89, 199, Qt::white);
    expected.frame(0, 0, 79, 199, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, AxesAreTestedAgainstTheSizeOfTheGraphicsAlone)
{
    mPanel->printNothing();
    mPanel->printAxes(true);
    mPanel->setAxesColor(Qt::blue);
    mPanel->setWestWidth(80);
    mPanel->setExtent(0.0, 1.0, 8.0, 5.0);
    mPanel->fitToGraphics();
    // 80 pixels from 80 on: the axis stands on 80 + 10 * x and is left out from 80 pixels on, although the
    // graphics end at 160.
    EXPECT_NE(pictureOf(*mPanel).pixelColor(80, 40), QColor(Qt::blue));
    mPanel->setWestWidth(70);
    EXPECT_EQ(pictureOf(*mPanel).pixelColor(70, 40), QColor(Qt::black)); // under the border line
    mPanel->setExtent(-1.0, 1.0, 8.0, 5.0);
    mPanel->fitToGraphics();
    EXPECT_EQ(pictureOf(*mPanel).pixelColor(80, 40), QColor(Qt::blue));
}

TEST_F(GUI2D_DrawPanelTest, PaintsInOrder)
{
    mPanel->printNothing();
    mPanel->printGrid(true);
    mPanel->printAxes(true);
    mPanel->setExtent(-2.0, -1.0, 6.0, 3.0);
    mPanel->fitToGraphics();
    const COM_Scoped red(COM_Color::New(255, 0, 0));
    const COM_Scoped green(COM_Color::New(0, 255, 0));
    mPanel->mPaint = [&] { mPanel->drawColorBox(0, 0, 170, 80, *red, *red); };
    mPanel->mPaintInPanels = [&] { mPanel->drawColorBox(0, 0, 3, 80, *green, *green); };
    ExpectedPicture expected(170, 80, Qt::red);
    expected.box(160, 0, 169, 79, Qt::white);
    expected.frame(0, 0, 159, 79, Qt::black);
    expected.box(0, 0, 2, 79, Qt::green);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelWindowTest, WhatIsDrawnLiesOverTheDraggedRectangle)
{
    const COM_Scoped blue(COM_Color::New(0, 0, 255));
    mPanel->mPaint = [&] { mPanel->drawColorBox(50, 0, 10, 80, *blue, *blue); };
    press(40, 20);
    moveMouse(80, 60);
    ExpectedPicture expected(170, 80);
    expected.frame(40, 20, 79, 59, Qt::red);
    expected.box(50, 0, 59, 79, Qt::blue);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelWindowTest, TheAxesLieOverTheGridAndTheDraggedRectangleOverBoth)
{
    mPanel->setExtent(-2.0, -1.0, 6.0, 3.0);
    mPanel->fitToGraphics();
    mPanel->printGrid(true);
    mPanel->printAxes(true);
    mPanel->setGridColor(Qt::green);
    mPanel->setAxesColor(Qt::blue);
    // Zero lies on 40, 60, where the grid has lines too.
    const QImage picture = pictureOf(*mPanel);
    for (int y = 1; y < 79; ++y) {
        EXPECT_EQ(picture.pixelColor(40, y), QColor(Qt::blue)) << y;
    }
    for (int x = 1; x < 159; ++x) {
        EXPECT_EQ(picture.pixelColor(x, 60), QColor(Qt::blue)) << x;
    }
    press(40, 20);
    moveMouse(100, 61);
    const QImage dragged = pictureOf(*mPanel);
    for (int y = 20; y <= 60; ++y) {
        EXPECT_EQ(dragged.pixelColor(40, y), QColor(Qt::red)) << y;
    }
    for (int x = 40; x < 100; ++x) {
        EXPECT_EQ(dragged.pixelColor(x, 20), QColor(Qt::red)) << x;
        EXPECT_EQ(dragged.pixelColor(x, 60), QColor(Qt::red)) << x;
    }
}

// ---------------------------------------------------------------- texts and margins

TEST_F(GUI2D_DrawPanelTest, TitleAndLabelsStandInTheMiddleOfTheirSides)
{
    mPanel->resize(401, 300);
    mPanel->printNothing();
    mPanel->printTitle(true);
    mPanel->printXLabel(true);
    mPanel->printYLabel(true);
    mPanel->setTitle("A title");
    mPanel->setXLabel("along");
    mPanel->setYLabel("upwards");
    mPanel->setTitleColor(Qt::blue);
    mPanel->setXLabelColor(Qt::darkGreen);
    mPanel->setYLabelColor(Qt::red);
    mPanel->fitToGraphics();
    const QImage picture = pictureOf(*mPanel);
    const int height = mPanel->getFontHeight();
    PaintedPicture expected(*mPanel);
    expected.frame(3 * height, height + height / 2, 401 - 10 - 1, 300 - 4 * height - 1, Qt::black);
    expected.text((401 - mPanel->getTextWidth("A title")) / 2, height, "A title", Qt::blue);
    expected.text((401 - mPanel->getTextWidth("along")) / 2, 300 - height, "along", Qt::darkGreen);
    expected.upwards(height, (300 + mPanel->getTextWidth("upwards")) / 2.0, "upwards", Qt::red);
    EXPECT_EQ(difference(picture, expected.image()), "");
}

TEST_F(GUI2D_DrawPanelTest, TheNumbersOfTheScalesStandAtTheirGraduations)
{
    mPanel->resize(600, 400);
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->printXLabel(true); // for room below
    mPanel->setXLabel("");
    mPanel->setScaleColor(Qt::red);
    mPanel->setXScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->setNbCharsAfterComa(2);
    mPanel->setPXFactor(-3);
    mPanel->setPYFactor(6);
    mPanel->setNorthWidth(40);
    // Fifteen steps of 0.1, all of which are 0 without their fraction; and four of 0.01.
    mPanel->setExtent(-0.75, 0.0, 0.75, 0.04);
    mPanel->fitToGraphics();
    const QImage picture = pictureOf(*mPanel);

    const int height = mPanel->getFontHeight();
    const int bottom = 400 - 4 * height;
    const int dash = mPanel->getTextWidth("-");
    const int ten = mPanel->getTextWidth("x10");
    const int left = 2 * height + mPanel->getTextWidth("1.00e-02") + dash;
    const int right = 600 - ten - mPanel->getTextWidth("-3");
    ASSERT_EQ(mPanel->getWestWidth(), static_cast<unsigned long>(left));
    ASSERT_EQ(mPanel->getEastWidth(), static_cast<unsigned long>(600 - right));
    PaintedPicture expected(*mPanel);
    expected.frame(left, 40, right - 1, bottom - 1, Qt::black);
    const GUI2D_Mapping mapping = mPanel->getMapping();
    int limit = left;
    for (int k = -7; k <= 7; ++k) {
        const int p = mapping.pixel(0.1 * k, 0.0).x();
        if (p >= limit) {
            expected.text(p, height + bottom, "0", Qt::red);
            expected.line(p, bottom, p, bottom - 5, Qt::red);
            expected.line(p, 40, p, 45, Qt::red);
            limit = p + mPanel->getTextWidth("0") + dash;
        }
    }
    for (const int k : {1, 2, 3}) {
        const int q = mapping.pixel(0.0, k).y();
        expected.text(2 * height, q + height / 3, QString("%1.00e-02").arg(k), Qt::red);
        expected.line(left, q, left + 5, q, Qt::red);
        expected.line(right, q, right - 5, q, Qt::red);
    }
    expected.text(right, bottom + height / 4, "x10", Qt::red);
    expected.text(right + ten, bottom - height / 8, "-3", Qt::red);
    expected.text(2 * height, 40 - height / 4, "x10", Qt::red);
    expected.text(2 * height + ten, 40 - 3 * height / 4, "6", Qt::red);
    EXPECT_EQ(difference(picture, expected.image()), "");
}

TEST_F(GUI2D_DrawPanelTest, LabelsGrowTheirMargins)
{
    mPanel->resize(400, 300);
    mPanel->printNothing();
    mPanel->printTitle(true);
    mPanel->printXLabel(true);
    mPanel->printYLabel(true);
    mPanel->fitToGraphics();
    mPanel->mPasses = 0;
    pictureOf(*mPanel);
    const auto height = static_cast<unsigned long>(mPanel->fontMetrics().height());
    EXPECT_EQ(mPanel->getNorthWidth(), height + height / 2);
    EXPECT_EQ(mPanel->getSouthWidth(), 4 * height);
    EXPECT_EQ(mPanel->getWestWidth(), 3 * height);
    EXPECT_EQ(mPanel->getEastWidth(), 10U);
    EXPECT_EQ(mPanel->mPasses, 2);
    int width = 0;
    int graphicsHeight = 0;
    mPanel->getGraphicsSize(width, graphicsHeight);
    EXPECT_EQ(width, 400 - 10 - 3 * static_cast<int>(height));
    EXPECT_EQ(graphicsHeight, 300 - static_cast<int>(5 * height + height / 2));
    pictureOf(*mPanel);
    EXPECT_EQ(mPanel->mPasses, 3);
}

TEST_F(GUI2D_DrawPanelTest, ScalesGrowTheMarginsOfTheirNumbers)
{
    mPanel->resize(600, 400);
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->fitToGraphics();
    pictureOf(*mPanel);
    const int height = mPanel->getFontHeight();
    int widest = 0;
    for (const double y : {1.0, 2.0, 3.0}) {
        widest = std::max(
            widest, mPanel->getTextWidth(QString::fromStdString(COM_Real::toString(y, 7, 6))));
    }
    EXPECT_EQ(mPanel->getWestWidth(),
              static_cast<unsigned long>(2 * height + widest + mPanel->getTextWidth("-")));
    EXPECT_EQ(mPanel->getEastWidth(), 10U);
    EXPECT_EQ(mPanel->getNorthWidth() + mPanel->getSouthWidth(), 0U);

    mPanel->setYScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->resetMargins();
    pictureOf(*mPanel);
    EXPECT_EQ(mPanel->getWestWidth(),
              static_cast<unsigned long>(2 * height + mPanel->getTextWidth("3")
                                         + mPanel->getTextWidth("-")));
}

TEST_F(GUI2D_DrawPanelTest, FactorsGrowTheMarginsToo)
{
    mPanel->resize(600, 400);
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->setYScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->setPXFactor(-15);
    mPanel->setPYFactor(1234567);
    mPanel->fitToGraphics();
    pictureOf(*mPanel);
    const int height = mPanel->getFontHeight();
    EXPECT_EQ(mPanel->getEastWidth(), static_cast<unsigned long>(mPanel->getTextWidth("x10")
                                                                 + mPanel->getTextWidth("-15")));
    EXPECT_EQ(mPanel->getWestWidth(),
              static_cast<unsigned long>(2 * height + mPanel->getTextWidth("x10")
                                         + mPanel->getTextWidth("1234567")));
    mPanel->setPXFactor(0);
    mPanel->setPYFactor(0);
    mPanel->resetMargins();
    pictureOf(*mPanel);
    EXPECT_EQ(mPanel->getEastWidth(), 10U);
}

TEST_F(GUI2D_DrawPanelTest, GraduationsOfTheScalesStandAtBothEdges)
{
    mPanel->resize(470, 380);
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->setScaleColor(Qt::red);
    // Short texts, none of which touches the next, and a west margin that is wide enough from the start.
    mPanel->setXScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->setYScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->setWestWidth(60);
    mPanel->fitToGraphics();
    const QImage picture = pictureOf(*mPanel);
    ASSERT_EQ(mPanel->getWestWidth(), 60U);
    // 50 pixels a unit along X from 60 on, 95 along Y from 380 upwards.
    for (int x = 0; x <= 7; ++x) {
        for (int y = 0; y <= 5; ++y) {
            EXPECT_EQ(picture.pixelColor(60 + 50 * x, y), QColor(Qt::red)) << x;
        }
        EXPECT_NE(picture.pixelColor(60 + 50 * x, 6), QColor(Qt::red)) << x;
        EXPECT_EQ(picture.pixelColor(60 + 50 * x, 375), QColor(Qt::red)) << x;
        EXPECT_NE(picture.pixelColor(60 + 50 * x, 374), QColor(Qt::red)) << x;
    }
    for (int y = 95; y <= 285; y += 95) {
        for (int x = 0; x <= 5; ++x) {
            EXPECT_EQ(picture.pixelColor(60 + x, y), QColor(Qt::red)) << y;
            EXPECT_EQ(picture.pixelColor(460 - x, y), QColor(Qt::red)) << y;
        }
        EXPECT_NE(picture.pixelColor(66, y), QColor(Qt::red)) << y;
        EXPECT_NE(picture.pixelColor(454, y), QColor(Qt::red)) << y;
    }
}

TEST_F(GUI2D_DrawPanelTest, ALabelThatWouldTouchTheOneBeforeIsLeftOutWithItsGraduations)
{
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->setScaleColor(Qt::red);
    mPanel->setNbCharsAfterComa(1);
    mPanel->setYScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->setWestWidth(60);
    mPanel->resize(470, 380);
    mPanel->fitToGraphics();
    mPanel->zoom(2.0);
    // 25 pixels a unit from -4 on 60.
    const QImage picture = pictureOf(*mPanel);
    int limit = 60;
    int shown = 0;
    for (int x = -4; x <= 12; ++x) {
        const int p = 60 + 25 * (x + 4);
        const QString label = QString::fromStdString(COM_Real::toString(x, 2, 1));
        const bool isFree = p >= limit;
        const bool isShown = isFree && p + mPanel->getTextWidth(label) <= 470;
        EXPECT_EQ(picture.pixelColor(p, 3) == QColor(Qt::red), isShown) << x;
        shown += isShown ? 1 : 0;
        if (isFree) {
            limit = p + mPanel->getTextWidth(label) + mPanel->getTextWidth("-");
        }
    }
    EXPECT_GT(shown, 2);
    EXPECT_LT(shown, 17);
}

TEST_F(GUI2D_DrawPanelTest, ADashIsFreeBetweenLabelsAndThePanelEndsThem)
{
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->setScaleColor(Qt::red);
    mPanel->setXScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->fitToGraphics();
    const int height = mPanel->getFontHeight(); // too low a panel for labels along Y
    const int digit = mPanel->getTextWidth("0");
    for (const char* const other : {"1", "2", "3", "4", "5", "6", "7", "8"}) {
        ASSERT_EQ(mPanel->getTextWidth(other), digit);
    }
    const int free = digit + mPanel->getTextWidth("-");
    for (const int unit : {free - 1, free}) {
        for (const int east : {digit - 1, digit}) {
            mPanel->setEastWidth(static_cast<unsigned long>(east));
            mPanel->resize(8 * unit + east, height);
            const QImage picture = pictureOf(*mPanel);
            ASSERT_EQ(mPanel->getWestWidth(), 0U);
            ASSERT_EQ(mPanel->getScaleX(), unit);
            for (int x = 0; x <= 8; ++x) {
                const bool isShown =
                    (unit == free || x % 2 == 0) && x * unit + digit <= 8 * unit + east;
                EXPECT_EQ(picture.pixelColor(unit * x, 3) == QColor(Qt::red), isShown)
                    << x << " " << unit << " " << east;
            }
        }
    }
}

TEST_F(GUI2D_DrawPanelTest, NumbersAlongYKeepMoreThanHalfALineFromBothEnds)
{
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->setScaleColor(Qt::red);
    mPanel->setXScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->setYScaleType(GUI2D_DrawPanel::INTEGER_SCALE_TYPE);
    mPanel->setNorthWidth(12);
    mPanel->fitToGraphics();
    const int half = mPanel->getFontHeight() / 2;
    for (const int unit : {half, half + 1}) {
        mPanel->resize(300, 12 + 4 * unit);
        const QImage picture = pictureOf(*mPanel);
        const int left = static_cast<int>(mPanel->getWestWidth());
        ASSERT_EQ(mPanel->getNorthWidth(), 12U);
        ASSERT_EQ(mPanel->getScaleY(), unit);
        for (const int y : {1, 2, 3}) {
            const bool isShown = y == 2 || unit > half;
            EXPECT_EQ(picture.pixelColor(left + 3, 12 + (4 - y) * unit) == QColor(Qt::red), isShown)
                << y << " " << unit;
        }
    }
}

TEST_F(GUI2D_DrawPanelTest, TheYLabelReadsUpwardsInTheMiddle)
{
    mPanel->resize(300, 301);
    mPanel->printNothing();
    mPanel->printYLabel(true);
    mPanel->setYLabelColor(Qt::red);
    mPanel->setYLabel("MMMMMMMM");
    mPanel->fitToGraphics();
    const QImage picture = pictureOf(*mPanel);
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.red() > color.blue() + 50) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    const int height = mPanel->getFontHeight();
    const int width = mPanel->getTextWidth("MMMMMMMM");
    // The side bearing of a letter and the rounding of half a pixel.
    EXPECT_NEAR(ink.top(), (301 - width) / 2, 3);
    EXPECT_NEAR(ink.bottom(), (301 + width) / 2, 3);
    EXPECT_LE(ink.right(), height);
    EXPECT_GE(ink.left(), 0);
}

TEST_F(GUI2D_DrawPanelTest, APaintEndsAfterEightPassesWhenRulesFight)
{
    mPanel->printNothing();
    mPanel->fitToGraphics();
    mPanel->mPaintInPanels = [&] {
        mPanel->setEastWidth(mPanel->getEastWidth() + 1);
        mPanel->requestPass();
    };
    pictureOf(*mPanel);
    EXPECT_EQ(mPanel->mPasses, 8);
    EXPECT_EQ(mPanel->getEastWidth(), 18U);
}

TEST_F(GUI2D_DrawPanelTest, APassThatLeavesTheMarginsAsItFoundThemIsTheLast)
{
    mPanel->printNothing();
    mPanel->fitToGraphics();
    mPanel->mPaint = [&] { mPanel->setEastWidth(30); };
    mPanel->mPaintInPanels = [&] {
        mPanel->setEastWidth(20);
        mPanel->requestPass();
    };
    pictureOf(*mPanel);
    EXPECT_EQ(mPanel->mPasses, 2);
}

// ---------------------------------------------------------------- mouse

TEST_F(GUI2D_DrawPanelWindowTest, TheStatusBarTellsThePointBelowTheMouse)
{
    moveMouse(20, 60);
    EXPECT_EQ(status(), "Current Point:(1.000000000e+00,1.000000000e+00)");
    mPanel->setNbCharsAfterComa(0);
    mPanel->setStatusMessage("Curves");
    moveMouse(50, 30);
    EXPECT_EQ(status(), "Curves:(2.500e+00,2.500e+00)");
    mPanel->setStatusMessage("in no dictionary");
    moveMouse(50, 30);
    EXPECT_EQ(status(), "in no dictionary:(2.500e+00,2.500e+00)");
}

TEST_F(GUI2D_DrawPanelWindowTest, TheStatusBarSpeaksTheLanguage)
{
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    moveMouse(20, 60);
    EXPECT_EQ(status(), "Point courant:(1.000000000e+00,1.000000000e+00)");
}

TEST_F(GUI2D_DrawPanelWindowTest, TheStatusBarTellsUnitsOfTheUser)
{
    mPanel->setExtent(0.0, 0.0, 8e-15, 4e9);
    mPanel->fitToGraphics();
    moveMouse(20, 60);
    EXPECT_EQ(status(), "Current Point:(1.000000000e-15,1.000000000e+09)");
}

TEST_F(GUI2D_DrawPanelWindowTest, OutsideTheGraphicsTheStatusBarIsBlank)
{
    for (const QPoint& outside : {QPoint(0, 40), QPoint(160, 40), QPoint(165, 40), QPoint(20, 0),
                                  QPoint(20, 80), QPoint(-3, 40)}) {
        moveMouse(20, 60);
        EXPECT_NE(status(), " ");
        moveMouse(outside.x(), outside.y());
        EXPECT_EQ(status(), " ") << outside.x() << "," << outside.y();
    }
    moveMouse(1, 1);
    EXPECT_NE(status(), " ");
    mPanel->setEastWidth(1000);
    mPanel->updateGraphicsArea();
    moveMouse(20, 60);
    EXPECT_EQ(status(), " ");
}

TEST_F(GUI2D_DrawPanelWindowTest, DraggingZoomsToTheRectangle)
{
    press(40, 20);
    moveMouse(60, 50);
    ExpectedPicture expected(170, 80);
    expected.frame(40, 20, 59, 49, Qt::red);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
    EXPECT_EQ(mFamily.mPanel->mUpdates, 0);
    release(80, 60);
    const GUI2D_Mapping m = mPanel->getMapping();
    EXPECT_EQ(m.xMin(), 2.0);
    EXPECT_EQ(m.xMax(), 4.0);
    EXPECT_EQ(m.yMin(), 1.0);
    EXPECT_EQ(m.yMax(), 3.0);
    EXPECT_GT(mFamily.mPanel->mUpdates, 0);
    EXPECT_TRUE(mPanel->isBackValid());
    ExpectedPicture plain(170, 80);
    plain.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), plain), "");
}

TEST_F(GUI2D_DrawPanelWindowTest, ADragUpwardsAndToTheLeftIsTheSame)
{
    press(80, 60);
    moveMouse(40, 20);
    ExpectedPicture expected(170, 80);
    expected.frame(40, 20, 79, 59, Qt::red);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
    release(40, 20);
    EXPECT_EQ(mPanel->getMapping().xMin(), 2.0);
    EXPECT_EQ(mPanel->getMapping().mWidth, 2.0);
    EXPECT_EQ(mPanel->getMapping().yMax(), 3.0);
    EXPECT_EQ(mPanel->getMapping().mHeight, 2.0);
}

TEST_F(GUI2D_DrawPanelWindowTest, AReleaseWithoutADragZoomsToNothing)
{
    release(80, 60);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 1U);
    EXPECT_EQ(mFamily.mPanel->mUpdates, 1);
}

TEST_F(GUI2D_DrawPanelWindowTest, StepsAndFilesRepaintWhatZoomingAndPanningLeaveToOthers)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(mFamily.mRoot));
    settle();
    const auto paintsOf = [this](const auto& action) {
        mPanel->mPasses = 0;
        action();
        settle();
        return mPanel->mPasses;
    };
    EXPECT_EQ(paintsOf([this] { mPanel->zoom(0.5); }), 0);
    EXPECT_EQ(paintsOf([this] { mPanel->pan(GUI2D_DrawPanel::EAST_DIRECTION); }), 0);
    EXPECT_EQ(paintsOf([this] { mPanel->back(); }), 1);
    EXPECT_EQ(paintsOf([this] { mPanel->next(); }), 1);
    EXPECT_EQ(paintsOf([this] { mPanel->next(); }), 0);
    const TestDirectory directory;
    const COM_Scoped factory(GEO_ClassFactory::New());
    factory->save(directory.file("panel"), *mPanel);
    EXPECT_EQ(paintsOf([&] { factory->load(directory.file("panel"), *mPanel); }), 1);
    EXPECT_EQ(paintsOf([this] { press(30, 30); }), 0);
    EXPECT_EQ(paintsOf([this] { moveMouse(40, 40); }), 1);
    EXPECT_EQ(paintsOf([this] { release(40, 40); }), 1);
    EXPECT_EQ(paintsOf([this] { moveMouse(50, 40); }), 0);
}

TEST_F(GUI2D_DrawPanelWindowTest, EveryButtonDrags)
{
    QTest::mousePress(mPanel.get(), Qt::RightButton, {}, {40, 20});
    QTest::mouseRelease(mPanel.get(), Qt::RightButton, {}, {80, 60});
    EXPECT_EQ(mPanel->getMapping().mWidth, 2.0);
}

TEST_F(GUI2D_DrawPanelWindowTest, WithoutZoomSelectionADragOnlyShows)
{
    mPanel->setZoomSelection(false);
    press(40, 20);
    moveMouse(60, 50);
    release(80, 60);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 1U);
    EXPECT_EQ(mFamily.mPanel->mUpdates, 1);
}

TEST_F(GUI2D_DrawPanelWindowTest, AClickWithoutMotionShowsAPointFromWhichBackLeadsBack)
{
    press(40, 20);
    release(40, 20);
    EXPECT_EQ(mPanel->getMapping().mWidth, 1e-24);
    EXPECT_EQ(mPanel->getMapping().mHeight, 1e-24);
    EXPECT_EQ(pictureOf(*mPanel).size(), mPanel->size());
    mPanel->back();
    EXPECT_EQ(mPanel->getMapping().mWidth, 8.0);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 2U);
}

TEST_F(GUI2D_DrawPanelWindowTest, TheMenuIsToldOfEveryStep)
{
    mPanel->zoom(0.5);
    EXPECT_EQ(mFamily.mPanel->mUpdates, 0);
    mPanel->back();
    EXPECT_EQ(mFamily.mPanel->mUpdates, 1);
    mPanel->back();
    EXPECT_EQ(mFamily.mPanel->mUpdates, 1);
    mPanel->next();
    EXPECT_EQ(mFamily.mPanel->mUpdates, 2);
    mPanel->next();
    EXPECT_EQ(mFamily.mPanel->mUpdates, 2);
    mPanel->pan(GUI2D_DrawPanel::EAST_DIRECTION);
    EXPECT_EQ(mFamily.mPanel->mUpdates, 3);
}

TEST_F(GUI2D_DrawPanelWindowTest, ANotchOfTheWheelZoomsAboutThePointer)
{
    const auto turn = [this](int angle) {
        QWheelEvent event({40.0, 60.0}, mPanel->mapToGlobal(QPointF(40.0, 60.0)), {}, {0, angle},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(mPanel.get(), &event);
    };
    mPanel->setZoomFactor(2.0);
    turn(120);
    EXPECT_EQ(mPanel->getMapping().mWidth, 4.0);
    EXPECT_EQ(mPanel->getMapping().xMin(), 1.0);
    EXPECT_EQ(mPanel->getMapping().pixel(2.0, 1.0), QPoint(40, 60));
    EXPECT_EQ(mFamily.mPanel->mUpdates, 1);
    turn(-240);
    EXPECT_EQ(mPanel->getMapping().mWidth, 16.0);
    EXPECT_EQ(mPanel->getMapping().pixel(2.0, 1.0), QPoint(40, 60));
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 3U);
    // Wheels without notches send parts of one.
    turn(70);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 3U);
    turn(70);
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 4U);
    EXPECT_EQ(mPanel->getMapping().mWidth, 8.0);
}

TEST_F(GUI2D_DrawPanelWindowTest, ALonePanelNeedsNoWindow)
{
    const COM_Scoped alone(TestDrawPanel::New());
    alone->fitToGraphics();
    QTest::mouseClick(alone.get(), Qt::LeftButton, {}, {20, 20});
    QTest::mouseMove(alone.get(), {30, 20});
    EXPECT_EQ(alone->getDrawingBoxes().size(), 2U);
}

// ---------------------------------------------------------------- files and paper

TEST_F(GUI2D_DrawPanelTest, AnImageIsThePictureInThePanelsSize)
{
    mPanel->fitToGraphics();
    const QImage picture = pictureOf(*mPanel);
    const TestDirectory directory;
    ASSERT_TRUE(mPanel->saveAsImage(directory.file("a.bmp")));
    ASSERT_TRUE(mPanel->saveAsImage(directory.file("a.gif")));
    ASSERT_TRUE(mPanel->saveAsImage(directory.file("a.jpg")));
    ASSERT_TRUE(mPanel->saveAsImage(directory.file("a.")));
    const auto read = [&](const char* name) {
        return QImageReader(QString::fromStdString(directory.file(name)))
            .read()
            .convertToFormat(QImage::Format_RGB32);
    };
    EXPECT_EQ(difference(read("a.bmp"), picture), "");
    EXPECT_EQ(difference(read("a.gif"), picture), "");
    EXPECT_EQ(read("a.jpg").size(), QSize(170, 80));
    EXPECT_EQ(directory.read("a."), directory.read("a.bmp"));
}

TEST_F(GUI2D_DrawPanelTest, AnImageOfAPanelThatWasNeverShownHasItsMargins)
{
    mPanel->fitToGraphics();
    const TestDirectory directory;
    ASSERT_TRUE(mPanel->saveAsImage(directory.file("a.bmp")));
    EXPECT_GT(mPanel->getWestWidth(), 0U);
    const QImage saved = QImageReader(QString::fromStdString(directory.file("a.bmp"))).read();
    EXPECT_EQ(difference(saved.convertToFormat(QImage::Format_RGB32), pictureOf(*mPanel)), "");
}

TEST_F(GUI2D_DrawPanelTest, WhatCannotBeSavedIsFalse)
{
    const TestDirectory directory;
    EXPECT_FALSE(mPanel->saveAsImage(directory.file("none/a.gif")));
    mPanel->resize(0, 0);
    EXPECT_FALSE(mPanel->saveAsImage(directory.file("a.bmp")));
    EXPECT_FALSE(std::filesystem::exists(directory.file("a.bmp")));
}

TEST_F(GUI2D_DrawPanelTest, ThePrinterGetsThePictureAsLargeAsThePageAllows)
{
    mPanel->fitToGraphics();
    const TestDirectory directory;
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(directory.file("a.pdf")));
    QTransform seen;
    mPanel->mPaint = [&] { seen = mPanel->getPainterTransform(); };
    ASSERT_TRUE(mPanel->printOn(printer));
    EXPECT_EQ(directory.read("a.pdf").substr(0, 5), "%PDF-");
    const double factor = std::min(printer.width() / 170.0, printer.height() / 80.0);
    EXPECT_GT(factor, 1.0);
    EXPECT_DOUBLE_EQ(seen.m11(), factor);
    EXPECT_DOUBLE_EQ(seen.m22(), factor);
    EXPECT_EQ(seen.m12(), 0.0);
    EXPECT_EQ(seen.dx(), 0.0);
}

TEST_F(GUI2D_DrawPanelTest, APrinterThatTakesNothingIsFalse)
{
    const TestDirectory directory;
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(directory.file("none/a.pdf")));
    EXPECT_FALSE(mPanel->printOn(printer));
    mPanel->resize(0, 0);
    printer.setOutputFileName(QString::fromStdString(directory.file("a.pdf")));
    EXPECT_FALSE(mPanel->printOn(printer));
}

TEST_F(GUI2D_DrawPanelTest, PrintingAsksForThePrinter)
{
    mPanel->fitToGraphics();
    const TestDirectory directory;
    int painted = 0;
    mPanel->mPaint = [&] { ++painted; };
    DialogAnswers answers;
    answers.add<QPrintDialog>([](QPrintDialog& dialog) { dialog.reject(); });
    mPanel->print();
    EXPECT_EQ(painted, 0);

    answers.add<QPrintDialog>([&](QPrintDialog& question) {
        question.printer()->setOutputFormat(QPrinter::PdfFormat);
        question.printer()->setOutputFileName(QString::fromStdString(directory.file("a.pdf")));
        question.done(QDialog::Accepted);
    });
    mPanel->print();
    EXPECT_GT(painted, 0);
    EXPECT_EQ(directory.read("a.pdf").substr(0, 5), "%PDF-");
}

// ---------------------------------------------------------------- persistence

TEST_F(GUI2D_DrawPanelTest, TheKeysAreTheFileFormat)
{
    std::vector<std::string> keys = panelKeys();
    std::sort(keys.begin(), keys.end()); // as a node keeps them
    EXPECT_EQ(Description(*mPanel).keys(), keys);
}

TEST_F(GUI2D_DrawPanelTest, AMissingKeyIsAnnouncedAndChangesNothing)
{
    mPanel->fitToGraphics();
    mPanel->setTitle("kept");
    const std::vector<double> former = view();
    std::string expected;
    for (const std::string& key : panelKeys()) {
        expected += "no attribute " + key + " stored in class Empty.\n";
    }
    const COM_Scoped node(MM_Class::New());
    node->setName("Empty");
    EXPECT_EQ(printedBy([&] { mPanel->loadFromMetaClass(*node); }), expected);
    EXPECT_EQ(mPanel->getTitle(), "kept");
    EXPECT_EQ(mPanel->getDrawingBoxes().size(), 1U);
    EXPECT_EQ(mPanel->getCurrentIndexBox(), 0);
    EXPECT_EQ(view(), former);
}

TEST_F(GUI2D_DrawPanelTest, EverythingStoredComesBack)
{
    mPanel->setExtent(0.0, 0.0, 8e-15, 4e9);
    mPanel->setOrthonormee(false);
    mPanel->fitToGraphics();
    mPanel->zoom(0.5);
    mPanel->zoom(0.5);
    mPanel->back();
    mPanel->setTitle("Champ \xc3\xa9lectrique <&>");
    mPanel->setXLabel("");
    mPanel->setYLabel(" y ");
    mPanel->setStatusMessage("Curves");
    mPanel->setPanX(3);
    mPanel->setPanY(4);
    mPanel->setZoomFactor(1.5);
    mPanel->setNbCharsAfterComa(3);
    mPanel->setXScaleType(1);
    mPanel->setPXFactor(-4);
    mPanel->setPYFactor(5);
    mPanel->printGrid(false);
    mPanel->printTitle(false);
    mPanel->setZoomSelection(false);
    mPanel->setBackgroundColor(QColor(1, 2, 3));
    mPanel->setGridColor(QColor(4, 5, 6));
    mPanel->setAxesColor(QColor(7, 8, 9));
    mPanel->setTitleColor(QColor(10, 11, 12));
    const TestDirectory directory;
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("panel"), *mPanel);

    const COM_Scoped loaded(TestDrawPanel::New());
    loaded->resize(170, 80);
    loaded->updateGraphicsArea();
    const COM_Scoped factory(GEO_ClassFactory::New());
    EXPECT_EQ(printedBy([&] { factory->load(directory.file("panel"), *loaded); }), "");

    EXPECT_EQ(loaded->getTitle(), mPanel->getTitle());
    EXPECT_EQ(loaded->getXLabel(), "");
    EXPECT_EQ(loaded->getYLabel(), " y ");
    EXPECT_EQ(loaded->getStatusMessage(), "Curves");
    EXPECT_EQ(loaded->getPanX(), 3U);
    EXPECT_EQ(loaded->getPanY(), 4U);
    EXPECT_EQ(loaded->getZoomFactor(), 1.5);
    EXPECT_EQ(loaded->getNbCharsAfterComa(), 3U);
    EXPECT_EQ(loaded->getXScaleType(), 1);
    EXPECT_EQ(loaded->getYScaleType(), 0);
    EXPECT_EQ(loaded->getPXFactor(), -4.0);
    EXPECT_EQ(loaded->getPYFactor(), 5.0);
    EXPECT_FALSE(loaded->isGridPrinted());
    EXPECT_FALSE(loaded->isTitlePrinted());
    EXPECT_TRUE(loaded->isXLabelPrinted());
    EXPECT_FALSE(loaded->getZoomSelection());
    EXPECT_EQ(loaded->getBackgroundColor(), QColor(1, 2, 3));
    EXPECT_EQ(loaded->getGridColor(), QColor(4, 5, 6));
    EXPECT_EQ(loaded->getAxesColor(), QColor(7, 8, 9));
    EXPECT_EQ(loaded->getTitleColor(), QColor(10, 11, 12));
    EXPECT_EQ(loaded->getCurrentIndexBox(), 1);
    ASSERT_EQ(loaded->getDrawingBoxes().size(), 3U);
    for (unsigned long i = 0; i < 3; ++i) {
        EXPECT_EQ(cornersOf(loaded->getDrawingBoxes()[i]), box(i));
    }
    const GUI2D_Mapping m = loaded->getMapping();
    EXPECT_EQ((std::vector<double>{m.xMin(), m.yMin(), m.xMax(), m.yMax()}), view());
    EXPECT_EQ(m.mXadim, mPanel->getMapping().mXadim);
    EXPECT_EQ(m.mYadim, mPanel->getMapping().mYadim);
    EXPECT_EQ(m.mScaleX, 40.0);
    // The identities of the views are new, everything else is as it was.
    const Description written(*mPanel);
    const Description read(*loaded);
    for (const std::string& key : panelKeys()) {
        if (key != "mDrawingBoxes") {
            EXPECT_EQ(Description::textOf(*read.node().getFromMetaFields(key)),
                      Description::textOf(*written.node().getFromMetaFields(key)))
                << key;
        }
    }
}

TEST_F(GUI2D_DrawPanelTest, EachSettingHasItsKey)
{
    const auto expectStored = [this](const char* key, const std::string& text) {
        const Description description(*mPanel);
        EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields(key)), text) << key;
    };
    mPanel->setStatusMessage("Curves");
    expectStored("mStatusMessage", "[Curves]");
    mPanel->setOrthonormee(true);
    expectStored("mOrthonormee", "[1]");
    mPanel->reverseX();
    expectStored("mXDirection", "[-1]");
    mPanel->reverseY();
    expectStored("mYDirection", "[1]");
    mPanel->setNbCharsAfterComa(3);
    expectStored("mNbCharsAfterComa", "[3]");
    mPanel->setXLabel("x");
    expectStored("mXLabel", "[x]");
    mPanel->setYLabel("y");
    expectStored("mYLabel", "[y]");
    mPanel->setTitle("A title");
    expectStored("mTitle", "[A title]");
    mPanel->setZoomFactor(1.5);
    expectStored("mZoomFactor", "[1.500000e+00]");
    mPanel->setPanX(20);
    expectStored("mPanX", "[20]");
    mPanel->setPanY(30);
    expectStored("mPanY", "[30]");
    mPanel->printTitle(false);
    expectStored("mTitlePrinted", "[0]");
    mPanel->printXLabel(false);
    expectStored("mXLabelPrinted", "[0]");
    mPanel->printYLabel(false);
    expectStored("mYLabelPrinted", "[0]");
    mPanel->printAxes(false);
    expectStored("mAxesPrinted", "[0]");
    mPanel->printGrid(false);
    expectStored("mGridPrinted", "[0]");
    mPanel->printScale(false);
    expectStored("mScalePrinted", "[0]");
    mPanel->setXScaleType(1);
    expectStored("mXScaleType", "[1]");
    mPanel->setYScaleType(1);
    expectStored("mYScaleType", "[1]");
    mPanel->setZoomSelection(false);
    expectStored("mZoomSelection", "[0]");
    mPanel->setPXFactor(-4);
    expectStored("mPXFactor", "[-4.000000e+00]");
    mPanel->setPYFactor(5);
    expectStored("mPYFactor", "[5.000000e+00]");
    mPanel->setBorderColor(QColor(1, 0, 0));
    expectStored("mBorderColor", "[#010000]");
    mPanel->setBorderLineColor(QColor(2, 0, 0));
    expectStored("mBorderLineColor", "[#020000]");
    mPanel->setScaleColor(QColor(3, 0, 0));
    expectStored("mScaleColor", "[#030000]");
    mPanel->setXLabelColor(QColor(4, 0, 0));
    expectStored("mXLabelColor", "[#040000]");
    mPanel->setYLabelColor(QColor(5, 0, 0));
    expectStored("mYLabelColor", "[#050000]");
    mPanel->setTitleColor(QColor(6, 0, 0));
    expectStored("mTitleColor", "[#060000]");
    mPanel->setAxesColor(QColor(7, 0, 0));
    expectStored("mAxesColor", "[#070000]");
    mPanel->setGridColor(QColor(8, 0, 0));
    expectStored("mGridColor", "[#080000]");
    mPanel->setBackgroundColor(QColor(9, 0, 0));
    expectStored("BackgroundColor", "[#090000]");
    mPanel->setOrthonormee(false);
    mPanel->setExtent(0.0, 0.0, 800.0, 0.04);
    mPanel->fitToGraphics();
    expectStored("mPXadim", "[2]");
    expectStored("mPYadim", "[-2]");
    expectStored("mXadim", "[1.000000e+02]");
    expectStored("mYadim", "[1.000000e-02]");
    expectStored("mCurrentIndexBox", "[0]");
    expectStored("mDrawingBoxes", "[" + mPanel->getDrawingBoxes()[0].getIdentityString() + "]");
    QTest::mousePress(mPanel.get(), Qt::LeftButton, {}, {40, 20});
    expectStored("mDraggedRectangle", "[1]");
}

TEST_F(GUI2D_DrawPanelTest, EachKeyIsAFieldOfItsOwn)
{
    const KeyValues values = {
        {"mStatusMessage", "Curves"},
        {"mOrthonormee", "1"},
        {"mXDirection", "-1"},
        {"mYDirection", "1"},
        {"mGraduationSize", "9"},
        {"mNbCharsAfterComa", "3"},
        {"mXLabel", "x"},
        {"mYLabel", "y"},
        {"mTitle", "A title"},
        {"mZoomFactor", "1.500000e+00"},
        {"mPanX", "20"},
        {"mPanY", "30"},
        {"mTitlePrinted", "0"},
        {"mXLabelPrinted", "0"},
        {"mYLabelPrinted", "0"},
        {"mAxesPrinted", "0"},
        {"mGridPrinted", "0"},
        {"mBorderLinePrinted", "0"},
        {"mScalePrinted", "0"},
        {"mXScaleType", "1"},
        {"mYScaleType", "1"},
        {"mZoomSelection", "0"},
        {"mScientificNotation", "0"},
        {"mPXFactor", "-4.000000e+00"},
        {"mPYFactor", "5.000000e+00"},
        {"mPXadim", "2"},
        {"mPYadim", "-2"},
        {"mXadim", "1.000000e+02"},
        {"mYadim", "1.000000e-02"},
        {"mStatusPrinted", "0"},
        {"mBorderColor", "#010203"},
        {"mBorderLineColor", "#010203"},
        {"mScaleColor", "#010203"},
        {"mXLabelColor", "#010203"},
        {"mYLabelColor", "#010203"},
        {"mTitleColor", "#010203"},
        {"mAxesColor", "#010203"},
        {"mGridColor", "#010203"},
        {"mDraggedRectangleColor", "#010203"},
        {"BackgroundColor", "#010203"},
    };
    expectEachKeyIsAField(*mPanel, values);
}

TEST_F(GUI2D_DrawPanelTest, WhatOnlyAFileMaySetIsPainted)
{
    mPanel->printNothing();
    mPanel->printAxes(true);
    mPanel->setAxesColor(Qt::blue);
    const Description description(*mPanel);
    replace(description.node(), "mBorderLinePrinted", "0");
    replace(description.node(), "mGraduationSize", "9");
    mPanel->loadFromMetaClass(description.node());
    // 0 to 1 along both axes, in steps of 16 pixels along X: zero lies on the left, below the panel.
    ExpectedPicture expected(170, 80);
    expected.box(0, 0, 0, 79, Qt::blue);
    for (int x = 0; x < 160; x += 16) {
        expected.box(x, 71, x, 79, Qt::blue);
    }
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, AStoredFactorOfTheScaleIsCutToAnInteger)
{
    mPanel->resize(400, 300);
    mPanel->printNothing();
    mPanel->printScale(true);
    mPanel->setNorthWidth(40);
    mPanel->setPXFactor(2);
    mPanel->setPYFactor(-2);
    const QImage expected = pictureOf(*mPanel);
    const Description description(*mPanel);
    replace(description.node(), "mPXFactor", "2.900000e+00");
    replace(description.node(), "mPYFactor", "-2.900000e+00");
    mPanel->loadFromMetaClass(description.node());
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
    mPanel->setPXFactor(3);
    EXPECT_NE(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelWindowTest, AFileMayColorTheDraggedRectangle)
{
    const Description description(*mPanel);
    replace(description.node(), "mDraggedRectangleColor", "#0000ff");
    printedBy([&] { mPanel->loadFromMetaClass(description.node()); });
    press(40, 20);
    moveMouse(60, 50);
    ExpectedPicture expected(170, 80);
    expected.frame(40, 20, 59, 49, Qt::blue);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*mPanel), expected), "");
}

TEST_F(GUI2D_DrawPanelTest, WhatAFileMayBringIsPutRight)
{
    mPanel->fitToGraphics();
    mPanel->setGridColor(QColor(4, 5, 6));
    const Description description(*mPanel);
    replace(description.node(), "mCurrentIndexBox", "7");
    replace(description.node(), "mDraggedRectangle", "1");
    replace(description.node(), "mNbCharsAfterComa", "400");
    replace(description.node(), "mXScaleType", "9");
    replace(description.node(), "mGridColor", "no color");
    replace(description.node(), "mAxesColor", "");
    const COM_Scoped factory(GEO_ClassFactory::New());
    factory->addToMetaClasses(description.node());

    const COM_Scoped loaded(TestDrawPanel::New());
    loaded->resize(170, 80);
    loaded->setGridColor(QColor(40, 50, 60));
    // The boxes themselves are not in this package.
    printedBy([&] { loaded->loadFromMetaClass(description.node()); });
    EXPECT_EQ(loaded->getCurrentIndexBox(), -1);
    EXPECT_EQ(loaded->getNbCharsAfterComa(), 24U);
    EXPECT_EQ(loaded->getXScaleType(), 0);
    EXPECT_EQ(loaded->getGridColor(), QColor(40, 50, 60));
    EXPECT_EQ(loaded->getAxesColor(), QColor(Qt::black));
    loaded->printNothing();
    ExpectedPicture expected(170, 80);
    expected.frame(0, 0, 159, 79, Qt::black);
    EXPECT_EQ(difference(pictureOf(*loaded), expected), "") << "no drag is under way";
    factory->removeFromMetaClasses(description.node());
}

TEST_F(GUI2D_DrawPanelWindowTest, AFileMayTurnTheStatusBarOff)
{
    moveMouse(20, 60);
    const std::string former = status();
    const Description description(*mPanel);
    replace(description.node(), "mStatusPrinted", "0");
    printedBy([&] { mPanel->loadFromMetaClass(description.node()); });
    moveMouse(40, 60);
    EXPECT_EQ(status(), former);
}

TEST_F(GUI2D_DrawPanelWindowTest, TheWindowMayCloseWhileThePrinterIsChosen)
{
    const TestDirectory directory;
    DialogAnswers answers;
    answers.add<QPrintDialog>([&](QPrintDialog& question) {
        question.printer()->setOutputFormat(QPrinter::PdfFormat);
        question.printer()->setOutputFileName(QString::fromStdString(directory.file("a.pdf")));
        mFamily.release();
        question.done(QDialog::Accepted);
    });
    mPanel->print();
    settle();
    EXPECT_EQ(directory.read("a.pdf").substr(0, 5), "%PDF-");
}

namespace {

/// Saves a panel of two views, makes its index another one, and loads that into a second panel.
void loadWithIndex(TestDrawPanel& panel, const std::string& index, TestDrawPanel& loaded)
{
    panel.fitToGraphics();
    panel.zoom(0.5);
    const TestDirectory directory;
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("panel"), panel);
    std::string text = directory.read("panel");
    const std::size_t key = text.find("mCurrentIndexBox");
    ASSERT_NE(key, std::string::npos);
    const std::size_t value = text.find(">1<", key);
    ASSERT_NE(value, std::string::npos) << text;
    text.replace(value, 3, ">" + index + "<");
    directory.write("panel", text);
    COM_Scoped(GEO_ClassFactory::New())->load(directory.file("panel"), loaded);
}

} // namespace

TEST_F(GUI2D_DrawPanelTest, AnIndexBeyondTheViewsIsTheLastOne)
{
    const COM_Scoped loaded(TestDrawPanel::New());
    loadWithIndex(*mPanel, "9", *loaded);
    EXPECT_EQ(loaded->getCurrentIndexBox(), 1);
    EXPECT_EQ(loaded->getMapping().mWidth, 4.0);
}

TEST_F(GUI2D_DrawPanelTest, WithViewsOfWhichNoneIsShownThereIsNothingToMoveIn)
{
    const COM_Scoped loaded(TestDrawPanel::New());
    loadWithIndex(*mPanel, "-1", *loaded);
    ASSERT_EQ(loaded->getDrawingBoxes().size(), 2U);
    EXPECT_FALSE(loaded->isBackValid());
    EXPECT_FALSE(loaded->isNextValid());
    loaded->back();
    loaded->next();
    loaded->zoom(2.0);
    loaded->pan(GUI2D_DrawPanel::EAST_DIRECTION);
    EXPECT_EQ(loaded->getCurrentIndexBox(), -1);
    EXPECT_EQ(loaded->getMapping().mWidth, 1.0);
    EXPECT_EQ(loaded->getDrawingBoxes().size(), 2U);
    loaded->fitToGraphics();
    EXPECT_EQ(loaded->getCurrentIndexBox(), 0);
    EXPECT_TRUE(loaded->isNextValid());
}

TEST_F(GUI2D_DrawPanelTest, APanelWithoutViewsComesBackWithoutALine)
{
    const TestDirectory directory;
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("panel"), *mPanel);
    const COM_Scoped loaded(TestDrawPanel::New());
    loaded->fitToGraphics();
    const COM_Scoped factory(GEO_ClassFactory::New());
    EXPECT_EQ(printedBy([&] { factory->load(directory.file("panel"), *loaded); }), "");
    EXPECT_EQ(loaded->getDrawingBoxes().size(), 0U);
    EXPECT_EQ(loaded->getCurrentIndexBox(), -1);
}
