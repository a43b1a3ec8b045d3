#include "geometry/GEO_Spline.h"

#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <vector>

namespace {

constexpr double firstThird = 0.33;
constexpr double secondThird = 0.66;

/// A cubic polynomial on [0, 1] by its Bezier coefficients: the first and the last are its values at the ends.
using Cubic = std::array<double, 4>;

double valueAt(const Cubic& f, double t)
{
    const double u = 1.0 - t;
    return u * u * u * f[0] + 3.0 * t * u * u * f[1] + 3.0 * t * t * u * f[2] + t * t * t * f[3];
}

/// Its zeros from 0 to 1 in ascending order. Between its extrema the polynomial is monotone and has one
/// zero where the sign changes: halving finds it however small the leading coefficients are, as they are
/// in a straight piece.
std::vector<double> zerosOf(const Cubic& f)
{
    std::vector<double> nodes{0.0};
    double extrema[2];
    unsigned long count = 0;
    COM_Real::solveEq2(f[3] - 3.0 * f[2] + 3.0 * f[1] - f[0], 2.0 * (f[2] - 2.0 * f[1] + f[0]),
                       f[1] - f[0], extrema, count);
    std::copy_if(extrema, extrema + count, std::back_inserter(nodes),
                 [](double t) { return t > 0.0 && t < 1.0; });
    nodes.push_back(1.0);

    constexpr int halvings = 60; // steps below the rounding of 1
    std::vector<double> zeros;
    for (unsigned long i = 0; i < nodes.size(); ++i) {
        const double value = valueAt(f, nodes[i]);
        const double next = i + 1 < nodes.size() ? valueAt(f, nodes[i + 1]) : 0.0;
        if (value == 0.0) {
            zeros.push_back(nodes[i]);
        } else if (next != 0.0 && std::signbit(value) != std::signbit(next)) {
            double low = nodes[i];
            double high = nodes[i + 1];
            for (int k = 0; k < halvings; ++k) {
                const double middle = (low + high) / 2.0;
                (std::signbit(valueAt(f, middle)) == std::signbit(value) ? low : high) = middle;
            }
            zeros.push_back(low);
        }
    }
    return zeros;
}

} // namespace

GEO_Spline::GEO_Spline()
{
    COM_TYPE(GEO_Spline);
}

GEO_Spline::~GEO_Spline()
{
    dissociate(mP2);
    dissociate(mP1);
}

GEO_Spline* GEO_Spline::New(GEO_Vertex& a, GEO_Vertex& b)
{
    if (auto* const spline = known<GEO_Spline>(a, b)) {
        return spline;
    }
    auto* const spline = new GEO_Spline;
    spline->setStartingVertex(a);
    spline->setEndingVertex(b);
    spline->initControlPoints();
    return spline;
}

bool GEO_Spline::isComplete() const
{
    return hasEndPoints() && mP1 != nullptr && mP2 != nullptr;
}

void GEO_Spline::initControlPoints()
{
    if (!hasEndPoints()) {
        return;
    }
    const COM_Scoped step(GEO_Point::New(*getStartingPoint()));
    step->vector(*getEndingPoint());
    const COM_Scoped first(GEO_Point::New(*getStartingPoint()));
    first->add(firstThird, *step);
    setControlPoint(1, *first);
    const COM_Scoped second(GEO_Point::New(*getStartingPoint()));
    second->add(secondThird, *step);
    setControlPoint(2, *second);
}

void GEO_Spline::setControlPoint(unsigned long i, GEO_Point* point)
{
    if (i == 1) {
        associate(mP1, point);
    } else if (i == 2) {
        associate(mP2, point);
    }
}

GEO_Point* GEO_Spline::getControlPoint(unsigned long i) const
{
    if (i == 1) {
        return mP1;
    }
    return i == 2 ? mP2 : nullptr;
}

void GEO_Spline::computePoint(double t, GEO_Point& point) const
{
    if (!isComplete()) {
        return;
    }
    const double u = 1.0 - t;
    const COM_Scoped sum(GEO_Point::New(*getStartingPoint()));
    sum->multipliedBy(u * u * u);
    sum->add(3.0 * t * u * u, *mP1);
    sum->add(3.0 * t * t * u, *mP2);
    sum->add(t * t * t, *getEndingPoint());
    point.setLocation(*sum);
}

