#pragma once
#include "geometry/GEO_Edge.h"

class GEO_DelaunayEdge;

/// An edge of a dual diagram, with the edge of the triangulation that it crosses. See GEO_DelaunayEdge for
/// the link.
class GEO_VoronoiEdge : public GEO_Edge
{
    COM_CLASS(GEO_VoronoiEdge)
public:
    GEO_VoronoiEdge* NewEdgeInstance(GEO_Curve& curve, bool reverse) const override;

    // Two-way link with GEO_DelaunayEdge::setVoronoiEdge.
    void setDelaunayEdge(GEO_DelaunayEdge* edge);
    void setDelaunayEdge(GEO_DelaunayEdge& edge) { setDelaunayEdge(&edge); }
    void resetDelaunayEdge() { setDelaunayEdge(nullptr); }
    GEO_DelaunayEdge* getDelaunayEdge() const { return mDelaunayEdge; }

protected:
    GEO_VoronoiEdge();
    GEO_VoronoiEdge(GEO_Curve& curve, bool reverse);
    ~GEO_VoronoiEdge() override = default;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    GEO_DelaunayEdge* mDelaunayEdge = nullptr; ///< Counted.
};
