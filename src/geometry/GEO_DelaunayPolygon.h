#pragma once
#include "geometry/GEO_Polygon.h"

/// The polygon that a mesh is made of.
class GEO_DelaunayPolygon : public GEO_Polygon
{
    COM_CLASS(GEO_DelaunayPolygon)
public:
    GEO_DelaunayPolygon* NewShellInstance() const override;

protected:
    GEO_DelaunayPolygon();
    ~GEO_DelaunayPolygon() override = default;
};
