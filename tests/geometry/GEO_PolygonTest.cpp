#include "geometry/GEO_Polygon.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_DelaunayPolygon.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_Volume.h"
#include "support/Tracing.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace {

using Numbers = std::vector<long>;

constexpr long unnumbered = -1;
constexpr long noVertex = -9;

Numbers numbersOf(const COM_Array<GEO_Vertex>& vertices)
{
    Numbers numbers;
    for (unsigned long i = 0; i < vertices.size(); ++i) {
        numbers.push_back(vertices[i].getLocationNumber());
    }
    return numbers;
}

/// The numbers of the vertices in order.
Numbers verticesOf(const GEO_Polygon& polygon)
{
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    polygon.getVertices(*vertices);
    return numbersOf(*vertices);
}

/// Every edge as "start>end", or "start<end" for a reversed one, "." standing for no vertex. Fails when the
/// edges don't know their place.
std::string edgesOf(const GEO_Polygon& polygon)
{
    const auto name = [](const GEO_Vertex* vertex) {
        return vertex != nullptr ? std::to_string(vertex->getLocationNumber()) : ".";
    };
    std::string text;
    for (unsigned long i = 0; i < polygon.getEdges().size(); ++i) {
        const GEO_Edge& edge = polygon.getEdges()[i];
        EXPECT_EQ(edge.getIndex(), i);
        EXPECT_EQ(edge.getPolygon(), &polygon);
        text += (i > 0 ? " " : "") + name(edge.getStartingVertex()) + (edge.isReverse() ? "<" : ">")
                + name(edge.getEndingVertex());
    }
    return text;
}

/// Appends the vertices of these numbers, which the polygon alone holds afterwards.
void append(GEO_Polygon& polygon, std::initializer_list<long> numbers)
{
    for (const long number : numbers) {
        const COM_Scoped vertex(GEO_Vertex::New(number));
        EXPECT_TRUE(polygon.cat(*vertex));
    }
}

/// A chain of nodes as the medium has it, one coordinate each, with numbered lines.
void appendMesh(GEO_Polygon& polygon, long first, long last)
{
    for (long i = first; i <= last; ++i) {
        const COM_Scoped point(GEO_Point::New());
        point->setDimension(1);
        point->setValue(0, static_cast<double>(i) * 0.5);
        const COM_Scoped vertex(GEO_Vertex::New(i));
        vertex->setPoint(*point);
        polygon.cat(*vertex);
    }
    for (unsigned long i = 0; i < polygon.getEdges().size(); ++i) {
        const GEO_Edge& edge = polygon.getEdges()[i];
        edge.getCurve()->setLocationNumber(edge.getStartingVertex()->getLocationNumber());
    }
}

/// Lets the registries come into being, which stay for the rest of the process.
void makeRegistries()
{
    const COM_Scoped a(GEO_Vertex::New(0));
    const COM_Scoped b(GEO_Vertex::New(1));
    const COM_Scoped line(GEO_Line::New(*a, *b));
    line->setLocationNumber(0);
}

/// The list of the objects that `action` has made and left behind, as the trace of living objects tells it.
template <typename Action>
std::string leftBy(Action action)
{
    makeRegistries();
    const std::string printed = tracedBy([&action] {
        action();
        COM_Object::printAllObjects();
    });
    EXPECT_EQ(printed.find("Trying to delete object"), std::string::npos);
    EXPECT_NE(printed.find("from memory"), std::string::npos) << "the trace is not on";
    const std::string title = "Objects in memory:\n";
    return printed.substr(printed.rfind(title) + title.size());
}

class GEO_PolygonTest : public testing::Test
{
protected:
    const COM_Scoped<GEO_Polygon> mPolygon{GEO_Polygon::New()};
};

} // namespace

// ---------------------------------------------------------------- creation

TEST_F(GEO_PolygonTest, ANewPolygonIsEmpty)
{
    EXPECT_EQ(mPolygon->getReferenceCount(), 1);
    EXPECT_EQ(mPolygon->getEdges().size(), 0UL);
    EXPECT_EQ(mPolygon->getFirstVertex(), nullptr);
    EXPECT_EQ(mPolygon->getLastVertex(), nullptr);
    EXPECT_EQ(mPolygon->getFirstPoint(), nullptr);
    EXPECT_EQ(mPolygon->getLastPoint(), nullptr);
    EXPECT_EQ(verticesOf(*mPolygon), Numbers{});
    EXPECT_FALSE(mPolygon->isClosed());
    EXPECT_EQ(mPolygon->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object", "GEO_Shell",
                                        "GEO_Polygon"}));
}

TEST_F(GEO_PolygonTest, TheMeshsPolygonIsAPolygonAndAShell)
{
    const COM_Scoped polygon(GEO_DelaunayPolygon::New());
    EXPECT_TRUE(polygon->instanceOf("GEO_Polygon"));
    EXPECT_TRUE(polygon->instanceOf("GEO_Shell"));
    EXPECT_EQ(polygon->getTypes().back(), "GEO_DelaunayPolygon");
    append(*polygon, {0, 1, 2});
    EXPECT_EQ(edgesOf(*polygon), "0>1 1>2");
    EXPECT_EQ(polygon->getEdge(0)->getClassName(), "8GEO_Edge");
    EXPECT_EQ(polygon->getEdge(0)->getCurve()->getClassName(), "8GEO_Line");
}

