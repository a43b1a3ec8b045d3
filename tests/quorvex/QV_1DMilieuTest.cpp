#include "quorvex/QV_1DMilieu.h"

#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Curve.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Polygon.h"
#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_Volume.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_ClassFactory.h"
#include "support/Description.h"
#include "support/MeshNumbers.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;
using Values = std::vector<double>;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

/// 0 to `count` - 1.
Numbers countTo(long count)
{
    Numbers numbers(static_cast<std::size_t>(std::max(count, 0L)));
    std::iota(numbers.begin(), numbers.end(), 0L);
    return numbers;
}

/// A medium with cells of 1 m and a length that tests choose in cells.
class QV_1DMilieuTest : public testing::Test
{
protected:
    QV_1DMilieuTest()
    {
        mMilieu->setCaracteristicLength(20.0);
        setNodes(20);
    }
    /// A length in the midst of a cell, so that no rounding changes the number of nodes.
    void setNodes(long number) const { mMilieu->setLength(static_cast<double>(number) + 0.5); }
    std::string create() const
    {
        return printedBy([this] { mMilieu->create(); });
    }
    void setCaptors(const Values& positions) const
    {
        const COM_Scoped captors(LA_RealVector::New(0));
        captors->setValues(positions);
        mMilieu->setCaptors(*captors);
    }
    Numbers vertices() const { return verticesOf(*mMilieu); }
    Numbers lines() const { return linesOf(*mMilieu); }
    Numbers savingVertices() const { return savingVerticesOf(*mMilieu); }
    /// Numbers of the nodes of a zone, along its chain.
    Numbers zone(const std::string& name) const
    {
        const GEO_Volume* const volume = mMilieu->getVolume(name);
        if (volume == nullptr) {
            ADD_FAILURE() << "no zone " << name;
            return {};
        }
        const COM_Scoped array(COM_Array<GEO_Vertex>::New());
        dynamic_cast<GEO_Polygon&>(volume->getShells()[0]).getVertices(*array);
        return numbersOf(*array);
    }
    long first() const { return mMilieu->getBoundaryLocation("FirstMilieuNode"); }
    long last() const { return mMilieu->getBoundaryLocation("LastMilieuNode"); }

    const COM_Scoped<QV_1DMilieu> mMilieu{QV_1DMilieu::New()};
};

/// The numbers `from` to `to`.
Numbers range(long from, long to)
{
    Numbers numbers;
    for (long i = from; i <= to; ++i) {
        numbers.push_back(i);
    }
    return numbers;
}

} // namespace

TEST_F(QV_1DMilieuTest, ANewMediumIsATenthOfAMillimetreWithThreeCaptors)
{
    const COM_Scoped milieu(QV_1DMilieu::New());
    EXPECT_EQ(milieu->getReferenceCount(), 1);
    EXPECT_EQ(milieu->getTypes(),
              (Names{"COM_Object", "MM_Object", "QV_Object", "QV_Milieu", "QV_1DMilieu"}));
    EXPECT_EQ(milieu->getLength(), 0.0001);
    EXPECT_EQ(milieu->getStartingPosition(), 10.0);
    EXPECT_EQ(milieu->getEndingPosition(), 90.0);
    EXPECT_EQ(milieu->getDiscretizationNumber(), 20UL);
    EXPECT_EQ(milieu->getCaracteristicLength(), 1.5e-6);
    EXPECT_EQ(milieu->getIndice(), 1.0);
    ASSERT_NE(milieu->getCaptors(), nullptr);
    EXPECT_EQ(milieu->getCaptors()->getReferenceCount(), 1);
    EXPECT_EQ(milieu->getCaptors()->toString(), "(3.000000e+01,5.000000e+01,7.000000e+01)");
}

TEST_F(QV_1DMilieuTest, SettersStoreWhatTheyAreGiven)
{
    mMilieu->setLength(2.0);
    mMilieu->setStartingPosition(-3.0);
    mMilieu->setEndingPosition(400.0);
    mMilieu->setDiscretizationNumber(0);
    mMilieu->setCaracteristicLength(5.0);
    EXPECT_EQ(mMilieu->getLength(), 2.0);
    EXPECT_EQ(mMilieu->getStartingPosition(), -3.0);
    EXPECT_EQ(mMilieu->getEndingPosition(), 400.0);
    EXPECT_EQ(mMilieu->getDiscretizationNumber(), 0UL);
    EXPECT_EQ(mMilieu->getCaracteristicLength(), 5.0);
}

