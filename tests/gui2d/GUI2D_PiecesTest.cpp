#include "gui2d/GUI2D_Pieces.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_BezierPolygon.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Spline.h"
#include "geometry/GEO_Vertex.h"
#include "gui2d/GUI2D_Mapping.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <ostream>
#include <vector>

// Holds with a tolerance, since parameters come out of divisions.
static bool operator==(const GUI2D_Pieces::Piece& a, const GUI2D_Pieces::Piece& b)
{
    return std::fabs(a.mFrom - b.mFrom) < 1e-14 && std::fabs(a.mTo - b.mTo) < 1e-14
           && a.mSteps == b.mSteps;
}

static void PrintTo(const GUI2D_Pieces::Piece& piece, std::ostream* out)
{
    *out << piece.mFrom << " to " << piece.mTo << " in " << piece.mSteps;
}

namespace {

using Piece = GUI2D_Pieces::Piece;
using Pieces = std::vector<Piece>;
using Place = std::array<double, 2>;

/// Shows 0 <= x <= 8, 0 <= y <= 4 at 20 pixels a unit.
constexpr int width = 160;
constexpr int height = 80;

GUI2D_Mapping view()
{
    return {0.0, 4.0, 8.0, 4.0, 20.0, 20.0, 1, -1, QPoint(0, 0), 1.0, 1.0};
}

/// Between two vertices: a line, or with control points a smooth piece.
class TestEdge
{
public:
    TestEdge(const Place& a, const Place& b, bool isReverse = false)
        : mA(GEO_Vertex::New(a[0], a[1]))
        , mB(GEO_Vertex::New(b[0], b[1]))
    {
        mEdge->setCurve(*COM_Scoped(GEO_Line::New(*mA, *mB)));
        mEdge->setReverse(isReverse);
    }
    TestEdge(const Place& a, const Place& p1, const Place& p2, const Place& b)
        : TestEdge(a, b)
    {
        const COM_Scoped spline(GEO_Spline::New(*mA, *mB));
        spline->setControlPoint(1, *COM_Scoped(GEO_Point::New(p1[0], p1[1])));
        spline->setControlPoint(2, *COM_Scoped(GEO_Point::New(p2[0], p2[1])));
        mEdge->setCurve(*spline);
    }
    GEO_Edge& operator*() const { return *mEdge; }
    GEO_Edge* operator->() const { return mEdge.get(); }
    Pieces pieces(const GUI2D_Mapping& mapping = view()) const
    {
        return GUI2D_Pieces::of(*mEdge, mapping, width, height);
    }

private:
    const COM_Scoped<GEO_Vertex> mA;
    const COM_Scoped<GEO_Vertex> mB;
    const COM_Scoped<GEO_Edge> mEdge{GEO_Edge::New()};
};

} // namespace

TEST(GUI2D_Pieces, AnEdgeInsideTheViewIsOnePieceWithAStepForEachPixelOfItsLongerSide)
{
    EXPECT_EQ(TestEdge({1.0, 1.0}, {3.0, 2.0}).pieces(), (Pieces{{0.0, 1.0, 40}}));
    EXPECT_EQ(TestEdge({1.0, 1.0}, {2.0, 4.0}).pieces(), (Pieces{{0.0, 1.0, 60}}));
    EXPECT_EQ(TestEdge({0.0, 4.0}, {8.0, 0.0}).pieces(), (Pieces{{0.0, 1.0, 160}}));
    EXPECT_EQ(TestEdge({1.0, 1.0}, {1.03, 1.0}).pieces(), (Pieces{{0.0, 1.0, 1}}));
    EXPECT_EQ(TestEdge({1.0, 1.0}, {1.08, 1.0}).pieces(), (Pieces{{0.0, 1.0, 2}}));
    EXPECT_EQ(TestEdge({1.0, 1.0}, {1.0, 1.0}).pieces(), (Pieces{{0.0, 1.0, 1}}));
}

TEST(GUI2D_Pieces, TheLongerSideIsThatOfThePicture)
{
    GUI2D_Mapping mapping = view();
    mapping.mHeight = 0.4;
    mapping.mOriginY = 0.4;
    mapping.mScaleY = 200.0;
    EXPECT_EQ(TestEdge({1.0, 0.1}, {2.0, 0.35}).pieces(mapping), (Pieces{{0.0, 1.0, 50}}));
}