TEST_F(GEO_PolygonTest, ANewInstanceIsEmptyAndOfTheSameClass)
{
    append(*mPolygon, {0, 1});
    const COM_Scoped polygon(mPolygon->NewShellInstance());
    EXPECT_EQ(polygon->getClassName(), "11GEO_Polygon");
    EXPECT_EQ(polygon->getEdges().size(), 0UL);
    const COM_Scoped mesh(COM_Scoped(GEO_DelaunayPolygon::New())->NewShellInstance());
    EXPECT_EQ(mesh->getClassName(), "19GEO_DelaunayPolygon");
    EXPECT_EQ(mesh->getReferenceCount(), 1);
}

TEST_F(GEO_PolygonTest, TheCurvesOfAPolygonAreLines)
{
    const COM_Scoped a(GEO_Vertex::New(0));
    const COM_Scoped b(GEO_Vertex::New(1));
    const COM_Scoped open(mPolygon->NewCurve());
    EXPECT_EQ(open->getClassName(), "8GEO_Line");
    EXPECT_EQ(open->getStartingVertex(), nullptr);
    const COM_Scoped line(mPolygon->NewCurve(*a, *b));
    EXPECT_EQ(line->getClassName(), "8GEO_Line");
    EXPECT_EQ(GEO_Curve::get(*a, *b), line.get());
    const COM_Scoped again(mPolygon->NewCurve(*b, *a));
    EXPECT_EQ(again.get(), line.get());
}

// ---------------------------------------------------------------- appending vertices

TEST_F(GEO_PolygonTest, AChainOfOneVertexHasOneEdgeWithoutEnd)
{
    append(*mPolygon, {4});
    EXPECT_EQ(edgesOf(*mPolygon), "4>.");
    EXPECT_EQ(verticesOf(*mPolygon), Numbers{4});
    EXPECT_EQ(mPolygon->getFirstVertex(), GEO_Vertex::get(4));
    EXPECT_EQ(mPolygon->getLastVertex(), GEO_Vertex::get(4));
    EXPECT_FALSE(mPolygon->isClosed());
}

TEST_F(GEO_PolygonTest, TheSecondVertexEndsTheFirstEdgeAndEachFurtherOneAddsAnEdge)
{
    append(*mPolygon, {4, 5});
    EXPECT_EQ(edgesOf(*mPolygon), "4>5");
    append(*mPolygon, {6, 7});
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5>6 6>7");
    EXPECT_EQ(verticesOf(*mPolygon), (Numbers{4, 5, 6, 7}));
}

TEST_F(GEO_PolygonTest, EveryOwnerOfAChainCountsWhatItOwnsAndWhatOwnsIt)
{
    append(*mPolygon, {4, 5, 6});
    EXPECT_EQ(mPolygon->getReferenceCount(), 3); // its maker and two edges
    for (unsigned long i = 0; i < 2; ++i) {
        EXPECT_EQ(mPolygon->getEdge(i)->getReferenceCount(), 2);             // polygon, line
        EXPECT_EQ(mPolygon->getEdge(i)->getCurve()->getReferenceCount(), 3); // edge, two vertices
    }
    EXPECT_EQ(GEO_Vertex::get(4)->getReferenceCount(), 1);
    EXPECT_EQ(GEO_Vertex::get(5)->getReferenceCount(),
              2); // the line that ends, the one that starts
    EXPECT_EQ(GEO_Vertex::get(6)->getReferenceCount(), 1);
}

TEST_F(GEO_PolygonTest, AKnownLineThatRunsTheOtherWayIsUsedBackwards)
{
    const COM_Scoped a(GEO_Vertex::New(5));
    const COM_Scoped b(GEO_Vertex::New(6));
    const COM_Scoped line(GEO_Line::New(*b, *a));
    append(*mPolygon, {4, 5, 6, 7});
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5<6 6>7");
    EXPECT_EQ(mPolygon->getEdge(1)->getCurve(), line.get());
}

TEST_F(GEO_PolygonTest, AVertexGivenTwiceInARowIsJoinedToItself)
{
    append(*mPolygon, {4, 4});
    EXPECT_EQ(edgesOf(*mPolygon), "4>4");
    EXPECT_EQ(verticesOf(*mPolygon), Numbers{4});
    EXPECT_EQ(GEO_Curve::get(*GEO_Vertex::get(4), *GEO_Vertex::get(4)),
              mPolygon->getEdge(0)->getCurve());
    append(*mPolygon, {4});
    EXPECT_EQ(edgesOf(*mPolygon), "4>4 4>4");
    EXPECT_EQ(mPolygon->getEdge(0)->getCurve(), mPolygon->getEdge(1)->getCurve());
}

TEST_F(GEO_PolygonTest, AVertexGivenTwiceLaterIsJoinedToItselfByALineOfItsOwn)
{
    append(*mPolygon, {4, 5, 5, 6});
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5>5 5>6");
    EXPECT_EQ(verticesOf(*mPolygon), (Numbers{4, 5, 6}));
}

TEST_F(GEO_PolygonTest, AnUnnumberedVertexGivenThriceGetsTwoLines)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    mPolygon->cat(*vertex);
    mPolygon->cat(*vertex);
    mPolygon->cat(*vertex);
    ASSERT_EQ(mPolygon->getEdges().size(), 2UL);
    EXPECT_NE(mPolygon->getEdge(0)->getCurve(), mPolygon->getEdge(1)->getCurve());
    EXPECT_EQ(vertex->getReferenceCount(), 5);
}

