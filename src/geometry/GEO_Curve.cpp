#include "geometry/GEO_Curve.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned long samples = 51; ///< Points along a curve for its box.

bool haveNumbers(const GEO_Vertex& a, const GEO_Vertex& b)
{
    return a.getLocationNumber() >= 0 && b.getLocationNumber() >= 0;
}

GEO_Pairs::Pair pairOf(const GEO_Vertex& a, const GEO_Vertex& b)
{
    const auto first = static_cast<unsigned long>(a.getLocationNumber());
    const auto second = static_cast<unsigned long>(b.getLocationNumber());
    return {std::min(first, second), std::max(first, second)};
}

} // namespace

GEO_Pairs* GEO_Curve::mCurves = nullptr;
GEO_Numbers<GEO_Curve>* GEO_Curve::mNumberedCurves = nullptr;

GEO_Curve::GEO_Curve()
    : mEdges(COM_Array<GEO_Edge>::New())
{
    COM_TYPE(GEO_Curve);
}

GEO_Curve::~GEO_Curve()
{
    leaveNumbers();
    leaveRegistry();
    mEdges->Delete();
}

unsigned long GEO_Curve::getInverseAgregatedObjectsCount() const
{
    return (mStartingVertex != nullptr ? 1UL : 0UL) + (mEndingVertex != nullptr ? 1UL : 0UL);
}

void GEO_Curve::resetInverseAgregatedObjects()
{
    resetStartingVertex();
    resetEndingVertex();
}

void GEO_Curve::stateChanged()
{
    for (unsigned long i = 0; i < mEdges->size(); ++i) {
        (*mEdges)[i].stateChanged();
    }
}

std::string GEO_Curve::toString() const
{
    const auto name = [](const GEO_Vertex* vertex) {
        return vertex != nullptr ? vertex->getIdentityString() : std::string("NULL");
    };
    return getIdentityString() + " from:" + name(mStartingVertex) + " to:" + name(mEndingVertex);
}

void GEO_Curve::computePoints(unsigned long n, COM_Array<GEO_Point>& points) const
{
    computePoints(0.0, 1.0, n, points);
}

void GEO_Curve::computePoints(unsigned long n, COM_Array<GEO_Point>* points) const
{
    computePoints(n, *points);
}

void GEO_Curve::computePoints(double t0, double t1, unsigned long n,
                              COM_Array<GEO_Point>& points) const
{
    points.setSize(0);
    for (unsigned long i = 0; i < n; ++i) {
        const double part = n > 1 ? static_cast<double>(i) / static_cast<double>(n - 1) : 0.0;
        const COM_Scoped point(GEO_Point::New());
        computePoint(t0 + part * (t1 - t0), *point);
        points.add(*point);
    }
}

void GEO_Curve::computePoints(double t0, double t1, unsigned long n,
                              COM_Array<GEO_Point>* points) const
{
    computePoints(t0, t1, n, *points);
}

void GEO_Curve::computeBoundingBox(GEO_Box& box) const
{
    if (!hasEndPoints()) {
        return;
    }
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    computePoints(samples, *points);
    box.setTo((*points)[0], (*points)[0]);
    for (unsigned long i = 1; i < points->size(); ++i) {
        box.combine((*points)[i]);
    }
}

void GEO_Curve::move(const GEO_Motion& motion, Moved& moved)
{
    motion.apply(mStartingVertex, moved);
    motion.apply(mEndingVertex, moved);
}

double GEO_Curve::getLength() const
{
    return hasEndPoints() ? getStartingPoint()->distanceTo(*getEndingPoint()) : 0.0;
}

bool GEO_Curve::intersect(const GEO_Point& a, const GEO_Point& b, GEO_Point& point) const
{
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    if (intersect(a, b, *points) == 0) {
        return false;
    }
    point.setLocation((*points)[0]);
    return true;
}

double GEO_Curve::getExtent(unsigned long axis) const
{
    return hasEndPoints()
               ? std::fabs(getEndingPoint()->getValue(axis) - getStartingPoint()->getValue(axis))
               : 0.0;
}

std::vector<double> GEO_Curve::getParametersAt(unsigned long axis, double value) const
{
    if (!hasEndPoints()) {
        return {};
    }
    const double start = getStartingPoint()->getValue(axis);
    const double t = (value - start) / (getEndingPoint()->getValue(axis) - start);
    return t >= 0.0 && t <= 1.0 ? std::vector<double>{t} : std::vector<double>();
}

