#pragma once
#include "geometry/GEO_Edge.h"

class GEO_VoronoiEdge;

/// An edge of a triangulation, with the edge of the dual diagram that crosses it. Each of the two counts the
/// other, and neither keeps the other alive: the inverse count leaves the link out.
class GEO_DelaunayEdge : public GEO_Edge
{
    COM_CLASS(GEO_DelaunayEdge)
public:
    GEO_DelaunayEdge* NewEdgeInstance(GEO_Curve& curve, bool reverse) const override;

    // Two-way link with GEO_VoronoiEdge::setDelaunayEdge.
    void setVoronoiEdge(GEO_VoronoiEdge* edge);
    void setVoronoiEdge(GEO_VoronoiEdge& edge) { setVoronoiEdge(&edge); }
    void resetVoronoiEdge() { setVoronoiEdge(nullptr); }
    GEO_VoronoiEdge* getVoronoiEdge() const { return mVoronoiEdge; }

protected:
    GEO_DelaunayEdge();
    GEO_DelaunayEdge(GEO_Curve& curve, bool reverse);
    ~GEO_DelaunayEdge() override = default;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    GEO_VoronoiEdge* mVoronoiEdge = nullptr; ///< Counted.
};