// ---------------------------------------------------------------- the mesh

TEST_F(QV_1DMilieuTest, TheDefaultDataGiveThirteenHundredAndThirtyThreeNodes)
{
    const COM_Scoped milieu(QV_1DMilieu::New());
    EXPECT_EQ(printedBy([&milieu] { milieu->create(); }), "1333 pas d'espace de longueur 7.5e-08\n"
                                                          "nVertex saving:398 at 30\n"
                                                          "nVertex saving:665 at 50\n"
                                                          "nVertex saving:932 at 70\n");
    const COM_Scoped nodes(COM_Array<GEO_Vertex>::New());
    milieu->getVertices(*nodes);
    EXPECT_EQ(numbersOf(*nodes), countTo(1333));
    const COM_Scoped lines(COM_Array<GEO_Line>::New());
    milieu->getLines(*lines);
    EXPECT_EQ(numbersOf(*lines), countTo(1332));
    milieu->getSavingVertices(*nodes);
    EXPECT_EQ(numbersOf(*nodes), (Numbers{1, 398, 665, 932, 1331}));
    EXPECT_EQ(milieu->getBoundaryLocation("FirstMilieuNode"), 132);
    EXPECT_EQ(milieu->getBoundaryLocation("LastMilieuNode"), 1198);
    EXPECT_TRUE(milieu->isMeshed());
    const QV_1DMilieu::Mesh mesh = milieu->computeMesh();
    EXPECT_EQ(mesh.mCell, 1.5e-6 / 20.0);
    EXPECT_EQ(mesh.mNodesNumber, 1333);
    EXPECT_EQ(mesh.mFirstActive, 132);
    EXPECT_EQ(mesh.mLastActive, 1198);
    EXPECT_TRUE(mesh.isValid());
}

TEST_F(QV_1DMilieuTest, NeighbouringZonesShareTheirNode)
{
    EXPECT_EQ(create(), "20 pas d'espace de longueur 1\n"
                        "nVertex saving:5 at 30\n"
                        "nVertex saving:9 at 50\n"
                        "nVertex saving:13 at 70\n");
    EXPECT_EQ(zone("bound1"), range(0, 1));
    EXPECT_EQ(zone("milieu"), range(1, 17));
    EXPECT_EQ(zone("bound2"), range(17, 19));
    EXPECT_EQ(first(), 1);
    EXPECT_EQ(last(), 17);
    EXPECT_EQ(savingVertices(), (Numbers{1, 5, 9, 13, 18}));
    for (const char* name : {"bound1", "milieu", "bound2"}) {
        EXPECT_EQ(mMilieu->getVolume(name)->getShells().size(), 1UL);
        EXPECT_TRUE(mMilieu->getVolume(name)->getShells()[0].instanceOf("GEO_DelaunayPolygon"));
        EXPECT_EQ(mMilieu->getVolume(name)->getReferenceCount(), 2) << "the medium, and the shell";
    }
}

TEST_F(QV_1DMilieuTest, NodeAndLineNumbersFollowTheChainAndCellsAreEqual)
{
    mMilieu->setCaracteristicLength(5.0); // cells of a quarter
    create();
    const COM_Scoped found(COM_Array<GEO_Line>::New());
    mMilieu->getLines(*found);
    ASSERT_EQ(found->size(), 81UL);
    for (unsigned long i = 0; i < found->size(); ++i) {
        const GEO_Line& line = (*found)[i];
        EXPECT_EQ(line.getLocationNumber(), static_cast<long>(i));
        EXPECT_EQ(line.getStartingVertex()->getLocationNumber(), static_cast<long>(i));
        EXPECT_EQ(line.getEndingVertex()->getLocationNumber(), static_cast<long>(i) + 1);
        EXPECT_EQ(line.getLength(), 0.25);
        EXPECT_EQ(line.getStartingPoint()->toString(),
                  "(" + COM_Real::toString(0.25 * static_cast<double>(i), 8, 6) + ")");
    }
    EXPECT_EQ(QV_Milieu::getCellLength(), 0.25);
}