// ---------------------------------------------------------------- registries

GEO_Pairs& GEO_Curve::pairs()
{
    if (mCurves == nullptr) {
        mCurves = GEO_Pairs::New();
    }
    return *mCurves;
}

GEO_Numbers<GEO_Curve>& GEO_Curve::numbers()
{
    if (mNumberedCurves == nullptr) {
        mNumberedCurves = GEO_Numbers<GEO_Curve>::New();
    }
    return *mNumberedCurves;
}

std::string GEO_Curve::getKey(const GEO_Vertex& a, const GEO_Vertex& b)
{
    const auto [smaller, larger] = std::minmax({a.getLocationNumber(), b.getLocationNumber()});
    return smaller < 0 ? std::string() : std::to_string(smaller) + "-" + std::to_string(larger);
}

GEO_Curve* GEO_Curve::get(const GEO_Vertex& a, const GEO_Vertex& b)
{
    return haveNumbers(a, b) ? pairs().get(pairOf(a, b)) : nullptr;
}

GEO_Curve* GEO_Curve::get(unsigned long locationNumber)
{
    return numbers().get(locationNumber);
}

GEO_Pairs::Pair GEO_Curve::getPair() const
{
    return pairOf(*mStartingVertex, *mEndingVertex);
}

bool GEO_Curve::hasPair() const
{
    return mStartingVertex != nullptr && mEndingVertex != nullptr
           && haveNumbers(*mStartingVertex, *mEndingVertex);
}

void GEO_Curve::enterRegistry()
{
    if (hasPair()) {
        pairs().put(getPair(), *this);
    }
}

void GEO_Curve::leaveRegistry()
{
    if (hasPair() && pairs().get(getPair()) == this) {
        pairs().remove(getPair());
    }
}

void GEO_Curve::leaveNumbers()
{
    if (mLocationNumber >= 0) {
        numbers().remove(static_cast<unsigned long>(mLocationNumber));
    }
}

bool GEO_Curve::setLocationNumber(long locationNumber)
{
    if (locationNumber >= 0 && get(static_cast<unsigned long>(locationNumber)) != nullptr) {
        return false;
    }
    leaveNumbers();
    mLocationNumber = locationNumber;
    if (locationNumber >= 0) {
        numbers().put(static_cast<unsigned long>(locationNumber), *this);
    }
    return true;
}

// ---------------------------------------------------------------- ends and edges

void GEO_Curve::setStartingVertex(GEO_Vertex* vertex)
{
    if (vertex == mStartingVertex) {
        return;
    }
    const COM_Guard guard(*this);
    leaveRegistry();
    if (GEO_Vertex* const old = mStartingVertex) {
        const COM_Guard oldGuard(*old);
        dissociate(mStartingVertex);
        old->removeFromStartingCurves(*this);
    }
    associate(mStartingVertex, vertex);
    if (vertex != nullptr) {
        vertex->addToStartingCurves(*this);
    }
    enterRegistry();
    stateChanged();
}

void GEO_Curve::setEndingVertex(GEO_Vertex* vertex)
{
    if (vertex == mEndingVertex) {
        return;
    }
    const COM_Guard guard(*this);
    leaveRegistry();
    if (GEO_Vertex* const old = mEndingVertex) {
        const COM_Guard oldGuard(*old);
        dissociate(mEndingVertex);
        old->removeFromEndingCurves(*this);
    }
    associate(mEndingVertex, vertex);
    if (vertex != nullptr) {
        vertex->addToEndingCurves(*this);
    }
    enterRegistry();
    stateChanged();
}

GEO_Point* GEO_Curve::getStartingPoint() const
{
    return mStartingVertex != nullptr ? mStartingVertex->getPoint() : nullptr;
}

GEO_Point* GEO_Curve::getEndingPoint() const
{
    return mEndingVertex != nullptr ? mEndingVertex->getPoint() : nullptr;
}

void GEO_Curve::addToEdges(GEO_Edge& edge)
{
    if (!mEdges->exists(edge)) {
        mEdges->add(edge);
        edge.setCurve(*this);
    }
}

void GEO_Curve::removeFromEdges(GEO_Edge& edge)
{
    if (!mEdges->exists(edge)) {
        return;
    }
    const COM_Guard guard(edge);
    mEdges->remove(edge);
    if (edge.getCurve() == this) {
        edge.resetCurve();
    }
}