TEST_F(GEO_PolygonTest, AnAppendedPointBecomesThatOfANewVertex)
{
    const COM_Scoped p(GEO_Point::New(1.0, 2.0));
    const COM_Scoped q(GEO_Point::New(3.0, 4.0));
    EXPECT_TRUE(mPolygon->cat(*p));
    EXPECT_TRUE(mPolygon->cat(*q));
    EXPECT_EQ(mPolygon->getFirstPoint(), p.get());
    EXPECT_EQ(mPolygon->getLastPoint(), q.get());
    EXPECT_EQ(p->getReferenceCount(), 2);
    EXPECT_EQ(verticesOf(*mPolygon), (Numbers{unnumbered, unnumbered}));
}

TEST_F(GEO_PolygonTest, AVertexIsAppendedBehindAnEdgeWithoutCurve)
{
    mPolygon->addToEdges(*COM_Scoped(GEO_Edge::New()));
    EXPECT_EQ(verticesOf(*mPolygon), Numbers{});
    append(*mPolygon, {4, 5});
    EXPECT_EQ(verticesOf(*mPolygon), (Numbers{4, 5}));
}

// ---------------------------------------------------------------- appending curves and polygons

namespace {

struct CurveCase
{
    const char* mName;
    long mFrom, mTo;     ///< The curve's ends; `noVertex` for a missing one.
    const char* mResult; ///< The edges afterwards, behind or before "4>5 5>6".
    bool mFits;
};

void PrintTo(const CurveCase& row, std::ostream* out)
{
    *out << row.mName;
}

std::string nameOf(const testing::TestParamInfo<CurveCase>& info)
{
    return info.param.mName;
}

class GEO_PolygonCurveTest : public testing::TestWithParam<CurveCase>
{};

} // namespace

TEST_P(GEO_PolygonCurveTest, ACurveIsAddedWhereOneOfItsEndsFits)
{
    const COM_Scoped polygon(GEO_Polygon::New());
    append(*polygon, {4, 5, 6});
    const COM_Scoped curve(GEO_Line::New());
    if (GetParam().mFrom != noVertex) {
        curve->setStartingVertex(*COM_Scoped(GEO_Vertex::New(GetParam().mFrom)));
    }
    if (GetParam().mTo != noVertex) {
        curve->setEndingVertex(*COM_Scoped(GEO_Vertex::New(GetParam().mTo)));
    }
    const long count = curve->getReferenceCount();
    EXPECT_EQ(polygon->cat(*curve), GetParam().mFits);
    EXPECT_EQ(edgesOf(*polygon), GetParam().mResult);
    EXPECT_EQ(curve->getReferenceCount(), count + (GetParam().mFits ? 1 : 0));
    EXPECT_EQ(polygon->getReferenceCount(), GetParam().mFits ? 4 : 3);
}

INSTANTIATE_TEST_SUITE_P(
    Table, GEO_PolygonCurveTest,
    testing::Values(CurveCase{"StartAtTheFirstVertex", 4, 9, "9<4 4>5 5>6", true},
                    CurveCase{"StartAtTheLastVertex", 6, 9, "4>5 5>6 6>9", true},
                    CurveCase{"EndAtTheFirstVertex", 9, 4, "9>4 4>5 5>6", true},
                    CurveCase{"EndAtTheLastVertex", 9, 6, "4>5 5>6 6<9", true},
                    // The start is tried before the end, and the front before the back.
                    CurveCase{"FromFirstToLast", 4, 6, "6<4 4>5 5>6", true},
                    CurveCase{"FromLastToFirst", 6, 4, "4>5 5>6 6>4", true},
                    CurveCase{"LoopAtTheFirstVertex", 4, 4, "4<4 4>5 5>6", true},
                    CurveCase{"LoopAtTheLastVertex", 6, 6, "4>5 5>6 6>6", true},
                    CurveCase{"WithoutEnd", 6, noVertex, "4>5 5>6 6>.", true},
                    CurveCase{"WithoutStart", noVertex, 4, ".>4 4>5 5>6", true},
                    CurveCase{"AtAnInnerVertex", 5, 9, "4>5 5>6", false},
                    CurveCase{"ApartFromBothEnds", 8, 9, "4>5 5>6", false},
                    CurveCase{"WithoutVertices", noVertex, noVertex, "4>5 5>6", false}),
    nameOf);

TEST_F(GEO_PolygonTest, ANullCurveIsRefused)
{
    EXPECT_FALSE(mPolygon->cat(static_cast<GEO_Curve*>(nullptr)));
    EXPECT_EQ(mPolygon->getEdges().size(), 0UL);
}

TEST_F(GEO_PolygonTest, AnEmptyPolygonTakesAnyCurveForward)
{
    const COM_Scoped curve(GEO_Line::New());
    EXPECT_TRUE(mPolygon->cat(*curve));
    EXPECT_EQ(edgesOf(*mPolygon), ".>.");
    mPolygon->resetEdges();
    const COM_Scoped line(
        GEO_Line::New(*COM_Scoped(GEO_Vertex::New(9)), *COM_Scoped(GEO_Vertex::New(8))));
    EXPECT_TRUE(mPolygon->cat(line.get()));
    EXPECT_EQ(edgesOf(*mPolygon), "9>8");
}

