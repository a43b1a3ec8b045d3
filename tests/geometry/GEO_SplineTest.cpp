#include "geometry/GEO_Spline.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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

void setControlPoint(GEO_Spline& spline, unsigned long i, double x, double y)
{
    spline.setControlPoint(i, *COM_Scoped(GEO_Point::New(x, y)));
}

/// A piece from (0, 0) to (8, 0) with the control points (0, 8) and (8, 8), between vertices 0 and 1.
class GEO_SplineTest : public testing::Test
{
protected:
    GEO_SplineTest()
    {
        mA->setLocation(0.0, 0.0);
        mB->setLocation(8.0, 0.0);
        setControlPoint(*mSpline, 1, 0.0, 8.0);
        setControlPoint(*mSpline, 2, 8.0, 8.0);
    }
    Values at(double t) const
    {
        const COM_Scoped point(GEO_Point::New(77.0, 77.0));
        mSpline->computePoint(t, *point);
        return valuesOf(*point);
    }
    Values derivativeAt(double t) const
    {
        const COM_Scoped point(GEO_Point::New(77.0, 77.0));
        mSpline->computeDerivativePoint(t, *point);
        return valuesOf(*point);
    }
    Values control(unsigned long i) const { return valuesOf(*mSpline->getControlPoint(i)); }

    const COM_Scoped<GEO_Vertex> mA{GEO_Vertex::New(0)};
    const COM_Scoped<GEO_Vertex> mB{GEO_Vertex::New(1)};
    const COM_Scoped<GEO_Spline> mSpline{GEO_Spline::New(*mA, *mB)};
};

const Values untouched{77.0, 77.0};

} // namespace

// ---------------------------------------------------------------- creation

TEST_F(GEO_SplineTest, ANewPieceHasNeitherEndsNorControlPoints)
{
    const COM_Scoped spline(GEO_Spline::New());
    EXPECT_EQ(spline->getReferenceCount(), 1);
    EXPECT_EQ(spline->getStartingVertex(), nullptr);
    EXPECT_EQ(spline->getControlPoint(1), nullptr);
    EXPECT_EQ(spline->getControlPoint(2), nullptr);
    EXPECT_EQ(spline->getBeginParameter(), 0.0);
    EXPECT_EQ(spline->getEndParameter(), 1.0);
    EXPECT_EQ(spline->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object",
                                                            "GEO_Curve", "GEO_Spline"}));
}

TEST_F(GEO_SplineTest, ANewPieceBetweenTwoVerticesIsNearlyStraight)
{
    const COM_Scoped a(GEO_Vertex::New(1.0, 2.0));
    const COM_Scoped b(GEO_Vertex::New(101.0, -98.0));
    const COM_Scoped spline(GEO_Spline::New(*a, *b));
    EXPECT_EQ(valuesOf(*spline->getControlPoint(1)), (Values{34.0, -31.0}));
    EXPECT_EQ(valuesOf(*spline->getControlPoint(2)), (Values{67.0, -64.0}));
    EXPECT_EQ(spline->getControlPoint(1)->getReferenceCount(), 1);
    // Half way: (1 + 3 (0.33 + 0.66) + 1) / 8 of the whole way instead of a half.
    const COM_Scoped point(GEO_Point::New());
    spline->computePoint(0.5, *point);
    EXPECT_NEAR((*point)[0], 1.0 + 100.0 * 3.97 / 8.0, 1e-13); // roundings of numbers below 100
}

TEST_F(GEO_SplineTest, ThePieceBetweenTwoVerticesIsTheSameInEitherOrderAndKeepsItsShape)
{
    const COM_Scoped again(GEO_Spline::New(*mA, *mB));
    EXPECT_EQ(again.get(), mSpline.get());
    const COM_Scoped back(GEO_Spline::New(*mB, *mA));
    EXPECT_EQ(back.get(), mSpline.get());
    EXPECT_EQ(mSpline->getReferenceCount(), 5);
    EXPECT_EQ(back->getStartingVertex(), mA.get());
}

TEST_F(GEO_SplineTest, ALineIsNotHandedOutAsAPiece)
{
    const COM_Scoped c(GEO_Vertex::New(2));
    const COM_Scoped line(GEO_Line::New(*mA, *c));
    const COM_Scoped spline(GEO_Spline::New(*mA, *c));
    EXPECT_EQ(spline->getClassName(), "10GEO_Spline");
    EXPECT_EQ(line->getReferenceCount(), 3);
    EXPECT_EQ(spline->getReferenceCount(), 3);
}

