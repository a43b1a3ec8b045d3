#pragma once
#include "geometry/GEO_Object.h"

#include <string>
#include <vector>

class GEO_Box;
class GEO_Curve;
class GEO_Point;
class GEO_Polygon;
class GEO_Vertex;

/// A curve run through in one direction, as a part of a polygon.
///
/// An edge holds its curve; the curve's list of edges counts it back, which the inverse count leaves out.
/// Its polygon is a counted back reference.
class GEO_Edge : public GEO_Object
{
    COM_CLASS(GEO_Edge)
public:
    /// Tells the polygon.
    void stateChanged() override;
    /// A new edge of the same kind on that curve.
    virtual GEO_Edge* NewEdgeInstance(GEO_Curve& curve, bool reverse) const;
    std::string toString() const override;
    /// The curve's point at `t`, or at 1 - `t` of a reversed edge.
    virtual void computePoint(double t, GEO_Point& point) const;
    /// The vector from the edge's start to its end; without both end points nothing is done.
    virtual void computeDirection(GEO_Point& direction) const;
    virtual void computeBoundingBox(GEO_Box& box) const;
    /// As those of the curve, with the edge's own parameter. Without curve 0 and none.
    double getExtent(unsigned long axis) const;
    std::vector<double> getParametersAt(unsigned long axis, double value) const;

    /// Tells nobody: a polygon that is turned round turns its edges one by one, and is told at the end.
    void setReverse(bool reverse) { mReverse = reverse; }
    bool isReverse() const { return mReverse; }

    // Two-way link with GEO_Curve::addToEdges.
    void setCurve(GEO_Curve* curve);
    void setCurve(GEO_Curve& curve) { setCurve(&curve); }
    void resetCurve() { setCurve(nullptr); }
    GEO_Curve* getCurve() const { return mCurve; }

    // Two-way link with GEO_Polygon::addToEdges.
    void setPolygon(GEO_Polygon* polygon);
    void setPolygon(GEO_Polygon& polygon) { setPolygon(&polygon); }
    void resetPolygon();
    GEO_Polygon* getPolygon() const { return mPolygon; }
    void setIndex(unsigned long index) { mIndex = index; }
    unsigned long getIndex() const { return mIndex; }

    /// The curve's ends, exchanged for a reversed edge; null without curve or end.
    GEO_Vertex* getStartingVertex() const;
    GEO_Vertex* getEndingVertex() const;
    GEO_Point* getStartingPoint() const;
    GEO_Point* getEndingPoint() const;
    /// The neighbour in the polygon; at the ends of a closed polygon it goes round, else null.
    GEO_Edge* getFollowingEdge() const;
    GEO_Edge* getPrecedentEdge() const;

protected:
    GEO_Edge();
    GEO_Edge(GEO_Curve& curve, bool reverse);
    ~GEO_Edge() override = default;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    bool mReverse = false;           ///< True when the edge runs from the curve's end to its start.
    GEO_Curve* mCurve = nullptr;     ///< Counted.
    GEO_Polygon* mPolygon = nullptr; ///< Counted back reference.
    unsigned long mIndex = 0;        ///< Place in the polygon.
};
