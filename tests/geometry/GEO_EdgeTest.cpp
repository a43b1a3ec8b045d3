#include "geometry/GEO_Edge.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Polygon.h"
#include "geometry/GEO_Vertex.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;

Values valuesOf(const GEO_Point& point)
{
    return {point.getValues(), point.getValues() + point.getDimension()};
}

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

/// The line from vertex 0 at (1, 2) to vertex 1 at (5, 4).
class GEO_EdgeTest : public testing::Test
{
protected:
    GEO_EdgeTest()
    {
        mA->setLocation(1.0, 2.0);
        mB->setLocation(5.0, 4.0);
    }

    const COM_Scoped<GEO_Vertex> mA{GEO_Vertex::New(0)};
    const COM_Scoped<GEO_Vertex> mB{GEO_Vertex::New(1)};
    const COM_Scoped<GEO_Line> mLine{GEO_Line::New(*mA, *mB)};
    const COM_Scoped<GEO_Edge> mEdge{GEO_Edge::New(*mLine, false)};
    const COM_Scoped<GEO_Edge> mBack{GEO_Edge::New(*mLine, true)};
};

} // namespace

TEST_F(GEO_EdgeTest, AnEdgeOnACurveIsListedThereAndEachCountsTheOther)
{
    EXPECT_EQ(mEdge->getCurve(), mLine.get());
    EXPECT_FALSE(mEdge->isReverse());
    EXPECT_TRUE(mBack->isReverse());
    EXPECT_EQ(mEdge->getReferenceCount(), 2);
    EXPECT_EQ(mLine->getReferenceCount(), 5); // its maker, two vertices, two edges
    EXPECT_TRUE(mLine->getEdges().exists(*mEdge));
    EXPECT_TRUE(mLine->getEdges().exists(*mBack));
    EXPECT_EQ(mEdge->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object", "GEO_Edge"}));
}

TEST_F(GEO_EdgeTest, ANewEdgeHasNeitherCurveNorPolygon)
{
    const COM_Scoped edge(GEO_Edge::New());
    EXPECT_EQ(edge->getReferenceCount(), 1);
    EXPECT_FALSE(edge->isReverse());
    EXPECT_EQ(edge->getCurve(), nullptr);
    EXPECT_EQ(edge->getPolygon(), nullptr);
    EXPECT_EQ(edge->getStartingVertex(), nullptr);
    EXPECT_EQ(edge->getEndingVertex(), nullptr);
    EXPECT_EQ(edge->getStartingPoint(), nullptr);
    EXPECT_EQ(edge->getEndingPoint(), nullptr);
    EXPECT_EQ(edge->getFollowingEdge(), nullptr);
    EXPECT_EQ(edge->getPrecedentEdge(), nullptr);
    edge->stateChanged();
    EXPECT_EQ(edge->getReferenceCount(), 1);
}

TEST_F(GEO_EdgeTest, AReleasedEdgeLeavesItsCurve)
{
    const long count = mLine->getReferenceCount();
    const unsigned long edges = mLine->getEdges().size();
    {
        const COM_Scoped edge(GEO_Edge::New(*mLine, false));
        EXPECT_EQ(mLine->getReferenceCount(), count + 1);
    }
    EXPECT_EQ(mLine->getReferenceCount(), count);
    EXPECT_EQ(mLine->getEdges().size(), edges);
}

TEST_F(GEO_EdgeTest, AnotherCurveTakesThePlaceOfTheFirst)
{
    const COM_Scoped other(GEO_Line::New());
    mEdge->setCurve(*other);
    EXPECT_FALSE(mLine->getEdges().exists(*mEdge));
    EXPECT_TRUE(other->getEdges().exists(*mEdge));
    EXPECT_EQ(mLine->getReferenceCount(), 4);
    EXPECT_EQ(other->getReferenceCount(), 2);
    EXPECT_EQ(mEdge->getReferenceCount(), 2);
    mEdge->setCurve(*other);
    EXPECT_EQ(mEdge->getReferenceCount(), 2);
    mEdge->resetCurve();
    EXPECT_EQ(other->getReferenceCount(), 1);
    EXPECT_EQ(mEdge->getReferenceCount(), 1);
    EXPECT_EQ(mEdge->getCurve(), nullptr);
}

TEST_F(GEO_EdgeTest, ACurveHeldByItsEdgeAloneGoesWhenTheEdgeIsReset)
{
    const COM_Scoped c(GEO_Vertex::New(2));
    const COM_Scoped edge(GEO_Edge::New());
    edge->setCurve(*COM_Scoped(GEO_Line::New(*mA, *c)));
    EXPECT_NE(GEO_Curve::get(*mA, *c), nullptr);
    edge->resetCurve();
    EXPECT_EQ(GEO_Curve::get(*mA, *c), nullptr);
}

TEST_F(GEO_EdgeTest, TheEndsAreThoseOfTheCurveExchangedWhenReversed)
{
    EXPECT_EQ(mEdge->getStartingVertex(), mA.get());
    EXPECT_EQ(mEdge->getEndingVertex(), mB.get());
    EXPECT_EQ(mEdge->getStartingPoint(), mA->getPoint());
    EXPECT_EQ(mEdge->getEndingPoint(), mB->getPoint());
    EXPECT_EQ(mBack->getStartingVertex(), mB.get());
    EXPECT_EQ(mBack->getEndingVertex(), mA.get());
    EXPECT_EQ(mBack->getStartingPoint(), mB->getPoint());
    EXPECT_EQ(mBack->getEndingPoint(), mA->getPoint());
    mEdge->setReverse(true);
    EXPECT_EQ(mEdge->getStartingVertex(), mB.get());
}

TEST_F(GEO_EdgeTest, APointOfAReversedEdgeIsCountedFromTheOtherEnd)
{
    const COM_Scoped point(GEO_Point::New());
    mEdge->computePoint(0.25, *point);
    EXPECT_EQ(valuesOf(*point), (Values{2.0, 2.5}));
    mBack->computePoint(0.25, *point);
    EXPECT_EQ(valuesOf(*point), (Values{4.0, 3.5}));
}

TEST_F(GEO_EdgeTest, TheDirectionLeadsFromTheEdgesStartToItsEnd)
{
    const COM_Scoped direction(GEO_Point::New());
    mEdge->computeDirection(*direction);
    EXPECT_EQ(valuesOf(*direction), (Values{4.0, 2.0}));
    mBack->computeDirection(*direction);
    EXPECT_EQ(valuesOf(*direction), (Values{-4.0, -2.0}));
    EXPECT_EQ(valuesOf(*mA->getPoint()), (Values{1.0, 2.0}));
}

TEST_F(GEO_EdgeTest, WithoutCurveOrPointNothingIsComputed)
{
    const COM_Scoped edge(GEO_Edge::New());
    const COM_Scoped point(GEO_Point::New(7.0, 8.0));
    const COM_Scoped box(GEO_Box::New(*point));
    edge->computePoint(0.5, *point);
    edge->computeDirection(*point);
    edge->computeBoundingBox(*box);
    mB->resetPoint();
    mEdge->computePoint(0.5, *point);
    mEdge->computeDirection(*point);
    mEdge->computeBoundingBox(*box);
    EXPECT_EQ(valuesOf(*point), (Values{7.0, 8.0}));
    EXPECT_EQ(valuesOf(*box->getMinPoint()), (Values{7.0, 8.0}));
    EXPECT_EQ(valuesOf(*box->getMaxPoint()), (Values{7.0, 8.0}));
}

TEST_F(GEO_EdgeTest, TheBoxIsThatOfTheCurve)
{
    const COM_Scoped box(GEO_Box::New());
    mBack->computeBoundingBox(*box);
    EXPECT_EQ(valuesOf(*box->getMinPoint()), (Values{1.0, 2.0}));
    EXPECT_EQ(valuesOf(*box->getMaxPoint()), (Values{5.0, 4.0}));
}

TEST_F(GEO_EdgeTest, ANewInstanceIsAnEdgeOnTheGivenCurve)
{
    const COM_Scoped edge(mEdge->NewEdgeInstance(*mLine, true));
    EXPECT_EQ(edge->getClassName(), "8GEO_Edge");
    EXPECT_EQ(edge->getCurve(), mLine.get());
    EXPECT_TRUE(edge->isReverse());
    EXPECT_EQ(edge->getReferenceCount(), 2);
}

TEST_F(GEO_EdgeTest, TheTextNamesTheCurveAndTheDirection)
{
    EXPECT_EQ(mEdge->toString(), mEdge->getIdentityString() + " curve:" + mLine->toString());
    EXPECT_EQ(mBack->toString(), mBack->getIdentityString() + " reverse of:" + mLine->toString());
    const COM_Scoped edge(GEO_Edge::New());
    EXPECT_EQ(edge->toString(), edge->getIdentityString() + " curve:NULL");
}

// ---------------------------------------------------------------- place in a polygon

TEST_F(GEO_EdgeTest, SettingThePolygonAppendsTheEdgeAndEachCountsTheOther)
{
    const COM_Scoped polygon(GEO_Polygon::New());
    mEdge->setPolygon(*polygon);
    EXPECT_EQ(mEdge->getPolygon(), polygon.get());
    EXPECT_EQ(polygon->getEdges().size(), 1UL);
    EXPECT_EQ(mEdge->getReferenceCount(), 3);
    EXPECT_EQ(polygon->getReferenceCount(), 2);
    mBack->setPolygon(*polygon);
    EXPECT_EQ(mBack->getIndex(), 1UL);
    mEdge->setPolygon(*polygon);
    EXPECT_EQ(polygon->getEdges().size(), 2UL);
    mEdge->resetPolygon();
    EXPECT_EQ(mEdge->getPolygon(), nullptr);
    EXPECT_EQ(mEdge->getReferenceCount(), 2);
    EXPECT_EQ(polygon->getReferenceCount(), 2);
    EXPECT_EQ(mBack->getIndex(), 0UL);
    mBack->setPolygon(nullptr);
    EXPECT_EQ(polygon->getEdges().size(), 0UL);
    EXPECT_EQ(polygon->getReferenceCount(), 1);
}

TEST_F(GEO_EdgeTest, AnEdgeMovesFromOnePolygonToAnother)
{
    const COM_Scoped first(GEO_Polygon::New());
    const COM_Scoped second(GEO_Polygon::New());
    mEdge->setPolygon(*first);
    mEdge->setPolygon(*second);
    EXPECT_EQ(first->getEdges().size(), 0UL);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getEdges().size(), 1UL);
    EXPECT_EQ(mEdge->getReferenceCount(), 3);
}