TEST(GUI2D_Pieces, AnEdgeWithBothEndsBeyondOneSideIsSkipped)
{
    EXPECT_EQ(TestEdge({-1.0, -3.0}, {-0.1, 9.0}).pieces(), Pieces{});
    EXPECT_EQ(TestEdge({8.1, -3.0}, {9.0, 9.0}).pieces(), Pieces{});
    EXPECT_EQ(TestEdge({-5.0, -0.1}, {13.0, -0.2}).pieces(), Pieces{});
    EXPECT_EQ(TestEdge({-5.0, 4.1}, {13.0, 5.0}).pieces(), Pieces{});
    // Even if it bends into the view.
    EXPECT_EQ(TestEdge({1.0, -1.0}, {1.0, 3.0}, {7.0, 3.0}, {7.0, -1.0}).pieces(), Pieces{});
    // The limits belong to the view.
    EXPECT_EQ(TestEdge({0.0, 1.0}, {0.0, 2.0}).pieces(), (Pieces{{0.0, 1.0, 20}}));
}

TEST(GUI2D_Pieces, AnEdgeAcrossTheViewIsCutAtTheLimitsOfItsLongerSide)
{
    EXPECT_EQ(TestEdge({-56.0, 2.0}, {72.0, 2.0}).pieces(), (Pieces{{0.4375, 0.5, 160}}));
    EXPECT_EQ(TestEdge({4.0, 68.0}, {4.0, -60.0}).pieces(), (Pieces{{0.5, 0.53125, 80}}));
    // What lies outside and is short costs little.
    EXPECT_EQ(TestEdge({-1.0, 2.0}, {9.0, 2.0}).pieces(),
              (Pieces{{0.0, 0.1, 20}, {0.1, 0.9, 160}, {0.9, 1.0, 20}}));
    // Past a corner no limit of the longer side is met.
    EXPECT_EQ(TestEdge({1.0, -1.0}, {4.0, 1.0}).pieces(), (Pieces{{0.0, 1.0, 60}}));
}

TEST(GUI2D_Pieces, AnEdgeThatBeginsInTheViewAndGoesFarIsDrawnUpToTheLimit)
{
    EXPECT_EQ(TestEdge({4.0, 2.0}, {4.0, 1026.0}).pieces(), (Pieces{{0.0, 1.0 / 512.0, 40}}));
    EXPECT_EQ(TestEdge({4.0, -1022.0}, {4.0, 2.0}).pieces(), (Pieces{{511.0 / 512.0, 1.0, 40}}));
    EXPECT_EQ(TestEdge({4.0, 2.0}, {12.0, 2.0}).pieces(), (Pieces{{0.0, 1.0, 160}}))
        << "short enough to be drawn whole";
}

TEST(GUI2D_Pieces, AReversedEdgeHasParametersOfItsOwn)
{
    EXPECT_EQ(TestEdge({4.0, 2.0}, {4.0, 1026.0}, true).pieces(),
              (Pieces{{511.0 / 512.0, 1.0, 40}}));
    EXPECT_EQ(TestEdge({-56.0, 2.0}, {72.0, 2.0}, true).pieces(), (Pieces{{0.5, 0.5625, 160}}));
}

TEST(GUI2D_Pieces, EdgesAreInUnitsOfTheUser)
{
    GUI2D_Mapping mapping = view();
    mapping.mXadim = 1e-3;
    mapping.mYadim = 1e4;
    EXPECT_EQ(TestEdge({1e-3, 1e4}, {3e-3, 2e4}).pieces(mapping), (Pieces{{0.0, 1.0, 40}}));
    EXPECT_EQ(TestEdge({4e-3, 2e4}, {4e-3, 1026e4}).pieces(mapping),
              (Pieces{{0.0, 1.0 / 512.0, 40}}));
    EXPECT_EQ(TestEdge({9e-3, 1e4}, {10e-3, 2e4}).pieces(mapping), Pieces{});
    mapping.mXadim = 0.0; // divides nothing
    mapping.mYadim = -1.0;
    EXPECT_EQ(TestEdge({1.0, 1.0}, {3.0, 2.0}).pieces(mapping), (Pieces{{0.0, 1.0, 40}}));
}