TEST_F(GEO_PolygonTest, AChainWithoutFirstVertexTakesNoCurveForItsMissingEnd)
{
    EXPECT_TRUE(mPolygon->cat(*COM_Scoped(GEO_Line::New())));
    EXPECT_FALSE(mPolygon->cat(*COM_Scoped(GEO_Line::New())));
    EXPECT_EQ(mPolygon->getEdges().size(), 1UL);
}

TEST_F(GEO_PolygonTest, AnotherPolygonIsAppendedCurveByCurve)
{
    append(*mPolygon, {4, 5});
    const COM_Scoped other(GEO_Polygon::New());
    append(*other, {5, 6, 7});
    EXPECT_TRUE(mPolygon->cat(*other));
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5>6 6>7");
    EXPECT_EQ(edgesOf(*other), "5>6 6>7");
    EXPECT_EQ(mPolygon->getEdge(1)->getCurve(), other->getEdge(0)->getCurve());
    EXPECT_EQ(other->getEdge(0)->getCurve()->getReferenceCount(), 4);
}

TEST_F(GEO_PolygonTest, APolygonThatFitsNowhereIsNotAppended)
{
    append(*mPolygon, {4, 5});
    const COM_Scoped other(GEO_Polygon::New());
    append(*other, {8, 9});
    EXPECT_FALSE(mPolygon->cat(*other));
    EXPECT_EQ(edgesOf(*mPolygon), "4>5");
}

TEST_F(GEO_PolygonTest, APolygonAppendedToItselfComesToAnEnd)
{
    append(*mPolygon, {4, 5, 6});
    mPolygon->cat(*mPolygon);
    EXPECT_GE(mPolygon->getEdges().size(), 2UL);
    EXPECT_LE(mPolygon->getEdges().size(), 4UL);
    edgesOf(*mPolygon); // every edge knows its place
}

// ---------------------------------------------------------------- edges

TEST_F(GEO_PolygonTest, AnIndexInsertsAndMinusOneOrOneBeyondTheEndAppends)
{
    const COM_Scoped a(GEO_Vertex::New(0));
    const auto add = [this, &a](long number, long index) {
        const COM_Scoped vertex(GEO_Vertex::New(number));
        const COM_Scoped line(GEO_Line::New(*a, *vertex));
        mPolygon->addToCurves(*line, false, index);
        EXPECT_EQ(line->getReferenceCount(), 4);
    };
    add(1, -1);
    add(2, 0);
    EXPECT_EQ(edgesOf(*mPolygon), "0>2 0>1");
    add(3, 1);
    EXPECT_EQ(edgesOf(*mPolygon), "0>2 0>3 0>1");
    add(4, 3);
    EXPECT_EQ(edgesOf(*mPolygon), "0>2 0>3 0>1 0>4");
    add(5, 100);
    add(6, -1);
    EXPECT_EQ(edgesOf(*mPolygon), "0>2 0>3 0>1 0>4 0>5 0>6");
    const COM_Scoped line(GEO_Line::New(*a, *COM_Scoped(GEO_Vertex::New(7))));
    mPolygon->addToCurves(*line, true);
    EXPECT_EQ(edgesOf(*mPolygon), "0>2 0>3 0>1 0>4 0>5 0>6 7<0");
}

TEST_F(GEO_PolygonTest, AnEdgeHeldAlreadyStaysInItsPlace)
{
    append(*mPolygon, {4, 5, 6});
    mPolygon->addToEdges(*mPolygon->getEdge(1), 0);
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5>6");
    EXPECT_EQ(mPolygon->getEdge(1)->getReferenceCount(), 2);
    EXPECT_EQ(mPolygon->getReferenceCount(), 3);
}

TEST_F(GEO_PolygonTest, AnEdgeOfAnotherPolygonLeavesItsOld)
{
    append(*mPolygon, {4, 5, 6});
    const COM_Scoped other(GEO_Polygon::New());
    const COM_Scoped edge(mPolygon->getEdge(0));
    edge->addReference(nullptr);
    other->addToEdges(*edge);
    EXPECT_EQ(edgesOf(*mPolygon), "5>6");
    EXPECT_EQ(edgesOf(*other), "4>5");
    EXPECT_EQ(edge->getReferenceCount(), 3);
    EXPECT_EQ(mPolygon->getReferenceCount(), 2);
    EXPECT_EQ(other->getReferenceCount(), 2);
}

TEST_F(GEO_PolygonTest, AnEdgeHeldByAnotherPolygonAloneSurvivesTheMove)
{
    append(*mPolygon, {4, 5, 6});
    const COM_Scoped other(GEO_Polygon::New());
    other->addToEdges(*mPolygon->getEdge(0));
    EXPECT_EQ(edgesOf(*mPolygon), "5>6");
    EXPECT_EQ(edgesOf(*other), "4>5");
}

TEST_F(GEO_PolygonTest, ARemovedEdgeIsReleasedAndTheOnesBehindAreNumberedAnew)
{
    append(*mPolygon, {4, 5, 6, 7});
    const COM_Scoped edge(mPolygon->getEdge(1));
    edge->addReference(nullptr);
    mPolygon->removeFromEdges(*edge);
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 6>7");
    EXPECT_EQ(edge->getPolygon(), nullptr);
    EXPECT_EQ(edge->getReferenceCount(), 2);
    EXPECT_EQ(mPolygon->getReferenceCount(), 3);
    mPolygon->removeFromEdges(*edge);
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 6>7");
}

