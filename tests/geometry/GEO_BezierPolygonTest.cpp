#include "geometry/GEO_BezierPolygon.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Spline.h"
#include "geometry/GEO_Vertex.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

namespace {

using Values = std::vector<double>;
using Place = std::array<double, 2>;
using Places = std::vector<Place>;

Values valuesOf(const LA_RealVector& vector)
{
    return {vector.getValues(), vector.getValues() + vector.getDimension()};
}

/// An array of points of the plane, held by the array alone.
COM_Array<GEO_Point>* newPoints(const Places& places)
{
    auto* const points = COM_Array<GEO_Point>::New();
    for (const auto& [x, y] : places) {
        points->add(*COM_Scoped(GEO_Point::New(x, y)));
    }
    return points;
}

GEO_BezierPolygon* newPolygon(const Places& places)
{
    return GEO_BezierPolygon::New(*COM_Scoped(newPoints(places)));
}

GEO_Spline& piece(const GEO_Polygon& polygon, unsigned long i)
{
    return dynamic_cast<GEO_Spline&>(*polygon.getEdge(i)->getCurve());
}

/// The shape of all pieces: end points and control points.
std::string shapeOf(const GEO_Polygon& polygon)
{
    const auto text = [](const GEO_Point* point) {
        return point != nullptr ? point->toString() : std::string("none");
    };
    std::string shape;
    for (unsigned long i = 0; i < polygon.getEdges().size(); ++i) {
        const GEO_Spline& spline = piece(polygon, i);
        shape += text(spline.getStartingPoint()) + text(spline.getControlPoint(1))
                 + text(spline.getControlPoint(2)) + text(spline.getEndingPoint()) + "\n";
    }
    return shape;
}

Place at(const GEO_Edge& edge, double t)
{
    const COM_Scoped point(GEO_Point::New());
    edge.computePoint(t, *point);
    return {(*point)[0], (*point)[1]};
}

/// Derivative of an edge with respect to the parameter of the whole curve, `length` being that of the edge.
Place derivativeAt(const GEO_Edge& edge, double t, double length)
{
    const auto& spline = dynamic_cast<const GEO_Spline&>(*edge.getCurve());
    const COM_Scoped point(GEO_Point::New());
    spline.computeDerivativePoint(edge.isReverse() ? 1.0 - t : t, *point);
    const double sign = edge.isReverse() ? -1.0 : 1.0;
    return {sign * (*point)[0] / length, sign * (*point)[1] / length};
}

/// Second derivative at an end of an edge. The one-sided difference of second order is exact here, the
/// derivative of a cubic piece being of degree two.
Place secondDerivativeAt(const GEO_Edge& edge, double t, double length)
{
    const double h = t < 0.5 ? 0.25 : -0.25;
    const Place d0 = derivativeAt(edge, t, length);
    const Place d1 = derivativeAt(edge, t + h, length);
    const Place d2 = derivativeAt(edge, t + 2.0 * h, length);
    Place second{};
    for (unsigned long j = 0; j < 2; ++j) {
        second[j] = (-3.0 * d0[j] + 4.0 * d1[j] - d2[j]) / (2.0 * h * length);
    }
    return second;
}

double lengthOf(const GEO_Polygon& polygon, unsigned long i)
{
    const Values u = valuesOf(*dynamic_cast<const GEO_BezierPolygon&>(polygon).getParameters());
    return u[i + 1] - u[i];
}

/// Fails unless edge `j` goes on from edge `i` with the same point and the same first two derivatives.
void expectSmooth(const GEO_Polygon& polygon, unsigned long i, unsigned long j)
{
    const GEO_Edge& before = *polygon.getEdge(i);
    const GEO_Edge& behind = *polygon.getEdge(j);
    const double li = lengthOf(polygon, i);
    const double lj = lengthOf(polygon, j);
    for (unsigned long k = 0; k < 2; ++k) {
        // Coordinates and derivatives below 10, so that some roundings stay far below.
        EXPECT_NEAR(at(before, 1.0)[k], at(behind, 0.0)[k], 1e-13) << i;
        EXPECT_NEAR(derivativeAt(before, 1.0, li)[k], derivativeAt(behind, 0.0, lj)[k], 1e-12) << i;
        EXPECT_NEAR(secondDerivativeAt(before, 1.0, li)[k], secondDerivativeAt(behind, 0.0, lj)[k],
                    1e-11)
            << i;
    }
}

const Places zigzag{{0.0, 0.0}, {1.0, 2.0}, {3.0, 2.5}, {3.5, -1.0}, {6.0, 0.0}, {6.5, 0.25}};

// ---------------------------------------------------------------- scalar functions

using Derivatives = std::unique_ptr<double[]>;

Derivatives freeEnds(const Values& u, const Values& x)
{
    return Derivatives(GEO_BezierPolygon::computeDerivatives(u.data(), x.data(), u.size()));
}

Derivatives periodic(const Values& u, const Values& x)
{
    return Derivatives(GEO_BezierPolygon::computePeriodicDerivatives(u.data(), x.data(), u.size()));
}

/// Second derivative at the ends of the piece from i to i + 1 of the cubic with these values and derivatives.
Place bendsOf(const Values& u, const Values& x, const double* d, unsigned long i)
{
    const double h = u[i + 1] - u[i];
    const double slope = (x[i + 1] - x[i]) / h;
    return {(6.0 * slope - 4.0 * d[i] - 2.0 * d[i + 1]) / h,
            (-6.0 * slope + 2.0 * d[i] + 4.0 * d[i + 1]) / h};
}

/// Value of that piece in its middle.
double middleOf(const Values& u, const Values& x, const double* d, unsigned long i)
{
    return (x[i] + x[i + 1]) / 2.0 + (u[i + 1] - u[i]) * (d[i] - d[i + 1]) / 8.0;
}

const Values uneven{0.0, 1.0, 1.5, 3.5, 4.0, 4.25, 6.0};

} // namespace

