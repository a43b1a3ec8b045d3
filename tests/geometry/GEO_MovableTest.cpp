#include "geometry/GEO_Movable.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Polygon.h"
#include "geometry/GEO_Spline.h"
#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_Volume.h"

#include <gtest/gtest.h>

#include <functional>
#include <numbers>
#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;
using Moved = GEO_Movable::Moved;

void expectNear(const GEO_Point& point, const Values& expected)
{
    ASSERT_EQ(point.getDimension(), expected.size());
    for (unsigned long i = 0; i < expected.size(); ++i) {
        // Coordinates below 20: a rotation rounds some of them a few times.
        EXPECT_NEAR(point[i], expected[i], 1e-14) << "coordinate " << i;
    }
}

struct MotionCase
{
    const char* mName;
    std::function<void(GEO_Movable&)> mMove;
    std::function<void(GEO_Movable&, Moved&)> mMoveOnce;
    Values mA, mB, mC; ///< Where (1, 2, 0), (4, 2, 1) and (4, 6, 2) go.
};

void PrintTo(const MotionCase& row, std::ostream* out)
{
    *out << row.mName;
}

std::string nameOf(const testing::TestParamInfo<MotionCase>& info)
{
    return info.param.mName;
}

COM_Scoped<GEO_Point> centre()
{
    return COM_Scoped(GEO_Point::New(2.0, 2.0, 0.0));
}

COM_Scoped<LA_RealVector> axis()
{
    return COM_Scoped<LA_RealVector>(GEO_Point::New(0.0, 0.0, 1.0));
}

constexpr double quarter = std::numbers::pi / 2.0;

/// Two chains a-b and b-c, the second with a loop at c, in one volume: every vertex belongs to several
/// curves.
class GEO_MovableTest : public testing::TestWithParam<MotionCase>
{
protected:
    GEO_MovableTest()
    {
        mA->setLocation(1.0, 2.0, 0.0);
        mB->setLocation(4.0, 2.0, 1.0);
        mC->setLocation(4.0, 6.0, 2.0);
        mFirst->cat(*mA);
        mFirst->cat(*mB);
        mFirst->cat(*mA); // the known line, back again
        mSecond->cat(*mB);
        mSecond->cat(*mC);
        mSecond->cat(*mC);
        mVolume->addToShells(*mFirst);
        mVolume->addToShells(*mSecond);
    }

    const COM_Scoped<GEO_Vertex> mA{GEO_Vertex::New(0)};
    const COM_Scoped<GEO_Vertex> mB{GEO_Vertex::New(1)};
    const COM_Scoped<GEO_Vertex> mC{GEO_Vertex::New(2)};
    const COM_Scoped<GEO_Polygon> mFirst{GEO_Polygon::New()};
    const COM_Scoped<GEO_Polygon> mSecond{GEO_Polygon::New()};
    const COM_Scoped<GEO_Volume> mVolume{GEO_Volume::New()};
};

/// A polygon that counts the changes it is told of.
class CountingPolygon : public GEO_Polygon
{
    COM_CLASS(CountingPolygon)
public:
    void stateChanged() override { ++mChanges; }

    int mChanges = 0;

protected:
    CountingPolygon() { COM_TYPE(CountingPolygon); }
    ~CountingPolygon() override = default;
};

} // namespace

TEST_P(GEO_MovableTest, AVolumeMovesEachSharedVertexOnce)
{
    GetParam().mMove(*mVolume);
    expectNear(*mA->getPoint(), GetParam().mA);
    expectNear(*mB->getPoint(), GetParam().mB);
    expectNear(*mC->getPoint(), GetParam().mC);
}

TEST_P(GEO_MovableTest, APolygonMovesItsOwnVerticesAlone)
{
    GetParam().mMove(*mFirst);
    expectNear(*mA->getPoint(), GetParam().mA);
    expectNear(*mB->getPoint(), GetParam().mB);
    expectNear(*mC->getPoint(), {4.0, 6.0, 2.0});
}

TEST_P(GEO_MovableTest, ACurveMovesBothItsVertices)
{
    GetParam().mMove(*mSecond->getEdge(0)->getCurve());
    expectNear(*mA->getPoint(), {1.0, 2.0, 0.0});
    expectNear(*mB->getPoint(), GetParam().mB);
    expectNear(*mC->getPoint(), GetParam().mC);
}

TEST_P(GEO_MovableTest, ALoopMovesItsVertexOnce)
{
    GetParam().mMove(*mSecond->getEdge(1)->getCurve());
    expectNear(*mB->getPoint(), {4.0, 2.0, 1.0});
    expectNear(*mC->getPoint(), GetParam().mC);
}

TEST_P(GEO_MovableTest, FiguresMovedOneAfterTheOtherWithOneSetMoveTheirCommonVerticesOnce)
{
    Moved moved;
    GetParam().mMoveOnce(*mFirst, moved);
    GetParam().mMoveOnce(*mSecond, moved);
    GetParam().mMoveOnce(*mVolume, moved);
    expectNear(*mA->getPoint(), GetParam().mA);
    expectNear(*mB->getPoint(), GetParam().mB);
    expectNear(*mC->getPoint(), GetParam().mC);
}