TEST_F(GEO_SplineTest, VerticesWithoutPointsGiveAPieceWithoutControlPoints)
{
    const COM_Scoped a(GEO_Vertex::New());
    const COM_Scoped spline(GEO_Spline::New(*a, *mB));
    EXPECT_EQ(spline->getControlPoint(1), nullptr);
    a->setLocation(0.0, 100.0);
    mB->setLocation(0.0, 200.0);
    spline->initControlPoints();
    EXPECT_EQ(valuesOf(*spline->getControlPoint(1)), (Values{0.0, 133.0}));
    EXPECT_EQ(valuesOf(*spline->getControlPoint(2)), (Values{0.0, 166.0}));
}

TEST_F(GEO_SplineTest, ANewInstanceIsAPieceWithoutEnds)
{
    const COM_Scoped spline(mSpline->NewCurveInstance());
    EXPECT_EQ(spline->getClassName(), "10GEO_Spline");
    EXPECT_EQ(spline->getStartingVertex(), nullptr);
    EXPECT_EQ(spline->getReferenceCount(), 1);
}

TEST_F(GEO_SplineTest, ControlPointsAreHeldUntilTheyAreReplacedOrReset)
{
    const COM_Scoped p(GEO_Point::New(1.0, 1.0));
    const COM_Scoped q(GEO_Point::New(2.0, 2.0));
    mSpline->setControlPoint(1, *p);
    mSpline->setControlPoint(2, p.get());
    EXPECT_EQ(p->getReferenceCount(), 3);
    EXPECT_EQ(mSpline->getControlPoint(1), p.get());
    mSpline->setControlPoint(1, *q);
    EXPECT_EQ(p->getReferenceCount(), 2);
    EXPECT_EQ(q->getReferenceCount(), 2);
    mSpline->resetControlPoint(2);
    EXPECT_EQ(p->getReferenceCount(), 1);
    EXPECT_EQ(mSpline->getControlPoint(2), nullptr);
    EXPECT_EQ(mSpline->getControlPoint(1), q.get());
    mSpline->resetControlPoint(1);
    EXPECT_EQ(q->getReferenceCount(), 1);
}

TEST_F(GEO_SplineTest, OtherNumbersOfControlPointsAreIgnored)
{
    const COM_Scoped p(GEO_Point::New(1.0, 1.0));
    mSpline->setControlPoint(0, *p);
    mSpline->setControlPoint(3, *p);
    EXPECT_EQ(p->getReferenceCount(), 1);
    EXPECT_EQ(mSpline->getControlPoint(0), nullptr);
    EXPECT_EQ(mSpline->getControlPoint(3), nullptr);
    mSpline->resetControlPoint(0);
    EXPECT_EQ(control(1), (Values{0.0, 8.0}));
}

