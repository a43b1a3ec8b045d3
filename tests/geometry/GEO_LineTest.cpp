#include "geometry/GEO_Line.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Spline.h"
#include "geometry/GEO_Vertex.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;

Values valuesOf(const GEO_Point& point)
{
    return {point.getValues(), point.getValues() + point.getDimension()};
}

/// The line from (1, 2) to (5, 4) between vertices 0 and 1.
class GEO_LineTest : public testing::Test
{
protected:
    GEO_LineTest()
    {
        mA->setLocation(1.0, 2.0);
        mB->setLocation(5.0, 4.0);
    }

    const COM_Scoped<GEO_Vertex> mA{GEO_Vertex::New(0)};
    const COM_Scoped<GEO_Vertex> mB{GEO_Vertex::New(1)};
    const COM_Scoped<GEO_Line> mLine{GEO_Line::New(*mA, *mB)};
};

struct CrossingCase
{
    const char* mName;
    Values mFrom, mTo; ///< The line's ends.
    Values mA, mB;     ///< The segment's.
    Values mCrossing;  ///< Empty when there is none.
};

void PrintTo(const CrossingCase& row, std::ostream* out)
{
    *out << row.mName;
}

std::string nameOf(const testing::TestParamInfo<CrossingCase>& info)
{
    return info.param.mName;
}

GEO_Point* newPoint(const Values& values)
{
    GEO_Point* const point = GEO_Point::New();
    point->setValues(values);
    return point;
}

class GEO_LineCrossingTest : public testing::TestWithParam<CrossingCase>
{
protected:
    GEO_LineCrossingTest()
    {
        mFrom->setPoint(*COM_Scoped(newPoint(GetParam().mFrom)));
        mTo->setPoint(*COM_Scoped(newPoint(GetParam().mTo)));
    }

    const COM_Scoped<GEO_Vertex> mFrom{GEO_Vertex::New()};
    const COM_Scoped<GEO_Vertex> mTo{GEO_Vertex::New()};
    const COM_Scoped<GEO_Line> mLine{GEO_Line::New(*mFrom, *mTo)};
    const COM_Scoped<GEO_Point> mA{newPoint(GetParam().mA)};
    const COM_Scoped<GEO_Point> mB{newPoint(GetParam().mB)};
};

} // namespace

TEST_F(GEO_LineTest, ALineBetweenTwoVerticesStartsAtTheFirst)
{
    EXPECT_EQ(mLine->getStartingVertex(), mA.get());
    EXPECT_EQ(mLine->getEndingVertex(), mB.get());
    EXPECT_EQ(mLine->getReferenceCount(), 3);
    EXPECT_EQ(mLine->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object",
                                                           "GEO_Curve", "GEO_Line"}));
}

TEST_F(GEO_LineTest, TheLineBetweenTwoVerticesIsTheSameInEitherOrder)
{
    {
        const COM_Scoped again(GEO_Line::New(*mA, *mB));
        EXPECT_EQ(again.get(), mLine.get());
        const COM_Scoped back(GEO_Line::New(*mB, *mA));
        EXPECT_EQ(back.get(), mLine.get());
        EXPECT_EQ(mLine->getReferenceCount(), 5);
        EXPECT_EQ(back->getStartingVertex(), mA.get());
    }
    EXPECT_EQ(mLine->getReferenceCount(), 3);
}

TEST_F(GEO_LineTest, LinesOfUnnumberedVerticesAreNotShared)
{
    const COM_Scoped vertex(GEO_Vertex::New());
    const COM_Scoped one(GEO_Line::New(*mA, *vertex));
    const COM_Scoped other(GEO_Line::New(*mA, *vertex));
    EXPECT_NE(one.get(), other.get());
    EXPECT_EQ(one->getReferenceCount(), 3);
}

TEST_F(GEO_LineTest, ACurveOfAnotherKindIsNotHandedOutAsALine)
{
    const COM_Scoped c(GEO_Vertex::New(2));
    const COM_Scoped spline(GEO_Spline::New(*mA, *c));
    const COM_Scoped line(GEO_Line::New(*mA, *c));
    EXPECT_NE(static_cast<GEO_Curve*>(line.get()), static_cast<GEO_Curve*>(spline.get()));
    EXPECT_EQ(spline->getReferenceCount(), 3);
    EXPECT_EQ(GEO_Curve::get(*mA, *c), line.get());
}

TEST_F(GEO_LineTest, ANewInstanceIsALineWithoutEnds)
{
    const COM_Scoped line(mLine->NewCurveInstance());
    EXPECT_EQ(line->getClassName(), "8GEO_Line");
    EXPECT_EQ(line->getStartingVertex(), nullptr);
    EXPECT_EQ(line->getReferenceCount(), 1);
}