TEST_F(QV_1DMilieuTest, TheProductOfAPositionAndTheNodesComesBeforeTheDivision)
{
    // 29.0 / 100.0 * 100.0 is less than 29.
    setNodes(100);
    mMilieu->setStartingPosition(29.0);
    mMilieu->setEndingPosition(58.0);
    create();
    EXPECT_EQ(first(), 28);
    EXPECT_EQ(last(), 57);
}

namespace {

/// A mesh with an active zone, or without one if a boundary is -1.
struct Mesh
{
    std::string mName;
    long mNodes;
    double mStart;
    double mEnd;
    long mFirst;
    long mLast;
    Numbers mBound1;
    Numbers mMilieu;
    Numbers mBound2;

    friend std::ostream& operator<<(std::ostream& out, const Mesh& tested)
    {
        return out << tested.mName;
    }
};

class QV_1DMilieuMeshTest : public QV_1DMilieuTest, public testing::WithParamInterface<Mesh>
{
protected:
    QV_1DMilieuMeshTest()
    {
        setNodes(GetParam().mNodes);
        mMilieu->setStartingPosition(GetParam().mStart);
        mMilieu->setEndingPosition(GetParam().mEnd);
    }
};

} // namespace

TEST_P(QV_1DMilieuMeshTest, HasTheseZones)
{
    create();
    EXPECT_EQ(first(), GetParam().mFirst);
    EXPECT_EQ(last(), GetParam().mLast);
    EXPECT_EQ(zone("bound1"), GetParam().mBound1);
    EXPECT_EQ(zone("milieu"), GetParam().mMilieu);
    EXPECT_EQ(zone("bound2"), GetParam().mBound2);
}

TEST_P(QV_1DMilieuMeshTest, HasAllItsNodesAndOneLineLess)
{
    create();
    EXPECT_EQ(vertices(), countTo(GetParam().mNodes < 2 ? 0 : GetParam().mNodes));
    EXPECT_EQ(lines(), countTo(GetParam().mNodes - 1));
}

TEST_P(QV_1DMilieuMeshTest, IsToldBeforeItIsMade)
{
    const bool isValid = mMilieu->computeMesh().isValid();
    create();
    EXPECT_EQ(isValid, mMilieu->isMeshed());
    EXPECT_EQ(isValid, GetParam().mNodes >= 3 && GetParam().mFirst >= 0 && GetParam().mLast >= 0);
}

INSTANTIATE_TEST_SUITE_P(
    Meshes, QV_1DMilieuMeshTest,
    testing::Values(
        Mesh{"Usual", 20, 10.0, 90.0, 1, 17, range(0, 1), range(1, 17), range(17, 19)},
        Mesh{"FirstActiveNodeZero", 20, 5.0, 90.0, 0, 17, {0}, range(0, 17), range(17, 19)},
        Mesh{"OneActiveNode", 20, 50.0, 50.0, 9, 9, range(0, 9), {9}, range(9, 19)},
        Mesh{"OneActiveNodeAtTheStart", 20, 5.0, 5.0, 0, 0, {0}, {0}, range(0, 19)},
        Mesh{"OneActiveNodeAtTheEnd", 20, 100.0, 100.0, 19, 19, range(0, 19), {19}, {19}},
        Mesh{"LastActiveNodeAtTheEnd", 20, 10.0, 100.0, 1, 19, range(0, 1), range(1, 19), {19}},
        Mesh{"ActiveFromEndToEnd", 20, 5.0, 100.0, 0, 19, {0}, range(0, 19), {19}},
        Mesh{"EndBeforeStart", 20, 50.0, 20.0, 9, 9, range(0, 9), {9}, range(9, 19)},
        Mesh{"EndBelowZero", 20, 10.0, -50.0, 1, 1, range(0, 1), {1}, range(1, 19)},
        Mesh{"SmallestMesh", 3, 40.0, 70.0, 0, 1, {0}, range(0, 1), range(1, 2)},
        Mesh{"StartBelowNodeZero", 20, 0.0, 90.0, -1, 17, {}, range(0, 17), range(17, 19)},
        Mesh{"StartFarBelow", 20, -1e300, 90.0, -1, 17, {}, range(0, 17), range(17, 19)},
        Mesh{"StartAndEndBelow", 20, 0.0, 0.0, -1, -1, {}, {}, range(0, 19)},
        Mesh{"EndBeyondTheMesh", 20, 10.0, 110.0, 1, -1, range(0, 1), range(1, 19), {}},
        Mesh{"EndFarBeyond", 20, 10.0, 1e300, 1, -1, range(0, 1), range(1, 19), {}},
        Mesh{"StartBeyondTheMesh", 20, 110.0, 120.0, -1, -1, range(0, 19), {}, {}},
        Mesh{"TwoNodes", 2, 50.0, 100.0, 0, 1, {0}, range(0, 1), {1}},
        Mesh{"OneNode", 1, 100.0, 100.0, 0, 0, {0}, {0}, {0}},
        Mesh{"NoNode", 0, 10.0, 90.0, -1, -1, {}, {}, {}}),
    [](const auto& mesh) { return mesh.param.mName; });

