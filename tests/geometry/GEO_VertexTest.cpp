#include "geometry/GEO_Vertex.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;
using Calls = std::vector<std::string>;

Values valuesOf(const GEO_Point& point)
{
    return {point.getValues(), point.getValues() + point.getDimension()};
}

/// A line that enters its name in a list whenever its state has changed.
class NotedLine : public GEO_Line
{
    COM_CLASS(NotedLine)
public:
    void stateChanged() override
    {
        mCalls.push_back(mName);
        GEO_Line::stateChanged();
    }

protected:
    NotedLine(const std::string& name, Calls& calls)
        : mName(name)
        , mCalls(calls)
    {
        COM_TYPE(NotedLine);
    }
    ~NotedLine() override = default;

private:
    std::string mName;
    Calls& mCalls;
};

/// A vertex in which the lines "in" and "also in" end and "out" starts.
class GEO_VertexNoticeTest : public testing::Test
{
protected:
    GEO_VertexNoticeTest()
    {
        mVertex->addToStartingCurves(*mOut);
        mVertex->addToEndingCurves(*mIn);
        mVertex->addToEndingCurves(*mAlsoIn);
        mCalls.clear();
    }

    const Calls mAll{"in", "also in", "out"};
    Calls mCalls;
    const COM_Scoped<GEO_Vertex> mVertex{GEO_Vertex::New()};
    const COM_Scoped<NotedLine> mIn{NotedLine::New("in", mCalls)};
    const COM_Scoped<NotedLine> mAlsoIn{NotedLine::New("also in", mCalls)};
    const COM_Scoped<NotedLine> mOut{NotedLine::New("out", mCalls)};
};

} // namespace

// ---------------------------------------------------------------- creation

TEST(GEO_Vertex, ANewVertexHasNoNumberNoPointAndNoCurves)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(vertex->getLocationNumber(), -1);
    EXPECT_EQ(vertex->getPoint(), nullptr);
    EXPECT_EQ(vertex->getStartingCurves().size(), 0UL);
    EXPECT_EQ(vertex->getEndingCurves().size(), 0UL);
    EXPECT_EQ(vertex->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object", "GEO_Vertex"}));
}

TEST(GEO_Vertex, ANumberAskedForTwiceGivesTheSameVertexWithOneMoreReference)
{
    const COM_Scoped vertex(GEO_Vertex::New(5));
    EXPECT_EQ(vertex->getLocationNumber(), 5);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    const COM_Scoped again(GEO_Vertex::New(5));
    EXPECT_EQ(again.get(), vertex.get());
    EXPECT_EQ(vertex->getReferenceCount(), 2);
}

TEST(GEO_Vertex, TheRegistryKeepsNoVertexAlive)
{
    const COM_Scoped vertex(GEO_Vertex::New(5));
    EXPECT_EQ(GEO_Vertex::get(5), vertex.get());
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(GEO_Vertex::get(6), nullptr);
}

TEST(GEO_Vertex, ANumberGivesTheVertexThatSomebodyElseHoldsAndAFreshOneOnceItIsGone)
{
    auto* const maker = GEO_Vertex::New(5);
    const unsigned long identity = maker->getIdentityNumber();
    maker->setLocation(1.0, 2.0);
    const GEO_Vertex* const holder = GEO_Vertex::New(5);
    maker->Delete();
    EXPECT_EQ(holder->getReferenceCount(), 1);
    {
        const COM_Scoped again(GEO_Vertex::New(5));
        EXPECT_EQ(again->getIdentityNumber(), identity);
        EXPECT_NE(again->getPoint(), nullptr);
    }
    holder->Delete();
    EXPECT_EQ(GEO_Vertex::get(5), nullptr);
    const COM_Scoped fresh(GEO_Vertex::New(5));
    EXPECT_NE(fresh->getIdentityNumber(), identity);
    EXPECT_EQ(fresh->getPoint(), nullptr);
    EXPECT_EQ(fresh->getReferenceCount(), 1);
}