TEST_F(GEO_LineTest, TheParameterRunsFromTheStartToTheEnd)
{
    const COM_Scoped point(GEO_Point::New());
    mLine->computePoint(0.0, *point);
    EXPECT_EQ(valuesOf(*point), (Values{1.0, 2.0}));
    mLine->computePoint(0.25, *point);
    EXPECT_EQ(valuesOf(*point), (Values{2.0, 2.5}));
    mLine->computePoint(1.0, *point);
    EXPECT_EQ(valuesOf(*point), (Values{5.0, 4.0}));
    mLine->computePoint(-0.5, *point);
    EXPECT_EQ(valuesOf(*point), (Values{-1.0, 1.0}));
}

TEST_F(GEO_LineTest, APointOfTheMeshHasOneCoordinate)
{
    const COM_Scoped a(GEO_Point::New());
    a->setDimension(1);
    a->setValue(0, 3.0);
    const COM_Scoped b(GEO_Point::New(*a));
    b->setValue(0, 5.0);
    mA->setPoint(*a);
    mB->setPoint(*b);
    const COM_Scoped point(GEO_Point::New());
    mLine->computePoint(0.5, *point);
    EXPECT_EQ(valuesOf(*point), (Values{4.0}));
    EXPECT_EQ(mLine->getLength(), 2.0);
}

TEST_F(GEO_LineTest, WithoutAnEndPointNothingIsComputed)
{
    const COM_Scoped point(GEO_Point::New(7.0, 8.0));
    mB->resetPoint();
    mLine->computePoint(0.5, *point);
    EXPECT_EQ(valuesOf(*point), (Values{7.0, 8.0}));
    EXPECT_EQ(mLine->getLength(), 0.0);
    const COM_Scoped a(GEO_Point::New(0.0, 0.0));
    const COM_Scoped b(GEO_Point::New(9.0, 9.0));
    EXPECT_FALSE(mLine->intersect(*a, *b, *point));
}

TEST_F(GEO_LineTest, TheLengthIsTheDistanceOfItsPoints)
{
    EXPECT_EQ(mLine->getLength(), std::sqrt(20.0));
    mB->setLocation(1.0, 2.0);
    EXPECT_EQ(mLine->getLength(), 0.0);
    mB->setLocation(1.0, 2.0, 3.0);
    EXPECT_EQ(mLine->getLength(), 3.0);
}

TEST(GEO_Line, ACoordinateHasAValueAtOneParameterIfTheLineReachesIt)
{
    const COM_Scoped a(GEO_Vertex::New(1.0, 2.0));
    const COM_Scoped b(GEO_Vertex::New(5.0, 2.0));
    const COM_Scoped line(GEO_Line::New(*a, *b));
    EXPECT_EQ(line->getExtent(0), 4.0);
    EXPECT_EQ(line->getExtent(1), 0.0);
    EXPECT_EQ(line->getParametersAt(0, 1.0), std::vector<double>{0.0});
    EXPECT_EQ(line->getParametersAt(0, 4.0), std::vector<double>{0.75});
    EXPECT_EQ(line->getParametersAt(0, 5.0), std::vector<double>{1.0});
    EXPECT_TRUE(line->getParametersAt(0, 0.5).empty());
    EXPECT_TRUE(line->getParametersAt(0, 5.5).empty());
    EXPECT_TRUE(line->getParametersAt(1, 2.0).empty()) << "everywhere, and so nowhere alone";
    EXPECT_TRUE(line->getParametersAt(1, 3.0).empty());
    a->resetPoint();
    EXPECT_EQ(line->getExtent(0), 0.0);
    EXPECT_TRUE(line->getParametersAt(0, 4.0).empty());
}

TEST_F(GEO_LineTest, TheBoxIsThatOfTheEnds)
{
    const COM_Scoped box(GEO_Box::New());
    mLine->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), " Min:(1.000000e+00,2.000000e+00)\n"
                               " Max:(5.000000e+00,4.000000e+00)\n");
}

