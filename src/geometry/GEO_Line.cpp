#include "geometry/GEO_Line.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

#include <cmath>

namespace {

constexpr double flatness = 1e-12; ///< Distance of two crossing lines in units of their sizes.

GEO_Point* difference(const GEO_Point& from, const GEO_Point& to)
{
    auto* const vector = GEO_Point::New(from);
    vector->vector(to);
    vector->setDimension(3);
    return vector;
}

} // namespace

GEO_Line::GEO_Line()
{
    COM_TYPE(GEO_Line);
}

GEO_Line* GEO_Line::New(GEO_Vertex& a, GEO_Vertex& b)
{
    if (auto* const line = known<GEO_Line>(a, b)) {
        return line;
    }
    auto* const line = new GEO_Line;
    line->setStartingVertex(a);
    line->setEndingVertex(b);
    return line;
}

void GEO_Line::computePoint(double t, GEO_Point& point) const
{
    if (!hasEndPoints()) {
        return;
    }
    const COM_Scoped step(GEO_Point::New(*getStartingPoint()));
    step->vector(*getEndingPoint());
    point.setLocation(*getStartingPoint());
    point.add(t, *step);
}

// start + t d = a + s e, solved with the normal n = d x e: t = ((a - start) x e) . n / n^2 and
// s = ((a - start) x d) . n / n^2. Parallel lines have no crossing, nor have lines that pass each other.
unsigned long GEO_Line::intersect(const GEO_Point& a, const GEO_Point& b,
                                  COM_Array<GEO_Point>& points) const
{
    points.setSize(0);
    if (!hasEndPoints()) {
        return 0;
    }
    const COM_Scoped d(difference(*getStartingPoint(), *getEndingPoint()));
    const COM_Scoped e(difference(a, b));
    const COM_Scoped gap(difference(*getStartingPoint(), a));
    const COM_Scoped normal(GEO_Point::New(*d));
    normal->vectorProduct(*e);
    const double n2 = normal->norm2();
    if (n2 == 0.0
        || std::fabs(gap->scalarProduct(*normal))
               > flatness * (gap->norm() + d->norm() + e->norm()) * std::sqrt(n2)) {
        return 0;
    }
    const COM_Scoped acrossE(GEO_Point::New(*gap));
    acrossE->vectorProduct(*e);
    const COM_Scoped acrossD(GEO_Point::New(*gap));
    acrossD->vectorProduct(*d);
    const double t = acrossE->scalarProduct(*normal) / n2;
    const double s = acrossD->scalarProduct(*normal) / n2;
    if (!(t >= 0.0 && t <= 1.0 && s >= 0.0 && s <= 1.0)) {
        return 0;
    }
    const COM_Scoped point(GEO_Point::New());
    computePoint(t, *point);
    points.add(*point);
    return 1;
}
