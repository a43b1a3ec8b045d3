#pragma once
#include "geometry/GEO_Curve.h"

/// The straight curve between two vertices.
class GEO_Line : public GEO_Curve
{
public:
    /// A line without ends.
    static GEO_Line* New() { return new GEO_Line; }
    /// The registered line of the pair with a further reference, or a new one.
    static GEO_Line* New(GEO_Vertex& a, GEO_Vertex& b);

    GEO_Line* NewCurveInstance() const override { return New(); }
    void computePoint(double t, GEO_Point& point) const override;
    using GEO_Curve::intersect;
    unsigned long intersect(const GEO_Point& a, const GEO_Point& b,
                            COM_Array<GEO_Point>& points) const override;

protected:
    GEO_Line();
    ~GEO_Line() override = default;
};