namespace {

struct BadData
{
    std::string mName;
    double mLength;
    double mCell; ///< Characteristic length of one cell.
    unsigned long mDiscretization;
    double mStart;
    double mEnd;

    friend std::ostream& operator<<(std::ostream& out, const BadData& tested)
    {
        return out << tested.mName;
    }
};

class QV_1DMilieuBadDataTest : public QV_1DMilieuTest, public testing::WithParamInterface<BadData>
{};

} // namespace

TEST_P(QV_1DMilieuBadDataTest, GiveNoMeshAndNoHarm)
{
    mMilieu->setLength(GetParam().mLength);
    mMilieu->setCaracteristicLength(GetParam().mCell);
    mMilieu->setDiscretizationNumber(GetParam().mDiscretization);
    mMilieu->setStartingPosition(GetParam().mStart);
    mMilieu->setEndingPosition(GetParam().mEnd);
    create();
    EXPECT_FALSE(mMilieu->isMeshed());
    EXPECT_FALSE(mMilieu->computeMesh().isValid());
    EXPECT_EQ(lines().size() + (vertices().empty() ? 0UL : 1UL), vertices().size());
    mMilieu->adimensionize(2.0);
    setNodes(5);
    mMilieu->setCaracteristicLength(1.0);
    mMilieu->setDiscretizationNumber(1);
    mMilieu->setStartingPosition(50.0);
    mMilieu->setEndingPosition(80.0);
    create();
    EXPECT_TRUE(mMilieu->isMeshed());
    EXPECT_EQ(vertices(), countTo(5));
}

INSTANTIATE_TEST_SUITE_P(
    Data, QV_1DMilieuBadDataTest,
    testing::Values(BadData{"NegativeLength", -20.0, 1.0, 1, 10.0, 90.0},
                    BadData{"NoLength", 0.0, 1.0, 1, 10.0, 90.0},
                    BadData{"LengthNotANumber", NOT_A_NUMBER, 1.0, 1, 10.0, 90.0},
                    BadData{"InfiniteLength", INFINITE, 1.0, 1, 10.0, 90.0},
                    BadData{"NoCharacteristicLength", 20.0, 0.0, 1, 10.0, 90.0},
                    BadData{"NegativeCharacteristicLength", 20.0, -1.0, 1, 10.0, 90.0},
                    BadData{"CharacteristicLengthNotANumber", 20.0, NOT_A_NUMBER, 1, 10.0, 90.0},
                    BadData{"NoCells", 20.0, 1.0, 0, 10.0, 90.0},
                    BadData{"MoreCellsThanMemory", 20.0, 1.0, 18446744073709551615UL, 10.0, 90.0},
                    BadData{"StartNotANumber", 20.0, 1.0, 1, NOT_A_NUMBER, 90.0},
                    BadData{"StartInfinite", 20.0, 1.0, 1, INFINITE, 90.0},
                    BadData{"EndInfinite", 20.0, 1.0, 1, 10.0, INFINITE},
                    BadData{"AllBelow", 20.0, 1.0, 1, -INFINITE, -INFINITE}),
    [](const auto& data) { return data.param.mName; });

// ---------------------------------------------------------------- captors

TEST_F(QV_1DMilieuTest, CaptorsStandAtTheNodeBelowTheirShareOfTheMesh)
{
    setCaptors({0.0, 100.0, 5.0, 9.99, 10.0, 250.0, -7.0});
    EXPECT_EQ(create(), "20 pas d'espace de longueur 1\n"
                        "nVertex saving:0 at 0\n"
                        "nVertex saving:19 at 100\n"
                        "nVertex saving:0 at 5\n"
                        "nVertex saving:0 at 9.99\n"
                        "nVertex saving:1 at 10\n"
                        "nVertex saving:19 at 250\n"
                        "nVertex saving:0 at -7\n");
    EXPECT_EQ(savingVertices(), (Numbers{0, 1, 18, 19}));
}

