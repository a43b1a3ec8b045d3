#include "geometry/GEO_DelaunayPolygon.h"

GEO_DelaunayPolygon::GEO_DelaunayPolygon()
{
    COM_TYPE(GEO_DelaunayPolygon);
}

GEO_DelaunayPolygon* GEO_DelaunayPolygon::NewShellInstance() const
{
    return GEO_DelaunayPolygon::New();
}
