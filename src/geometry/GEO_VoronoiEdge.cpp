#include "geometry/GEO_VoronoiEdge.h"

#include "common/COM_Guard.h"
#include "geometry/GEO_DelaunayEdge.h"

GEO_VoronoiEdge::GEO_VoronoiEdge()
{
    COM_TYPE(GEO_VoronoiEdge);
}

GEO_VoronoiEdge::GEO_VoronoiEdge(GEO_Curve& curve, bool reverse)
    : GEO_Edge(curve, reverse)
{
    COM_TYPE(GEO_VoronoiEdge);
}

unsigned long GEO_VoronoiEdge::getInverseAgregatedObjectsCount() const
{
    return GEO_Edge::getInverseAgregatedObjectsCount() + (mDelaunayEdge != nullptr ? 1 : 0);
}

void GEO_VoronoiEdge::resetInverseAgregatedObjects()
{
    resetDelaunayEdge();
    GEO_Edge::resetInverseAgregatedObjects();
}

GEO_VoronoiEdge* GEO_VoronoiEdge::NewEdgeInstance(GEO_Curve& curve, bool reverse) const
{
    return GEO_VoronoiEdge::New(curve, reverse);
}

void GEO_VoronoiEdge::setDelaunayEdge(GEO_DelaunayEdge* edge)
{
    if (edge == mDelaunayEdge) {
        return;
    }
    const COM_Guard guard(*this);
    if (GEO_DelaunayEdge* const old = mDelaunayEdge) {
        const COM_Guard oldGuard(*old);
        dissociate(mDelaunayEdge);
        old->resetVoronoiEdge();
    }
    associate(mDelaunayEdge, edge);
    if (edge != nullptr) {
        edge->setVoronoiEdge(this);
    }
}