TEST(GEO_BezierPolygonDerivatives, FewerThanTwoValuesHaveNoneAndNoWarning)
{
    const Values one{1.0};
    EXPECT_EQ(printedBy([&one] {
                  EXPECT_EQ(freeEnds({}, {}), nullptr);
                  EXPECT_EQ(freeEnds(one, one), nullptr);
                  EXPECT_EQ(periodic({}, {}), nullptr);
                  EXPECT_EQ(periodic(one, one), nullptr);
              }),
              "");
}

TEST(GEO_BezierPolygonDerivatives, TwoValuesHaveTheSlopeBetweenThem)
{
    const Derivatives d = freeEnds({1.0, 5.0}, {2.0, 10.0});
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d[0], 2.0);
    EXPECT_EQ(d[1], 2.0);
}

TEST(GEO_BezierPolygonDerivatives, AHatOfThreeValuesIsLevelInTheMiddle)
{
    // 2 d0 + d1 = 3, d0 + 4 d1 + d2 = 0, d1 + 2 d2 = -3
    const Derivatives d = freeEnds({0.0, 1.0, 2.0}, {0.0, 1.0, 0.0});
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d[0], 1.5);
    EXPECT_EQ(d[1], 0.0);
    EXPECT_EQ(d[2], -1.5);
}

TEST(GEO_BezierPolygonDerivatives, AStepOfThreeUnevenValuesSolvesTheThreeConditions)
{
    // u = 0, 1, 3: 2 d0 + d1 = 3 * 4, d0 + 3 d1 + d2 / 2 = 3 * 4, d1 + 2 d2 = 0
    const Derivatives d = freeEnds({0.0, 1.0, 3.0}, {0.0, 4.0, 4.0});
    ASSERT_NE(d, nullptr);
    EXPECT_NEAR(d[0], 14.0 / 3.0, 1e-14); // a few roundings of numbers below 10
    EXPECT_NEAR(d[1], 8.0 / 3.0, 1e-14);
    EXPECT_NEAR(d[2], -4.0 / 3.0, 1e-14);
}

TEST(GEO_BezierPolygonDerivatives, AStraightLineHasItsSlopeEverywhere)
{
    Values x;
    for (const double u : uneven) {
        x.push_back(3.0 - 2.0 * u);
    }
    const Derivatives d = freeEnds(uneven, x);
    ASSERT_NE(d, nullptr);
    for (unsigned long i = 0; i < uneven.size(); ++i) {
        EXPECT_NEAR(d[i], -2.0, 1e-14) << i;
    }
}

TEST(GEO_BezierPolygonDerivatives, SecondDerivativesAgreeInsideAndVanishAtFreeEnds)
{
    const Values x{0.5, -1.0, 3.0, 2.0, 2.5, -2.0, 1.0};
    const Derivatives d = freeEnds(uneven, x);
    ASSERT_NE(d, nullptr);
    const unsigned long last = x.size() - 1;
    // Second derivatives reach 300 here, from differences of rounded numbers over steps of 1/4.
    EXPECT_NEAR(bendsOf(uneven, x, d.get(), 0)[0], 0.0, 1e-11);
    EXPECT_NEAR(bendsOf(uneven, x, d.get(), last - 1)[1], 0.0, 1e-11);
    for (unsigned long i = 1; i < last; ++i) {
        EXPECT_NEAR(bendsOf(uneven, x, d.get(), i - 1)[1], bendsOf(uneven, x, d.get(), i)[0], 1e-11)
            << i;
    }
}

TEST(GEO_BezierPolygonDerivatives, AClosedCurveBendsAlikeAtEveryValueIncludingTheSeam)
{
    const Values x{0.5, -1.0, 3.0, 2.0, 2.5, -2.0, 0.5};
    // From one piece on: every number of unknowns up to six.
    for (unsigned long n = 2; n <= x.size(); ++n) {
        const Values u(uneven.begin(), uneven.begin() + static_cast<long>(n));
        Values y(x.begin(), x.begin() + static_cast<long>(n));
        y.back() = y.front();
        const Derivatives d = periodic(u, y);
        ASSERT_NE(d, nullptr) << n;
        EXPECT_EQ(d[n - 1], d[0]) << n;
        EXPECT_NEAR(bendsOf(u, y, d.get(), n - 2)[1], bendsOf(u, y, d.get(), 0)[0], 1e-11) << n;
        for (unsigned long i = 1; i + 1 < n; ++i) {
            EXPECT_NEAR(bendsOf(u, y, d.get(), i - 1)[1], bendsOf(u, y, d.get(), i)[0], 1e-11)
                << n << " " << i;
        }
    }
}

TEST(GEO_BezierPolygonDerivatives, ThreeValuesOfAClosedCurveSolveTwoConditions)
{
    // u = 0, 1, 3 and x = 0, 2, 0: 3 d0 + 1.5 d1 = 4.5 and 1.5 d0 + 3 d1 = 4.5
    const Derivatives d = periodic({0.0, 1.0, 3.0}, {0.0, 2.0, 0.0});
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(d[0], 1.0);
    EXPECT_EQ(d[1], 1.0);
    EXPECT_EQ(d[2], 1.0);
    const Derivatives even = periodic({0.0, 1.0, 2.0}, {0.0, 1.0, 0.0});
    ASSERT_NE(even, nullptr);
    EXPECT_EQ(even[0], 0.0);
    EXPECT_EQ(even[1], 0.0);
}