void GEO_Spline::computeDerivativePoint(double t, GEO_Point& derivative) const
{
    if (!isComplete()) {
        return;
    }
    const double u = 1.0 - t;
    const COM_Scoped sum(GEO_Point::New(*getStartingPoint()));
    sum->multipliedBy(-3.0 * u * u);
    sum->add(3.0 * u * u - 6.0 * t * u, *mP1);
    sum->add(6.0 * t * u - 3.0 * t * t, *mP2);
    sum->add(3.0 * t * t, *getEndingPoint());
    derivative.setLocation(*sum);
}

void GEO_Spline::computeBoundingBox(GEO_Box& box) const
{
    if (isComplete()) {
        GEO_Curve::computeBoundingBox(box);
    }
}

void GEO_Spline::move(const GEO_Motion& motion, Moved& moved)
{
    GEO_Curve::move(motion, moved);
    if (!moved.insert(this).second) {
        return;
    }
    for (GEO_Point* point : {mP1, mP2}) {
        if (point != nullptr) {
            motion.apply(*point);
        }
    }
}

// The distance from the line through a and b is a cubic polynomial of t.
unsigned long GEO_Spline::intersect(const GEO_Point& a, const GEO_Point& b,
                                    COM_Array<GEO_Point>& points) const
{
    points.setSize(0);
    const double dx = b.getValue(0) - a.getValue(0);
    const double dy = b.getValue(1) - a.getValue(1);
    const double length2 = dx * dx + dy * dy;
    if (!isComplete() || length2 == 0.0) {
        return 0;
    }
    const auto distance = [&a, dx, dy](const GEO_Point& point) {
        return (point.getValue(1) - a.getValue(1)) * dx - (point.getValue(0) - a.getValue(0)) * dy;
    };
    for (const double t : zerosOf({distance(*getStartingPoint()), distance(*mP1), distance(*mP2),
                                   distance(*getEndingPoint())})) {
        const COM_Scoped point(GEO_Point::New());
        computePoint(t, *point);
        const double s =
            ((point->getValue(0) - a.getValue(0)) * dx + (point->getValue(1) - a.getValue(1)) * dy)
            / length2;
        if (s >= 0.0 && s <= 1.0) {
            points.add(*point);
        }
    }
    return points.size();
}

// The derivative is a mean of three times the steps between the control points, and the weights of each
// step add up to a third along the piece.
double GEO_Spline::getExtent(unsigned long axis) const
{
    if (!isComplete()) {
        return 0.0;
    }
    const auto step = [axis](const GEO_Point& from, const GEO_Point& to) {
        return std::fabs(to.getValue(axis) - from.getValue(axis));
    };
    return step(*getStartingPoint(), *mP1) + step(*mP1, *mP2) + step(*mP2, *getEndingPoint());
}

std::vector<double> GEO_Spline::getParametersAt(unsigned long axis, double value) const
{
    if (!isComplete()) {
        return {};
    }
    return zerosOf({getStartingPoint()->getValue(axis) - value, mP1->getValue(axis) - value,
                    mP2->getValue(axis) - value, getEndingPoint()->getValue(axis) - value});
}

void GEO_Spline::setBeginDerivative(const GEO_Point& derivative)
{
    if (getStartingPoint() == nullptr) {
        return;
    }
    const COM_Scoped point(GEO_Point::New(*getStartingPoint()));
    point->add((mU1 - mU0) / 3.0, derivative);
    setControlPoint(1, *point);
}

void GEO_Spline::setEndDerivative(const GEO_Point& derivative)
{
    if (getEndingPoint() == nullptr) {
        return;
    }
    const COM_Scoped point(GEO_Point::New(*getEndingPoint()));
    point->sub((mU1 - mU0) / 3.0, derivative);
    setControlPoint(2, *point);
}

void GEO_Spline::setParameters(double u0, double u1)
{
    if (mU1 - mU0 != 0.0 && isComplete()) {
        const double r = (u1 - u0) / (mU1 - mU0);
        const auto scale = [r](GEO_Point& control, const GEO_Point& end) {
            control.multipliedBy(r);
            control.add(1.0 - r, end);
        };
        scale(*mP1, *getStartingPoint());
        scale(*mP2, *getEndingPoint());
    }
    mU0 = u0;
    mU1 = u1;
}
