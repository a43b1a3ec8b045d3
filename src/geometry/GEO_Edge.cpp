#include "geometry/GEO_Edge.h"

#include "common/COM_Guard.h"
#include "geometry/GEO_Curve.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Polygon.h"
#include "geometry/GEO_Vertex.h"

#include <algorithm>

GEO_Edge::GEO_Edge()
{
    COM_TYPE(GEO_Edge);
}

GEO_Edge::GEO_Edge(GEO_Curve& curve, bool reverse)
    : GEO_Edge()
{
    mReverse = reverse;
    GEO_Edge::setCurve(curve);
}

unsigned long GEO_Edge::getInverseAgregatedObjectsCount() const
{
    return mCurve != nullptr ? 1 : 0;
}

void GEO_Edge::resetInverseAgregatedObjects()
{
    resetCurve();
}

void GEO_Edge::stateChanged()
{
    if (mPolygon != nullptr) {
        mPolygon->stateChanged();
    }
}

GEO_Edge* GEO_Edge::NewEdgeInstance(GEO_Curve& curve, bool reverse) const
{
    return GEO_Edge::New(curve, reverse);
}

std::string GEO_Edge::toString() const
{
    return getIdentityString() + (mReverse ? " reverse of:" : " curve:")
           + (mCurve != nullptr ? mCurve->toString() : "NULL");
}

void GEO_Edge::computePoint(double t, GEO_Point& point) const
{
    if (mCurve != nullptr) {
        mCurve->computePoint(mReverse ? 1.0 - t : t, point);
    }
}

void GEO_Edge::computeDirection(GEO_Point& direction) const
{
    if (getStartingPoint() != nullptr && getEndingPoint() != nullptr) {
        direction.setLocation(*getStartingPoint());
        direction.vector(*getEndingPoint());
    }
}

void GEO_Edge::computeBoundingBox(GEO_Box& box) const
{
    if (mCurve != nullptr) {
        mCurve->computeBoundingBox(box);
    }
}

double GEO_Edge::getExtent(unsigned long axis) const
{
    return mCurve != nullptr ? mCurve->getExtent(axis) : 0.0;
}

std::vector<double> GEO_Edge::getParametersAt(unsigned long axis, double value) const
{
    std::vector<double> parameters;
    if (mCurve != nullptr) {
        parameters = mCurve->getParametersAt(axis, value);
    }
    if (mReverse) {
        std::reverse(parameters.begin(), parameters.end());
        for (double& t : parameters) {
            t = 1.0 - t;
        }
    }
    return parameters;
}

void GEO_Edge::setCurve(GEO_Curve* curve)
{
    if (curve == mCurve) {
        return;
    }
    const COM_Guard guard(*this);
    if (GEO_Curve* const old = mCurve) {
        const COM_Guard oldGuard(*old);
        dissociate(mCurve);
        old->removeFromEdges(*this);
    }
    associate(mCurve, curve);
    if (curve != nullptr) {
        curve->addToEdges(*this);
    }
    if (mPolygon != nullptr) {
        stateChanged();
    }
}

void GEO_Edge::setPolygon(GEO_Polygon* polygon)
{
    if (polygon == mPolygon) {
        return;
    }
    const COM_Guard guard(*this); // its polygon may be the last to hold this edge
    resetPolygon();
    associate(mPolygon, polygon);
    if (polygon != nullptr) {
        polygon->addToEdges(*this);
    }
}

void GEO_Edge::resetPolygon()
{
    if (mPolygon == nullptr) {
        return;
    }
    GEO_Polygon* const polygon = mPolygon;
    mPolygon = nullptr;
    const COM_Guard guard(*this);
    polygon->removeFromEdges(*this);
    polygon->subReference(this);
}

GEO_Vertex* GEO_Edge::getStartingVertex() const
{
    if (mCurve == nullptr) {
        return nullptr;
    }
    return mReverse ? mCurve->getEndingVertex() : mCurve->getStartingVertex();
}

GEO_Vertex* GEO_Edge::getEndingVertex() const
{
    if (mCurve == nullptr) {
        return nullptr;
    }
    return mReverse ? mCurve->getStartingVertex() : mCurve->getEndingVertex();
}

GEO_Point* GEO_Edge::getStartingPoint() const
{
    const GEO_Vertex* const vertex = getStartingVertex();
    return vertex != nullptr ? vertex->getPoint() : nullptr;
}

GEO_Point* GEO_Edge::getEndingPoint() const
{
    const GEO_Vertex* const vertex = getEndingVertex();
    return vertex != nullptr ? vertex->getPoint() : nullptr;
}

GEO_Edge* GEO_Edge::getFollowingEdge() const
{
    if (mPolygon == nullptr) {
        return nullptr;
    }
    if (mIndex + 1 < mPolygon->getEdges().size()) {
        return mPolygon->getEdge(mIndex + 1);
    }
    return mPolygon->isClosed() ? mPolygon->getEdge(0) : nullptr;
}

GEO_Edge* GEO_Edge::getPrecedentEdge() const
{
    if (mPolygon == nullptr) {
        return nullptr;
    }
    if (mIndex > 0) {
        return mPolygon->getEdge(mIndex - 1);
    }
    return mPolygon->isClosed() ? mPolygon->getEdge(mPolygon->getEdges().size() - 1) : nullptr;
}
