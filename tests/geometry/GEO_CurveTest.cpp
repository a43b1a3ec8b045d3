#include "geometry/GEO_Curve.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

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

/// Half a turn of the unit circle, from (1, 0) over (0, 1) to (-1, 0), wherever its vertices are.
class HalfCircle : public GEO_Curve
{
    COM_CLASS(HalfCircle)
public:
    HalfCircle* NewCurveInstance() const override { return HalfCircle::New(); }
    void computePoint(double t, GEO_Point& point) const override
    {
        point.setLocation(std::cos(t * std::numbers::pi), std::sin(t * std::numbers::pi));
    }
    using GEO_Curve::intersect;
    /// Meets every segment in its two ends.
    unsigned long intersect(const GEO_Point& a, const GEO_Point& b,
                            COM_Array<GEO_Point>& points) const override
    {
        points.setSize(0);
        if (mHasCrossings) {
            points.add(*COM_Scoped(GEO_Point::New(b)));
            points.add(*COM_Scoped(GEO_Point::New(a)));
        }
        return points.size();
    }

    bool mHasCrossings = true;

protected:
    HalfCircle() { COM_TYPE(HalfCircle); }
    ~HalfCircle() override = default;
};

/// An edge that counts the changes it is told of.
class CountingEdge : public GEO_Edge
{
    COM_CLASS(CountingEdge)
public:
    void stateChanged() override { ++mChanges; }

    int mChanges = 0;

protected:
    explicit CountingEdge(GEO_Curve& curve)
        : GEO_Edge(curve, false)
    {
        COM_TYPE(CountingEdge);
        mChanges = 0;
    }
    ~CountingEdge() override = default;
};

/// Vertices 3, 12 and 5, and an unnumbered one.
class GEO_CurveTest : public testing::Test
{
protected:
    const COM_Scoped<GEO_Vertex> m3{GEO_Vertex::New(3)};
    const COM_Scoped<GEO_Vertex> m12{GEO_Vertex::New(12)};
    const COM_Scoped<GEO_Vertex> m5{GEO_Vertex::New(5)};
    const COM_Scoped<GEO_Vertex> mNone{GEO_Vertex::New()};
    const COM_Scoped<GEO_Line> mLine{GEO_Line::New()};
};

} // namespace

// ---------------------------------------------------------------- keys and pairs

TEST_F(GEO_CurveTest, TheKeyIsTheSmallerNumberThenTheLargerWhateverTheDirection)
{
    EXPECT_EQ(GEO_Curve::getKey(*m3, *m12), "3-12");
    EXPECT_EQ(GEO_Curve::getKey(*m12, *m3), "3-12");
    EXPECT_EQ(GEO_Curve::getKey(*m5, *m5), "5-5");
    EXPECT_EQ(GEO_Curve::getKey(*COM_Scoped(GEO_Vertex::New(0)), *m5), "0-5");
}

TEST_F(GEO_CurveTest, AnUnnumberedEndGivesNoKey)
{
    EXPECT_EQ(GEO_Curve::getKey(*m3, *mNone), "");
    EXPECT_EQ(GEO_Curve::getKey(*mNone, *m3), "");
    EXPECT_EQ(GEO_Curve::getKey(*mNone, *mNone), "");
    EXPECT_EQ(GEO_Curve::get(*m3, *mNone), nullptr);
}

TEST_F(GEO_CurveTest, ANewCurveHasNoNumberNoEndsAndNoEdges)
{
    EXPECT_EQ(mLine->getLocationNumber(), -1);
    EXPECT_EQ(mLine->getStartingVertex(), nullptr);
    EXPECT_EQ(mLine->getEndingVertex(), nullptr);
    EXPECT_EQ(mLine->getStartingPoint(), nullptr);
    EXPECT_EQ(mLine->getEndingPoint(), nullptr);
    EXPECT_EQ(mLine->getEdges().size(), 0UL);
    EXPECT_EQ(mLine->getReferenceCount(), 1);
}

TEST_F(GEO_CurveTest, ACurveIsFoundByItsPairOnlyWhenBothEndsAreKnown)
{
    mLine->setStartingVertex(*m3);
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), nullptr);
    mLine->setEndingVertex(*m12);
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), mLine.get());
    EXPECT_EQ(GEO_Curve::get(*m12, *m3), mLine.get());
    mLine->resetStartingVertex();
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), nullptr);
}