TEST(GEO_Vertex, NodeZeroIsANumberLikeAnyOther)
{
    const COM_Scoped vertex(GEO_Vertex::New(0));
    EXPECT_EQ(vertex->getLocationNumber(), 0);
    EXPECT_EQ(GEO_Vertex::get(0), vertex.get());
}

TEST(GEO_Vertex, ANegativeNumberIsNoNumberToFindAVertexBy)
{
    const COM_Scoped one(GEO_Vertex::New(-1));
    const COM_Scoped other(GEO_Vertex::New(-1));
    EXPECT_NE(one.get(), other.get());
    EXPECT_EQ(one->getLocationNumber(), -1);
}

TEST(GEO_Vertex, AVertexOnAPointHoldsThisVeryPoint)
{
    const COM_Scoped point(GEO_Point::New(1.0, 2.0));
    {
        const COM_Scoped vertex(GEO_Vertex::New(*point));
        EXPECT_EQ(vertex->getPoint(), point.get());
        EXPECT_EQ(point->getReferenceCount(), 2);
        EXPECT_EQ(vertex->getLocationNumber(), -1);
    }
    EXPECT_EQ(point->getReferenceCount(), 1);
}

TEST(GEO_Vertex, AVertexMadeOfCoordinatesHasAPointOfItsOwn)
{
    const COM_Scoped flat(GEO_Vertex::New(1.0, 2.0));
    EXPECT_EQ(valuesOf(*flat->getPoint()), (Values{1.0, 2.0}));
    EXPECT_EQ(flat->getPoint()->getReferenceCount(), 1);
    const COM_Scoped spatial(GEO_Vertex::New(1.0, 2.0, 3.0));
    EXPECT_EQ(valuesOf(*spatial->getPoint()), (Values{1.0, 2.0, 3.0}));
}

TEST(GEO_Vertex, ACopyStandsAtTheSamePlaceWithoutNumberAndCurves)
{
    const COM_Scoped vertex(GEO_Vertex::New(5));
    vertex->setLocation(1.0, 2.0);
    const COM_Scoped line(GEO_Line::New());
    vertex->addToStartingCurves(*line);
    const COM_Scoped copy(GEO_Vertex::New(*vertex));
    EXPECT_EQ(valuesOf(*copy->getPoint()), (Values{1.0, 2.0}));
    EXPECT_NE(copy->getPoint(), vertex->getPoint());
    EXPECT_EQ(copy->getLocationNumber(), -1);
    EXPECT_EQ(copy->getNumberOfCurves(), 0UL);
    EXPECT_EQ(GEO_Vertex::get(5), vertex.get());
    EXPECT_EQ(line->getStartingVertex(), vertex.get());
}

TEST(GEO_Vertex, ACopyOfAVertexWithoutPointHasNone)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    EXPECT_EQ(COM_Scoped(GEO_Vertex::New(*vertex))->getPoint(), nullptr);
}

// ---------------------------------------------------------------- numbers

TEST(GEO_Vertex, AnUnnumberedVertexTakesAFreeNumber)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    EXPECT_TRUE(vertex->setLocationNumber(8));
    EXPECT_EQ(vertex->getLocationNumber(), 8);
    EXPECT_EQ(GEO_Vertex::get(8), vertex.get());
    EXPECT_EQ(vertex->getReferenceCount(), 1);
}

TEST(GEO_Vertex, ATakenNumberIsRefusedAndTheOldOneKept)
{
    const COM_Scoped taken(GEO_Vertex::New(8));
    const COM_Scoped vertex(GEO_Vertex::New(9));
    EXPECT_FALSE(vertex->setLocationNumber(8));
    EXPECT_EQ(vertex->getLocationNumber(), 9);
    EXPECT_EQ(GEO_Vertex::get(8), taken.get());
    EXPECT_EQ(GEO_Vertex::get(9), vertex.get());
}

TEST(GEO_Vertex, ItsOwnNumberIsTakenToo)
{
    const COM_Scoped vertex(GEO_Vertex::New(9));
    EXPECT_FALSE(vertex->setLocationNumber(9));
    EXPECT_EQ(vertex->getLocationNumber(), 9);
    EXPECT_EQ(GEO_Vertex::get(9), vertex.get());
}

