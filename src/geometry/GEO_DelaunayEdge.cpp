#include "geometry/GEO_DelaunayEdge.h"

#include "common/COM_Guard.h"
#include "geometry/GEO_VoronoiEdge.h"

GEO_DelaunayEdge::GEO_DelaunayEdge()
{
    COM_TYPE(GEO_DelaunayEdge);
}

GEO_DelaunayEdge::GEO_DelaunayEdge(GEO_Curve& curve, bool reverse)
    : GEO_Edge(curve, reverse)
{
    COM_TYPE(GEO_DelaunayEdge);
}

unsigned long GEO_DelaunayEdge::getInverseAgregatedObjectsCount() const
{
    return GEO_Edge::getInverseAgregatedObjectsCount() + (mVoronoiEdge != nullptr ? 1 : 0);
}

void GEO_DelaunayEdge::resetInverseAgregatedObjects()
{
    resetVoronoiEdge();
    GEO_Edge::resetInverseAgregatedObjects();
}

GEO_DelaunayEdge* GEO_DelaunayEdge::NewEdgeInstance(GEO_Curve& curve, bool reverse) const
{
    return GEO_DelaunayEdge::New(curve, reverse);
}

void GEO_DelaunayEdge::setVoronoiEdge(GEO_VoronoiEdge* edge)
{
    if (edge == mVoronoiEdge) {
        return;
    }
    const COM_Guard guard(*this);
    if (GEO_VoronoiEdge* const old = mVoronoiEdge) {
        const COM_Guard oldGuard(*old);
        dissociate(mVoronoiEdge);
        old->resetDelaunayEdge();
    }
    associate(mVoronoiEdge, edge);
    if (edge != nullptr) {
        edge->setDelaunayEdge(this);
    }
}
