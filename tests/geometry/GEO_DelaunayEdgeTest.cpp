#include "geometry/GEO_DelaunayEdge.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_DelaunayPolygon.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_VoronoiEdge.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// Two pairs of edges without curves.
class GEO_DelaunayEdgeTest : public testing::Test
{
protected:
    /// Counts of both Delaunay edges, then of both Voronoi edges.
    std::vector<long> counts() const
    {
        return {mD1->getReferenceCount(), mD2->getReferenceCount(), mV1->getReferenceCount(),
                mV2->getReferenceCount()};
    }

    const COM_Scoped<GEO_DelaunayEdge> mD1{GEO_DelaunayEdge::New()};
    const COM_Scoped<GEO_DelaunayEdge> mD2{GEO_DelaunayEdge::New()};
    const COM_Scoped<GEO_VoronoiEdge> mV1{GEO_VoronoiEdge::New()};
    const COM_Scoped<GEO_VoronoiEdge> mV2{GEO_VoronoiEdge::New()};
};

using Counts = std::vector<long>;

} // namespace

TEST_F(GEO_DelaunayEdgeTest, NewEdgesAreNotLinked)
{
    EXPECT_EQ(mD1->getVoronoiEdge(), nullptr);
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
    EXPECT_EQ(mD1->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object",
                                                         "GEO_Edge", "GEO_DelaunayEdge"}));
    EXPECT_EQ(mV1->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object",
                                                         "GEO_Edge", "GEO_VoronoiEdge"}));
}

TEST_F(GEO_DelaunayEdgeTest, AnEdgeOnACurveRunsAsTold)
{
    const COM_Scoped a(GEO_Vertex::New(0));
    const COM_Scoped b(GEO_Vertex::New(1));
    const COM_Scoped line(GEO_Line::New(*a, *b));
    const COM_Scoped delaunay(GEO_DelaunayEdge::New(*line, true));
    const COM_Scoped voronoi(GEO_VoronoiEdge::New(*line, false));
    EXPECT_EQ(delaunay->getStartingVertex(), b.get());
    EXPECT_EQ(voronoi->getStartingVertex(), a.get());
    EXPECT_EQ(delaunay->getReferenceCount(), 2);
    EXPECT_EQ(voronoi->getReferenceCount(), 2);
    EXPECT_EQ(line->getEdges().size(), 2UL);
}

TEST_F(GEO_DelaunayEdgeTest, ANewInstanceIsOfTheSameClass)
{
    const COM_Scoped line(GEO_Line::New());
    const COM_Scoped delaunay(mD1->NewEdgeInstance(*line, true));
    EXPECT_EQ(delaunay->getClassName(), "16GEO_DelaunayEdge");
    EXPECT_EQ(delaunay->getCurve(), line.get());
    EXPECT_TRUE(delaunay->isReverse());
    const COM_Scoped voronoi(mV1->NewEdgeInstance(*line, false));
    EXPECT_EQ(voronoi->getClassName(), "15GEO_VoronoiEdge");
    EXPECT_EQ(voronoi->getCurve(), line.get());
    EXPECT_FALSE(voronoi->isReverse());
}