TEST_P(GEO_LineCrossingTest, TheCrossingIsFoundInEitherDirection)
{
    const Values& expected = GetParam().mCrossing;
    const COM_Scoped point(GEO_Point::New(77.0, 77.0));
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    for (const bool isReverse : {false, true}) {
        const GEO_Point& a = isReverse ? *mB : *mA;
        const GEO_Point& b = isReverse ? *mA : *mB;
        EXPECT_EQ(mLine->intersect(a, b, *point), !expected.empty());
        EXPECT_EQ(valuesOf(*point), expected.empty() ? (Values{77.0, 77.0}) : expected);
        points->add(*mA); // what the array holds before is released
        EXPECT_EQ(mLine->intersect(a, b, *points), expected.empty() ? 0UL : 1UL);
        EXPECT_EQ(points->size(), expected.empty() ? 0UL : 1UL);
        EXPECT_EQ(mA->getReferenceCount(), 1);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, GEO_LineCrossingTest,
    testing::Values(
        CrossingCase{"InTheMiddle", {0, 0}, {4, 4}, {0, 4}, {4, 0}, {2, 2}},
        CrossingCase{"NearTheStart", {0, 0}, {8, 0}, {1, -1}, {1, 1}, {1, 0}},
        CrossingCase{"AtTheStart", {0, 0}, {4, 4}, {-1, 1}, {1, -1}, {0, 0}},
        CrossingCase{"AtTheEnd", {0, 0}, {4, 4}, {3, 5}, {5, 3}, {4, 4}},
        CrossingCase{"AtAnEndOfTheSegment", {0, 0}, {4, 0}, {2, 0}, {2, 5}, {2, 0}},
        CrossingCase{"InACorner", {0, 0}, {4, 0}, {4, 0}, {4, 5}, {4, 0}},
        CrossingCase{"BeyondTheEndOfTheLine", {0, 0}, {4, 0}, {5, -1}, {5, 1}, {}},
        CrossingCase{"BeforeTheStartOfTheLine", {0, 0}, {4, 0}, {-1, -1}, {-1, 1}, {}},
        CrossingCase{"BeyondTheEndOfTheSegment", {0, 0}, {4, 0}, {2, 1}, {2, 5}, {}},
        CrossingCase{"Parallel", {0, 0}, {4, 0}, {0, 1}, {4, 1}, {}},
        CrossingCase{"OnOneLine", {0, 0}, {4, 0}, {1, 0}, {2, 0}, {}},
        CrossingCase{"ASegmentOfOnePoint", {0, 0}, {4, 0}, {2, 0}, {2, 0}, {}},
        CrossingCase{"InSpace", {0, 0, 0}, {4, 4, 4}, {4, 0, 2}, {0, 4, 2}, {2, 2, 2}},
        CrossingCase{"PassingEachOther", {0, 0, 0}, {4, 4, 0}, {4, 0, 1}, {0, 4, 1}, {}},
        CrossingCase{"UprightInSpace", {1, 1, 0}, {1, 1, 8}, {0, 1, 2}, {4, 1, 2}, {1, 1, 2}}),
    nameOf);

TEST(GEO_Line, CrossingsOfRandomLinesAgreeWithTheSidesTheirEndsLieOn)
{
    // Coordinates are small integers, so that the sides are exact; touching cases count as crossings.
    std::mt19937 random(20);
    const auto coordinate = [&random] {
        return static_cast<double>(random() % 13) - 6.0; // 13 values from -6 to 6
    };
    int crossings = 0;
    int misses = 0;
    for (int k = 0; k < 2000; ++k) {
        const double x[4] = {coordinate(), coordinate(), coordinate(), coordinate()};
        const double y[4] = {coordinate(), coordinate(), coordinate(), coordinate()};
        const auto side = [&x, &y](int i, int j, int of) {
            return (x[j] - x[i]) * (y[of] - y[i]) - (y[j] - y[i]) * (x[of] - x[i]);
        };
        if ((x[1] - x[0]) * (y[3] - y[2]) == (y[1] - y[0]) * (x[3] - x[2])) {
            continue; // parallel, or no lines at all
        }
        const bool expected =
            side(0, 1, 2) * side(0, 1, 3) <= 0.0 && side(2, 3, 0) * side(2, 3, 1) <= 0.0;
        const COM_Scoped from(GEO_Vertex::New(x[0], y[0]));
        const COM_Scoped to(GEO_Vertex::New(x[1], y[1]));
        const COM_Scoped line(GEO_Line::New(*from, *to));
        const COM_Scoped a(GEO_Point::New(x[2], y[2]));
        const COM_Scoped b(GEO_Point::New(x[3], y[3]));
        const COM_Scoped point(GEO_Point::New());
        ASSERT_EQ(line->intersect(*a, *b, *point), expected) << "case " << k;
        if (expected) {
            // On the line through a and b, up to a few roundings of coordinates below 8.
            const double off =
                (x[3] - x[2]) * ((*point)[1] - y[2]) - (y[3] - y[2]) * ((*point)[0] - x[2]);
            EXPECT_NEAR(off, 0.0, 1e-13) << "case " << k;
        }
        ++(expected ? crossings : misses);
    }
    EXPECT_GT(crossings, 100);
    EXPECT_GT(misses, 100);
}
