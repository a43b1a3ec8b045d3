#include "gui2d/GUI2D_Polygon.h"

#include "common/COM_Color.h"
#include "geometry/GEO_BezierPolygon.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Vertex.h"
#include "gui2d/GUI2D_ClassFactory.h"
#include "gui2d/GUI2D_Plotter.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "TestDrawPanel.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <typeinfo>
#include <vector>

namespace {

using Place = std::array<double, 2>;
using Places = std::vector<Place>;

template <typename Polygon>
Polygon* newPolygon(const Places& places)
{
    Polygon* const polygon = Polygon::New();
    for (const auto& [x, y] : places) {
        polygon->cat(*COM_Scoped(GEO_Point::New(x, y)));
    }
    return polygon;
}

const Places waves{{0.0, 0.0}, {1.0, 3.0}, {2.0, 4.0}, {3.0, 1.0},
                   {5.0, 0.5}, {6.5, 3.5}, {8.0, 4.0}};

/// A plotter of 410 x 200 pixels, 400 x 200 of them for curves: 0 <= x <= 8, 0 <= y <= 4 at 50 pixels a unit.
class GUI2D_PolygonTest : public testing::Test
{
protected:
    GUI2D_PolygonTest() { setUp(*mPlotter); }
    static void setUp(GUI2D_Plotter& plotter)
    {
        plotter.resize(410, 200);
        printNothing(plotter);
        plotter.showLegends(false);
        plotter.updateGraphicsArea();
    }

    GUI2D_Polygon& add(GEO_Polygon& polygon, COM_Color& color)
    {
        mPlotter->addPlot(polygon, "polygon", true, color);
        return dynamic_cast<GUI2D_Polygon&>(mPlotter->getCurves()[mPlotter->getPlotsNumber() - 1]);
    }
    GUI2D_Polygon& add(GEO_Polygon& polygon) { return add(polygon, *mRed); }
    void show(double xMin, double yMin, double xMax, double yMax)
    {
        // About the centre of the frame, 8 by 4.
        mPlotter->fitToGraphics();
        const COM_Scoped box(GEO_Box::New());
        const double factor = (xMax - xMin) / 8.0;
        ASSERT_NEAR((yMax - yMin) / 4.0, factor, 1e-9);
        mPlotter->zoomAt(factor, xMin / (1.0 - factor), yMin / (1.0 - factor));
        const GUI2D_Mapping mapping = mPlotter->getMapping();
        ASSERT_NEAR(mapping.xMin(), xMin, 1e-9);
        ASSERT_NEAR(mapping.yMax(), yMax, 1e-9);
    }
    /// The view filled with many points for each pixel, joined by a painter.
    QImage sampled(const GEO_Polygon& polygon, double from = 0.0, double to = 1.0) const
    {
        const GUI2D_Mapping mapping = mPlotter->getMapping();
        QImage picture(mPlotter->size(), QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setPen(QPen(Qt::red, 0));
        painter.setClipRect(0, 0, 400, 200);
        const COM_Scoped point(GEO_Point::New());
        for (unsigned long i = 0; i < polygon.getEdges().size(); ++i) {
            QPoint pen;
            for (int step = 0; step <= 5000; ++step) {
                polygon.getEdge(i)->computePoint(from + (to - from) * step / 5000.0, *point);
                const QPoint next =
                    mapping.pixel(mapping.modelX((*point)[0]), mapping.modelY((*point)[1]));
                if (step > 0) {
                    painter.drawLine(pen, next);
                }
                pen = next;
            }
        }
        return picture;
    }
    static bool isColored(const QImage& picture, int x, int y)
    {
        return picture.pixelColor(x, y) == QColor(Qt::red);
    }
    /// The first pixel of one picture without a pixel of the other beside it. The frame is left out.
    static std::string strayPixel(const QImage& picture, const QImage& other)
    {
        for (int y = 1; y < 199; ++y) {
            for (int x = 1; x < 399; ++x) {
                bool isNear = !isColored(picture, x, y);
                for (int k = 0; k < 9 && !isNear; ++k) {
                    isNear = isColored(other, x + k % 3 - 1, y + k / 3 - 1);
                }
                if (!isNear) {
                    return std::to_string(x) + "," + std::to_string(y);
                }
            }
        }
        return "";
    }
    static int colored(const QImage& picture)
    {
        int number = 0;
        for (int y = 1; y < 199; ++y) {
            for (int x = 1; x < 399; ++x) {
                number += isColored(picture, x, y) ? 1 : 0;
            }
        }
        return number;
    }
    /// The number of lines that do not touch each other, the frame left out.
    static int lines(const QImage& picture)
    {
        QImage rest = picture;
        int number = 0;
        std::vector<QPoint> open;
        const auto take = [&](int x, int y) {
            if (x >= 1 && x < 399 && y >= 1 && y < 199 && isColored(rest, x, y)) {
                rest.setPixelColor(x, y, Qt::white);
                open.emplace_back(x, y);
            }
        };
        for (int k = 0; k < 400 * 200; ++k) {
            take(k % 400, k / 400);
            number += open.empty() ? 0 : 1;
            while (!open.empty()) {
                const QPoint place = open.back();
                open.pop_back();
                for (int n = 0; n < 9; ++n) {
                    take(place.x() + n % 3 - 1, place.y() + n / 3 - 1);
                }
            }
        }
        return number;
    }
    /// Fails where the two differ by more than a pixel beside the line, and where a line is broken.
    static void expectAlike(const QImage& picture, const QImage& expected)
    {
        EXPECT_EQ(strayPixel(picture, expected), "") << "drawn too much";
        EXPECT_EQ(strayPixel(expected, picture), "") << "missing";
        EXPECT_EQ(lines(picture), lines(expected));
    }

    const COM_Scoped<COM_Color> mRed{COM_Color::New(255, 0, 0)};
    const COM_Scoped<GUI2D_Plotter> mPlotter{GUI2D_Plotter::New()};
};

} // namespace

// ---------------------------------------------------------------- the curve and its polygon

TEST_F(GUI2D_PolygonTest, StartsWithoutPolygon)
{
    const COM_Scoped curve(GUI2D_Polygon::New());
    EXPECT_EQ(curve->getPolygon(), nullptr);
    EXPECT_EQ(curve->getReferenceCount(), 1);
    EXPECT_EQ(curve->getName(), "Curve");
    EXPECT_EQ(curve->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "GUI2D_Curve",
                                                           "GUI2D_Polygon"}));
    curve->resetPolygon();
    curve->draw(*mPlotter);
}