TEST_P(GEO_MovableTest, AMotionWithANewSetMovesAgain)
{
    Moved one;
    Moved other;
    GetParam().mMoveOnce(*mFirst, one);
    const COM_Scoped once(GEO_Point::New(*mA->getPoint()));
    const COM_Scoped second(GEO_Vertex::New());
    second->setLocation(*once);
    const COM_Scoped line(GEO_Line::New(*second, *second));
    GetParam().mMove(*line);
    GetParam().mMoveOnce(*mFirst, other);
    expectNear(*mA->getPoint(), {(*second)[0], (*second)[1], (*second)[2]});
}

INSTANTIATE_TEST_SUITE_P(
    Table, GEO_MovableTest,
    testing::Values(
        MotionCase{"Translate",
                   [](GEO_Movable& figure) {
                       figure.translate(*COM_Scoped(GEO_Point::New(10.0, -1.0, 0.5)));
                   },
                   [](GEO_Movable& figure, Moved& moved) {
                       figure.translate(*COM_Scoped(GEO_Point::New(10.0, -1.0, 0.5)), moved);
                   },
                   {11.0, 1.0, 0.5},
                   {14.0, 1.0, 1.5},
                   {14.0, 5.0, 2.5}},
        MotionCase{"TranslateByPointer",
                   [](GEO_Movable& figure) {
                       figure.translate(COM_Scoped(GEO_Point::New(10.0, -1.0, 0.5)).get());
                   },
                   [](GEO_Movable& figure, Moved& moved) {
                       figure.translate(*COM_Scoped(GEO_Point::New(10.0, -1.0, 0.5)), moved);
                   },
                   {11.0, 1.0, 0.5},
                   {14.0, 1.0, 1.5},
                   {14.0, 5.0, 2.5}},
        MotionCase{"Rotate",
                   [](GEO_Movable& figure) { figure.rotate(*centre(), *axis(), quarter); },
                   [](GEO_Movable& figure, Moved& moved) {
                       figure.rotate(*centre(), *axis(), quarter, moved);
                   },
                   {2.0, 1.0, 0.0},
                   {2.0, 4.0, 1.0},
                   {-2.0, 4.0, 2.0}},
        MotionCase{
            "RotateByPointer",
            [](GEO_Movable& figure) { figure.rotate(centre().get(), axis().get(), quarter); },
            [](GEO_Movable& figure, Moved& moved) {
                figure.rotate(*centre(), *axis(), quarter, moved);
            },
            {2.0, 1.0, 0.0},
            {2.0, 4.0, 1.0},
            {-2.0, 4.0, 2.0}},
        MotionCase{
            "Homothetize",
            [](GEO_Movable& figure) { figure.homothetize(*centre(), 3.0); },
            [](GEO_Movable& figure, Moved& moved) { figure.homothetize(*centre(), 3.0, moved); },
            {-1.0, 2.0, 0.0},
            {8.0, 2.0, 3.0},
            {8.0, 14.0, 6.0}},
        MotionCase{
            "HomothetizeByPointer",
            [](GEO_Movable& figure) { figure.homothetize(centre().get(), 3.0); },
            [](GEO_Movable& figure, Moved& moved) { figure.homothetize(*centre(), 3.0, moved); },
            {-1.0, 2.0, 0.0},
            {8.0, 2.0, 3.0},
            {8.0, 14.0, 6.0}},
        MotionCase{"Offset",
                   [](GEO_Movable& figure) { figure.offset(*centre(), 0.5, 1.0, 0.25); },
                   [](GEO_Movable& figure, Moved& moved) {
                       figure.offset(*centre(), 0.5, 1.0, 0.25, moved);
                   },
                   {0.5, 2.0, 0.0},
                   {4.5, 2.0, 1.25},
                   {4.5, 7.0, 2.25}},
        MotionCase{"OffsetByPointer",
                   [](GEO_Movable& figure) { figure.offset(centre().get(), 0.5, 1.0, 0.25); },
                   [](GEO_Movable& figure, Moved& moved) {
                       figure.offset(*centre(), 0.5, 1.0, 0.25, moved);
                   },
                   {0.5, 2.0, 0.0},
                   {4.5, 2.0, 1.25},
                   {4.5, 7.0, 2.25}}),
    nameOf);

// ---------------------------------------------------------------- special figures

TEST(GEO_Movable, VerticesOnOnePointMoveItOnce)
{
    // A chain of points that comes back to its first point has two vertices there.
    const COM_Scoped p(GEO_Point::New(0.0, 0.0));
    const COM_Scoped q(GEO_Point::New(1.0, 0.0));
    const COM_Scoped r(GEO_Point::New(1.0, 1.0));
    const COM_Scoped polygon(GEO_Polygon::New());
    polygon->cat(*p);
    polygon->cat(*q);
    polygon->cat(*r);
    polygon->cat(*p);
    polygon->translate(*COM_Scoped(GEO_Point::New(10.0, 0.0)));
    expectNear(*p, {10.0, 0.0});
    expectNear(*q, {11.0, 0.0});
    expectNear(*r, {11.0, 1.0});
}

