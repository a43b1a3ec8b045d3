#include "geometry/GEO_Motion.h"

#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

void GEO_Motion::apply(GEO_Vertex* vertex, Moved& moved) const
{
    if (vertex == nullptr || vertex->getPoint() == nullptr || !moved.insert(vertex).second) {
        return;
    }
    if (moved.insert(vertex->getPoint()).second) { // other vertices may stand on the same point
        mMove(*vertex->getPoint());
    }
}

void GEO_Motion::tell(const Moved& moved)
{
    for (GEO_Object* object : moved) {
        object->stateChanged();
    }
}