TEST(GEO_Vertex, ANewNumberFreesTheOldOne)
{
    const COM_Scoped vertex(GEO_Vertex::New(8));
    EXPECT_TRUE(vertex->setLocationNumber(9));
    EXPECT_EQ(GEO_Vertex::get(8), nullptr);
    EXPECT_EQ(GEO_Vertex::get(9), vertex.get());
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    const COM_Scoped other(GEO_Vertex::New());
    EXPECT_TRUE(other->setLocationNumber(8));
}

TEST(GEO_Vertex, ANegativeNumberTakesThePresentOneAway)
{
    const COM_Scoped vertex(GEO_Vertex::New(8));
    EXPECT_TRUE(vertex->setLocationNumber(-3));
    EXPECT_EQ(vertex->getLocationNumber(), -3);
    EXPECT_EQ(GEO_Vertex::get(8), nullptr);
    EXPECT_TRUE(vertex->setLocationNumber(-1));
    EXPECT_TRUE(vertex->setLocationNumber(8));
    EXPECT_EQ(GEO_Vertex::get(8), vertex.get());
}

TEST(GEO_Vertex, AVertexThatIsGoneFreesOnlyTheNumberItHadLast)
{
    const COM_Scoped later(GEO_Vertex::New());
    {
        const COM_Scoped vertex(GEO_Vertex::New(8));
        vertex->setLocationNumber(9);
        later->setLocationNumber(8);
    }
    EXPECT_EQ(GEO_Vertex::get(8), later.get());
    EXPECT_EQ(GEO_Vertex::get(9), nullptr);
}

TEST(GEO_Vertex, NumbersOfTheEndOfTheRangeAreKept)
{
    constexpr long largest = 9223372036854775807;
    const COM_Scoped vertex(GEO_Vertex::New(largest));
    EXPECT_EQ(vertex->getLocationNumber(), largest);
    EXPECT_EQ(GEO_Vertex::get(largest), vertex.get());
}

// ---------------------------------------------------------------- point

TEST(GEO_Vertex, SettingAPointHoldsItInPlaceOfTheOldOne)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    const COM_Scoped first(GEO_Point::New(1.0, 2.0));
    const COM_Scoped second(GEO_Point::New(3.0, 4.0));
    vertex->setPoint(*first);
    EXPECT_EQ(first->getReferenceCount(), 2);
    vertex->setPoint(first.get());
    EXPECT_EQ(first->getReferenceCount(), 2);
    vertex->setPoint(second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    vertex->setPoint(nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(vertex->getPoint(), nullptr);
    vertex->resetPoint();
    EXPECT_EQ(vertex->getPoint(), nullptr);
}

TEST(GEO_Vertex, SettingTheLocationMovesThePresentPoint)
{
    const COM_Scoped point(GEO_Point::New(1.0, 2.0));
    const COM_Scoped vertex(GEO_Vertex::New(*point));
    vertex->setLocation(3.0, 4.0);
    EXPECT_EQ(vertex->getPoint(), point.get());
    EXPECT_EQ(valuesOf(*point), (Values{3.0, 4.0}));
    vertex->setLocation(5.0, 6.0, 7.0);
    EXPECT_EQ(valuesOf(*point), (Values{5.0, 6.0, 7.0}));
    const COM_Scoped other(GEO_Point::New(8.0, 9.0));
    vertex->setLocation(*other);
    EXPECT_EQ(valuesOf(*point), (Values{8.0, 9.0}));
    other->setLocation(0.5, 0.25);
    vertex->setLocation(other.get());
    EXPECT_EQ(valuesOf(*point), (Values{0.5, 0.25}));
    EXPECT_EQ(vertex->getPoint(), point.get());
    EXPECT_EQ(other->getReferenceCount(), 1);
}

TEST(GEO_Vertex, SettingTheLocationWithoutAPointMakesOne)
{
    const COM_Scoped flat(GEO_Vertex::New());
    flat->setLocation(3.0, 4.0);
    EXPECT_EQ(valuesOf(*flat->getPoint()), (Values{3.0, 4.0}));
    const COM_Scoped copied(GEO_Vertex::New());
    const COM_Scoped point(GEO_Point::New(5.0, 6.0, 7.0));
    copied->setLocation(*point);
    EXPECT_NE(copied->getPoint(), point.get());
    EXPECT_EQ(valuesOf(*copied->getPoint()), (Values{5.0, 6.0, 7.0}));
    EXPECT_EQ(point->getReferenceCount(), 1);
}

TEST(GEO_Vertex, AnIndexLeadsToACoordinateOfThePoint)
{
    const COM_Scoped vertex(GEO_Vertex::New(1.0, 2.0));
    EXPECT_EQ((*vertex)[1], 2.0);
    (*vertex)[1] = 5.0;
    EXPECT_EQ(valuesOf(*vertex->getPoint()), (Values{1.0, 5.0}));
}

TEST(GEO_Vertex, TheTextIsTheIdentityAndThePoint)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    const std::string identity = "10GEO_Vertex@" + std::to_string(vertex->getIdentityNumber());
    EXPECT_EQ(vertex->toString(), identity + " Pt:NULL");
    EXPECT_EQ(vertex->toString(0.5), identity + " Pt:NULL");
    vertex->setLocation(1.0, -0.25);
    EXPECT_EQ(vertex->toString(), identity + " Pt:(1.000000e+00,-2.500000e-01)");
    EXPECT_EQ(vertex->toString(0.5), identity + " Pt:(1.000000e+00,-5.000000e-01)");
}

