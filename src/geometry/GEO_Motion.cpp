#include "geometry/GEO_Motion.h"

#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

void GEO_Motion::apply(GEO_Vertex* vertex, Moved& moved) const
{
    if (vertex != nullptr && vertex->getPoint() != nullptr && moved.insert(vertex).second) {
        mMove(*vertex->getPoint());
    }
}

void GEO_Motion::tell(const Moved& moved)
{
    for (GEO_Vertex* vertex : moved) {
        vertex->stateChanged();
    }
}