TEST_F(GEO_PolygonTest, AnEdgeIsRemovedByItsIndexAndNoneBeyondTheEnd)
{
    append(*mPolygon, {4, 5, 6});
    EXPECT_FALSE(mPolygon->removeEdgeAtIndex(2));
    EXPECT_TRUE(mPolygon->removeEdgeAtIndex(0));
    EXPECT_EQ(edgesOf(*mPolygon), "5>6");
    EXPECT_EQ(GEO_Vertex::get(4), nullptr);
    EXPECT_TRUE(mPolygon->removeEdgeAtIndex(0));
    EXPECT_FALSE(mPolygon->removeEdgeAtIndex(0));
    EXPECT_EQ(GEO_Vertex::get(5), nullptr);
    EXPECT_EQ(mPolygon->getReferenceCount(), 1);
}

TEST_F(GEO_PolygonTest, RemovingACurveRemovesAllItsEdges)
{
    append(*mPolygon, {4, 5, 4, 5, 6});
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5<4 4>5 5>6");
    GEO_Curve* const line = mPolygon->getEdge(0)->getCurve();
    mPolygon->removeFromCurves(*line);
    EXPECT_EQ(edgesOf(*mPolygon), "5>6");
    const COM_Scoped foreign(GEO_Line::New());
    mPolygon->removeFromCurves(*foreign);
    EXPECT_EQ(edgesOf(*mPolygon), "5>6");
    EXPECT_EQ(GEO_Vertex::get(4), nullptr);
}

TEST_F(GEO_PolygonTest, ResettingTheEdgesReleasesThemAll)
{
    append(*mPolygon, {4, 5, 6});
    const COM_Scoped vertex(GEO_Vertex::New(5));
    mPolygon->resetEdges();
    EXPECT_EQ(mPolygon->getEdges().size(), 0UL);
    EXPECT_EQ(mPolygon->getReferenceCount(), 1);
    EXPECT_EQ(GEO_Vertex::get(4), nullptr);
    EXPECT_EQ(GEO_Vertex::get(6), nullptr);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    append(*mPolygon, {5, 6});
    EXPECT_EQ(edgesOf(*mPolygon), "5>6");
}

namespace {

/// A polygon that counts the changes it is told of.
class CountingPolygon : public GEO_Polygon
{
    COM_CLASS(CountingPolygon)
public:
    void stateChanged() override { ++mChanges; }
    int take() { return std::exchange(mChanges, 0); }

protected:
    CountingPolygon() { COM_TYPE(CountingPolygon); }
    ~CountingPolygon() override = default;

private:
    int mChanges = 0;
};

} // namespace

TEST_F(GEO_PolygonTest, EachRemovalIsToldOnceAndNoneWhereNothingIsRemoved)
{
    const COM_Scoped polygon(CountingPolygon::New());
    polygon->resetEdges();
    EXPECT_EQ(polygon->take(), 0);
    append(*polygon, {4, 5, 4, 5, 6, 7, 8});
    EXPECT_GT(polygon->take(), 0);
    EXPECT_TRUE(polygon->removeEdgeAtIndex(5));
    EXPECT_EQ(polygon->take(), 1);
    EXPECT_FALSE(polygon->removeEdgeAtIndex(5));
    EXPECT_EQ(polygon->take(), 0);
    polygon->removeFromEdges(*polygon->getEdge(4));
    EXPECT_EQ(polygon->take(), 1);
    polygon->removeFromEdges(*COM_Scoped(GEO_Edge::New()));
    polygon->removeFromCurves(*COM_Scoped(GEO_Line::New()));
    EXPECT_EQ(polygon->take(), 0);
    polygon->removeFromCurves(*polygon->getEdge(0)->getCurve());
    EXPECT_EQ(edgesOf(*polygon), "5>6");
    EXPECT_EQ(polygon->take(), 1);
    append(*polygon, {7, 8});
    polygon->take();
    polygon->resetEdges();
    EXPECT_EQ(polygon->take(), 1);
}

TEST_F(GEO_PolygonTest, AnEdgeThatMovesToAnotherPolygonIsToldToBoth)
{
    const COM_Scoped from(CountingPolygon::New());
    const COM_Scoped to(CountingPolygon::New());
    append(*from, {4, 5, 6});
    from->take();
    to->addToEdges(*from->getEdge(1));
    EXPECT_EQ(from->take(), 1);
    EXPECT_EQ(to->take(), 1);
    EXPECT_EQ(edgesOf(*from), "4>5");
    EXPECT_EQ(edgesOf(*to), "5>6");
}

// ---------------------------------------------------------------- looking

TEST_F(GEO_PolygonTest, VerticesAndPointsReplaceWhatTheArrayHeld)
{
    append(*mPolygon, {4, 5});
    GEO_Vertex::get(4)->setLocation(1.0, 2.0);
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    const COM_Scoped other(GEO_Vertex::New(9));
    vertices->add(*other);
    mPolygon->getVertices(*vertices);
    EXPECT_EQ(numbersOf(*vertices), (Numbers{4, 5}));
    EXPECT_EQ(other->getReferenceCount(), 1);
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    points->add(COM_Scoped(GEO_Point::New()).get());
    mPolygon->getPoints(*points);
    EXPECT_EQ(points->toString(), "0:(1.000000e+00,2.000000e+00)\n"); // vertex 5 has none
    GEO_Vertex::get(5)->setLocation(3.0, 4.0);
    mPolygon->getPoints(*points);
    EXPECT_EQ(points->toString(), "0:(1.000000e+00,2.000000e+00)\n1:(3.000000e+00,4.000000e+00)\n");
    EXPECT_EQ((*points)[0].getReferenceCount(), 2);
}