// ---------------------------------------------------------------- notices

TEST_F(GEO_VertexNoticeTest, AChangeIsToldToEndingCurvesFirstAndThenToStartingOnes)
{
    mVertex->stateChanged();
    EXPECT_EQ(mCalls, mAll);
}

TEST_F(GEO_VertexNoticeTest, AnotherPointIsAChangeAndTheSameIsNone)
{
    const COM_Scoped point(GEO_Point::New());
    mVertex->setPoint(*point);
    EXPECT_EQ(mCalls, mAll);
    mVertex->setPoint(*point);
    EXPECT_EQ(mCalls, mAll);
}

TEST_F(GEO_VertexNoticeTest, APointTakenAwayIsToldToNobody)
{
    mVertex->setLocation(1.0, 2.0);
    mCalls.clear();
    mVertex->setPoint(nullptr);
    EXPECT_EQ(mCalls, Calls{});
    mVertex->setLocation(1.0, 2.0);
    mCalls.clear();
    mVertex->resetPoint();
    EXPECT_EQ(mCalls, Calls{});
}

TEST_F(GEO_VertexNoticeTest, EveryFormOfSettingTheLocationIsAChange)
{
    const COM_Scoped point(GEO_Point::New());
    mVertex->setLocation(1.0, 2.0);
    EXPECT_EQ(mCalls, mAll);
    mCalls.clear();
    mVertex->setLocation(1.0, 2.0);
    EXPECT_EQ(mCalls, mAll);
    mCalls.clear();
    mVertex->setLocation(1.0, 2.0, 3.0);
    EXPECT_EQ(mCalls, mAll);
    mCalls.clear();
    mVertex->setLocation(*point);
    EXPECT_EQ(mCalls, mAll);
    mCalls.clear();
    mVertex->setLocation(point.get());
    EXPECT_EQ(mCalls, mAll);
}

// ---------------------------------------------------------------- curves

TEST(GEO_Vertex, AddingACurveSetsItsEndAndEachCountsTheOther)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    const COM_Scoped line(GEO_Line::New());
    vertex->addToStartingCurves(*line);
    EXPECT_EQ(line->getStartingVertex(), vertex.get());
    EXPECT_EQ(line->getEndingVertex(), nullptr);
    EXPECT_EQ(vertex->getStartingCurves().size(), 1UL);
    EXPECT_EQ(vertex->getEndingCurves().size(), 0UL);
    EXPECT_EQ(vertex->getReferenceCount(), 2);
    EXPECT_EQ(line->getReferenceCount(), 2);
    vertex->addToEndingCurves(line.get());
    EXPECT_EQ(line->getEndingVertex(), vertex.get());
    EXPECT_EQ(vertex->getEndingCurves().size(), 1UL);
    EXPECT_EQ(vertex->getReferenceCount(), 3);
    EXPECT_EQ(line->getReferenceCount(), 3);
}