TEST_F(GUI2D_PolygonTest, HoldsItsPolygonUntilItIsReplacedOrReset)
{
    const COM_Scoped first(GEO_Polygon::New());
    const COM_Scoped second(GEO_BezierPolygon::New());
    {
        const COM_Scoped curve(GUI2D_Polygon::New());
        curve->setPolygon(*first);
        EXPECT_EQ(curve->getPolygon(), first.get());
        EXPECT_EQ(first->getReferenceCount(), 2);
        curve->setPolygon(first.get());
        EXPECT_EQ(first->getReferenceCount(), 2);
        curve->setPolygon(*second);
        EXPECT_EQ(first->getReferenceCount(), 1);
        EXPECT_EQ(second->getReferenceCount(), 2);
        curve->resetPolygon();
        EXPECT_EQ(curve->getPolygon(), nullptr);
        EXPECT_EQ(second->getReferenceCount(), 1);
        curve->setPolygon(*second);
        curve->setPolygon(nullptr);
        EXPECT_EQ(curve->getPolygon(), nullptr);
        EXPECT_EQ(second->getReferenceCount(), 1);
        curve->setPolygon(*first);
    }
    EXPECT_EQ(first->getReferenceCount(), 1);
}

TEST_F(GUI2D_PolygonTest, APlotOfAPolygonHasTheFiguresOfItsPoints)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    mPlotter->addPlot(*polygon, "shape", false, *mRed);
    ASSERT_EQ(mPlotter->getPlotsNumber(), 1UL);
    const auto* const curve = dynamic_cast<GUI2D_Polygon*>(&mPlotter->getCurves()[0]);
    ASSERT_NE(curve, nullptr);
    EXPECT_EQ(curve->getPolygon(), polygon.get());
    EXPECT_EQ(curve->getName(), "shape");
    EXPECT_FALSE(curve->isShown());
    EXPECT_EQ(curve->getColor(), mRed.get());
    EXPECT_EQ(curve->getReferenceCount(), 1);
    ASSERT_EQ(curve->getPointsNumber(), waves.size());
    for (unsigned long i = 0; i < waves.size(); ++i) {
        EXPECT_EQ((*curve->getXValues())[i], waves[i][0]);
        EXPECT_EQ((*curve->getYValues())[i], waves[i][1]);
    }
    EXPECT_EQ(mPlotter->getMinPointsNumber(), waves.size());
    EXPECT_EQ(mPlotter->getMinDeltaX(), 1.0);
    EXPECT_EQ(mPlotter->getCurrentIndexBox(), 0);
    EXPECT_EQ(mPlotter->getMapping().xMax(), 8.0);
    EXPECT_EQ(mPlotter->getMapping().yMax(), 4.0);
    polygon->close();
    add(*polygon);
    EXPECT_EQ(mPlotter->getCurves()[1].getPointsNumber(), waves.size() + 1);
}