TEST(GEO_BezierPolygonDerivatives, FourValuesOfAClosedCurveSolveTheCircularConditions)
{
    // Steps of 1: 4 d0 + d1 + d2 = 3 (x1 - x2) and so on, x being 0, 6, 0.
    const Derivatives d = periodic({0.0, 1.0, 2.0, 3.0}, {0.0, 6.0, 0.0, 0.0});
    ASSERT_NE(d, nullptr);
    EXPECT_NEAR(d[0], 6.0, 1e-14);
    EXPECT_NEAR(d[1], 0.0, 1e-14);
    EXPECT_NEAR(d[2], -6.0, 1e-14);
    EXPECT_EQ(d[3], d[0]);
}

TEST(GEO_BezierPolygonDerivatives, ACurveThatIsASplineItselfComesBackExactly)
{
    // u^3 - 2 (u - 1)^3 behind 1: no bend at 0 and 2, and the third derivative jumps at a value.
    const Values u{0.0, 0.25, 1.0, 1.125, 1.5, 2.0};
    const auto f = [](double v) { return v * v * v - 2.0 * std::pow(std::max(v - 1.0, 0.0), 3.0); };
    const auto slope = [](double v) {
        return 3.0 * v * v - 6.0 * std::pow(std::max(v - 1.0, 0.0), 2.0);
    };
    Values x;
    for (const double v : u) {
        x.push_back(f(v));
    }
    const Derivatives d = freeEnds(u, x);
    ASSERT_NE(d, nullptr);
    for (unsigned long i = 0; i < u.size(); ++i) {
        EXPECT_NEAR(d[i], slope(u[i]), 1e-13) << i; // some roundings of numbers below 100
        if (i + 1 < u.size()) {
            EXPECT_NEAR(middleOf(u, x, d.get(), i), f((u[i] + u[i + 1]) / 2.0), 1e-14) << i;
        }
    }
}

TEST(GEO_BezierPolygonDerivatives, APeriodicSplineComesBackExactly)
{
    // Of period 4, with a bend that rises from -1 to 1 and falls from 1 to 3: w^3 / 6 - w / 2 from -1 to 1, and
    // the same upside down from 1 to 3. The last part belongs to the next rise.
    const Values u{0.0, 0.5, 1.0, 2.25, 3.0, 4.0};
    Values x;
    Values slope;
    for (const double v : u) {
        const double w = v <= 1.0 ? v : v <= 3.0 ? v - 2.0 : v - 4.0;
        const double sign = v > 1.0 && v <= 3.0 ? -1.0 : 1.0;
        x.push_back(sign * (w * w * w / 6.0 - w / 2.0));
        slope.push_back(sign * (w * w / 2.0 - 0.5));
    }
    const Derivatives d = periodic(u, x);
    ASSERT_NE(d, nullptr);
    for (unsigned long i = 0; i < u.size(); ++i) {
        EXPECT_NEAR(d[i], slope[i], 1e-15) << i;
    }
}

TEST(GEO_BezierPolygonDerivatives, TheErrorOfAParabolaDiesOutFromTheFreeEnds)
{
    // e = d - 2 u solves e[i - 1] + 4 e[i] + e[i + 1] = 0 inside and 2 e + e' = h, -h at the ends: powers of
    // the root of 1 + 4 q + q^2 below 1, from h / sqrt(3) on.
    constexpr unsigned long n = 61;
    constexpr double h = 0.25;
    const double q = std::sqrt(3.0) - 2.0;
    Values u;
    Values x;
    for (unsigned long i = 0; i < n; ++i) {
        u.push_back(h * static_cast<double>(i));
        x.push_back(u[i] * u[i]);
    }
    const Derivatives d = freeEnds(u, x);
    ASSERT_NE(d, nullptr);
    for (unsigned long i = 0; i < n; ++i) {
        const double fromStart = std::pow(q, static_cast<double>(i));
        const double fromEnd = std::pow(q, static_cast<double>(n - 1 - i));
        // Values up to 225 and slopes up to 30, rounded.
        EXPECT_NEAR(d[i] - 2.0 * u[i], h / std::sqrt(3.0) * (fromStart - fromEnd), 1e-12) << i;
    }
    EXPECT_NEAR(d[0], h / std::sqrt(3.0), 1e-14);
    EXPECT_NEAR(d[n / 2], 2.0 * u[n / 2], 1e-12);
}

namespace {

/// A grid of n pieces over [0, length], even or with steps that alternate by a factor of two.
Values gridOf(unsigned long n, double length, bool isEven)
{
    Values u{0.0};
    for (unsigned long i = 0; i < n; ++i) {
        const double share = isEven ? 1.0 : i % 2 == 0 ? 2.0 / 3.0 : 4.0 / 3.0;
        u.push_back(u.back() + share * length / static_cast<double>(n));
    }
    u.back() = length;
    return u;
}

/// Largest errors of the values between the nodes and of the derivatives at the nodes.
struct Errors
{
    double mValue = 0.0;
    double mDerivative = 0.0;
};

using Function = double (*)(double);

Errors errorsOf(unsigned long n, double length, bool isEven, bool isPeriodic, Function f,
                Function derivative)
{
    const Values u = gridOf(n, length, isEven);
    Values x;
    for (const double ui : u) {
        x.push_back(f(ui));
    }
    const Derivatives d = isPeriodic ? periodic(u, x) : freeEnds(u, x);
    Errors errors;
    for (unsigned long i = 0; i < n; ++i) {
        errors.mValue = std::max(
            errors.mValue, std::fabs(middleOf(u, x, d.get(), i) - f((u[i] + u[i + 1]) / 2.0)));
        errors.mDerivative = std::max(errors.mDerivative, std::fabs(d[i] - derivative(u[i])));
    }
    return errors;
}

struct OrderCase
{
    const char* mName;
    double mLength;
    bool mIsEven, mIsPeriodic;
    Function mF, mDerivative;
    double mValueOrder, mDerivativeOrder;
};

void PrintTo(const OrderCase& row, std::ostream* out)
{
    *out << row.mName;
}

std::string nameOf(const testing::TestParamInfo<OrderCase>& info)
{
    return info.param.mName;
}

double sine(double u)
{
    return std::sin(u);
}
double cosine(double u)
{
    return std::cos(u);
}
double periodicFunction(double u)
{
    return std::exp(std::sin(u));
}
double periodicDerivative(double u)
{
    return std::cos(u) * std::exp(std::sin(u));
}
double minusSine(double u)
{
    return -std::sin(u);
}

class GEO_BezierPolygonOrderTest : public testing::TestWithParam<OrderCase>
{};

} // namespace