TEST_F(GEO_PolygonTest, TheVerticesOfEdgesThatDoNotMeetAreAllGiven)
{
    append(*mPolygon, {4, 5, 6, 7});
    mPolygon->removeEdgeAtIndex(1);
    EXPECT_EQ(verticesOf(*mPolygon), (Numbers{4, 5, 6, 7}));
}

TEST_F(GEO_PolygonTest, AClosedChainComesBackToItsFirstVertex)
{
    append(*mPolygon, {4, 5, 6});
    EXPECT_FALSE(mPolygon->isClosed());
    mPolygon->close();
    EXPECT_TRUE(mPolygon->isClosed());
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5>6 6>4");
    EXPECT_EQ(verticesOf(*mPolygon), (Numbers{4, 5, 6, 4}));
    mPolygon->close();
    EXPECT_EQ(mPolygon->getEdges().size(), 3UL);
}

TEST_F(GEO_PolygonTest, AChainOfTwoVerticesIsClosedByItsOwnLineBackwards)
{
    append(*mPolygon, {4, 5});
    mPolygon->close();
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5<4");
    EXPECT_EQ(mPolygon->getEdge(0)->getCurve(), mPolygon->getEdge(1)->getCurve());
    EXPECT_TRUE(mPolygon->isClosed());
}

TEST_F(GEO_PolygonTest, AChainOfOneVertexOrNoneIsNotClosed)
{
    mPolygon->close();
    EXPECT_EQ(mPolygon->getEdges().size(), 0UL);
    append(*mPolygon, {4});
    mPolygon->close();
    EXPECT_EQ(edgesOf(*mPolygon), "4>.");
}

TEST_F(GEO_PolygonTest, AReversedChainRunsBackwardsOnTheSameCurves)
{
    append(*mPolygon, {4, 5, 6});
    const GEO_Curve* const first = mPolygon->getEdge(0)->getCurve();
    mPolygon->reverse();
    EXPECT_EQ(edgesOf(*mPolygon), "6<5 5<4");
    EXPECT_EQ(mPolygon->getEdge(1)->getCurve(), first);
    EXPECT_EQ(verticesOf(*mPolygon), (Numbers{6, 5, 4}));
    mPolygon->reverse();
    EXPECT_EQ(edgesOf(*mPolygon), "4>5 5>6");
    EXPECT_EQ(mPolygon->getReferenceCount(), 3);
    EXPECT_EQ(mPolygon->getEdge(0)->getReferenceCount(), 2);
}

TEST_F(GEO_PolygonTest, AReversedChainGrowsAtItsNewEnd)
{
    append(*mPolygon, {4, 5, 6});
    mPolygon->reverse();
    append(*mPolygon, {3});
    EXPECT_EQ(edgesOf(*mPolygon), "6<5 5<4 4>3");
}

TEST_F(GEO_PolygonTest, TheBarycentreIsTheMeanOfThePoints)
{
    const COM_Scoped point(GEO_Point::New(7.0, 7.0));
    mPolygon->computeIsoBarycenter(*point);
    EXPECT_EQ(point->toString(), "(7.000000e+00,7.000000e+00)");
    mPolygon->cat(*COM_Scoped(GEO_Point::New(1.0, 1.0)));
    mPolygon->computeIsoBarycenter(*point);
    EXPECT_EQ(point->toString(), "(1.000000e+00,1.000000e+00)");
    mPolygon->cat(*COM_Scoped(GEO_Point::New(4.0, 2.0)));
    mPolygon->cat(*COM_Scoped(GEO_Point::New(7.0, 9.0)));
    mPolygon->computeIsoBarycenter(*point);
    EXPECT_EQ(point->toString(), "(4.000000e+00,4.000000e+00)");
}

TEST_F(GEO_PolygonTest, TheBoxHoldsTheBoxesOfAllEdges)
{
    mPolygon->cat(*COM_Scoped(GEO_Point::New(1.0, 1.0)));
    mPolygon->cat(*COM_Scoped(GEO_Point::New(4.0, 2.0)));
    mPolygon->cat(*COM_Scoped(GEO_Point::New(2.0, 9.0)));
    const COM_Scoped box(GEO_Box::New());
    mPolygon->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), " Min:(1.000000e+00,1.000000e+00)\n"
                               " Max:(4.000000e+00,9.000000e+00)\n");
}

TEST_F(GEO_PolygonTest, WithoutAnEdgeThatHasABoxTheBoxStaysAsItIs)
{
    const COM_Scoped box(GEO_Box::New());
    box->setTo(7.0);
    const std::string before = box->toString();
    mPolygon->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), before);
    append(*mPolygon, {4});
    GEO_Vertex::get(4)->setLocation(5.0, 5.0);
    mPolygon->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), before);
}