TEST(GEO_Vertex, ANullCurveAndOneHeldAlreadyAreIgnored)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    const COM_Scoped line(GEO_Line::New());
    vertex->addToStartingCurves(nullptr);
    vertex->addToEndingCurves(nullptr);
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    vertex->addToStartingCurves(*line);
    vertex->addToStartingCurves(*line);
    EXPECT_EQ(vertex->getStartingCurves().size(), 1UL);
    EXPECT_EQ(vertex->getReferenceCount(), 2);
    EXPECT_EQ(line->getReferenceCount(), 2);
}

TEST(GEO_Vertex, ACurveAddedToAnotherVertexLeavesTheFirstOne)
{
    const COM_Scoped first(GEO_Vertex::New());
    const COM_Scoped second(GEO_Vertex::New());
    const COM_Scoped line(GEO_Line::New());
    first->addToStartingCurves(*line);
    second->addToStartingCurves(*line);
    EXPECT_EQ(first->getStartingCurves().size(), 0UL);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    EXPECT_EQ(line->getReferenceCount(), 2);
    first->addToEndingCurves(*line);
    second->addToEndingCurves(*line);
    EXPECT_EQ(first->getEndingCurves().size(), 0UL);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 3);
    EXPECT_EQ(line->getReferenceCount(), 3);
}

TEST(GEO_Vertex, RemovingACurveClearsBothSides)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    const COM_Scoped line(GEO_Line::New());
    vertex->addToStartingCurves(*line);
    vertex->addToEndingCurves(*line);
    vertex->removeFromStartingCurves(*line);
    EXPECT_EQ(line->getStartingVertex(), nullptr);
    EXPECT_EQ(line->getEndingVertex(), vertex.get());
    EXPECT_EQ(vertex->getReferenceCount(), 2);
    EXPECT_EQ(line->getReferenceCount(), 2);
    vertex->removeFromStartingCurves(*line);
    EXPECT_EQ(line->getReferenceCount(), 2);
    vertex->removeFromEndingCurves(*line);
    EXPECT_EQ(line->getEndingVertex(), nullptr);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(line->getReferenceCount(), 1);
    vertex->removeFromEndingCurves(*line);
    EXPECT_EQ(line->getReferenceCount(), 1);
}

TEST(GEO_Vertex, ResettingOneListLeavesTheOther)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    const COM_Scoped out(GEO_Line::New());
    const COM_Scoped in(GEO_Line::New());
    vertex->addToStartingCurves(*out);
    vertex->addToEndingCurves(*in);
    vertex->resetStartingCurves();
    EXPECT_EQ(out->getStartingVertex(), nullptr);
    EXPECT_EQ(in->getEndingVertex(), vertex.get());
    vertex->addToStartingCurves(*out);
    vertex->resetEndingCurves();
    EXPECT_EQ(out->getStartingVertex(), vertex.get());
    EXPECT_EQ(in->getEndingVertex(), nullptr);
    vertex->addToEndingCurves(*in);
    vertex->resetCurves();
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(in->getReferenceCount(), 1);
    EXPECT_EQ(out->getReferenceCount(), 1);
}

TEST(GEO_Vertex, AVertexHeldByItsCurvesAloneGoesWhenTheyAreReset)
{
    const COM_Scoped out(GEO_Line::New());
    const COM_Scoped in(GEO_Line::New());
    {
        const COM_Scoped vertex(GEO_Vertex::New(5));
        vertex->addToStartingCurves(*out);
        vertex->addToEndingCurves(*in);
    }
    ASSERT_NE(GEO_Vertex::get(5), nullptr);
    GEO_Vertex::get(5)->resetStartingCurves();
    ASSERT_NE(GEO_Vertex::get(5), nullptr);
    GEO_Vertex::get(5)->resetEndingCurves();
    EXPECT_EQ(GEO_Vertex::get(5), nullptr);
    EXPECT_EQ(in->getEndingVertex(), nullptr);
    EXPECT_EQ(out->getStartingVertex(), nullptr);
}