TEST_P(GEO_BezierPolygonOrderTest, TheInterpolationOfASmoothFunctionConvergesAtItsOrder)
{
    const OrderCase& row = GetParam();
    const auto errors = [&row](unsigned long n) {
        return errorsOf(n, row.mLength, row.mIsEven, row.mIsPeriodic, row.mF, row.mDerivative);
    };
    const Errors coarse = errors(64);
    const Errors fine = errors(128);
    // The observed order differs from the limit by a term that falls with the step; 0.1 covers it here.
    EXPECT_NEAR(std::log2(coarse.mValue / fine.mValue), row.mValueOrder, 0.1);
    EXPECT_NEAR(std::log2(coarse.mDerivative / fine.mDerivative), row.mDerivativeOrder, 0.1);
    EXPECT_GT(fine.mValue, 0.0);
}

constexpr double pi = std::numbers::pi;

// A free end has no bend: exact for the sine, a jump that costs two orders for the cosine. The uneven grids
// lose the cancellation that gives the derivatives of even grids one order more.
INSTANTIATE_TEST_SUITE_P(
    Table, GEO_BezierPolygonOrderTest,
    testing::Values(
        OrderCase{"SineWithFreeEnds", pi, true, false, sine, cosine, 4.0, 4.0},
        OrderCase{"SineWithFreeEndsOnAnUnevenGrid", pi, false, false, sine, cosine, 4.0, 3.0},
        OrderCase{"CosineWithFreeEnds", pi, true, false, cosine, minusSine, 2.0, 1.0},
        OrderCase{"Periodic", 2.0 * pi, true, true, periodicFunction, periodicDerivative, 4.0, 4.0},
        OrderCase{"PeriodicOnAnUnevenGrid", 2.0 * pi, false, true, periodicFunction,
                  periodicDerivative, 4.0, 3.0}),
    nameOf);

// ---------------------------------------------------------------- warnings

namespace {

struct WarningCase
{
    Values mU;
    const char* mText;
};

void PrintTo(const WarningCase& row, std::ostream* out)
{
    *out << (row.mText[0] == '\0' ? "none" : "warning") << row.mU.size();
}

class GEO_BezierPolygonWarningTest : public testing::TestWithParam<WarningCase>
{};

} // namespace

TEST_P(GEO_BezierPolygonWarningTest, EqualNeighboursAreToldAndGiveNoDerivatives)
{
    const Values x(GetParam().mU.size(), 1.0);
    Derivatives d;
    EXPECT_EQ(printedBy([&] { d = freeEnds(GetParam().mU, x); }), GetParam().mText);
    EXPECT_EQ(d == nullptr, GetParam().mText[0] != '\0');
    EXPECT_EQ(printedBy([&] { d = periodic(GetParam().mU, x); }), GetParam().mText);
    EXPECT_EQ(d == nullptr, GetParam().mText[0] != '\0');
}

INSTANTIATE_TEST_SUITE_P(
    Table, GEO_BezierPolygonWarningTest,
    testing::Values(WarningCase{{0.0, 1.0, 2.0}, ""},
                    // The first pair, with the letter O.
                    WarningCase{{0.0, 0.0}, "Warning: u[1]=0=u[O]=0\n"},
                    WarningCase{{0.5, 0.5, 1.0, 2.0}, "Warning: u[1]=0.5=u[O]=0.5\n"},
                    WarningCase{{0.0, 1.0, 1.0}, "Warning: u[1]=1=u[2]=1\n"},
                    WarningCase{{0.0, 1.0, 2.0, 2.0}, "Warning: u[2]=2=u[3]=2\n"},
                    WarningCase{{0.0, 1.0, 2.25, 2.25, 3.0}, "Warning: u[2]=2.25=u[3]=2.25\n"},
                    // Six significant digits, and the first of several pairs alone.
                    WarningCase{{0.0, 1.0 / 3.0, 1.0 / 3.0, 2.0, 2.0, 3.0},
                                "Warning: u[1]=0.333333=u[2]=0.333333\n"},
                    WarningCase{{1e7, 1e7, 1e7}, "Warning: u[1]=1e+07=u[O]=1e+07\n"}));

// ---------------------------------------------------------------- building

TEST(GEO_BezierPolygon, ANewPolygonIsEmptyAndSilent)
{
    EXPECT_EQ(printedBy([] {
                  const COM_Scoped polygon(GEO_BezierPolygon::New());
                  EXPECT_EQ(polygon->getReferenceCount(), 1);
                  EXPECT_EQ(polygon->getEdges().size(), 0UL);
                  EXPECT_EQ(
                      polygon->getTypes(),
                      (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object",
                                                "GEO_Shell", "GEO_Polygon", "GEO_BezierPolygon"}));
                  polygon->stateChanged();
              }),
              "");
}

TEST(GEO_BezierPolygon, ANewInstanceIsEmptyAndOfTheSameClass)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const COM_Scoped other(polygon->NewShellInstance());
    EXPECT_EQ(other->getClassName(), "17GEO_BezierPolygon");
    EXPECT_EQ(other->getEdges().size(), 0UL);
}