TEST_F(QV_1DMilieuTest, TwoCaptorsOnOneNodeAreOneSavingNode)
{
    setCaptors({50.0, 52.0});
    EXPECT_EQ(create(), "20 pas d'espace de longueur 1\n"
                        "nVertex saving:9 at 50\n"
                        "nVertex saving:9 at 52\n");
    EXPECT_EQ(savingVertices(), (Numbers{1, 9, 18}));
}

TEST_F(QV_1DMilieuTest, TheProductOfACaptorAndTheNodesComesBeforeTheDivision)
{
    setNodes(100);
    setCaptors({29.0, 58.0});
    create();
    EXPECT_EQ(savingVertices(), (Numbers{1, 28, 57, 98}));
}

TEST_F(QV_1DMilieuTest, CaptorsThatAreNoNumbersStandAtNodeZeroOrTheEnds)
{
    setCaptors({NOT_A_NUMBER, INFINITE, -INFINITE});
    EXPECT_EQ(create(), "20 pas d'espace de longueur 1\n"
                        "nVertex saving:0 at nan\n"
                        "nVertex saving:19 at inf\n"
                        "nVertex saving:0 at -inf\n");
    EXPECT_EQ(savingVertices(), (Numbers{0, 1, 18, 19}));
}

TEST_F(QV_1DMilieuTest, WithoutCaptorsTheNodesNextToTheEndsAreSaved)
{
    setCaptors({});
    EXPECT_EQ(create(), "20 pas d'espace de longueur 1\n");
    EXPECT_EQ(savingVertices(), (Numbers{1, 18}));
    mMilieu->resetCaptors();
    EXPECT_EQ(mMilieu->getCaptors(), nullptr);
    EXPECT_EQ(create(), "20 pas d'espace de longueur 1\n");
    EXPECT_EQ(savingVertices(), (Numbers{1, 18}));
}

TEST_F(QV_1DMilieuTest, OfThreeNodesTheMiddleOneIsNextToBothEnds)
{
    setNodes(3);
    setCaptors({});
    create();
    EXPECT_EQ(savingVertices(), Numbers{1});
}

TEST_F(QV_1DMilieuTest, WithoutNodesNothingIsSavedAndTheCaptorsAreStillTold)
{
    setNodes(0);
    setCaptors({30.0, 100.0});
    EXPECT_EQ(create(), "0 pas d'espace de longueur 1\n"
                        "nVertex saving:-1 at 30\n"
                        "nVertex saving:-1 at 100\n");
    EXPECT_EQ(savingVertices(), Numbers{});
}

TEST_F(QV_1DMilieuTest, SavingNodesAddedByHandLastUntilTheNextMesh)
{
    create();
    mMilieu->addToSavingVertices(QV_Milieu::FIRST_VERTEX);
    EXPECT_EQ(savingVertices(), (Numbers{0, 1, 5, 9, 13, 18}));
    create();
    EXPECT_EQ(savingVertices(), (Numbers{1, 5, 9, 13, 18}));
}

TEST_F(QV_1DMilieuTest, CaptorsAreHeldByOneReferenceAndNullMeansNone)
{
    const COM_Scoped captors(LA_RealVector::New(2));
    mMilieu->setCaptors(*captors);
    mMilieu->setCaptors(captors.get());
    EXPECT_EQ(mMilieu->getCaptors(), captors.get());
    EXPECT_EQ(captors->getReferenceCount(), 2);
    mMilieu->setCaptors(nullptr);
    EXPECT_EQ(mMilieu->getCaptors(), nullptr);
    EXPECT_EQ(captors->getReferenceCount(), 1);
}

TEST_F(QV_1DMilieuTest, ACaptorIsStoredAtItsIndexAndTheVectorGrowsForIt)
{
    mMilieu->addToCaptors(1, 42.0);
    EXPECT_EQ(mMilieu->getCaptors()->toString(), "(3.000000e+01,4.200000e+01,7.000000e+01)");
    mMilieu->addToCaptors(4, 99.0);
    EXPECT_EQ(mMilieu->getCaptors()->toString(),
              "(3.000000e+01,4.200000e+01,7.000000e+01,0.000000e+00,9.900000e+01)");
    mMilieu->addToCaptors(-1, 1.0);
    EXPECT_EQ(mMilieu->getCaptors()->getDimension(), 5UL);
    mMilieu->resetCaptors();
    mMilieu->addToCaptors(-1, 1.0);
    EXPECT_EQ(mMilieu->getCaptors(), nullptr);
    mMilieu->addToCaptors(0, 12.0);
    EXPECT_EQ(mMilieu->getCaptors()->toString(), "(1.200000e+01)");
}