TEST_F(GEO_DelaunayEdgeTest, LinkingADelaunayEdgeMakesTheVoronoiEdgePointAtIt)
{
    mD1->setVoronoiEdge(*mV1);
    EXPECT_EQ(mD1->getVoronoiEdge(), mV1.get());
    EXPECT_EQ(mV1->getDelaunayEdge(), mD1.get());
    EXPECT_EQ(counts(), (Counts{2, 1, 2, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, LinkingAVoronoiEdgeMakesTheDelaunayEdgePointAtIt)
{
    mV1->setDelaunayEdge(*mD1);
    EXPECT_EQ(mD1->getVoronoiEdge(), mV1.get());
    EXPECT_EQ(mV1->getDelaunayEdge(), mD1.get());
    EXPECT_EQ(counts(), (Counts{2, 1, 2, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, LinkingTheSamePairAgainChangesNothing)
{
    mD1->setVoronoiEdge(*mV1);
    mD1->setVoronoiEdge(*mV1);
    mV1->setDelaunayEdge(*mD1);
    EXPECT_EQ(counts(), (Counts{2, 1, 2, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, ResettingTheDelaunaySideClearsBoth)
{
    mD1->setVoronoiEdge(*mV1);
    mD1->resetVoronoiEdge();
    EXPECT_EQ(mD1->getVoronoiEdge(), nullptr);
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
    mD1->resetVoronoiEdge();
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, ResettingTheVoronoiSideClearsBoth)
{
    mD1->setVoronoiEdge(*mV1);
    mV1->resetDelaunayEdge();
    EXPECT_EQ(mD1->getVoronoiEdge(), nullptr);
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, SettingNullIsAReset)
{
    mD1->setVoronoiEdge(*mV1);
    mD1->setVoronoiEdge(nullptr);
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    mV1->setDelaunayEdge(*mD1);
    mV1->setDelaunayEdge(nullptr);
    EXPECT_EQ(mD1->getVoronoiEdge(), nullptr);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, AnotherPartnerFreesTheOldOne)
{
    mD1->setVoronoiEdge(*mV1);
    mD1->setVoronoiEdge(*mV2);
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    EXPECT_EQ(mV2->getDelaunayEdge(), mD1.get());
    EXPECT_EQ(counts(), (Counts{2, 1, 1, 2}));
}

TEST_F(GEO_DelaunayEdgeTest, LinkingAcrossTwoPairsLeavesBothLeftOversFree)
{
    mD1->setVoronoiEdge(*mV1);
    mV2->setDelaunayEdge(*mD2);
    mD1->setVoronoiEdge(*mV2);
    EXPECT_EQ(mD1->getVoronoiEdge(), mV2.get());
    EXPECT_EQ(mV2->getDelaunayEdge(), mD1.get());
    EXPECT_EQ(mD2->getVoronoiEdge(), nullptr);
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    EXPECT_EQ(counts(), (Counts{2, 1, 1, 2}));
    mV1->setDelaunayEdge(*mD1);
    EXPECT_EQ(mD1->getVoronoiEdge(), mV1.get());
    EXPECT_EQ(mV2->getDelaunayEdge(), nullptr);
    EXPECT_EQ(counts(), (Counts{2, 1, 2, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, NeitherEdgeKeepsTheOtherAlive)
{
    mD1->setVoronoiEdge(*COM_Scoped(GEO_VoronoiEdge::New()));
    EXPECT_EQ(mD1->getVoronoiEdge(), nullptr);
    mV1->setDelaunayEdge(*COM_Scoped(GEO_DelaunayEdge::New()));
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
}

TEST_F(GEO_DelaunayEdgeTest, AReleasedPairLeavesTheCurvesOfBoth)
{
    const COM_Scoped line(GEO_Line::New());
    const COM_Scoped dual(GEO_Line::New());
    {
        const COM_Scoped delaunay(GEO_DelaunayEdge::New(*line, false));
        const COM_Scoped voronoi(GEO_VoronoiEdge::New(*dual, false));
        delaunay->setVoronoiEdge(*voronoi);
        EXPECT_EQ(delaunay->getReferenceCount(), 3);
        EXPECT_EQ(voronoi->getReferenceCount(), 3);
    }
    EXPECT_EQ(line->getEdges().size(), 0UL);
    EXPECT_EQ(dual->getEdges().size(), 0UL);
    EXPECT_EQ(line->getReferenceCount(), 1);
    EXPECT_EQ(dual->getReferenceCount(), 1);
}

TEST_F(GEO_DelaunayEdgeTest, APolygonKeepsItsLinkedEdge)
{
    const COM_Scoped polygon(GEO_DelaunayPolygon::New());
    {
        const COM_Scoped line(GEO_Line::New());
        const COM_Scoped edge(GEO_DelaunayEdge::New(*line, false));
        polygon->addToEdges(*edge);
        edge->setVoronoiEdge(*mV1);
    }
    ASSERT_EQ(polygon->getEdges().size(), 1UL);
    EXPECT_EQ(mV1->getDelaunayEdge(), polygon->getEdge(0));
    polygon->resetEdges();
    EXPECT_EQ(mV1->getDelaunayEdge(), nullptr);
    EXPECT_EQ(mV1->getReferenceCount(), 1);
}