TEST(GEO_Vertex, AllCurvesOfAVertexHeldByThemAloneCanBeResetAtOnce)
{
    for (const bool isStart : {true, false}) {
        const COM_Scoped line(GEO_Line::New());
        {
            const COM_Scoped vertex(GEO_Vertex::New(5));
            isStart ? vertex->addToStartingCurves(*line) : vertex->addToEndingCurves(*line);
        }
        GEO_Vertex::get(5)->resetCurves();
        EXPECT_EQ(GEO_Vertex::get(5), nullptr);
        EXPECT_EQ(line->getReferenceCount(), 1);
    }
}

TEST(GEO_Vertex, AVertexKeepsNoneOfItsCurvesAlive)
{
    const COM_Scoped vertex(GEO_Vertex::New(5));
    const COM_Scoped other(GEO_Vertex::New(6));
    {
        const COM_Scoped line(GEO_Line::New(*vertex, *other));
        EXPECT_EQ(vertex->getNumberOfCurves(), 1UL);
        EXPECT_EQ(line->getReferenceCount(), 3);
    }
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(GEO_Curve::get(*vertex, *other), nullptr);
}

TEST(GEO_Vertex, ACurveKeepsItsVerticesAlive)
{
    const COM_Scoped line(GEO_Line::New());
    line->setStartingVertex(*COM_Scoped(GEO_Vertex::New(5)));
    line->setEndingVertex(*COM_Scoped(GEO_Vertex::New(6)));
    ASSERT_NE(GEO_Vertex::get(5), nullptr);
    ASSERT_NE(GEO_Vertex::get(6), nullptr);
    EXPECT_EQ(GEO_Vertex::get(5)->getReferenceCount(), 1);
    EXPECT_EQ(GEO_Curve::get(*GEO_Vertex::get(6), *GEO_Vertex::get(5)), line.get());
}

TEST(GEO_Vertex, TheFirstCurveIsTheOneAddedFirstThatIsStillThere)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    EXPECT_EQ(vertex->getStartingCurve(), nullptr);
    EXPECT_EQ(vertex->getEndingCurve(), nullptr);
    const COM_Scoped a(GEO_Line::New());
    const COM_Scoped b(GEO_Line::New());
    vertex->addToStartingCurves(*a);
    vertex->addToStartingCurves(*b);
    vertex->addToEndingCurves(*b);
    EXPECT_EQ(vertex->getStartingCurve(), a.get());
    EXPECT_EQ(vertex->getEndingCurve(), b.get());
    vertex->removeFromStartingCurves(*a);
    EXPECT_EQ(vertex->getStartingCurve(), b.get());
}

TEST(GEO_Vertex, TheCurvesAreGivenEachOnceByTheirIdentity)
{
    const COM_Scoped a(GEO_Line::New());
    const COM_Scoped b(GEO_Line::New());
    const COM_Scoped c(GEO_Line::New());
    const COM_Scoped vertex(GEO_Vertex::New());
    vertex->addToStartingCurves(*c);
    vertex->addToStartingCurves(*b);
    vertex->addToEndingCurves(*b);
    vertex->addToEndingCurves(*a);
    EXPECT_EQ(vertex->getNumberOfCurves(), 3UL);
    const COM_Scoped out(COM_Array<GEO_Curve>::New());
    out->add(c.get());
    vertex->getCurvesToArray(*out);
    ASSERT_EQ(out->size(), 3UL);
    EXPECT_EQ(out->get(0), a.get());
    EXPECT_EQ(out->get(1), b.get());
    EXPECT_EQ(out->get(2), c.get());
    vertex->resetCurves();
    vertex->getCurvesToArray(*out);
    EXPECT_EQ(out->size(), 0UL);
}
