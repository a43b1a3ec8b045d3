#include "quorvex/QV_Milieu.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Polygon.h"
#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_Volume.h"
#include "support/Description.h"
#include "support/MeshNumbers.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;
/// A medium without a mesh of its own.
class TestMilieu : public QV_Milieu
{
    COM_CLASS(TestMilieu)
public:
    void create() override {}

protected:
    TestMilieu() { COM_TYPE(TestMilieu); }
    ~TestMilieu() override = default;
};

/// A shell that is no polygon.
class TestShell : public GEO_Shell
{
    COM_CLASS(TestShell)
public:
    TestShell* NewShellInstance() const override { return TestShell::New(); }
    void computeBoundingBox(GEO_Box& /*box*/) const override {}
    void move(const GEO_Motion& /*motion*/, Moved& /*moved*/) override {}

protected:
    TestShell() { COM_TYPE(TestShell); }
    ~TestShell() override = default;
};

class QV_MilieuTest : public testing::Test
{
protected:
    /// Appends vertices of those numbers, each at the place of its number, and numbers the lines by their
    /// starts.
    static void append(GEO_Polygon& polygon, const Numbers& numbers)
    {
        for (const long number : numbers) {
            const COM_Scoped vertex(GEO_Vertex::New(number));
            if (vertex->getPoint() == nullptr) {
                vertex->setLocation(static_cast<double>(number), 0.0);
            }
            polygon.cat(*vertex);
        }
        for (unsigned long i = 0; i < polygon.getEdges().size(); ++i) {
            const GEO_Edge& edge = *polygon.getEdge(i);
            if (edge.getEndingVertex() != nullptr) {
                edge.getCurve()->setLocationNumber(edge.getStartingVertex()->getLocationNumber());
            }
        }
    }
    /// Adds a zone with a chain through those numbers.
    void addZone(const std::string& name, const Numbers& numbers) const
    {
        const COM_Scoped polygon(GEO_Polygon::New());
        append(*polygon, numbers);
        const COM_Scoped volume(GEO_Volume::New());
        volume->addToShells(*polygon);
        mMilieu->setVolume(name, *volume);
    }
    Numbers vertices() const { return verticesOf(*mMilieu); }
    Numbers lines() const { return linesOf(*mMilieu); }
    Numbers savingVertices() const { return savingVerticesOf(*mMilieu); }
    static long numberOf(const GEO_Vertex* vertex)
    {
        return vertex == nullptr ? -1 : vertex->getLocationNumber();
    }

    const COM_Scoped<TestMilieu> mMilieu{TestMilieu::New()};
};

} // namespace

TEST_F(QV_MilieuTest, TheConstantsNameTheNodesNextToTheEnds)
{
    EXPECT_EQ(QV_Milieu::FIRST_VERTEX, 0);
    EXPECT_EQ(QV_Milieu::SECOND_VERTEX, 1);
    EXPECT_EQ(QV_Milieu::BEFORE_LAST_VERTEX, 2);
    EXPECT_EQ(QV_Milieu::LAST_VERTEX, 3);
    EXPECT_EQ(std::string(QV_Milieu::FIRST_NODE), "FirstMilieuNode");
    EXPECT_EQ(std::string(QV_Milieu::LAST_NODE), "LastMilieuNode");
}

TEST_F(QV_MilieuTest, ANewMediumIsVacuumWithoutMesh)
{
    EXPECT_EQ(mMilieu->getReferenceCount(), 1);
    EXPECT_EQ(mMilieu->getTypes(),
              (Names{"COM_Object", "MM_Object", "QV_Object", "QV_Milieu", "TestMilieu"}));
    EXPECT_EQ(mMilieu->getIndice(), 1.0);
    EXPECT_EQ(vertices(), Numbers{});
    EXPECT_EQ(lines(), Numbers{});
    EXPECT_EQ(savingVertices(), Numbers{});
    EXPECT_EQ(mMilieu->getVolume("milieu"), nullptr);
    EXPECT_EQ(mMilieu->getBoundaryWithName("FirstMilieuNode"), nullptr);
    EXPECT_EQ(mMilieu->getBoundaryLocation("FirstMilieuNode"), -1);
    EXPECT_FALSE(mMilieu->isMeshed());
    for (unsigned char which = 0; which < 5; ++which) {
        EXPECT_EQ(mMilieu->getVertex(which), nullptr);
    }
}