TEST_F(GEO_EdgeTest, AnEdgeHeldByItsPolygonAloneMovesToAnother)
{
    const COM_Scoped first(GEO_Polygon::New());
    const COM_Scoped second(GEO_Polygon::New());
    first->cat(*mA);
    first->cat(*mB);
    GEO_Edge* const edge = first->getEdge(0);
    edge->setPolygon(*second);
    EXPECT_EQ(first->getEdges().size(), 0UL);
    ASSERT_EQ(second->getEdges().size(), 1UL);
    EXPECT_EQ(second->getEdge(0), edge);
    EXPECT_EQ(edge->getPolygon(), second.get());
    EXPECT_EQ(edge->getReferenceCount(), 2); // the polygon and the curve
}

TEST_F(GEO_EdgeTest, AChangeIsToldToThePolygon)
{
    const COM_Scoped polygon(CountingPolygon::New());
    mEdge->setPolygon(*polygon);
    polygon->mChanges = 0;
    mEdge->stateChanged();
    EXPECT_EQ(polygon->mChanges, 1);
    mA->setLocation(0.0, 0.0);
    EXPECT_EQ(polygon->mChanges, 2);
}

TEST_F(GEO_EdgeTest, AnotherCurveIsToldToThePolygonOnceAndTheSameOneIsNot)
{
    const COM_Scoped polygon(CountingPolygon::New());
    polygon->addToEdges(*mEdge);
    const COM_Scoped other(GEO_Line::New());
    polygon->mChanges = 0;
    mEdge->setCurve(*other);
    EXPECT_EQ(polygon->mChanges, 1);
    mEdge->setCurve(*other);
    EXPECT_EQ(polygon->mChanges, 1);
    mEdge->resetCurve();
    EXPECT_EQ(polygon->mChanges, 2);
    other->addToEdges(*mEdge);
    EXPECT_EQ(polygon->mChanges, 3);
    other->removeFromEdges(*mEdge);
    EXPECT_EQ(polygon->mChanges, 4);
    EXPECT_EQ(mEdge->getCurve(), nullptr);
}

