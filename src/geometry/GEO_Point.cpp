#include "geometry/GEO_Point.h"

#include "common/COM_Scoped.h"

#include <algorithm>

GEO_Point::GEO_Point(double x)
    : LA_RealVector(1)
{
    COM_TYPE(GEO_Point);
    setValue(0, x);
}

GEO_Point::GEO_Point(double x, double y)
    : LA_RealVector(2)
{
    COM_TYPE(GEO_Point);
    GEO_Point::setLocation(x, y);
}

GEO_Point::GEO_Point(double x, double y, double z)
    : LA_RealVector(3)
{
    COM_TYPE(GEO_Point);
    GEO_Point::setLocation(x, y, z);
}

GEO_Point::GEO_Point(const GEO_Point& point)
    : GEO_Point(0.0, 0.0)
{
    setValues(point);
}

void GEO_Point::setLocation(double x, double y)
{
    setValues(x, y);
}

void GEO_Point::setLocation(double x, double y, double z)
{
    setValues(x, y, z);
}

void GEO_Point::setLocation(const GEO_Point& point)
{
    setValues(point);
}

void GEO_Point::setLocation(const GEO_Point* point)
{
    setLocation(*point);
}

void GEO_Point::vector(const GEO_Point& to)
{
    setDimension(std::max(getDimension(), to.getDimension()));
    for (unsigned long i = 0; i < getDimension(); ++i) {
        (*this)[i] = to.getValue(i) - (*this)[i];
    }
}

void GEO_Point::vector(const GEO_Point* to)
{
    vector(*to);
}

void GEO_Point::rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle)
{
    const COM_Scoped origin(GEO_Point::New(centre)); // the centre may be this point itself
    sub(*origin);
    LA_RealVector::rotate(axis, angle);
    add(*origin);
}

void GEO_Point::rotate(const GEO_Point* centre, const LA_RealVector* axis, double angle)
{
    rotate(*centre, *axis, angle);
}

void GEO_Point::rotate(const LA_RealVector& axis, double angle)
{
    const COM_Scoped origin(GEO_Point::New(0.0, 0.0, 0.0));
    rotate(*origin, axis, angle);
}

void GEO_Point::rotate(const LA_RealVector* axis, double angle)
{
    rotate(*axis, angle);
}

void GEO_Point::translate(const GEO_Point& by)
{
    add(by);
}

void GEO_Point::translate(const GEO_Point* by)
{
    translate(*by);
}

void GEO_Point::homothetize(const GEO_Point& centre, double factor)
{
    const COM_Scoped origin(GEO_Point::New(centre));
    sub(*origin);
    multipliedBy(factor);
    add(*origin);
}

void GEO_Point::homothetize(const GEO_Point* centre, double factor)
{
    homothetize(*centre, factor);
}