TEST_F(QV_MilieuTest, TheIndexIsStored)
{
    mMilieu->setIndice(1.5);
    EXPECT_EQ(mMilieu->getIndice(), 1.5);
}

// ---------------------------------------------------------------- nodes and lines

TEST_F(QV_MilieuTest, NodesAndLinesComeInAscendingOrderEachOnceWhateverTheOrderOfTheZones)
{
    addZone("a", {6, 7, 8});
    addZone("b", {0, 1, 2, 3});
    addZone("c", {3, 4, 5, 6});
    EXPECT_EQ(vertices(), (Numbers{0, 1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(lines(), (Numbers{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(QV_MilieuTest, NumbersFarApartComeInAscendingOrderToo)
{
    addZone("a", {1000000, 1000001, 1000002});
    addZone("b", {1, 2, 3});
    EXPECT_EQ(vertices(), (Numbers{1, 2, 3, 1000000, 1000001, 1000002}));
    EXPECT_EQ(lines(), (Numbers{1, 2, 1000000, 1000001}));
}

TEST_F(QV_MilieuTest, AChainOfTwoZonesGivesItsNodesOnce)
{
    const COM_Scoped polygon(GEO_Polygon::New());
    append(*polygon, {0, 1, 2});
    for (const char* zone : {"a", "b"}) {
        const COM_Scoped volume(GEO_Volume::New());
        volume->addToShells(*polygon);
        mMilieu->setVolume(zone, *volume);
    }
    EXPECT_EQ(vertices(), (Numbers{0, 1, 2}));
    EXPECT_EQ(lines(), (Numbers{0, 1}));
}

TEST_F(QV_MilieuTest, OfLinesWithTheSameNumberTheOneOfTheLastZoneCounts)
{
    // Lines without a number all have -1.
    const auto addLine = [this](const std::string& zone) {
        const COM_Scoped polygon(GEO_Polygon::New());
        for (int i = 0; i < 2; ++i) {
            polygon->cat(*COM_Scoped(GEO_Vertex::New(1.0, 2.0)));
        }
        const COM_Scoped volume(GEO_Volume::New());
        volume->addToShells(*polygon);
        mMilieu->setVolume(zone, *volume);
        return polygon->getEdge(0)->getCurve();
    };
    const GEO_Curve* const last = addLine("b");
    addLine("a");
    const COM_Scoped found(COM_Array<GEO_Line>::New());
    mMilieu->getLines(*found);
    ASSERT_EQ(found->size(), 1UL);
    EXPECT_EQ(found->get(0), last);
}

TEST_F(QV_MilieuTest, AnArrayIsEmptiedBeforeItIsFilled)
{
    addZone("a", {0, 1});
    const COM_Scoped stranger(GEO_Vertex::New());
    const COM_Scoped nodes(COM_Array<GEO_Vertex>::New());
    nodes->add(*stranger);
    mMilieu->getVertices(*nodes);
    EXPECT_EQ(numbersOf(*nodes), (Numbers{0, 1}));
    EXPECT_EQ(stranger->getReferenceCount(), 1);
    nodes->add(*stranger);
    mMilieu->getSavingVertices(*nodes);
    EXPECT_EQ(nodes->size(), 0UL);
    EXPECT_EQ(stranger->getReferenceCount(), 1);
    const COM_Scoped unusedLine(GEO_Line::New());
    const COM_Scoped found(COM_Array<GEO_Line>::New());
    found->add(*unusedLine);
    mMilieu->getLines(*found);
    EXPECT_EQ(numbersOf(*found), Numbers{0});
    EXPECT_EQ(unusedLine->getReferenceCount(), 1);
}

TEST_F(QV_MilieuTest, AChainOfOneVertexHasNeitherNodesNorLines)
{
    addZone("a", {0});
    EXPECT_EQ(vertices(), Numbers{});
    EXPECT_EQ(lines(), Numbers{});
    addZone("b", {0, 1, 2});
    EXPECT_EQ(vertices(), (Numbers{0, 1, 2}));
    EXPECT_EQ(lines(), (Numbers{0, 1}));
}

TEST_F(QV_MilieuTest, ShellsThatAreNoPolygonsArePassedOver)
{
    const COM_Scoped shell(TestShell::New());
    const COM_Scoped first(GEO_Polygon::New());
    const COM_Scoped second(GEO_Polygon::New());
    append(*first, {0, 1});
    append(*second, {1, 2});
    const COM_Scoped volume(GEO_Volume::New());
    volume->addToShells(*first);
    volume->addToShells(*shell);
    volume->addToShells(*second);
    mMilieu->setVolume("a", *volume);
    EXPECT_EQ(vertices(), (Numbers{0, 1, 2}));
    EXPECT_EQ(lines(), (Numbers{0, 1}));
}

TEST_F(QV_MilieuTest, TheNodesNextToTheEndsAreFoundByTheirConstants)
{
    addZone("a", {0, 1, 2, 3, 4});
    EXPECT_EQ(numberOf(mMilieu->getVertex(QV_Milieu::FIRST_VERTEX)), 0);
    EXPECT_EQ(numberOf(mMilieu->getVertex(QV_Milieu::SECOND_VERTEX)), 1);
    EXPECT_EQ(numberOf(mMilieu->getVertex(QV_Milieu::BEFORE_LAST_VERTEX)), 3);
    EXPECT_EQ(numberOf(mMilieu->getVertex(QV_Milieu::LAST_VERTEX)), 4);
    EXPECT_EQ(numberOf(mMilieu->getVertex(4)), 0);
    EXPECT_EQ(numberOf(mMilieu->getVertex(255)), 0);
}

TEST_F(QV_MilieuTest, OfTwoNodesTheSecondIsTheLastAndTheFirstTheOneBefore)
{
    addZone("a", {0, 1});
    EXPECT_EQ(numberOf(mMilieu->getVertex(QV_Milieu::SECOND_VERTEX)), 1);
    EXPECT_EQ(numberOf(mMilieu->getVertex(QV_Milieu::BEFORE_LAST_VERTEX)), 0);
    EXPECT_EQ(numberOf(mMilieu->getVertex(QV_Milieu::LAST_VERTEX)), 1);
}

// ---------------------------------------------------------------- cell size

TEST_F(QV_MilieuTest, TheCellIsTheLineThatStartsAtNodeZero)
{
    EXPECT_EQ(QV_Milieu::getCellLength(), -1.0);
    const COM_Scoped origin(GEO_Vertex::New(0L));
    EXPECT_EQ(QV_Milieu::getCellLength(), -1.0);
    addZone("a", {0, 1, 2});
    origin->setLocation(0.25, 0.0);
    EXPECT_EQ(QV_Milieu::getCellLength(), 0.75);
}

TEST_F(QV_MilieuTest, ACurveThatLeadsNowhereIsNoCell)
{
    addZone("a", {0});
    EXPECT_EQ(QV_Milieu::getCellLength(), -1.0);
    addZone("b", {0, 2});
    EXPECT_EQ(QV_Milieu::getCellLength(), 2.0);
}

// ---------------------------------------------------------------- saving nodes

TEST_F(QV_MilieuTest, SavingNodesAreKeptByNumberInAscendingOrder)
{
    addZone("a", {0, 1, 2, 3, 4});
    mMilieu->addToSavingVertices(*GEO_Vertex::get(3));
    mMilieu->addToSavingVertices(*GEO_Vertex::get(1));
    mMilieu->addToSavingVertices(*GEO_Vertex::get(3));
    mMilieu->addToSavingVertices(nullptr);
    mMilieu->addToSavingVertices(QV_Milieu::LAST_VERTEX);
    EXPECT_EQ(savingVertices(), (Numbers{1, 3, 4}));
    mMilieu->removeFromSavingVertices(*GEO_Vertex::get(3));
    mMilieu->removeFromSavingVertices(*GEO_Vertex::get(0));
    EXPECT_EQ(savingVertices(), (Numbers{1, 4}));
    mMilieu->resetSavingVertices();
    EXPECT_EQ(savingVertices(), Numbers{});
}

TEST_F(QV_MilieuTest, ANodeThatDoesNotExistIsNotSaved)
{
    mMilieu->addToSavingVertices(QV_Milieu::SECOND_VERTEX);
    EXPECT_EQ(savingVertices(), Numbers{});
}

TEST_F(QV_MilieuTest, ASavingNodeIsHeldByOneReference)
{
    const COM_Scoped vertex(GEO_Vertex::New(5L));
    mMilieu->addToSavingVertices(*vertex);
    mMilieu->addToSavingVertices(*vertex);
    EXPECT_EQ(vertex->getReferenceCount(), 2);
    mMilieu->removeFromSavingVertices(*vertex);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- zones and boundaries

TEST_F(QV_MilieuTest, ZonesAreHeldByNameAndReplaced)
{
    const COM_Scoped first(GEO_Volume::New());
    const COM_Scoped second(GEO_Volume::New());
    mMilieu->setVolume("milieu", *first);
    EXPECT_EQ(mMilieu->getVolume("milieu"), first.get());
    EXPECT_EQ(mMilieu->getVolume("bound1"), nullptr);
    EXPECT_EQ(first->getReferenceCount(), 2);
    mMilieu->setVolume("milieu", *second);
    EXPECT_EQ(mMilieu->getVolume("milieu"), second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    mMilieu->resetVolumes();
    EXPECT_EQ(mMilieu->getVolume("milieu"), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TEST_F(QV_MilieuTest, BoundariesAreHeldByNameAndKnowTheirNumber)
{
    const COM_Scoped first(GEO_Vertex::New(4L));
    const COM_Scoped second(GEO_Vertex::New(9L));
    const COM_Scoped noVertex(GEO_Volume::New());
    mMilieu->setBoundaryWithName("FirstMilieuNode", *first);
    mMilieu->setBoundaryWithName("LastMilieuNode", *second);
    mMilieu->setBoundaryWithName("other", *noVertex);
    EXPECT_EQ(mMilieu->getBoundaryWithName("FirstMilieuNode"), first.get());
    EXPECT_EQ(mMilieu->getBoundaryLocation("FirstMilieuNode"), 4);
    EXPECT_EQ(mMilieu->getBoundaryLocation("LastMilieuNode"), 9);
    EXPECT_EQ(mMilieu->getBoundaryLocation("other"), -1);
    EXPECT_EQ(first->getReferenceCount(), 2);
    mMilieu->resetBoundaryWithName("FirstMilieuNode");
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(mMilieu->getBoundaryWithName("FirstMilieuNode"), nullptr);
    EXPECT_EQ(mMilieu->getBoundaryWithName("LastMilieuNode"), second.get());
    mMilieu->resetBoundaries();
    EXPECT_EQ(mMilieu->getBoundaryWithName("LastMilieuNode"), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(noVertex->getReferenceCount(), 1);
}

TEST_F(QV_MilieuTest, AMeshNeedsThreeNodesAndBothBoundaries)
{
    addZone("a", {0, 1});
    mMilieu->setBoundaryWithName("FirstMilieuNode", *GEO_Vertex::get(0));
    mMilieu->setBoundaryWithName("LastMilieuNode", *GEO_Vertex::get(1));
    EXPECT_FALSE(mMilieu->isMeshed());
    addZone("b", {1, 2});
    EXPECT_TRUE(mMilieu->isMeshed());
    mMilieu->resetBoundaryWithName("FirstMilieuNode");
    EXPECT_FALSE(mMilieu->isMeshed());
    mMilieu->setBoundaryWithName("FirstMilieuNode", *GEO_Vertex::get(0));
    mMilieu->resetBoundaryWithName("LastMilieuNode");
    EXPECT_FALSE(mMilieu->isMeshed());
}

TEST_F(QV_MilieuTest, ReleasingTheMediumReleasesWhatItHolds)
{
    const COM_Scoped vertex(GEO_Vertex::New(5L));
    const COM_Scoped volume(GEO_Volume::New());
    {
        const COM_Scoped milieu(TestMilieu::New());
        milieu->setVolume("a", *volume);
        milieu->setBoundaryWithName("b", *vertex);
        milieu->addToSavingVertices(*vertex);
        EXPECT_EQ(vertex->getReferenceCount(), 3);
        EXPECT_EQ(volume->getReferenceCount(), 2);
    }
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(volume->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- scaling

TEST_F(QV_MilieuTest, ScalingDividesEveryCoordinateOfEveryNodeOnce)
{
    addZone("a", {0, 1, 2});
    addZone("b", {2, 3});
    (*GEO_Vertex::get(2))[1] = 7.0;
    mMilieu->adimensionize(0.5);
    for (long i = 0; i < 4; ++i) {
        EXPECT_EQ((*GEO_Vertex::get(static_cast<unsigned long>(i)))[0],
                  2.0 * static_cast<double>(i));
    }
    EXPECT_EQ((*GEO_Vertex::get(2))[1], 14.0);
    EXPECT_EQ(QV_Milieu::getCellLength(), 2.0 * 1.0);
}

TEST_F(QV_MilieuTest, AScaleOfZeroChangesNothingAndAnInfiniteOneLeavesOnePlace)
{
    addZone("a", {0, 1, 2});
    mMilieu->adimensionize(0.0);
    EXPECT_EQ((*GEO_Vertex::get(2))[0], 2.0);
    mMilieu->adimensionize(HUGE_VAL);
    EXPECT_EQ((*GEO_Vertex::get(2))[0], 0.0);
}

TEST_F(QV_MilieuTest, NodesWithoutAPointAreNotScaled)
{
    addZone("a", {0, 1});
    GEO_Vertex::get(0)->resetPoint();
    mMilieu->adimensionize(0.5);
    EXPECT_EQ(GEO_Vertex::get(0)->getPoint(), nullptr);
    EXPECT_EQ((*GEO_Vertex::get(1))[0], 2.0);
}

// ---------------------------------------------------------------- persistence

TEST_F(QV_MilieuTest, ADescriptionHoldsTheIndexAlone)
{
    addZone("a", {0, 1, 2});
    mMilieu->addToSavingVertices(QV_Milieu::FIRST_VERTEX);
    mMilieu->setIndice(1.25);
    EXPECT_EQ(Description(*mMilieu).text(), "{mIndice=[1.250000e+00]}");
    const COM_Scoped restored(TestMilieu::New());
    EXPECT_EQ(printedBy([&] { restored->loadFromMetaClass(Description(*mMilieu).node()); }), "");
    EXPECT_EQ(restored->getIndice(), 1.25);
}

TEST_F(QV_MilieuTest, AMissingIndexIsAnnouncedAndKeepsItsValue)
{
    mMilieu->setIndice(1.25);
    const COM_Scoped node(MM_Class::New());
    node->setName("someMedium");
    EXPECT_EQ(printedBy([&] { mMilieu->loadFromMetaClass(*node); }),
              "no attribute mIndice stored in class someMedium.\n");
    EXPECT_EQ(mMilieu->getIndice(), 1.25);
}