TEST_F(GEO_SplineTest, AReleasedPieceReleasesItsControlPoints)
{
    const COM_Scoped p(GEO_Point::New(1.0, 1.0));
    {
        const COM_Scoped spline(GEO_Spline::New());
        spline->setControlPoint(1, *p);
        spline->setControlPoint(2, *p);
    }
    EXPECT_EQ(p->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- points and derivatives

TEST_F(GEO_SplineTest, ThePieceRunsFromAToB)
{
    EXPECT_EQ(at(0.0), (Values{0.0, 0.0}));
    EXPECT_EQ(at(1.0), (Values{8.0, 0.0}));
}

TEST_F(GEO_SplineTest, PointsFollowTheCubicOfTheFourPoints)
{
    EXPECT_EQ(at(0.5), (Values{4.0, 6.0}));
    EXPECT_EQ(at(0.25), (Values{1.25, 4.5}));
    EXPECT_EQ(at(0.75), (Values{6.75, 4.5}));
}

TEST_F(GEO_SplineTest, TheDerivativeIsThatOfTheCubic)
{
    EXPECT_EQ(derivativeAt(0.0), (Values{0.0, 24.0}));
    EXPECT_EQ(derivativeAt(0.5), (Values{12.0, 0.0}));
    EXPECT_EQ(derivativeAt(1.0), (Values{0.0, -24.0}));
    EXPECT_EQ(derivativeAt(0.25), (Values{9.0, 12.0}));
}

TEST_F(GEO_SplineTest, TheDerivativeAgreesWithFiniteDifferences)
{
    setControlPoint(*mSpline, 1, -3.0, 5.0);
    setControlPoint(*mSpline, 2, 11.0, 2.0);
    constexpr double h = 1.0 / 1024.0;
    for (int k = 1; k < 16; ++k) {
        const double t = k / 16.0;
        for (unsigned long i = 0; i < 2; ++i) {
            const double difference = (at(t + h)[i] - at(t - h)[i]) / (2.0 * h);
            // The error of a cubic is its third derivative, below 6 * 40, times h^2 / 6.
            EXPECT_NEAR(derivativeAt(t)[i], difference, 40.0 * h * h) << t;
        }
    }
}

TEST_F(GEO_SplineTest, WithoutAnEndPointOrAControlPointNothingIsDone)
{
    mSpline->resetControlPoint(1);
    EXPECT_EQ(at(0.5), untouched);
    EXPECT_EQ(derivativeAt(0.5), untouched);
    setControlPoint(*mSpline, 1, 0.0, 8.0);
    mSpline->resetControlPoint(2);
    EXPECT_EQ(at(0.5), untouched);
    EXPECT_EQ(derivativeAt(0.5), untouched);
    setControlPoint(*mSpline, 2, 8.0, 8.0);
    mA->resetPoint();
    EXPECT_EQ(at(0.5), untouched);
    EXPECT_EQ(derivativeAt(0.5), untouched);
    mA->setLocation(0.0, 0.0);
    mSpline->resetEndingVertex();
    EXPECT_EQ(at(0.5), untouched);
    EXPECT_EQ(derivativeAt(0.5), untouched);
    mSpline->setEndingVertex(*mB);
    EXPECT_EQ(at(0.5), (Values{4.0, 6.0}));
}

TEST_F(GEO_SplineTest, TheFourPointsMayHaveDifferentDimensions)
{
    mB->setLocation(8.0, 0.0, 16.0);
    EXPECT_EQ(at(0.5), (Values{4.0, 6.0, 2.0}));
    EXPECT_EQ(derivativeAt(0.5), (Values{12.0, 0.0, 12.0}));
}

TEST_F(GEO_SplineTest, TheLengthIsThatOfTheChord)
{
    EXPECT_EQ(mSpline->getLength(), 8.0);
}

TEST_F(GEO_SplineTest, TheBoxHoldsTheArcAndNotItsControlPoints)
{
    const COM_Scoped box(GEO_Box::New());
    mSpline->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), " Min:(0.000000e+00,0.000000e+00)\n"
                               " Max:(8.000000e+00,6.000000e+00)\n");
}

TEST_F(GEO_SplineTest, APieceWithoutControlPointsHasNoBox)
{
    mSpline->resetControlPoint(1);
    const COM_Scoped box(GEO_Box::New());
    box->setTo(7.0);
    const std::string before = box->toString();
    mSpline->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), before);
}

// ---------------------------------------------------------------- derivatives and parameters

TEST_F(GEO_SplineTest, ADerivativeAtAnEndPlacesTheControlPointBesideIt)
{
    const COM_Scoped d(GEO_Point::New(3.0, 6.0));
    mSpline->setBeginDerivative(*d);
    EXPECT_EQ(control(1), (Values{1.0, 2.0}));
    EXPECT_EQ(control(2), (Values{8.0, 8.0}));
    mSpline->setEndDerivative(*d);
    EXPECT_EQ(control(2), (Values{7.0, -2.0}));
    EXPECT_EQ(derivativeAt(0.0), (Values{3.0, 6.0}));
    EXPECT_EQ(derivativeAt(1.0), (Values{3.0, 6.0}));
}

TEST_F(GEO_SplineTest, ADerivativeRefersToTheRangeOfTheParameter)
{
    mSpline->setParameters(2.0, 8.0);
    const COM_Scoped d(GEO_Point::New(1.0, 0.5));
    mSpline->setBeginDerivative(*d);
    mSpline->setEndDerivative(*d);
    EXPECT_EQ(control(1), (Values{2.0, 1.0}));
    EXPECT_EQ(control(2), (Values{6.0, -1.0}));
    // dP/dt = dP/du (u1 - u0)
    EXPECT_EQ(derivativeAt(0.0), (Values{6.0, 3.0}));
}