TEST_F(GUI2D_PolygonTest, APolygonOfOnePointOrNoneCanBePlotted)
{
    const COM_Scoped empty(GEO_BezierPolygon::New());
    EXPECT_EQ(add(*empty).getPointsNumber(), 0UL);
    const COM_Scoped single(newPolygon<GEO_BezierPolygon>({{3.0, 2.0}}));
    EXPECT_EQ(add(*single).getPointsNumber(), 1UL);
    EXPECT_EQ(colored(pictureOf(*mPlotter)), 0);
}

// ---------------------------------------------------------------- picture

TEST_F(GUI2D_PolygonTest, AStraightPolygonDrawsLikeACurveThroughItsPoints)
{
    const COM_Scoped polygon(newPolygon<GEO_Polygon>(waves));
    GUI2D_Polygon& curve = add(*polygon);
    const QImage picture = pictureOf(*mPlotter);
    EXPECT_GT(colored(picture), 400);

    const COM_Scoped other(GUI2D_Plotter::New());
    setUp(*other);
    other->addPlot(*curve.getXValues(), *curve.getYValues(), "curve", true, *mRed);
    EXPECT_EQ(difference(picture, pictureOf(*other)), "");
    curve.setShown(false);
    EXPECT_EQ(colored(pictureOf(*mPlotter)), 0);
}

TEST_F(GUI2D_PolygonTest, WithoutPolygonNothingIsDrawn)
{
    const COM_Scoped polygon(newPolygon<GEO_Polygon>(waves));
    GUI2D_Polygon& curve = add(*polygon);
    curve.resetPolygon();
    EXPECT_EQ(curve.getPointsNumber(), waves.size());
    EXPECT_EQ(colored(pictureOf(*mPlotter)), 0);
}

TEST_F(GUI2D_PolygonTest, ASmoothPolygonIsDrawnAsItsFineSampling)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    GUI2D_Polygon& curve = add(*polygon);
    const QImage picture = pictureOf(*mPlotter);
    EXPECT_GT(colored(picture), 400);
    expectAlike(picture, sampled(*polygon));
    curve.setShown(false);
    EXPECT_EQ(colored(pictureOf(*mPlotter)), 0);
}

TEST_F(GUI2D_PolygonTest, AClosedSmoothPolygonIsDrawnAllRound)
{
    Places places;
    for (int i = 0; i < 12; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / 12;
        places.push_back({4.0 + 4.0 * std::cos(angle), 2.0 + 2.0 * std::sin(angle)});
    }
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(places));
    polygon->close();
    add(*polygon);
    expectAlike(pictureOf(*mPlotter), sampled(*polygon));
    polygon->reverse();
    expectAlike(pictureOf(*mPlotter), sampled(*polygon));
}

TEST_F(GUI2D_PolygonTest, PartsOfTheViewAreFilledUpToTheirLimits)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    add(*polygon);
    const auto expectFilled = [&](double xMin, double yMin, double side) {
        SCOPED_TRACE(testing::Message() << xMin << " " << yMin << " " << side);
        show(xMin, yMin, xMin + side, yMin + side / 2.0);
        const QImage picture = pictureOf(*mPlotter);
        EXPECT_GT(colored(picture), 50);
        expectAlike(picture, sampled(*polygon));
    };
    expectFilled(0.0, 0.0, 4.0);
    expectFilled(0.0, 1.0, 2.0); // the first edge passes from below to above
    expectFilled(2.5, 0.5, 2.0);
    expectFilled(4.5, 0.0, 1.0);
    expectFilled(0.75, 2.75, 0.5); // a vertex in the middle
}

