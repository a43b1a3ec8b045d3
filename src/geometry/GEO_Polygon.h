#pragma once
#include "geometry/GEO_Shell.h"

class GEO_Curve;
class GEO_Edge;
class GEO_Point;
class GEO_Vertex;

/// An ordered chain of edges, which it holds. Their back references are left out by the inverse count.
///
/// Appending and removing at the end do not depend on the length of the chain; anywhere else the edges
/// behind are numbered anew. Whoever depends on the polygon is told of each operation that changes it, once.
class GEO_Polygon : public GEO_Shell
{
    COM_CLASS(GEO_Polygon)
public:
    GEO_Polygon* NewShellInstance() const override;
    void computeBoundingBox(GEO_Box& box) const override;
    void move(const GEO_Motion& motion, Moved& moved) override;
    /// A new curve of the kind this polygon is made of, without ends, or the one between two vertices; the
    /// caller releases the reference.
    virtual GEO_Curve* NewCurve() const;
    virtual GEO_Curve* NewCurve(GEO_Vertex& a, GEO_Vertex& b) const;

    /// Appends a vertex: the first one starts a curve, the second ends it, and each further one brings the
    /// curve from the one before it. True always.
    bool cat(GEO_Vertex& vertex);
    /// Appends a curve at the end or the front, wherever one of its vertices fits, turned round if need
    /// be. False, with nothing changed, when it fits nowhere.
    bool cat(GEO_Curve* curve);
    bool cat(GEO_Curve& curve) { return cat(&curve); }
    /// Appends a new vertex on that point.
    bool cat(GEO_Point& point);
    /// Appends the curves of another polygon in order; false when one of them did not fit.
    bool cat(const GEO_Polygon& polygon);

    /// Adds an edge on that curve at place `index`; -1, or a place beyond the end, appends.
    void addToCurves(GEO_Curve& curve, bool reverse, long index = -1);
    // Two-way link with GEO_Edge::setPolygon.
    void addToEdges(GEO_Edge& edge, long index = -1);
    void removeFromEdges(GEO_Edge& edge);
    void removeFromCurves(GEO_Curve& curve);
    /// False past the end.
    bool removeEdgeAtIndex(unsigned long index);
    void resetEdges();
    const COM_Array<GEO_Edge>& getEdges() const { return *mEdges; }
    /// Requires: the edge is there.
    GEO_Edge* getEdge(unsigned long i) const;

    GEO_Vertex* getFirstVertex() const;
    GEO_Vertex* getLastVertex() const;
    /// The points of these, or null.
    GEO_Point* getFirstPoint() const;
    GEO_Point* getLastPoint() const;
    /// Start and end of every edge in order; one equal to the one before it is skipped, and so is a missing
    /// end.
    void getVertices(COM_Array<GEO_Vertex>& out) const;
    void getPoints(COM_Array<GEO_Point>& out) const;

    bool isClosed() const;
    /// Adds the curve from the last to the first vertex, if it is missing.
    void close();
    void reverse();
    /// The mean of the points; without any nothing is done.
    void computeIsoBarycenter(GEO_Point& point) const;

protected:
    GEO_Polygon();
    ~GEO_Polygon() override;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;
    /// An edge of the kind this polygon is made of.
    virtual GEO_Edge* NewEdge(GEO_Curve& curve, bool reverse) const;

private:
    bool holds(const GEO_Edge& edge) const;
    /// Removes an edge and tells nobody. Requires: it is there.
    void detachEdge(unsigned long index);
    void renumber(unsigned long first);

    COM_Array<GEO_Edge>* mEdges; ///< Counted, never null.
};