TEST_F(GEO_SplineTest, ADerivativeWithoutItsEndPointIsIgnored)
{
    mA->resetPoint();
    mSpline->setBeginDerivative(*COM_Scoped(GEO_Point::New(3.0, 6.0)));
    EXPECT_EQ(control(1), (Values{0.0, 8.0}));
    mSpline->resetEndingVertex();
    mSpline->setEndDerivative(*COM_Scoped(GEO_Point::New(3.0, 6.0)));
    EXPECT_EQ(control(2), (Values{8.0, 8.0}));
}

TEST_F(GEO_SplineTest, AnotherRangeScalesTheControlPointsAboutTheirEnds)
{
    mSpline->setParameters(5.0, 7.0); // twice as long as the range from 0 to 1
    EXPECT_EQ(mSpline->getBeginParameter(), 5.0);
    EXPECT_EQ(mSpline->getEndParameter(), 7.0);
    EXPECT_EQ(control(1), (Values{0.0, 16.0}));
    EXPECT_EQ(control(2), (Values{8.0, 16.0}));
    mSpline->setParameters(0.0, 0.5);
    EXPECT_EQ(control(1), (Values{0.0, 4.0}));
    EXPECT_EQ(control(2), (Values{8.0, 4.0}));
}

TEST_F(GEO_SplineTest, AnotherRangeKeepsTheDerivativesWithRespectToTheParameter)
{
    setControlPoint(*mSpline, 1, 1.0, 5.0);
    const Values before = derivativeAt(0.0);
    mSpline->setParameters(1.0, 5.0);
    const Values after = derivativeAt(0.0);
    EXPECT_EQ(after[0] / 4.0, before[0]);
    EXPECT_EQ(after[1] / 4.0, before[1]);
}

TEST_F(GEO_SplineTest, ARangeOfNoLengthLeavesTheControlPointsWhenItIsReplaced)
{
    mSpline->setParameters(3.0, 3.0);
    EXPECT_EQ(control(1), (Values{0.0, 0.0})); // drawn to its end
    setControlPoint(*mSpline, 1, 0.0, 8.0);
    setControlPoint(*mSpline, 2, 8.0, 8.0);
    mSpline->setParameters(0.0, 4.0);
    EXPECT_EQ(control(1), (Values{0.0, 8.0}));
    EXPECT_EQ(control(2), (Values{8.0, 8.0}));
    EXPECT_EQ(mSpline->getEndParameter(), 4.0);
}

TEST_F(GEO_SplineTest, ARangeIsKeptByAPieceWithoutControlPoints)
{
    const COM_Scoped spline(GEO_Spline::New());
    spline->setParameters(2.0, 5.0);
    EXPECT_EQ(spline->getBeginParameter(), 2.0);
    EXPECT_EQ(spline->getEndParameter(), 5.0);
    EXPECT_EQ(spline->getControlPoint(1), nullptr);
}

// ---------------------------------------------------------------- crossings

namespace {

struct ArcCase
{
    const char* mName;
    Values mA, mB;                 ///< Ends of the segment.
    std::vector<Values> mCrossing; ///< In the order of the arc.
};

void PrintTo(const ArcCase& row, std::ostream* out)
{
    *out << row.mName;
}

std::string nameOf(const testing::TestParamInfo<ArcCase>& info)
{
    return info.param.mName;
}

class GEO_SplineArcTest : public GEO_SplineTest, public testing::WithParamInterface<ArcCase>
{};

} // namespace