TEST_F(GUI2D_PolygonTest, ADeepViewOfAnEdgeIsCrossedWithoutGap)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    add(*polygon);
    // About a point of the edge from (5, 0.5) to (6.5, 3.5), and about the vertex where it begins.
    for (const double t : {0.5, 0.0}) {
        const COM_Scoped point(GEO_Point::New());
        polygon->getEdge(4)->computePoint(t, *point);
        mPlotter->fitToGraphics();
        mPlotter->zoomAt(1e-6, (*point)[0], (*point)[1]);
        const GUI2D_Mapping mapping = mPlotter->getMapping();
        const QPoint pixel = mapping.pixel((*point)[0], (*point)[1]);
        ASSERT_TRUE(QRect(1, 1, 398, 198).contains(pixel)) << t;
        const QImage picture = pictureOf(*mPlotter);
        EXPECT_TRUE(isColored(picture, pixel.x(), pixel.y())) << t;
        EXPECT_EQ(lines(picture), 1) << t;
        // From one limit to another: nearly straight here, and the view is 200 pixels high.
        bool isAtLimit[] = {false, false};
        for (int x = 1; x < 399; ++x) {
            isAtLimit[0] = isAtLimit[0] || isColored(picture, x, 1);
            isAtLimit[1] = isAtLimit[1] || isColored(picture, x, 198);
        }
        for (int y = 1; y < 199; ++y) {
            isAtLimit[0] = isAtLimit[0] || isColored(picture, 398, y);
            isAtLimit[1] = isAtLimit[1] || isColored(picture, 1, y);
        }
        EXPECT_TRUE(isAtLimit[0]) << t;
        EXPECT_TRUE(isAtLimit[1]) << t;
    }
}

TEST_F(GUI2D_PolygonTest, AnEdgeWithBothEndsBeyondOneSideOfTheViewIsNotDrawn)
{
    // An arch over the view's floor: its top alone would be seen.
    const COM_Scoped polygon(
        newPolygon<GEO_BezierPolygon>({{0.0, 0.0}, {2.0, 3.0}, {6.0, 3.0}, {8.0, 0.0}}));
    add(*polygon);
    const COM_Scoped top(GEO_Point::New());
    polygon->getEdge(1)->computePoint(0.5, *top);
    ASSERT_GT((*top)[1], 3.3);
    mPlotter->addPlot({0.0, 8.0}, {0.0, 4.0}, "frame", *mRed);
    mPlotter->getCurves()[1].setShown(false);
    show(3.0, 3.1, 4.6, 3.9);
    EXPECT_EQ(colored(pictureOf(*mPlotter)), 0);
    show(3.0, 2.9, 5.0, 3.9); // one end beyond each side
    EXPECT_GT(colored(pictureOf(*mPlotter)), 390);
    expectAlike(pictureOf(*mPlotter), sampled(*polygon));
}

TEST_F(GUI2D_PolygonTest, UnitsOfTheUserDoNotChangeThePicture)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    add(*polygon);
    const QImage expected = pictureOf(*mPlotter);
    for (const double unit : {1e-9, 1e6}) {
        Places places = waves;
        for (Place& place : places) {
            place = {place[0] * unit, place[1] * unit};
        }
        const COM_Scoped scaled(newPolygon<GEO_BezierPolygon>(places));
        const COM_Scoped plotter(GUI2D_Plotter::New());
        setUp(*plotter);
        plotter->addPlot(*scaled, "polygon", true, *mRed);
        EXPECT_NEAR(plotter->getMapping().mXadim, unit, 1e-9 * unit);
        expectAlike(pictureOf(*plotter), expected);
    }
}

TEST_F(GUI2D_PolygonTest, AViewWithEqualScalesIsFilledBeyondItsBox)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    add(*polygon);
    mPlotter->setOrthonormee(true);
    show(0.0, 1.0, 4.0, 3.0);
    mPlotter->resize(210, 200); // narrower than the box: it shows more above and below
    mPlotter->updateGraphicsArea();
    EXPECT_EQ(mPlotter->getMapping().mHeight, 4.0);
    const QImage picture = pictureOf(*mPlotter);
    int below = 0; // of y = 1
    const int row = mPlotter->getMapping().pixel(0.0, 1.0).y();
    for (int y = row + 2; y < 199; ++y) {
        for (int x = 1; x < 199; ++x) {
            below += isColored(picture, x, y) ? 1 : 0;
        }
    }
    EXPECT_GT(below, 20);
}

