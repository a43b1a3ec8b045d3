#include "geometry/GEO_Polygon.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

GEO_Polygon::GEO_Polygon()
    : mEdges(COM_Array<GEO_Edge>::New())
{
    COM_TYPE(GEO_Polygon);
}

GEO_Polygon::~GEO_Polygon()
{
    mEdges->Delete();
}

unsigned long GEO_Polygon::getInverseAgregatedObjectsCount() const
{
    return GEO_Shell::getInverseAgregatedObjectsCount() + mEdges->size();
}

void GEO_Polygon::resetInverseAgregatedObjects()
{
    resetEdges();
    GEO_Shell::resetInverseAgregatedObjects();
}

GEO_Polygon* GEO_Polygon::NewShellInstance() const
{
    return GEO_Polygon::New();
}

void GEO_Polygon::computeBoundingBox(GEO_Box& box) const
{
    box.setToBoxesOf(*mEdges);
}

void GEO_Polygon::move(const GEO_Motion& motion, Moved& moved)
{
    for (unsigned long i = 0; i < mEdges->size(); ++i) {
        if (GEO_Curve* const curve = (*mEdges)[i].getCurve()) {
            curve->move(motion, moved);
        }
    }
}

GEO_Curve* GEO_Polygon::NewCurve() const
{
    return GEO_Line::New();
}

GEO_Curve* GEO_Polygon::NewCurve(GEO_Vertex& a, GEO_Vertex& b) const
{
    return GEO_Line::New(a, b);
}

GEO_Edge* GEO_Polygon::NewEdge(GEO_Curve& curve, bool reverse) const
{
    return GEO_Edge::New(curve, reverse);
}

// ---------------------------------------------------------------- building

bool GEO_Polygon::cat(GEO_Vertex& vertex)
{
    const GEO_Edge* const last = mEdges->size() > 0 ? getEdge(mEdges->size() - 1) : nullptr;
    if (last == nullptr || last->getCurve() == nullptr) {
        const COM_Scoped curve(NewCurve());
        curve->setStartingVertex(vertex);
        addToCurves(*curve, false);
        return true;
    }
    GEO_Vertex* const end = last->getEndingVertex();
    if (end == nullptr) {
        last->getCurve()->setEndingVertex(vertex);
        return true;
    }
    const COM_Scoped curve(NewCurve(*end, vertex));
    // A known curve between the two may run the other way.
    addToCurves(*curve, curve->getStartingVertex() != end);
    return true;
}

bool GEO_Polygon::cat(GEO_Curve* curve)
{
    if (curve == nullptr) {
        return false;
    }
    if (mEdges->size() == 0) {
        addToCurves(*curve, false);
        return true;
    }
    const GEO_Vertex* const start = curve->getStartingVertex();
    const GEO_Vertex* const end = curve->getEndingVertex();
    if (start != nullptr && start == getFirstVertex()) {
        addToCurves(*curve, true, 0);
    } else if (start != nullptr && start == getLastVertex()) {
        addToCurves(*curve, false);
    } else if (end != nullptr && end == getFirstVertex()) {
        addToCurves(*curve, false, 0);
    } else if (end != nullptr && end == getLastVertex()) {
        addToCurves(*curve, true);
    } else {
        return false;
    }
    return true;
}

bool GEO_Polygon::cat(GEO_Point& point)
{
    const COM_Scoped vertex(GEO_Vertex::New(point));
    return cat(*vertex);
}

bool GEO_Polygon::cat(const GEO_Polygon& polygon)
{
    bool isWhole = true;
    const unsigned long count = polygon.mEdges->size(); // it may be this polygon
    for (unsigned long i = 0; i < count; ++i) {
        isWhole = cat(polygon.getEdge(i)->getCurve()) && isWhole;
    }
    return isWhole;
}

void GEO_Polygon::addToCurves(GEO_Curve& curve, bool reverse, long index)
{
    const COM_Scoped edge(NewEdge(curve, reverse));
    addToEdges(*edge, index);
}

bool GEO_Polygon::holds(const GEO_Edge& edge) const
{
    return edge.getIndex() < mEdges->size() && mEdges->get(edge.getIndex()) == &edge;
}

void GEO_Polygon::renumber(unsigned long first)
{
    for (unsigned long i = first; i < mEdges->size(); ++i) {
        (*mEdges)[i].setIndex(i);
    }
}

void GEO_Polygon::addToEdges(GEO_Edge& edge, long index)
{
    if (holds(edge)) {
        return;
    }
    const COM_Guard guard(edge); // another polygon may be the last to hold it
    if (edge.getPolygon() != this) {
        edge.resetPolygon();
    }
    const unsigned long size = mEdges->size();
    const unsigned long place = index < 0 || static_cast<unsigned long>(index) > size
                                    ? size
                                    : static_cast<unsigned long>(index);
    mEdges->insert(place, edge);
    renumber(place);
    edge.setPolygon(*this);
    stateChanged();
}