TEST_F(GEO_PolygonTest, AnEdgeWithoutBoxDoesNotDrawTheBoxToTheOrigin)
{
    mPolygon->cat(*COM_Scoped(GEO_Point::New(1.0, 1.0)));
    mPolygon->cat(*COM_Scoped(GEO_Point::New(4.0, 2.0)));
    mPolygon->addToCurves(*COM_Scoped(GEO_Line::New()), false);
    mPolygon->addToEdges(*COM_Scoped(GEO_Edge::New()), 0);
    const COM_Scoped box(GEO_Box::New());
    mPolygon->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), " Min:(1.000000e+00,1.000000e+00)\n"
                               " Max:(4.000000e+00,2.000000e+00)\n");
}

// ---------------------------------------------------------------- lifetimes

TEST(GEO_PolygonLifetime, TheTraceTellsWhatIsLeft)
{
    const GEO_Vertex* vertex = nullptr;
    EXPECT_EQ(leftBy([&vertex] {
                  const COM_Scoped polygon(GEO_Polygon::New());
                  append(*polygon, {4, 5, 6});
                  vertex = GEO_Vertex::New(5);
              }),
              "10GEO_Vertex\t 1\n9COM_ArrayI9GEO_CurveE\t 2\n");
    tracedBy([vertex] { vertex->Delete(); }); // so that it leaves the trace's table
    EXPECT_EQ(GEO_Vertex::get(5), nullptr);
}

TEST(GEO_PolygonLifetime, AReleasedPolygonLeavesNothingBehind)
{
    EXPECT_EQ(leftBy([] {
                  const COM_Scoped polygon(GEO_DelaunayPolygon::New());
                  appendMesh(*polygon, 0, 20);
                  EXPECT_NE(GEO_Vertex::get(20), nullptr);
                  EXPECT_NE(GEO_Curve::get(19), nullptr);
              }),
              "");
    for (unsigned long i = 0; i <= 20; ++i) {
        EXPECT_EQ(GEO_Vertex::get(i), nullptr) << i;
        EXPECT_EQ(GEO_Curve::get(i), nullptr) << i;
    }
    for (long i = 0; i < 20; ++i) {
        const COM_Scoped a(GEO_Vertex::New(i));
        const COM_Scoped b(GEO_Vertex::New(i + 1));
        EXPECT_EQ(GEO_Curve::get(*a, *b), nullptr) << i;
    }
}

TEST(GEO_PolygonLifetime, AClosedChainWithLoopsAndKnownLinesLeavesNothingBehind)
{
    EXPECT_EQ(leftBy([] {
                  const COM_Scoped polygon(GEO_Polygon::New());
                  append(*polygon, {4, 4, 5, 4, 5, 6, 6, 6, 7});
                  polygon->close();
                  polygon->reverse();
              }),
              "");
    EXPECT_EQ(GEO_Vertex::get(4), nullptr);
}

TEST(GEO_PolygonLifetime, TwoPolygonsShareAVertexUntilTheLastOneIsGone)
{
    auto* const first = GEO_Polygon::New();
    auto* const second = GEO_Polygon::New();
    append(*first, {0, 1, 2});
    append(*second, {2, 3, 4});
    const unsigned long shared = GEO_Vertex::get(2)->getIdentityNumber();
    EXPECT_EQ(GEO_Vertex::get(2)->getReferenceCount(), 2);
    EXPECT_EQ(GEO_Vertex::get(2)->getNumberOfCurves(), 2UL);
    first->Delete();
    EXPECT_EQ(GEO_Vertex::get(1), nullptr);
    ASSERT_NE(GEO_Vertex::get(2), nullptr);
    EXPECT_EQ(GEO_Vertex::get(2)->getIdentityNumber(), shared);
    EXPECT_EQ(GEO_Vertex::get(2)->getNumberOfCurves(), 1UL);
    EXPECT_EQ(verticesOf(*second), (Numbers{2, 3, 4}));
    second->Delete();
    EXPECT_EQ(GEO_Vertex::get(2), nullptr);
}

TEST(GEO_PolygonLifetime, TwoPolygonsShareALineUntilTheLastOneIsGone)
{
    auto* const first = GEO_Polygon::New();
    append(*first, {0, 1, 2});
    const unsigned long line = first->getEdge(1)->getCurve()->getIdentityNumber();
    auto* const second = GEO_Polygon::New();
    append(*second, {3, 2, 1});
    EXPECT_EQ(second->getEdge(1)->getCurve()->getIdentityNumber(), line);
    EXPECT_EQ(edgesOf(*second), "3>2 2<1");
    first->Delete();
    EXPECT_EQ(edgesOf(*second), "3>2 2<1");
    EXPECT_EQ(GEO_Curve::get(*GEO_Vertex::get(1), *GEO_Vertex::get(2))->getIdentityNumber(), line);
    EXPECT_EQ(GEO_Vertex::get(0), nullptr);
    second->Delete();
    EXPECT_EQ(GEO_Vertex::get(1), nullptr);
}

TEST(GEO_PolygonLifetime, AChainBuiltAgainWhileTheOldOneLivesUsesItsVertices)
{
    const COM_Scoped old(GEO_DelaunayPolygon::New());
    appendMesh(*old, 0, 5);
    const COM_Scoped again(GEO_DelaunayPolygon::New());
    appendMesh(*again, 0, 5);
    for (unsigned long i = 0; i < 5; ++i) {
        EXPECT_EQ(old->getEdge(i)->getStartingVertex(), again->getEdge(i)->getStartingVertex());
    }
    EXPECT_EQ(verticesOf(*again), (Numbers{0, 1, 2, 3, 4, 5}));
}