TEST_F(GEO_CurveTest, AnotherEndMovesTheCurveToItsNewPair)
{
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    mLine->setEndingVertex(*m5);
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), nullptr);
    EXPECT_EQ(GEO_Curve::get(*m3, *m5), mLine.get());
    mLine->setStartingVertex(*m12);
    EXPECT_EQ(GEO_Curve::get(*m3, *m5), nullptr);
    EXPECT_EQ(GEO_Curve::get(*m12, *m5), mLine.get());
}

TEST_F(GEO_CurveTest, ACurveIsEnteredWhenItsUnnumberedEndGetsANumber)
{
    mLine->setStartingVertex(*mNone);
    mLine->setEndingVertex(*m5);
    EXPECT_EQ(GEO_Curve::get(*mNone, *m5), nullptr);
    EXPECT_TRUE(mNone->setLocationNumber(7));
    EXPECT_EQ(GEO_Curve::get(*m5, *mNone), mLine.get());
}

TEST_F(GEO_CurveTest, ARenumberedVertexTakesItsCurvesToTheirNewKeys)
{
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    const COM_Scoped other(GEO_Line::New(*m5, *m3));
    EXPECT_TRUE(m3->setLocationNumber(40));
    EXPECT_EQ(GEO_Curve::getKey(*m3, *m12), "12-40");
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), mLine.get());
    EXPECT_EQ(GEO_Curve::get(*m5, *m3), other.get());
    // The old number belongs to another vertex now, and with it to no curve.
    const COM_Scoped again(GEO_Vertex::New(3));
    EXPECT_EQ(GEO_Curve::get(*again, *m12), nullptr);
    EXPECT_EQ(GEO_Curve::get(*again, *m5), nullptr);
}

TEST_F(GEO_CurveTest, AVertexThatLosesItsNumberTakesItsCurvesOutOfThePairs)
{
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    EXPECT_TRUE(m3->setLocationNumber(-1));
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), nullptr);
    const COM_Scoped again(GEO_Vertex::New(3));
    EXPECT_EQ(GEO_Curve::get(*again, *m12), nullptr);
    EXPECT_TRUE(m3->setLocationNumber(4));
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), mLine.get());
}

TEST_F(GEO_CurveTest, ALoopIsRekeyedWithItsOneVertex)
{
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m3);
    EXPECT_EQ(GEO_Curve::get(*m3, *m3), mLine.get());
    EXPECT_TRUE(m3->setLocationNumber(40));
    EXPECT_EQ(GEO_Curve::get(*m3, *m3), mLine.get());
    EXPECT_EQ(mLine->getReferenceCount(), 3);
}

TEST_F(GEO_CurveTest, ARefusedNumberLeavesTheKeysOfTheCurves)
{
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    EXPECT_FALSE(m3->setLocationNumber(5));
    EXPECT_EQ(GEO_Curve::getKey(*m3, *m12), "3-12");
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), mLine.get());
}

TEST_F(GEO_CurveTest, ACurveThatIsGoneIsInNoRegistry)
{
    {
        const COM_Scoped line(GEO_Line::New(*m3, *m12));
        line->setLocationNumber(7);
        EXPECT_EQ(GEO_Curve::get(*m3, *m12), line.get());
        EXPECT_EQ(GEO_Curve::get(7), line.get());
    }
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), nullptr);
    EXPECT_EQ(GEO_Curve::get(7), nullptr);
}

TEST_F(GEO_CurveTest, ACurveThatIsGoneLeavesThePairToTheOneEnteredAfterIt)
{
    auto* const first = GEO_Line::New();
    first->setStartingVertex(*m3);
    first->setEndingVertex(*m12);
    mLine->setStartingVertex(*m12);
    mLine->setEndingVertex(*m3);
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), mLine.get());
    first->Delete();
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), mLine.get());
}

TEST_F(GEO_CurveTest, TheRegistriesCountNoReferences)
{
    const COM_Scoped line(GEO_Line::New(*m3, *m12));
    const long count = line->getReferenceCount();
    EXPECT_EQ(count, 3); // its maker and both vertices
    line->setLocationNumber(7);
    EXPECT_EQ(line->getReferenceCount(), count);
    m3->setLocationNumber(4);
    EXPECT_EQ(line->getReferenceCount(), count);
}

// ---------------------------------------------------------------- numbers

TEST_F(GEO_CurveTest, ANumberLeadsToTheCurve)
{
    EXPECT_EQ(GEO_Curve::get(7), nullptr);
    EXPECT_TRUE(mLine->setLocationNumber(7));
    EXPECT_EQ(mLine->getLocationNumber(), 7);
    EXPECT_EQ(GEO_Curve::get(7), mLine.get());
}

