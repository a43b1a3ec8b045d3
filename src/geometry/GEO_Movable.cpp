#include "geometry/GEO_Movable.h"

#include "geometry/GEO_Point.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

GEO_Motion rotation(const GEO_Point& centre, const LA_RealVector& axis, double angle)
{
    return GEO_Motion(
        [&centre, &axis, angle](GEO_Point& point) { point.rotate(centre, axis, angle); });
}

GEO_Motion translation(const GEO_Point& by)
{
    // Copied: it may be the point of a vertex that moves.
    const std::vector<double> step(by.getValues(), by.getValues() + by.getDimension());
    return GEO_Motion([step](GEO_Point& point) {
        point.setDimension(std::max<unsigned long>(point.getDimension(), step.size()));
        for (unsigned long i = 0; i < step.size(); ++i) {
            point[i] += step[i];
        }
    });
}

GEO_Motion homothety(const GEO_Point& centre, double factor)
{
    return GEO_Motion([&centre, factor](GEO_Point& point) { point.homothetize(centre, factor); });
}

GEO_Motion growth(const GEO_Point& centre, double dx, double dy, double dz)
{
    return GEO_Motion([&centre, by = std::array{dx, dy, dz}](GEO_Point& point) {
        for (unsigned long i = 0; i < std::min(point.getDimension(), by.size()); ++i) {
            const double distance = point[i] - centre.getValue(i);
            point[i] += distance > 0.0 ? by[i] : distance < 0.0 ? -by[i] : 0.0;
        }
    });
}

} // namespace

void GEO_Movable::moveAndTell(const GEO_Motion& motion)
{
    Moved moved;
    move(motion, moved);
    GEO_Motion::tell(moved);
}

void GEO_Movable::rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle)
{
    moveAndTell(rotation(centre, axis, angle));
}

void GEO_Movable::rotate(const GEO_Point* centre, const LA_RealVector* axis, double angle)
{
    rotate(*centre, *axis, angle);
}

void GEO_Movable::rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle,
                         Moved& moved)
{
    move(rotation(centre, axis, angle), moved);
}

void GEO_Movable::translate(const GEO_Point& by)
{
    moveAndTell(translation(by));
}

void GEO_Movable::translate(const GEO_Point* by)
{
    translate(*by);
}

void GEO_Movable::translate(const GEO_Point& by, Moved& moved)
{
    move(translation(by), moved);
}

void GEO_Movable::homothetize(const GEO_Point& centre, double factor)
{
    moveAndTell(homothety(centre, factor));
}

void GEO_Movable::homothetize(const GEO_Point* centre, double factor)
{
    homothetize(*centre, factor);
}

void GEO_Movable::homothetize(const GEO_Point& centre, double factor, Moved& moved)
{
    move(homothety(centre, factor), moved);
}

void GEO_Movable::offset(const GEO_Point& centre, double dx, double dy, double dz)
{
    moveAndTell(growth(centre, dx, dy, dz));
}

void GEO_Movable::offset(const GEO_Point* centre, double dx, double dy, double dz)
{
    offset(*centre, dx, dy, dz);
}

void GEO_Movable::offset(const GEO_Point& centre, double dx, double dy, double dz, Moved& moved)
{
    move(growth(centre, dx, dy, dz), moved);
}