TEST(GEO_BezierPolygon, ItsCurvesAreSplines)
{
    const COM_Scoped polygon(GEO_BezierPolygon::New());
    const COM_Scoped a(GEO_Vertex::New(0.0, 0.0));
    const COM_Scoped b(GEO_Vertex::New(1.0, 0.0));
    EXPECT_EQ(COM_Scoped(polygon->NewCurve())->getClassName(), "10GEO_Spline");
    const COM_Scoped curve(polygon->NewCurve(*a, *b));
    EXPECT_EQ(curve->getClassName(), "10GEO_Spline");
    EXPECT_EQ(curve->getStartingVertex(), a.get());
}

TEST(GEO_BezierPolygon, AnArrayOfPointsBecomesAChainThroughCopiesOfThem)
{
    const COM_Scoped points(newPoints(zigzag));
    const COM_Scoped polygon(GEO_BezierPolygon::New(*points));
    ASSERT_EQ(polygon->getEdges().size(), zigzag.size() - 1);
    const COM_Scoped found(COM_Array<GEO_Point>::New());
    polygon->getPoints(*found);
    EXPECT_EQ(found->toString(), points->toString());
    EXPECT_NE(found->get(0), points->get(0));
    EXPECT_EQ((*points)[0].getReferenceCount(), 1);
    EXPECT_FALSE(polygon->isClosed());
}

TEST(GEO_BezierPolygon, OtherPointsReplaceTheChain)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const COM_Scoped vertex(polygon->getFirstVertex());
    vertex->addReference(nullptr);
    polygon->setPoints(*COM_Scoped(newPoints({{1.0, 1.0}, {4.0, 5.0}})));
    EXPECT_EQ(polygon->getEdges().size(), 1UL);
    EXPECT_EQ(polygon->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(*polygon->getParameters()), (Values{0.0, 5.0}));
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    polygon->setPoints(*COM_Scoped(newPoints({})));
    EXPECT_EQ(polygon->getEdges().size(), 0UL);
    EXPECT_EQ(polygon->getReferenceCount(), 1);
}

TEST(GEO_BezierPolygon, TheParametersAreTheLengthsOfTheChordsAddedUp)
{
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {3.0, 4.0}, {3.0, 6.0}, {-5.0, 0.0}}));
    EXPECT_EQ(valuesOf(*polygon->getParameters()), (Values{0.0, 5.0, 7.0, 17.0}));
    for (unsigned long i = 0; i < 3; ++i) {
        EXPECT_EQ(piece(*polygon, i).getBeginParameter(), (*polygon->getParameters())[i]) << i;
        EXPECT_EQ(piece(*polygon, i).getEndParameter(), (*polygon->getParameters())[i + 1]) << i;
    }
    polygon->close();
    EXPECT_EQ(valuesOf(*polygon->getParameters()), (Values{0.0, 5.0, 7.0, 17.0, 22.0}));
}

TEST(GEO_BezierPolygon, ThereIsOneParameterMoreThanEdges)
{
    const COM_Scoped polygon(newPolygon({{1.0, 1.0}}));
    EXPECT_EQ(valuesOf(*polygon->getParameters()), (Values{0.0, 0.0}));
    polygon->setPoints(*COM_Scoped(newPoints({})));
    EXPECT_EQ(valuesOf(*polygon->getParameters()), Values{0.0});
}

// ---------------------------------------------------------------- shape

TEST(GEO_BezierPolygon, TwoPointsAreJoinedByAStraightPiece)
{
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {6.0, 3.0}}));
    for (const double t : {0.0, 0.25, 0.5, 1.0}) {
        EXPECT_NEAR(at(*polygon->getEdge(0), t)[0], 6.0 * t, 1e-15);
        EXPECT_NEAR(at(*polygon->getEdge(0), t)[1], 3.0 * t, 1e-15);
    }
}

TEST(GEO_BezierPolygon, AHatOfThreePointsIsLevelAtItsTop)
{
    // Chords of length 5; in u the derivative of y is 1.5 * 4 / 5 at the start, that of x 3 / 5.
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {3.0, 4.0}, {6.0, 0.0}}));
    const Place start = derivativeAt(*polygon->getEdge(0), 0.0, 5.0);
    EXPECT_NEAR(start[0], 0.6, 1e-15);
    EXPECT_NEAR(start[1], 1.2, 1e-15);
    const Place top = derivativeAt(*polygon->getEdge(1), 0.0, 5.0);
    EXPECT_NEAR(top[0], 0.6, 1e-15);
    EXPECT_NEAR(top[1], 0.0, 1e-15);
}

TEST(GEO_BezierPolygon, ThePiecesOfAnOpenChainJoinWithTwoDerivativesAndEndWithoutBend)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const unsigned long last = polygon->getEdges().size() - 1;
    for (unsigned long i = 0; i < last; ++i) {
        expectSmooth(*polygon, i, i + 1);
    }
    for (unsigned long k = 0; k < 2; ++k) {
        EXPECT_NEAR(secondDerivativeAt(*polygon->getEdge(0), 0.0, lengthOf(*polygon, 0))[k], 0.0,
                    1e-12);
        EXPECT_NEAR(secondDerivativeAt(*polygon->getEdge(last), 1.0, lengthOf(*polygon, last))[k],
                    0.0, 1e-12);
    }
}

TEST(GEO_BezierPolygon, ThePiecesOfAClosedChainJoinWithTwoDerivativesAtTheSeamToo)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    polygon->close();
    ASSERT_TRUE(polygon->isClosed());
    const unsigned long n = polygon->getEdges().size();
    ASSERT_EQ(n, zigzag.size());
    for (unsigned long i = 0; i < n; ++i) {
        expectSmooth(*polygon, i, (i + 1) % n);
    }
}