TEST_F(GEO_CurveTest, ATakenNumberIsRefusedAndTheOldOneKept)
{
    const COM_Scoped other(GEO_Line::New());
    EXPECT_TRUE(mLine->setLocationNumber(7));
    EXPECT_TRUE(other->setLocationNumber(8));
    EXPECT_FALSE(other->setLocationNumber(7));
    EXPECT_FALSE(other->setLocationNumber(8));
    EXPECT_EQ(other->getLocationNumber(), 8);
    EXPECT_EQ(GEO_Curve::get(7), mLine.get());
    EXPECT_EQ(GEO_Curve::get(8), other.get());
}

TEST_F(GEO_CurveTest, ANewNumberFreesTheOldOneAndANegativeOneTakesItAway)
{
    EXPECT_TRUE(mLine->setLocationNumber(7));
    EXPECT_TRUE(mLine->setLocationNumber(9));
    EXPECT_EQ(GEO_Curve::get(7), nullptr);
    EXPECT_EQ(GEO_Curve::get(9), mLine.get());
    EXPECT_TRUE(mLine->setLocationNumber(-2));
    EXPECT_EQ(mLine->getLocationNumber(), -2);
    EXPECT_EQ(GEO_Curve::get(9), nullptr);
}

TEST_F(GEO_CurveTest, NumbersOfCurvesAndOfVerticesAreApart)
{
    EXPECT_TRUE(mLine->setLocationNumber(3));
    EXPECT_EQ(GEO_Curve::get(3), mLine.get());
    EXPECT_EQ(GEO_Vertex::get(3), m3.get());
}

// ---------------------------------------------------------------- ends

TEST_F(GEO_CurveTest, SettingAnEndLinksBothSides)
{
    mLine->setStartingVertex(*m3);
    EXPECT_EQ(m3->getStartingCurve(), mLine.get());
    EXPECT_EQ(m3->getReferenceCount(), 2);
    EXPECT_EQ(mLine->getReferenceCount(), 2);
    mLine->setEndingVertex(m12.get());
    EXPECT_EQ(m12->getEndingCurve(), mLine.get());
    EXPECT_EQ(m12->getReferenceCount(), 2);
    EXPECT_EQ(mLine->getReferenceCount(), 3);
}

TEST_F(GEO_CurveTest, SettingTheSameEndAgainChangesNothing)
{
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    EXPECT_EQ(m3->getStartingCurves().size(), 1UL);
    EXPECT_EQ(m12->getEndingCurves().size(), 1UL);
    EXPECT_EQ(mLine->getReferenceCount(), 3);
}

TEST_F(GEO_CurveTest, AnotherEndLeavesTheListOfTheOldOne)
{
    mLine->setStartingVertex(*m3);
    mLine->setStartingVertex(*m5);
    EXPECT_EQ(m3->getStartingCurve(), nullptr);
    EXPECT_EQ(m5->getStartingCurve(), mLine.get());
    EXPECT_EQ(m3->getReferenceCount(), 1);
    EXPECT_EQ(m5->getReferenceCount(), 2);
    EXPECT_EQ(mLine->getReferenceCount(), 2);
    mLine->setEndingVertex(*m12);
    mLine->setEndingVertex(*m3);
    EXPECT_EQ(m12->getEndingCurve(), nullptr);
    EXPECT_EQ(m12->getReferenceCount(), 1);
    EXPECT_EQ(mLine->getReferenceCount(), 3);
}

TEST_F(GEO_CurveTest, ResettingTheEndsClearsBothSides)
{
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    mLine->resetStartingVertex();
    mLine->resetEndingVertex();
    EXPECT_EQ(mLine->getStartingVertex(), nullptr);
    EXPECT_EQ(mLine->getEndingVertex(), nullptr);
    EXPECT_EQ(m3->getNumberOfCurves(), 0UL);
    EXPECT_EQ(m12->getNumberOfCurves(), 0UL);
    EXPECT_EQ(m3->getReferenceCount(), 1);
    EXPECT_EQ(m12->getReferenceCount(), 1);
    EXPECT_EQ(mLine->getReferenceCount(), 1);
}