// The arc of the fixture: x = 8 t^2 (3 - 2 t), y = 24 t (1 - t).
TEST_P(GEO_SplineArcTest, TheSegmentMeetsTheArcWhereTheCubicSays)
{
    const COM_Scoped a(GEO_Point::New());
    a->setValues(GetParam().mA);
    const COM_Scoped b(GEO_Point::New());
    b->setValues(GetParam().mB);
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    for (const bool isReverse : {false, true}) {
        points->add(*a); // what the array holds before is released
        const unsigned long count =
            isReverse ? mSpline->intersect(*b, *a, *points) : mSpline->intersect(*a, *b, *points);
        ASSERT_EQ(count, GetParam().mCrossing.size());
        ASSERT_EQ(points->size(), count);
        for (unsigned long i = 0; i < count; ++i) {
            EXPECT_NEAR((*points)[i][0], GetParam().mCrossing[i][0], 1e-12);
            EXPECT_NEAR((*points)[i][1], GetParam().mCrossing[i][1], 1e-12);
        }
    }
    EXPECT_EQ(a->getReferenceCount(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Table, GEO_SplineArcTest,
    testing::Values(ArcCase{"UprightThroughTheTop", {4, 0}, {4, 10}, {{4, 6}}},
                    ArcCase{
                        "LevelThroughBothSides", {-1, 4.5}, {9, 4.5}, {{1.25, 4.5}, {6.75, 4.5}}},
                    ArcCase{"LevelThroughOneSide", {-1, 4.5}, {4, 4.5}, {{1.25, 4.5}}},
                    ArcCase{"SlantedThroughTheTop", {2, 4}, {6, 8}, {{4, 6}}},
                    ArcCase{"AboveTheTop", {-1, 7}, {9, 7}, {}},
                    ArcCase{"BelowTheEnds", {-1, -1}, {9, -1}, {}},
                    ArcCase{"BesideTheArc", {9, -1}, {9, 9}, {}},
                    ArcCase{"BetweenTheSides", {2, 4}, {6, 4}, {}},
                    ArcCase{"ASegmentOfOnePoint", {4, 6}, {4, 6}, {}},
                    ArcCase{"LevelThroughBothEnds", {-1, 0}, {9, 0}, {{0, 0}, {8, 0}}},
                    ArcCase{"ThroughTheStart", {-1, 1}, {1, -1}, {{0, 0}}},
                    ArcCase{"ThroughTheEnd", {7, -1}, {9, 1}, {{8, 0}}},
                    ArcCase{"UpToTheStart", {-4, 0}, {0, 0}, {{0, 0}}}),
    nameOf);

TEST_F(GEO_SplineTest, ACoordinateHasAValueWhereTheCubicSays)
{
    // x = 8 t^2 (3 - 2 t), y = 24 t (1 - t)
    const Values middle = mSpline->getParametersAt(0, 4.0);
    ASSERT_EQ(middle.size(), 1UL);
    EXPECT_NEAR(middle[0], 0.5, 1e-15);
    const Values sides = mSpline->getParametersAt(1, 4.5);
    ASSERT_EQ(sides.size(), 2UL);
    EXPECT_NEAR(sides[0], 0.25, 1e-15);
    EXPECT_NEAR(sides[1], 0.75, 1e-15);
    EXPECT_EQ(mSpline->getParametersAt(1, 0.0), (Values{0.0, 1.0}));
    EXPECT_EQ(mSpline->getParametersAt(1, 6.0), Values{0.5});
    EXPECT_EQ(mSpline->getParametersAt(1, 6.5), Values{});
    EXPECT_EQ(mSpline->getParametersAt(0, -1.0), Values{});
    EXPECT_EQ(mSpline->getParametersAt(0, 8.5), Values{});
    EXPECT_EQ(mSpline->getParametersAt(2, 1.0), Values{}) << "a plane curve lies at 0";
}

TEST_F(GEO_SplineTest, TheExtentIsTheWayAlongTheControlPointsAndNeverLessThanTheWayItself)
{
    EXPECT_EQ(mSpline->getExtent(0), 8.0);
    EXPECT_EQ(mSpline->getExtent(1), 16.0);
    EXPECT_EQ(mSpline->getExtent(2), 0.0);
    std::mt19937 random(5);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    for (int k = 0; k < 100; ++k) {
        setControlPoint(*mSpline, 1, any(random) * 20.0, any(random) * 20.0);
        setControlPoint(*mSpline, 2, any(random) * 20.0, any(random) * 20.0);
        for (unsigned long i = 0; i < 2; ++i) {
            double way = 0.0;
            for (int step = 0; step < 500; ++step) {
                way += std::fabs(at((step + 1) / 500.0)[i] - at(step / 500.0)[i]);
            }
            EXPECT_LE(way, mSpline->getExtent(i) * (1.0 + 1e-12)) << k;
            EXPECT_GE(way, std::fabs(at(1.0)[i] - at(0.0)[i]) * (1.0 - 1e-12)) << k;
        }
    }
}

TEST_F(GEO_SplineTest, AnIncompletePieceHasNeitherExtentNorParameters)
{
    mSpline->resetControlPoint(2);
    EXPECT_EQ(mSpline->getExtent(0), 0.0);
    EXPECT_EQ(mSpline->getParametersAt(0, 4.0), Values{});
}

TEST_F(GEO_SplineTest, AnIncompletePieceHasNoCrossings)
{
    mSpline->resetControlPoint(2);
    const COM_Scoped a(GEO_Point::New(4.0, -10.0));
    const COM_Scoped b(GEO_Point::New(4.0, 10.0));
    const COM_Scoped point(GEO_Point::New(77.0, 77.0));
    EXPECT_FALSE(mSpline->intersect(*a, *b, *point));
    EXPECT_EQ(valuesOf(*point), untouched);
}

TEST_F(GEO_SplineTest, APieceThatWindsIsMetThreeTimes)
{
    // y = 48 t (1 - t) (1 - 2 t): up, through the middle, and down again.
    setControlPoint(*mSpline, 1, 2.0, 16.0);
    setControlPoint(*mSpline, 2, 6.0, -16.0);
    const COM_Scoped a(GEO_Point::New(-1.0, 1.0));
    const COM_Scoped b(GEO_Point::New(9.0, -1.0));
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    ASSERT_EQ(mSpline->intersect(*a, *b, *points), 3UL);
    EXPECT_NEAR((*points)[1][0], 4.0, 1e-12);
    EXPECT_NEAR((*points)[1][1], 0.0, 1e-12);
    // The S is symmetric about its middle, and so is the segment.
    EXPECT_NEAR((*points)[0][0] + (*points)[2][0], 8.0, 1e-12);
    EXPECT_NEAR((*points)[0][1] + (*points)[2][1], 0.0, 1e-12);
    EXPECT_LT((*points)[0][0], 4.0);
}

namespace {

/// Kinds of random pieces for the comparison with bisection.
enum class Shape {
    ANY,      ///< Control points anywhere.
    NEW,      ///< As made: at 0.33 and 0.66 of the way.
    STRAIGHT, ///< Control points at the thirds, as derivatives of a straight polygon place them.
};

void PrintTo(const Shape& shape, std::ostream* out)
{
    *out << (shape == Shape::ANY ? "any" : shape == Shape::NEW ? "new" : "straight");
}

class GEO_SplineBisectionTest : public testing::TestWithParam<Shape>
{
protected:
    double any() { return mUniform(mRandom); }
    void shape(GEO_Spline& spline, const GEO_Vertex& a, const GEO_Vertex& b)
    {
        for (unsigned long i = 1; i <= 2 && GetParam() != Shape::NEW; ++i) {
            const COM_Scoped point(GEO_Point::New(any(), any()));
            if (GetParam() == Shape::STRAIGHT) {
                const double part = static_cast<double>(i) / 3.0;
                for (unsigned long j = 0; j < 2; ++j) {
                    const double from = (*a.getPoint())[j];
                    (*point)[j] = from + part * ((*b.getPoint())[j] - from);
                }
            }
            spline.setControlPoint(i, *point);
        }
    }

    std::mt19937 mRandom{7};
    std::uniform_real_distribution<double> mUniform{-1.0, 1.0};
};

using Place = std::array<double, 2>;

struct Bisection
{
    std::vector<Place> mCrossings;
    bool mIsClear = true; ///< False when a crossing lies so near an end that roundings decide.
};

/// The crossings of the piece with the segment: changes of side between 2000 points, then bisection.
Bisection bisect(const GEO_Spline& spline, const GEO_Point& a, const GEO_Point& b)
{
    const double dx = b[0] - a[0];
    const double dy = b[1] - a[1];
    const COM_Scoped point(GEO_Point::New());
    const auto side = [&](double t) {
        spline.computePoint(t, *point);
        return ((*point)[1] - a[1]) * dx - ((*point)[0] - a[0]) * dy;
    };
    constexpr int n = 2000;
    constexpr double edge = 1e-6;
    Bisection result;
    for (int k = 0; k < n; ++k) {
        double low = static_cast<double>(k) / n;
        double high = static_cast<double>(k + 1) / n;
        const bool isNegative = side(low) < 0.0;
        if (isNegative == (side(high) < 0.0)) {
            continue;
        }
        for (int step = 0; step < 60; ++step) {
            const double middle = (low + high) / 2.0;
            ((side(middle) < 0.0) == isNegative ? low : high) = middle;
        }
        side(low);
        const double s =
            (((*point)[0] - a[0]) * dx + ((*point)[1] - a[1]) * dy) / (dx * dx + dy * dy);
        if (s >= 0.0 && s <= 1.0) {
            result.mCrossings.push_back({(*point)[0], (*point)[1]});
        }
        result.mIsClear = result.mIsClear && std::min(std::fabs(s), std::fabs(s - 1.0)) > edge
                          && low > edge && high < 1.0 - edge;
    }
    return result;
}

} // namespace

TEST_P(GEO_SplineBisectionTest, CrossingsAgreeWithThoseFoundByBisection)
{
    int compared = 0;
    unsigned long crossings = 0;
    for (int k = 0; k < 300; ++k) {
        const COM_Scoped a(GEO_Vertex::New(any(), any()));
        const COM_Scoped b(GEO_Vertex::New(any(), any()));
        const COM_Scoped spline(GEO_Spline::New(*a, *b));
        shape(*spline, *a, *b);
        const COM_Scoped p(GEO_Point::New(any(), any()));
        const COM_Scoped q(GEO_Point::New(any(), any()));
        const Bisection expected = bisect(*spline, *p, *q);
        if (!expected.mIsClear) {
            continue;
        }
        const COM_Scoped points(COM_Array<GEO_Point>::New());
        ASSERT_EQ(spline->intersect(*p, *q, *points), expected.mCrossings.size()) << "case " << k;
        for (unsigned long i = 0; i < points->size(); ++i) {
            // Coordinates below 2; a segment that nearly touches multiplies the rounding by up to 1e6.
            EXPECT_NEAR((*points)[i][0], expected.mCrossings[i][0], 1e-9) << "case " << k;
            EXPECT_NEAR((*points)[i][1], expected.mCrossings[i][1], 1e-9) << "case " << k;
        }
        ++compared;
        crossings += points->size();
    }
    EXPECT_GT(compared, 250);
    EXPECT_GT(crossings, 20UL);
}

INSTANTIATE_TEST_SUITE_P(Shapes, GEO_SplineBisectionTest,
                         testing::Values(Shape::ANY, Shape::NEW, Shape::STRAIGHT),
                         testing::PrintToStringParamName());

TEST(GEO_Spline, ASegmentThroughAnEndMeetsThePieceThere)
{
    // Small integers, so that the end lies on the segment to the last bit.
    std::mt19937 random(1);
    const auto coordinate = [&random] {
        return static_cast<double>(random() % 21) - 10.0; // 21 values from -10 to 10
    };
    int tried = 0;
    for (int k = 0; k < 500; ++k) {
        const COM_Scoped a(GEO_Vertex::New(coordinate(), coordinate()));
        const COM_Scoped b(GEO_Vertex::New(coordinate(), coordinate()));
        const COM_Scoped spline(GEO_Spline::New(*a, *b));
        setControlPoint(*spline, 1, coordinate(), coordinate());
        setControlPoint(*spline, 2, coordinate(), coordinate());
        const double dx = coordinate();
        const double dy = coordinate();
        if (dx == 0.0 && dy == 0.0) {
            continue;
        }
        for (const GEO_Vertex* vertex : {a.get(), b.get()}) {
            const GEO_Point& end = *vertex->getPoint();
            const COM_Scoped p(GEO_Point::New(end[0] - dx, end[1] - dy));
            const COM_Scoped q(GEO_Point::New(end[0] + dx, end[1] + dy));
            const COM_Scoped points(COM_Array<GEO_Point>::New());
            spline->intersect(*p, *q, *points);
            double nearest = 1e300;
            for (unsigned long i = 0; i < points->size(); ++i) {
                nearest = std::min(nearest, (*points)[i].distanceTo(end));
            }
            // A tangent at the end is known to the square root of the rounding.
            EXPECT_LT(nearest, 1e-6) << "case " << k;
            ++tried;
        }
    }
    EXPECT_GT(tried, 900);
}