// ---------------------------------------------------------------- making the mesh again

TEST_F(QV_1DMilieuTest, AMeshOfTheSameDataHasTheSameNumbersAndPlacesAgain)
{
    create();
    mMilieu->adimensionize(0.125);
    EXPECT_EQ((*GEO_Vertex::get(3))[0], 24.0);
    EXPECT_EQ(QV_Milieu::getCellLength(), 8.0);
    EXPECT_EQ(mMilieu->getLength(), 20.5);
    EXPECT_EQ(mMilieu->getCaracteristicLength(), 20.0);
    EXPECT_EQ(mMilieu->getStartingPosition(), 10.0);
    create();
    EXPECT_EQ((*GEO_Vertex::get(3))[0], 3.0);
    EXPECT_EQ(QV_Milieu::getCellLength(), 1.0);
    EXPECT_EQ(vertices(), countTo(20));
    EXPECT_EQ(lines(), countTo(19));
}

TEST_F(QV_1DMilieuTest, ANodeThatSomebodyElseHoldsIsUsedAgainAtItsNewPlace)
{
    create();
    GEO_Vertex* const held = GEO_Vertex::get(7);
    held->addReference(nullptr);
    mMilieu->setCaracteristicLength(40.0); // cells of 2
    create();
    EXPECT_EQ(vertices(), countTo(10));
    EXPECT_EQ(GEO_Vertex::get(7), held);
    EXPECT_EQ((*held)[0], 14.0);
    setNodes(5); // two nodes: the held one is no longer in the mesh, but still known
    create();
    EXPECT_EQ(vertices(), countTo(2));
    EXPECT_EQ(GEO_Vertex::get(7), held);
    held->Delete();
    EXPECT_EQ(GEO_Vertex::get(7), nullptr);
}

namespace {

/// Living objects by class, as the debug listing tells them.
std::map<std::string, unsigned long> livingObjects()
{
    std::istringstream listing(printedBy([] { COM_Object::printAllObjects(); }));
    std::map<std::string, unsigned long> numbers;
    std::string line;
    while (std::getline(listing, line) && line != "Objects in memory:") {
    }
    while (std::getline(listing, line)) {
        const std::size_t tab = line.find('\t');
        numbers[line.substr(0, tab)] = std::stoul(line.substr(tab + 1));
    }
    return numbers;
}

} // namespace

TEST_F(QV_1DMilieuTest, TenMeshesLeaveNoObjectOfTheFormerOnesAndNumberAsTheFirst)
{
    create(); // the registries are made once and stay
    setNodes(0);
    create();
    COM_Object::turnOnDebugFlag();
    setNodes(20);
    create();
    auto expected = livingObjects();
    EXPECT_EQ(expected["10GEO_Vertex"], 20UL);
    EXPECT_EQ(expected["8GEO_Line"], 19UL);
    EXPECT_EQ(expected["9GEO_Point"], 20UL);
    EXPECT_EQ(expected["10GEO_Volume"], 3UL);
    EXPECT_EQ(expected["19GEO_DelaunayPolygon"], 3UL);
    for (const long nodes : {20L, 50L, 7L, 3L, 2L, 1L, 0L, 33L, 400L, 20L}) {
        setNodes(nodes);
        create();
        auto living = livingObjects();
        EXPECT_EQ(living["10GEO_Vertex"], static_cast<unsigned long>(nodes));
        EXPECT_EQ(living["9GEO_Point"], static_cast<unsigned long>(nodes));
        EXPECT_EQ(living["10GEO_Volume"], 3UL);
        EXPECT_EQ(living["19GEO_DelaunayPolygon"], 3UL);
        COM_Object::turnOffDebugFlag();
        EXPECT_EQ(vertices(), countTo(nodes < 2 ? 0 : nodes));
        EXPECT_EQ(lines(), countTo(nodes - 1));
        COM_Object::turnOnDebugFlag();
    }
    EXPECT_EQ(livingObjects(), expected);
    setNodes(0);
    create();
    COM_Object::turnOffDebugFlag();
    for (unsigned long i = 0; i < 400; ++i) {
        EXPECT_EQ(GEO_Vertex::get(i), nullptr) << i;
        EXPECT_EQ(GEO_Curve::get(i), nullptr) << i;
    }
}