TEST_F(GEO_CurveTest, AReleasedCurveReleasesItsVertices)
{
    {
        const COM_Scoped line(GEO_Line::New(*m3, *m12));
        EXPECT_EQ(m3->getReferenceCount(), 2);
    }
    EXPECT_EQ(m3->getReferenceCount(), 1);
    EXPECT_EQ(m12->getReferenceCount(), 1);
    EXPECT_EQ(m3->getNumberOfCurves(), 0UL);
}

TEST_F(GEO_CurveTest, VerticesThatNobodyElseHoldsGoWithTheCurve)
{
    {
        const COM_Scoped line(GEO_Line::New());
        line->setStartingVertex(*COM_Scoped(GEO_Vertex::New(20)));
        line->setEndingVertex(*COM_Scoped(GEO_Vertex::New(20)));
        EXPECT_NE(GEO_Vertex::get(20), nullptr);
    }
    EXPECT_EQ(GEO_Vertex::get(20), nullptr);
}

TEST_F(GEO_CurveTest, TheEndPointsAreThoseOfTheVertices)
{
    mLine->setStartingVertex(*m3);
    EXPECT_EQ(mLine->getStartingPoint(), nullptr);
    m3->setLocation(1.0, 2.0);
    EXPECT_EQ(mLine->getStartingPoint(), m3->getPoint());
    EXPECT_NE(mLine->getStartingPoint(), nullptr);
    mLine->setEndingVertex(*m12);
    m12->setLocation(3.0, 4.0);
    EXPECT_EQ(mLine->getEndingPoint(), m12->getPoint());
}

// ---------------------------------------------------------------- edges

TEST_F(GEO_CurveTest, AddingAnEdgeLinksBothSidesAndEachCountsTheOther)
{
    const COM_Scoped edge(GEO_Edge::New());
    mLine->addToEdges(*edge);
    EXPECT_EQ(edge->getCurve(), mLine.get());
    EXPECT_EQ(mLine->getEdges().size(), 1UL);
    EXPECT_EQ(edge->getReferenceCount(), 2);
    EXPECT_EQ(mLine->getReferenceCount(), 2);
    mLine->addToEdges(*edge);
    EXPECT_EQ(mLine->getEdges().size(), 1UL);
    mLine->removeFromEdges(*edge);
    EXPECT_EQ(edge->getCurve(), nullptr);
    EXPECT_EQ(edge->getReferenceCount(), 1);
    EXPECT_EQ(mLine->getReferenceCount(), 1);
    mLine->removeFromEdges(*edge);
    EXPECT_EQ(mLine->getReferenceCount(), 1);
}

TEST_F(GEO_CurveTest, AnEdgeKeepsItsCurveButTheCurveNotItsEdge)
{
    const COM_Scoped edge(GEO_Edge::New());
    edge->setCurve(*COM_Scoped(GEO_Line::New(*m3, *m12)));
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), edge->getCurve());
    edge->getCurve()->removeFromEdges(*edge);
    EXPECT_EQ(GEO_Curve::get(*m3, *m12), nullptr);
    COM_Scoped(GEO_Edge::New(*mLine, false));
    EXPECT_EQ(mLine->getEdges().size(), 0UL);
    EXPECT_EQ(mLine->getReferenceCount(), 1);
}

TEST_F(GEO_CurveTest, AChangeIsToldToEveryEdge)
{
    const COM_Scoped one(CountingEdge::New(*mLine));
    const COM_Scoped other(CountingEdge::New(*mLine));
    mLine->stateChanged();
    EXPECT_EQ(one->mChanges, 1);
    EXPECT_EQ(other->mChanges, 1);
    mLine->setStartingVertex(*m3);
    EXPECT_EQ(one->mChanges, 2);
    mLine->setStartingVertex(*m3);
    EXPECT_EQ(one->mChanges, 2);
    m3->setLocation(1.0, 2.0);
    EXPECT_EQ(one->mChanges, 3);
    EXPECT_EQ(other->mChanges, 3);
}

// ---------------------------------------------------------------- sampling

TEST_F(GEO_CurveTest, PointsStandAtEqualStepsOfTheParameter)
{
    const COM_Scoped arc(HalfCircle::New());
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    arc->computePoints(3, *points);
    ASSERT_EQ(points->size(), 3UL);
    EXPECT_EQ(valuesOf((*points)[0]), (Values{1.0, 0.0}));
    EXPECT_EQ((*points)[1][1], 1.0);
    EXPECT_EQ((*points)[2][0], -1.0);
    EXPECT_EQ((*points)[0].getReferenceCount(), 1);
}