TEST(GEO_Movable, ASplineMovesWithItsControlPoints)
{
    const COM_Scoped a(GEO_Vertex::New(0.0, 0.0));
    const COM_Scoped b(GEO_Vertex::New(3.0, 0.0));
    const COM_Scoped spline(GEO_Spline::New(*a, *b));
    spline->translate(*COM_Scoped(GEO_Point::New(10.0, 1.0)));
    expectNear(*a->getPoint(), {10.0, 1.0});
    expectNear(*b->getPoint(), {13.0, 1.0});
    expectNear(*spline->getControlPoint(1), {10.99, 1.0});
    expectNear(*spline->getControlPoint(2), {11.98, 1.0});
}

TEST(GEO_Movable, ASplineOfTwoPolygonsMovesItsControlPointsOnce)
{
    const COM_Scoped a(GEO_Vertex::New(0.0, 0.0));
    const COM_Scoped b(GEO_Vertex::New(3.0, 0.0));
    const COM_Scoped spline(GEO_Spline::New(*a, *b));
    const COM_Scoped one(GEO_Polygon::New());
    const COM_Scoped other(GEO_Polygon::New());
    one->cat(*spline);
    other->cat(*spline);
    const COM_Scoped volume(GEO_Volume::New());
    volume->addToShells(*one);
    volume->addToShells(*other);
    volume->translate(*COM_Scoped(GEO_Point::New(10.0, 1.0)));
    expectNear(*a->getPoint(), {10.0, 1.0});
    expectNear(*spline->getControlPoint(1), {10.99, 1.0});
    expectNear(*spline->getControlPoint(2), {11.98, 1.0});
}

TEST(GEO_Movable, FiguresWithoutPointsStayWithoutThem)
{
    const COM_Scoped polygon(GEO_Polygon::New());
    const COM_Scoped by(GEO_Point::New(1.0, 1.0));
    polygon->translate(*by);
    polygon->addToEdges(*COM_Scoped(GEO_Edge::New()));
    polygon->addToCurves(*COM_Scoped(GEO_Line::New()), false);
    const COM_Scoped vertex(GEO_Vertex::New());
    const COM_Scoped line(GEO_Line::New());
    line->setStartingVertex(*vertex);
    polygon->addToCurves(*line, false);
    polygon->translate(*by);
    EXPECT_EQ(vertex->getPoint(), nullptr);
    COM_Scoped(GEO_Volume::New())->translate(*by);
}

TEST(GEO_Movable, ATranslationByThePointOfAVertexIsTheSameForAll)
{
    const COM_Scoped a(GEO_Vertex::New(1.0, 2.0));
    const COM_Scoped b(GEO_Vertex::New(3.0, 0.0));
    const COM_Scoped line(GEO_Line::New(*a, *b));
    line->translate(*a->getPoint());
    expectNear(*a->getPoint(), {2.0, 4.0});
    expectNear(*b->getPoint(), {4.0, 2.0});
}

TEST(GEO_Movable, AMotionAboutThePointOfAVertexLeavesThatPoint)
{
    const COM_Scoped a(GEO_Vertex::New(1.0, 2.0, 0.0));
    const COM_Scoped b(GEO_Vertex::New(3.0, 2.0, 0.0));
    const COM_Scoped line(GEO_Line::New(*a, *b));
    line->rotate(*a->getPoint(), *axis(), quarter);
    expectNear(*a->getPoint(), {1.0, 2.0, 0.0});
    expectNear(*b->getPoint(), {1.0, 4.0, 0.0});
    line->homothetize(*a->getPoint(), 2.0);
    expectNear(*a->getPoint(), {1.0, 2.0, 0.0});
    expectNear(*b->getPoint(), {1.0, 6.0, 0.0});
    line->offset(*a->getPoint(), 1.0, 1.0, 1.0);
    expectNear(*a->getPoint(), {1.0, 2.0, 0.0});
    EXPECT_EQ((*b)[1], 7.0);
}

TEST(GEO_Movable, AMotionTellsWhatDependsOnTheVertices)
{
    const COM_Scoped a(GEO_Vertex::New(0.0, 0.0));
    const COM_Scoped b(GEO_Vertex::New(1.0, 0.0));
    const COM_Scoped polygon(CountingPolygon::New());
    polygon->cat(*a);
    polygon->cat(*b);
    polygon->mChanges = 0;
    const COM_Scoped by(GEO_Point::New(1.0, 1.0));
    polygon->translate(*by);
    EXPECT_GT(polygon->mChanges, 0);
    polygon->mChanges = 0;
    Moved moved;
    polygon->translate(*by, moved);
    EXPECT_EQ(polygon->mChanges, 0); // whoever moves several figures tells it at the end
    GEO_Motion::tell(moved);
    EXPECT_GT(polygon->mChanges, 0);
}