TEST_F(QV_1DMilieuTest, ReleasingTheMediumReleasesItsMesh)
{
    {
        const COM_Scoped milieu(QV_1DMilieu::New());
        printedBy([&milieu] { milieu->create(); });
        ASSERT_NE(GEO_Vertex::get(0), nullptr);
        ASSERT_NE(GEO_Curve::get(1331), nullptr);
    }
    for (unsigned long i = 0; i < 1333; ++i) {
        EXPECT_EQ(GEO_Vertex::get(i), nullptr) << i;
        EXPECT_EQ(GEO_Curve::get(i), nullptr) << i;
    }
}

// ---------------------------------------------------------------- persistence

TEST_F(QV_1DMilieuTest, ADescriptionHoldsTheDataOfTheMeshAndNotTheMesh)
{
    const COM_Scoped milieu(QV_1DMilieu::New());
    const std::string before = Description(*milieu).text();
    EXPECT_EQ(before, "{mCaptors=[" + milieu->getCaptors()->getIdentityString()
                          + "] mCaracteristicLength=[1.500000e-06] mDiscretizationNumber=[20] "
                            "mEndingPosition=[9.000000e+01] mIndice=[1.000000e+00] "
                            "mLength=[1.000000e-04] mStartingPosition=[1.000000e+01]}");
    printedBy([&milieu] { milieu->create(); });
    EXPECT_EQ(Description(*milieu).text(), before);
}

TEST_F(QV_1DMilieuTest, CaptorsThatAreNotThereAreNotDescribed)
{
    mMilieu->resetCaptors();
    EXPECT_EQ(Description(*mMilieu).keys(),
              (Names{"mCaracteristicLength", "mDiscretizationNumber", "mEndingPosition", "mIndice",
                     "mLength", "mStartingPosition"}));
}

TEST_F(QV_1DMilieuTest, ASavedMediumComesBackWithItsCaptors)
{
    const TestDirectory directory;
    setCaptors({12.0, 34.0});
    mMilieu->setIndice(1.5);
    mMilieu->setStartingPosition(25.0);
    mMilieu->setEndingPosition(75.0);
    mMilieu->setDiscretizationNumber(30);
    COM_Scoped(QV_ClassFactory::New())->save(directory.file("medium.xml"), *mMilieu);
    const COM_Scoped factory(QV_ClassFactory::New());
    MM_Object* object = nullptr;
    EXPECT_EQ(printedBy([&] { object = factory->load(directory.file("medium.xml")); }), "");
    const COM_Scoped milieu(dynamic_cast<QV_1DMilieu*>(object));
    ASSERT_TRUE(milieu);
    EXPECT_EQ(milieu->getIndice(), 1.5);
    EXPECT_EQ(milieu->getLength(), 20.5);
    EXPECT_EQ(milieu->getStartingPosition(), 25.0);
    EXPECT_EQ(milieu->getEndingPosition(), 75.0);
    EXPECT_EQ(milieu->getDiscretizationNumber(), 30UL);
    EXPECT_EQ(milieu->getCaracteristicLength(), 20.0);
    ASSERT_NE(milieu->getCaptors(), nullptr);
    EXPECT_EQ(milieu->getCaptors()->toString(), "(1.200000e+01,3.400000e+01)");
}

TEST_F(QV_1DMilieuTest, MissingAttributesAreAnnouncedAndKeepTheirValues)
{
    const COM_Scoped node(MM_Class::New());
    node->setName("someMedium");
    const std::string before = Description(*mMilieu).text();
    std::string expected;
    for (const char* key : {"mIndice", "mLength", "mStartingPosition", "mEndingPosition",
                            "mDiscretizationNumber", "mCaracteristicLength"}) {
        expected += std::string("no attribute ") + key + " stored in class someMedium.\n";
    }
    EXPECT_EQ(printedBy([&] { mMilieu->loadFromMetaClass(*node); }), expected);
    EXPECT_EQ(Description(*mMilieu).text(), before);
}