TEST_F(GEO_CurveTest, PointsBetweenTwoParametersIncludeBoth)
{
    const COM_Scoped line(GEO_Line::New(*m3, *m12));
    m3->setLocation(0.0, 0.0);
    m12->setLocation(8.0, 16.0);
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    line->computePoints(0.25, 0.75, 3, *points);
    EXPECT_EQ(points->toString(), "0:(2.000000e+00,4.000000e+00)\n"
                                  "1:(4.000000e+00,8.000000e+00)\n"
                                  "2:(6.000000e+00,1.200000e+01)\n");
    line->computePoints(1.0, 0.0, 2, points.get());
    EXPECT_EQ(points->toString(), "0:(8.000000e+00,1.600000e+01)\n"
                                  "1:(0.000000e+00,0.000000e+00)\n");
    line->computePoints(2, points.get());
    EXPECT_EQ(points->toString(), "0:(0.000000e+00,0.000000e+00)\n"
                                  "1:(8.000000e+00,1.600000e+01)\n");
}

TEST_F(GEO_CurveTest, OnePointIsTheFirstAndNoPointEmptiesTheArray)
{
    const COM_Scoped line(GEO_Line::New(*m3, *m12));
    m3->setLocation(0.0, 0.0);
    m12->setLocation(8.0, 16.0);
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    line->computePoints(0.25, 0.75, 1, *points);
    EXPECT_EQ(points->toString(), "0:(2.000000e+00,4.000000e+00)\n");
    line->computePoints(0, *points);
    EXPECT_EQ(points->size(), 0UL);
}

TEST_F(GEO_CurveTest, TheBoxOfACurveIsThatOfPointsAlongIt)
{
    const COM_Scoped arc(HalfCircle::New());
    const COM_Scoped box(GEO_Box::New());
    box->setTo(7.0);
    arc->computeBoundingBox(*box);
    EXPECT_EQ(valuesOf(*box->getMinPoint()), (Values{7.0, 7.0, 7.0}));
    arc->setStartingVertex(*m3);
    arc->setEndingVertex(*m12);
    m3->setLocation(1.0, 0.0);
    m12->setLocation(-1.0, 0.0);
    arc->computeBoundingBox(*box);
    EXPECT_EQ(valuesOf(*box->getMinPoint()), (Values{-1.0, 0.0}));
    EXPECT_EQ((*box->getMaxPoint())[0], 1.0);
    // The top may lie between two samples: an angle of half a step, pi / 100, is missed at most.
    EXPECT_LE((*box->getMaxPoint())[1], 1.0);
    EXPECT_GE((*box->getMaxPoint())[1], std::cos(std::numbers::pi / 100.0));
}

TEST_F(GEO_CurveTest, TheLengthIsTheDistanceOfTheEndPoints)
{
    const COM_Scoped arc(HalfCircle::New());
    EXPECT_EQ(arc->getLength(), 0.0);
    arc->setStartingVertex(*m3);
    arc->setEndingVertex(*m12);
    EXPECT_EQ(arc->getLength(), 0.0);
    m3->setLocation(1.0, 1.0);
    m12->setLocation(4.0, 5.0);
    EXPECT_EQ(arc->getLength(), 5.0);
}

TEST_F(GEO_CurveTest, OneCrossingIsTheFirstOfAll)
{
    const COM_Scoped arc(HalfCircle::New());
    const COM_Scoped a(GEO_Point::New(1.0, 2.0));
    const COM_Scoped b(GEO_Point::New(3.0, 4.0));
    const COM_Scoped point(GEO_Point::New());
    EXPECT_TRUE(arc->intersect(*a, *b, *point));
    EXPECT_EQ(valuesOf(*point), (Values{3.0, 4.0}));
    arc->mHasCrossings = false;
    point->setLocation(7.0, 7.0);
    EXPECT_FALSE(arc->intersect(*a, *b, *point));
    EXPECT_EQ(valuesOf(*point), (Values{7.0, 7.0}));
}

TEST_F(GEO_CurveTest, TheTextNamesTheCurveAndBothVertices)
{
    const std::string identity = "8GEO_Line@" + std::to_string(mLine->getIdentityNumber());
    EXPECT_EQ(mLine->toString(), identity + " from:NULL to:NULL");
    mLine->setStartingVertex(*m3);
    mLine->setEndingVertex(*m12);
    EXPECT_EQ(mLine->toString(),
              identity + " from:" + m3->getIdentityString() + " to:" + m12->getIdentityString());
}