TEST(GEO_PolygonLifetime, TenChainsOfDifferentSizesOneAfterTheOtherLeaveNothingBehind)
{
    EXPECT_EQ(leftBy([] {
                  for (const long n : {12, 3, 40, 1, 25, 2, 18, 33, 7, 12}) {
                      {
                          const COM_Scoped polygon(GEO_DelaunayPolygon::New());
                          const COM_Scoped volume(GEO_Volume::New());
                          volume->addToShells(*polygon);
                          appendMesh(*polygon, 0, n - 1);
                          EXPECT_EQ(verticesOf(*polygon).size(), static_cast<unsigned long>(n));
                          EXPECT_EQ(verticesOf(*polygon).back(), n - 1);
                          EXPECT_EQ(GEO_Vertex::get(static_cast<unsigned long>(n)), nullptr);
                          for (long i = 0; i + 1 < n; ++i) {
                              const GEO_Edge& edge =
                                  polygon->getEdges()[static_cast<unsigned long>(i)];
                              EXPECT_EQ(edge.getCurve()->getLocationNumber(), i);
                              EXPECT_EQ(edge.getCurve()->getLength(), 0.5);
                              EXPECT_FALSE(edge.isReverse());
                          }
                      }
                      EXPECT_EQ(GEO_Vertex::get(0), nullptr);
                      EXPECT_EQ(GEO_Curve::get(0), nullptr);
                  }
              }),
              "");
}

TEST(GEO_PolygonLifetime, AVertexThatSomebodyHoldsOutlivesTheChainAndStandsInTheNextOne)
{
    const GEO_Vertex* kept = nullptr;
    {
        const COM_Scoped polygon(GEO_DelaunayPolygon::New());
        appendMesh(*polygon, 0, 5);
        kept = GEO_Vertex::New(3);
    }
    EXPECT_EQ(GEO_Vertex::get(2), nullptr);
    EXPECT_EQ(GEO_Vertex::get(3), kept);
    EXPECT_EQ(kept->getReferenceCount(), 1);
    EXPECT_EQ(kept->getNumberOfCurves(), 0UL);
    EXPECT_NE(kept->getPoint(), nullptr);
    {
        const COM_Scoped polygon(GEO_DelaunayPolygon::New());
        appendMesh(*polygon, 0, 8);
        EXPECT_EQ(polygon->getEdge(3)->getStartingVertex(), kept);
        EXPECT_EQ(kept->getReferenceCount(), 3);
    }
    EXPECT_EQ(kept->getReferenceCount(), 1);
    kept->Delete();
    EXPECT_EQ(GEO_Vertex::get(3), nullptr);
}

TEST(GEO_PolygonLifetime, ALineThatSomebodyHoldsKeepsItsTwoVertices)
{
    const GEO_Curve* line = nullptr;
    {
        const COM_Scoped polygon(GEO_DelaunayPolygon::New());
        appendMesh(*polygon, 0, 5);
        line = polygon->getEdge(2)->getCurve();
        line->addReference(nullptr);
    }
    EXPECT_EQ(line->getEdges().size(), 0UL);
    EXPECT_EQ(line->getReferenceCount(), 3);
    EXPECT_EQ(GEO_Curve::get(2), line);
    EXPECT_EQ(line->getStartingVertex(), GEO_Vertex::get(2));
    EXPECT_EQ(line->getEndingVertex(), GEO_Vertex::get(3));
    EXPECT_EQ(GEO_Vertex::get(1), nullptr);
    line->Delete();
    EXPECT_EQ(GEO_Vertex::get(2), nullptr);
    EXPECT_EQ(GEO_Curve::get(2), nullptr);
}

TEST(GEO_PolygonLifetime, AnEdgeThatSomebodyHoldsOutlivesItsPolygon)
{
    const GEO_Edge* edge = nullptr;
    {
        const COM_Scoped polygon(GEO_Polygon::New());
        append(*polygon, {0, 1, 2});
        edge = polygon->getEdge(1);
        edge->addReference(nullptr);
    }
    EXPECT_EQ(edge->getPolygon(), nullptr);
    EXPECT_EQ(edge->getReferenceCount(), 2);
    EXPECT_EQ(edge->getStartingVertex(), GEO_Vertex::get(1));
    EXPECT_EQ(GEO_Vertex::get(0), nullptr);
    edge->Delete();
    EXPECT_EQ(GEO_Vertex::get(1), nullptr);
}

TEST(GEO_PolygonLifetime, ALongChainIsBuiltAndReleasedWithoutDeepCalls)
{
    // Were each edge to release its neighbour, a chain this long would end the stack.
    constexpr long n = 50000;
    {
        const COM_Scoped polygon(GEO_DelaunayPolygon::New());
        appendMesh(*polygon, 0, n - 1);
        EXPECT_EQ(polygon->getEdges().size(), static_cast<unsigned long>(n - 1));
        EXPECT_EQ(polygon->getReferenceCount(), n);
    }
    EXPECT_EQ(GEO_Vertex::get(0), nullptr);
    EXPECT_EQ(GEO_Vertex::get(n - 1), nullptr);
}