TEST(GUI2D_Pieces, ASmoothEdgeThatLeavesTheViewAndComesBackIsDrawnOnBothSides)
{
    // y = 1 + 24 t (1 - t): above 4 where 8 t (1 - t) > 1.
    const TestEdge edge({1.0, 1.0}, {1.0, 9.0}, {7.0, 9.0}, {7.0, 1.0});
    const double t = (1.0 - std::sqrt(0.5)) / 2.0;
    EXPECT_EQ(edge.pieces(), (Pieces{{0.0, t, 47}, {1.0 - t, 1.0, 47}}));
}

TEST(GUI2D_Pieces, NoPieceHasMoreStepsThanTheViewHasPixels)
{
    // To and fro inside: 30 units along the control points.
    const TestEdge edge({1.0, 2.0}, {10.0, 2.0}, {-2.0, 2.0}, {7.0, 2.0});
    EXPECT_EQ(edge.pieces(), (Pieces{{0.0, 1.0, 160}}));
}

TEST(GUI2D_Pieces, StepsOfASmoothCurveAreAboutAPixel)
{
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    for (const auto& [x, y] : std::vector<Place>{
             {1.0, 1.0}, {2.0, 3.0}, {3.0, 3.5}, {3.5, 0.5}, {6.0, 1.0}, {7.0, 2.0}}) {
        points->add(*COM_Scoped(GEO_Point::New(x, y)));
    }
    const COM_Scoped polygon(GEO_BezierPolygon::New(*points));
    const GUI2D_Mapping mapping = view();
    const COM_Scoped point(GEO_Point::New());
    double sum = 0.0;
    int number = 0;
    for (unsigned long i = 0; i < polygon->getEdges().size(); ++i) {
        const GEO_Edge& edge = *polygon->getEdge(i);
        const Pieces pieces = GUI2D_Pieces::of(edge, mapping, width, height);
        ASSERT_EQ(pieces.size(), 1UL);
        for (int step = 0; step <= pieces[0].mSteps; ++step) {
            const COM_Scoped before(GEO_Point::New(*point));
            edge.computePoint(static_cast<double>(step) / pieces[0].mSteps, *point);
            if (step > 0) {
                const double distance = 20.0 * before->distanceTo(*point);
                // A cubic runs at most three times as fast as on average, along each axis.
                EXPECT_LE(distance, 3.0 * std::sqrt(2.0));
                sum += distance;
                ++number;
            }
        }
    }
    EXPECT_NEAR(sum / number, 1.0, 0.2);
}

TEST(GUI2D_Pieces, WhatHasNoPointsHasNoPieces)
{
    EXPECT_EQ(GUI2D_Pieces::of(*COM_Scoped(GEO_Edge::New()), view(), width, height), Pieces{});
    const TestEdge edge({1.0, 1.0}, {1.0, 2.0}, {3.0, 2.0}, {3.0, 1.0});
    EXPECT_EQ(edge.pieces().size(), 1UL);
    EXPECT_EQ(GUI2D_Pieces::of(*edge, view(), 0, 0), Pieces{});
    dynamic_cast<GEO_Spline&>(*edge->getCurve()).resetControlPoint(2);
    EXPECT_EQ(edge.pieces(), Pieces{});
    edge->getEndingVertex()->resetPoint();
    EXPECT_EQ(edge.pieces(), Pieces{});
}

TEST(GUI2D_Pieces, CoordinatesThatAreNotFiniteEndNothing)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(TestEdge({1.0, 1.0}, {std::nan(""), 1.0}).pieces(), Pieces{});
    EXPECT_EQ(TestEdge({-infinity, 1.0}, {infinity, 1.0}).pieces(), Pieces{});
    const double huge = std::numeric_limits<double>::max();
    for (const Piece& piece : TestEdge({4.0, 2.0}, {huge, 2.0}).pieces()) {
        EXPECT_LE(piece.mSteps, width);
    }
    // A view of no size, which is 1e-24 wide.
    GUI2D_Mapping point = view();
    point.mWidth = point.mHeight = 1e-24;
    point.mScaleX = point.mScaleY = 1e26;
    for (const Piece& piece : TestEdge({0.0, 4.0}, {8.0, 0.0}).pieces(point)) {
        EXPECT_LE(piece.mSteps, width);
    }
}