void GEO_Polygon::removeFromEdges(GEO_Edge& edge)
{
    if (holds(edge)) {
        removeEdgeAtIndex(edge.getIndex());
    }
}

void GEO_Polygon::removeFromCurves(GEO_Curve& curve)
{
    const COM_Guard guard(curve);
    const unsigned long size = mEdges->size();
    for (unsigned long i = size; i-- > 0;) {
        if (getEdge(i)->getCurve() == &curve) {
            detachEdge(i);
        }
    }
    if (mEdges->size() != size) {
        stateChanged();
    }
}

bool GEO_Polygon::removeEdgeAtIndex(unsigned long index)
{
    if (index >= mEdges->size()) {
        return false;
    }
    detachEdge(index);
    stateChanged();
    return true;
}

void GEO_Polygon::detachEdge(unsigned long index)
{
    GEO_Edge& edge = *getEdge(index);
    const COM_Guard guard(edge);
    mEdges->remove(index);
    renumber(index);
    if (edge.getPolygon() == this) {
        edge.resetPolygon();
    }
}

void GEO_Polygon::resetEdges()
{
    if (mEdges->size() == 0) {
        return;
    }
    while (mEdges->size() > 0) {
        detachEdge(mEdges->size() - 1);
    }
    stateChanged();
}

GEO_Edge* GEO_Polygon::getEdge(unsigned long i) const
{
    return mEdges->get(i);
}

// ---------------------------------------------------------------- looking

GEO_Vertex* GEO_Polygon::getFirstVertex() const
{
    return mEdges->size() > 0 ? getEdge(0)->getStartingVertex() : nullptr;
}

// A chain of one vertex ends where it starts.
GEO_Vertex* GEO_Polygon::getLastVertex() const
{
    if (mEdges->size() == 0) {
        return nullptr;
    }
    const GEO_Edge& last = *getEdge(mEdges->size() - 1);
    return last.getEndingVertex() != nullptr ? last.getEndingVertex() : last.getStartingVertex();
}

GEO_Point* GEO_Polygon::getFirstPoint() const
{
    const GEO_Vertex* const vertex = getFirstVertex();
    return vertex != nullptr ? vertex->getPoint() : nullptr;
}

GEO_Point* GEO_Polygon::getLastPoint() const
{
    const GEO_Vertex* const vertex = getLastVertex();
    return vertex != nullptr ? vertex->getPoint() : nullptr;
}

void GEO_Polygon::getVertices(COM_Array<GEO_Vertex>& out) const
{
    out.setSize(0);
    const GEO_Vertex* before = nullptr;
    for (unsigned long i = 0; i < mEdges->size(); ++i) {
        for (GEO_Vertex* vertex :
             {getEdge(i)->getStartingVertex(), getEdge(i)->getEndingVertex()}) {
            if (vertex != nullptr && vertex != before) {
                out.add(vertex);
                before = vertex;
            }
        }
    }
}

void GEO_Polygon::getPoints(COM_Array<GEO_Point>& out) const
{
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New());
    getVertices(*vertices);
    out.setSize(0);
    for (unsigned long i = 0; i < vertices->size(); ++i) {
        out.add((*vertices)[i].getPoint());
    }
}

bool GEO_Polygon::isClosed() const
{
    return mEdges->size() > 0 && getFirstVertex() != nullptr
           && getEdge(mEdges->size() - 1)->getEndingVertex() == getFirstVertex();
}

void GEO_Polygon::close()
{
    GEO_Vertex* const first = getFirstVertex();
    GEO_Vertex* const last = getLastVertex();
    if (first == nullptr || last == nullptr || first == last) {
        return;
    }
    const COM_Scoped curve(NewCurve(*last, *first));
    addToCurves(*curve, curve->getStartingVertex() != last);
}

void GEO_Polygon::reverse()
{
    mEdges->reverse();
    for (unsigned long i = 0; i < mEdges->size(); ++i) {
        getEdge(i)->setReverse(!getEdge(i)->isReverse());
    }
    renumber(0);
    stateChanged();
}

void GEO_Polygon::computeIsoBarycenter(GEO_Point& point) const
{
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    getPoints(*points);
    if (points->size() == 0) {
        return;
    }
    const COM_Scoped sum(GEO_Point::New((*points)[0]));
    for (unsigned long i = 1; i < points->size(); ++i) {
        sum->add((*points)[i]);
    }
    sum->dividedBy(static_cast<double>(points->size()));
    point.setLocation(*sum);
}