TEST(GEO_BezierPolygon, ATriangleIsClosedSmoothly)
{
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {3.0, 0.5}, {1.0, 4.0}}));
    polygon->close();
    for (unsigned long i = 0; i < 3; ++i) {
        expectSmooth(*polygon, i, (i + 1) % 3);
    }
}

TEST(GEO_BezierPolygon, EveryPieceGoesThroughItsVertices)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    for (unsigned long i = 0; i + 1 < zigzag.size(); ++i) {
        EXPECT_EQ(at(*polygon->getEdge(i), 0.0), zigzag[i]) << i;
        EXPECT_EQ(at(*polygon->getEdge(i), 1.0), zigzag[i + 1]) << i;
    }
}

TEST(GEO_BezierPolygon, AClosedChainThroughPointsOfACircleConvergesToItAtFourthOrder)
{
    const auto error = [](int n) {
        Places places;
        for (int i = 0; i < n; ++i) {
            places.push_back({std::cos(2.0 * pi * i / n), std::sin(2.0 * pi * i / n)});
        }
        const COM_Scoped polygon(newPolygon(places));
        polygon->close();
        double largest = 0.0;
        for (unsigned long i = 0; i < polygon->getEdges().size(); ++i) {
            const Place middle = at(*polygon->getEdge(i), 0.5);
            largest = std::max(largest, std::fabs(std::hypot(middle[0], middle[1]) - 1.0));
        }
        return largest;
    };
    EXPECT_NEAR(std::log2(error(16) / error(32)), 4.0, 0.1);
    EXPECT_LT(error(32), 1e-5);
}

TEST(GEO_BezierPolygon, AChainBuiltVertexByVertexHasTheShapeOfOneBuiltAtOnce)
{
    const COM_Scoped expected(newPolygon(zigzag));
    const COM_Scoped polygon(GEO_BezierPolygon::New());
    for (const auto& [x, y] : zigzag) {
        polygon->cat(*COM_Scoped(GEO_Point::New(x, y)));
    }
    EXPECT_EQ(shapeOf(*polygon), shapeOf(*expected));
}

TEST(GEO_BezierPolygon, AMovedVertexAdjustsAllPieces)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const std::string before = shapeOf(*polygon);
    Places moved = zigzag;
    moved[2] = {2.0, 4.0};
    polygon->getEdge(2)->getStartingVertex()->setLocation(2.0, 4.0);
    EXPECT_NE(shapeOf(*polygon), before);
    // Scaled from one range to another, control points may differ from new ones by a rounding.
    const COM_Scoped expected(newPolygon(moved));
    for (unsigned long i = 0; i < 5; ++i) {
        for (unsigned long c = 1; c <= 2; ++c) {
            EXPECT_LT(piece(*polygon, i)
                          .getControlPoint(c)
                          ->distanceTo(*piece(*expected, i).getControlPoint(c)),
                      1e-14)
                << i;
        }
    }
}

TEST(GEO_BezierPolygon, ATranslatedChainKeepsItsShape)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    Places moved = zigzag;
    for (Place& place : moved) {
        place[0] += 16.0;
    }
    polygon->translate(*COM_Scoped(GEO_Point::New(16.0, 0.0)));
    const COM_Scoped expected(newPolygon(moved));
    for (unsigned long i = 0; i < 5; ++i) {
        for (const double t : {0.0, 0.25, 0.5, 1.0}) {
            EXPECT_NEAR(at(*polygon->getEdge(i), t)[0], at(*expected->getEdge(i), t)[0], 1e-13);
            EXPECT_NEAR(at(*polygon->getEdge(i), t)[1], at(*expected->getEdge(i), t)[1], 1e-13);
        }
    }
}

TEST(GEO_BezierPolygon, AReversedChainHasTheSameShape)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const COM_Scoped expected(newPolygon(zigzag));
    polygon->reverse();
    const unsigned long n = polygon->getEdges().size();
    for (unsigned long i = 0; i < n; ++i) {
        for (const double t : {0.0, 0.25, 0.5, 1.0}) {
            const Place place = at(*polygon->getEdge(i), 1.0 - t);
            const Place before = at(*expected->getEdge(n - 1 - i), t);
            EXPECT_NEAR(place[0], before[0], 1e-14) << i;
            EXPECT_NEAR(place[1], before[1], 1e-14) << i;
        }
    }
    for (unsigned long i = 0; i + 1 < n; ++i) {
        expectSmooth(*polygon, i, i + 1);
    }
}

TEST(GEO_BezierPolygon, APieceUsedBackwardsKnowsTheParametersOfItsOwnEnds)
{
    const COM_Scoped a(GEO_Vertex::New(0));
    const COM_Scoped b(GEO_Vertex::New(1));
    const COM_Scoped c(GEO_Vertex::New(2));
    a->setLocation(0.0, 0.0);
    b->setLocation(3.0, 4.0);
    c->setLocation(3.0, 6.0);
    const COM_Scoped spline(GEO_Spline::New(*c, *b));
    const COM_Scoped polygon(GEO_BezierPolygon::New());
    polygon->cat(*a);
    polygon->cat(*b);
    polygon->cat(*c);
    ASSERT_TRUE(polygon->getEdge(1)->isReverse());
    ASSERT_EQ(polygon->getEdge(1)->getCurve(), spline.get());
    expectSmooth(*polygon, 0, 1);
    EXPECT_EQ(spline->getBeginParameter(), 7.0);
    EXPECT_EQ(spline->getEndParameter(), 5.0);
}