TEST_F(GEO_EdgeTest, TheParameterOfAReversedEdgeIsCountedFromTheOtherEnd)
{
    EXPECT_EQ(mEdge->getParametersAt(0, 2.0), Values{0.25});
    EXPECT_EQ(mBack->getParametersAt(0, 2.0), Values{0.75});
    EXPECT_EQ(mBack->getParametersAt(1, 2.0), Values{1.0});
    EXPECT_EQ(mEdge->getParametersAt(0, 5.5), Values{});
    EXPECT_EQ(mEdge->getExtent(0), 4.0);
    EXPECT_EQ(mBack->getExtent(1), 2.0);
    const COM_Scoped edge(GEO_Edge::New());
    EXPECT_EQ(edge->getExtent(0), 0.0);
    EXPECT_EQ(edge->getParametersAt(0, 0.0), Values{});
}

TEST_F(GEO_EdgeTest, TheNeighboursOfAnOpenPolygonEndAtItsEnds)
{
    const COM_Scoped polygon(GEO_Polygon::New());
    const COM_Scoped c(GEO_Vertex::New(9.0, 9.0));
    polygon->cat(*mA);
    polygon->cat(*mB);
    polygon->cat(*c);
    GEO_Edge* const first = polygon->getEdge(0);
    GEO_Edge* const last = polygon->getEdge(1);
    EXPECT_EQ(first->getFollowingEdge(), last);
    EXPECT_EQ(last->getPrecedentEdge(), first);
    EXPECT_EQ(first->getPrecedentEdge(), nullptr);
    EXPECT_EQ(last->getFollowingEdge(), nullptr);
}

TEST_F(GEO_EdgeTest, TheLastEdgeOfAClosedPolygonHasTheFirstAsFollower)
{
    const COM_Scoped polygon(GEO_Polygon::New());
    const COM_Scoped c(GEO_Vertex::New(9.0, 9.0));
    polygon->cat(*mA);
    polygon->cat(*mB);
    polygon->cat(*c);
    polygon->close();
    ASSERT_EQ(polygon->getEdges().size(), 3UL);
    EXPECT_EQ(polygon->getEdge(2)->getFollowingEdge(), polygon->getEdge(0));
    EXPECT_EQ(polygon->getEdge(0)->getPrecedentEdge(), polygon->getEdge(2));
    EXPECT_EQ(polygon->getEdge(1)->getFollowingEdge(), polygon->getEdge(2));
    EXPECT_EQ(polygon->getEdge(1)->getPrecedentEdge(), polygon->getEdge(0));
}