TEST_F(GUI2D_PolygonTest, AMovedVertexChangesTheNextPicture)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    add(*polygon);
    const QImage before = pictureOf(*mPlotter);
    polygon->getEdge(3)->getEndingVertex()->setLocation(5.0, 2.5);
    const QImage picture = pictureOf(*mPlotter);
    EXPECT_NE(difference(picture, before), "");
    expectAlike(picture, sampled(*polygon));
}

TEST_F(GUI2D_PolygonTest, CurvesAndSmoothPolygonsLieAboveEachOtherInTheirOrder)
{
    const COM_Scoped blue(COM_Color::New(0, 0, 255));
    const COM_Scoped green(COM_Color::New(0, 255, 0));
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>({{0.0, 2.0}, {4.0, 2.0}, {8.0, 2.0}}));
    mPlotter->addPlot({0.0, 4.0, 4.0, 4.0}, {2.0, 2.0, 0.0, 4.0}, "below", *blue);
    add(*polygon);
    mPlotter->addPlot({6.0, 6.0}, {0.0, 4.0}, "above", *green);
    for (int paint = 0; paint < 2; ++paint) { // the second time from kept pictures
        const QImage picture = pictureOf(*mPlotter);
        EXPECT_EQ(picture.pixelColor(200, 50), QColor(0, 0, 255));
        EXPECT_EQ(picture.pixelColor(100, 100), QColor(255, 0, 0));
        EXPECT_EQ(picture.pixelColor(200, 100), QColor(255, 0, 0));
        EXPECT_EQ(picture.pixelColor(300, 100), QColor(0, 255, 0));
        EXPECT_EQ(picture.pixelColor(350, 100), QColor(255, 0, 0));
    }
}

TEST_F(GUI2D_PolygonTest, WithoutColorItIsBlack)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>({{0.0, 0.0}, {8.0, 4.0}}));
    add(*polygon).resetColor();
    EXPECT_EQ(pictureOf(*mPlotter).pixelColor(200, 100), QColor(Qt::black));
}

TEST_F(GUI2D_PolygonTest, CoordinatesThatAreNotFiniteDoNotEndIt)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(
        {{0.0, 0.0}, {1.0, std::nan("")}, {2.0, 1.0}, {3.0, HUGE_VAL}, {4.0, 1.0}}));
    add(*polygon);
    EXPECT_EQ(pictureOf(*mPlotter).size(), mPlotter->size());
}

namespace {

/// Says of itself that it is what it is not.
class Impostor : public GEO_Polygon
{
    COM_CLASS(Impostor)
protected:
    Impostor() { setType("GEO_BezierPolygon"); }
    ~Impostor() override = default;
};

} // namespace

TEST_F(GUI2D_PolygonTest, APolygonThatOnlyBearsTheNameEndsTheDrawing)
{
    const COM_Scoped impostor(Impostor::New());
    const COM_Scoped curve(GUI2D_Polygon::New());
    curve->setPolygon(*impostor);
    EXPECT_THROW(curve->draw(*mPlotter), std::bad_cast);
}

// ---------------------------------------------------------------- persistence

TEST_F(GUI2D_PolygonTest, ItHasTheKeysOfACurveButAFileDoesNotBringItBack)
{
    const COM_Scoped polygon(newPolygon<GEO_BezierPolygon>(waves));
    const GUI2D_Polygon& curve = add(*polygon);
    mPlotter->addPlot({0.0, 1.0}, {0.0, 1.0}, "kept", *mRed);
    EXPECT_EQ(Description(curve).keys(),
              (std::vector<std::string>{"mAbsXMax", "mAbsYMax", "mColor", "mIsShown", "mName", "mX",
                                        "mY"}));
    const TestDirectory directory;
    COM_Scoped(GUI2D_ClassFactory::New())->save(directory.file("plot.xml"), *mPlotter);
    const COM_Scoped loaded(GUI2D_Plotter::New());
    const COM_Scoped factory(GUI2D_ClassFactory::New());
    EXPECT_EQ(printedBy([&] { factory->load(directory.file("plot.xml"), *loaded); }),
              "impossible to create an instance of " + curve.getIdentityString()
                  + " from class 13GUI2D_Plotter.\n");
    ASSERT_EQ(loaded->getPlotsNumber(), 1UL);
    EXPECT_EQ(loaded->getCurves()[0].getName(), "kept");
    pictureOf(*loaded);
}