TEST(GEO_BezierPolygon, ACurveOfAnotherKindStaysAsItIs)
{
    const COM_Scoped a(GEO_Vertex::New(0.0, 0.0));
    const COM_Scoped b(GEO_Vertex::New(3.0, 4.0));
    const COM_Scoped line(GEO_Line::New(*a, *b));
    const COM_Scoped polygon(GEO_BezierPolygon::New());
    EXPECT_TRUE(polygon->cat(*line));
    polygon->cat(*COM_Scoped(GEO_Vertex::New(6.0, 0.0)));
    EXPECT_EQ(valuesOf(*polygon->getParameters()), (Values{0.0, 5.0, 10.0}));
    EXPECT_EQ(polygon->getEdge(0)->getCurve(), line.get());
    EXPECT_NE(piece(*polygon, 1).getControlPoint(1), nullptr);
}

TEST(GEO_BezierPolygon, AnEdgeWithoutCurveStopsTheAdjustmentAlone)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const Place before = at(*polygon->getEdge(0), 0.5);
    EXPECT_EQ(printedBy([&polygon] { polygon->addToEdges(*COM_Scoped(GEO_Edge::New())); }), "");
    EXPECT_EQ(polygon->getEdges().size(), zigzag.size());
    EXPECT_EQ(at(*polygon->getEdge(0), 0.5), before);
}

TEST(GEO_BezierPolygon, WithoutItsLastEdgeAChainHasTheShapeOfTheShorterOne)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const unsigned long last = zigzag.size() - 2;
    EXPECT_TRUE(polygon->removeEdgeAtIndex(last));
    const COM_Scoped expected(newPolygon({zigzag.begin(), zigzag.end() - 1}));
    EXPECT_EQ(shapeOf(*polygon), shapeOf(*expected));
    EXPECT_EQ(valuesOf(*polygon->getParameters()), valuesOf(*expected->getParameters()));
    polygon->removeFromEdges(*polygon->getEdge(0));
    expected->setPoints(*COM_Scoped(newPoints({zigzag.begin() + 1, zigzag.end() - 1})));
    EXPECT_EQ(shapeOf(*polygon), shapeOf(*expected));
    EXPECT_EQ(valuesOf(*polygon->getParameters()), valuesOf(*expected->getParameters()));
    polygon->resetEdges();
    EXPECT_EQ(valuesOf(*polygon->getParameters()), Values{0.0});
}

TEST(GEO_BezierPolygon, WithoutAnInnerEdgeAChainIsTwoCurvesWithFreeEnds)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    polygon->removeFromCurves(*polygon->getEdge(2)->getCurve());
    const COM_Scoped before(newPolygon({zigzag.begin(), zigzag.begin() + 3}));
    const COM_Scoped behind(newPolygon({zigzag.begin() + 3, zigzag.end()}));
    EXPECT_EQ(shapeOf(*polygon), shapeOf(*before) + shapeOf(*behind));
    // A vertex moves its own part alone.
    const std::string kept = shapeOf(*before);
    polygon->getLastVertex()->setLocation(9.0, 9.0);
    behind->getLastVertex()->setLocation(9.0, 9.0);
    EXPECT_EQ(shapeOf(*polygon), kept + shapeOf(*behind));
}

TEST(GEO_BezierPolygon, WithoutOneOfItsEdgesAClosedChainIsAnOpenOne)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const std::string open = shapeOf(*polygon);
    polygon->close();
    EXPECT_NE(shapeOf(*polygon).substr(0, open.size()), open);
    polygon->removeEdgeAtIndex(zigzag.size() - 1);
    EXPECT_EQ(shapeOf(*polygon), open);
}

TEST(GEO_BezierPolygon, ANewCurveOfAnEdgeTakesPartInTheShape)
{
    const COM_Scoped polygon(newPolygon(zigzag));
    const std::string shape = shapeOf(*polygon);
    GEO_Edge& edge = *polygon->getEdge(2);
    const COM_Scoped spline(GEO_Spline::New(*edge.getStartingVertex(), *edge.getEndingVertex()));
    ASSERT_NE(spline.get(), edge.getCurve());
    edge.setCurve(*spline);
    EXPECT_EQ(edge.getCurve(), spline.get());
    EXPECT_EQ(shapeOf(*polygon), shape);
}

TEST(GEO_BezierPolygon, EdgesBetweenDifferentVerticesAtOnePlaceJoinSmoothly)
{
    const COM_Scoped polygon(GEO_BezierPolygon::New());
    for (unsigned long i = 0; i + 1 < zigzag.size(); ++i) {
        const COM_Scoped a(GEO_Vertex::New(zigzag[i][0], zigzag[i][1]));
        const COM_Scoped b(GEO_Vertex::New(zigzag[i + 1][0], zigzag[i + 1][1]));
        polygon->addToCurves(*COM_Scoped(GEO_Spline::New(*a, *b)), false);
    }
    EXPECT_EQ(shapeOf(*polygon), shapeOf(*COM_Scoped(newPolygon(zigzag))));
}

TEST(GEO_BezierPolygon, ACircleOfThirtyTwoVerticesIsRoundToFiveDigitsEverywhere)
{
    Places places;
    for (int i = 0; i < 32; ++i) {
        places.push_back({std::cos(2.0 * pi * i / 32), std::sin(2.0 * pi * i / 32)});
    }
    const COM_Scoped polygon(newPolygon(places));
    polygon->close();
    double largest = 0.0;
    for (unsigned long i = 0; i < polygon->getEdges().size(); ++i) {
        for (int k = 0; k <= 16; ++k) {
            const Place place = at(*polygon->getEdge(i), k / 16.0);
            largest = std::max(largest, std::fabs(std::hypot(place[0], place[1]) - 1.0));
        }
    }
    // Cubic interpolation of a function with fourth derivative 1 errs by up to h^4 / 384 = 3.9e-6.
    EXPECT_LT(largest, 1e-5);
    EXPECT_GT(largest, 1e-7);
}

// ---------------------------------------------------------------- derivatives at points

TEST(GEO_BezierPolygon, DerivativesAtPointsTreatEachCoordinateAlone)
{
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {1.0, 0.0}, {2.0, 0.0}})); // u = 0, 1, 2
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    points->add(*COM_Scoped(GEO_Point::New(0.0, 0.0, 5.0)));
    points->add(*COM_Scoped(GEO_Point::New(1.0, 1.0)));
    points->add(*COM_Scoped(GEO_Point::New(2.0, 0.0, 5.0)));
    const COM_Scoped derivatives(COM_Array<GEO_Point>::New());
    ASSERT_TRUE(polygon->computeDerivatives(*points, false, *derivatives));
    EXPECT_EQ(derivatives->toString(), "0:(1.000000e+00,1.500000e+00,-7.500000e+00)\n"
                                       "1:(1.000000e+00,0.000000e+00,0.000000e+00)\n"
                                       "2:(1.000000e+00,-1.500000e+00,7.500000e+00)\n");
    ASSERT_TRUE(polygon->computeDerivatives(*points, true, *derivatives));
    EXPECT_EQ((*derivatives)[0][1], 0.0);
    EXPECT_EQ((*derivatives)[2].toString(), (*derivatives)[0].toString());
}

TEST(GEO_BezierPolygon, MorePointsThanParametersOrFewerThanTwoHaveNoDerivatives)
{
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {1.0, 0.0}}));
    const COM_Scoped derivatives(newPoints({{7.0, 7.0}}));
    EXPECT_EQ(
        printedBy([&] {
            EXPECT_FALSE(polygon->computeDerivatives(
                *COM_Scoped(newPoints({{0.0, 0.0}, {1.0, 0.0}, {2.0, 0.0}})), false, *derivatives));
            EXPECT_EQ(derivatives->size(), 0UL);
            EXPECT_FALSE(polygon->computeDerivatives(*COM_Scoped(newPoints({{0.0, 0.0}})), false,
                                                     *derivatives));
        }),
        "");
    EXPECT_EQ(derivatives->size(), 0UL);
}

// ---------------------------------------------------------------- equal points

TEST(GEO_BezierPolygon, TwoEqualConsecutivePointsAreToldAndThePiecesKeepTheirOldShape)
{
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {1.0, 1.0}, {2.0, 0.0}, {4.0, 0.0}}));
    const auto controlPoints = [&polygon] {
        std::string text;
        for (unsigned long i = 0; i < 3; ++i) {
            text += piece(*polygon, i).getControlPoint(1)->toString()
                    + piece(*polygon, i).getControlPoint(2)->toString();
        }
        return text;
    };
    const std::string control = controlPoints();
    GEO_Vertex* const last = polygon->getLastVertex();
    EXPECT_EQ(printedBy([last] { last->setLocation(2.0, 0.0); }),
              "Warning: u[2]=2.82843=u[3]=2.82843\n");
    EXPECT_EQ(controlPoints(), control);
    // Parted again, the pieces follow.
    EXPECT_EQ(printedBy([last] { last->setLocation(3.0, -1.0); }), "");
    EXPECT_NE(controlPoints(), control);
}

TEST(GEO_BezierPolygon, ThePairAtTheStartIsToldWithTheLetterO)
{
    const COM_Scoped polygon(newPolygon({{0.0, 0.0}, {1.0, 1.0}, {2.0, 0.0}}));
    GEO_Vertex* const first = polygon->getFirstVertex();
    const std::string before = piece(*polygon, 0).getControlPoint(1)->toString();
    EXPECT_EQ(printedBy([first] { first->setLocation(1.0, 1.0); }), "Warning: u[1]=0=u[O]=0\n");
    EXPECT_EQ(piece(*polygon, 0).getControlPoint(1)->toString(), before);
}

TEST(GEO_BezierPolygon, NewPiecesThatGetNoDerivativesAreNearlyStraight)
{
    const COM_Scoped polygon(GEO_BezierPolygon::New());
    const COM_Scoped points(newPoints({{0.0, 0.0}, {100.0, 0.0}, {100.0, 0.0}, {100.0, 100.0}}));
    EXPECT_EQ(printedBy([&] { polygon->setPoints(*points); }), "Warning: u[1]=100=u[2]=100\n");
    EXPECT_EQ(shapeOf(*polygon), "(0.000000e+00,0.000000e+00)(3.300000e+01,0.000000e+00)"
                                 "(6.600000e+01,0.000000e+00)(1.000000e+02,0.000000e+00)\n"
                                 "(1.000000e+02,0.000000e+00)(1.000000e+02,0.000000e+00)"
                                 "(1.000000e+02,0.000000e+00)(1.000000e+02,0.000000e+00)\n"
                                 "(1.000000e+02,0.000000e+00)(1.000000e+02,3.300000e+01)"
                                 "(1.000000e+02,6.600000e+01)(1.000000e+02,1.000000e+02)\n");
}

TEST(GEO_BezierPolygon, AReleasedChainReleasesItsVertices)
{
    const COM_Scoped vertex(GEO_Vertex::New(5));
    vertex->setLocation(1.0, 1.0);
    {
        const COM_Scoped polygon(GEO_BezierPolygon::New());
        polygon->cat(*COM_Scoped(GEO_Point::New(0.0, 0.0)));
        polygon->cat(*vertex);
        polygon->cat(*COM_Scoped(GEO_Point::New(2.0, 0.0)));
        polygon->close();
        EXPECT_EQ(vertex->getNumberOfCurves(), 2UL);
    }
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
}
