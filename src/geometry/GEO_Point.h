#pragma once
#include "geometry/GEO_Object.h"
#include "linearAlgebra/LA_RealVector.h"

/// A point, or the vector that leads to it: a real vector with motions.
class GEO_Point : public LA_RealVector, public GEO_Object
{
    COM_CLASS(GEO_Point)
public:
    virtual void setLocation(double x, double y);
    virtual void setLocation(double x, double y, double z);
    virtual void setLocation(const GEO_Point& point);
    virtual void setLocation(const GEO_Point* point);
    /// Becomes the vector from here to `to`, in the larger of both dimensions.
    virtual void vector(const GEO_Point& to);
    virtual void vector(const GEO_Point* to);
    /// Rotates by `angle`, in radians, about the line through `centre` along the unit vector `axis`.
    virtual void rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle);
    virtual void rotate(const GEO_Point* centre, const LA_RealVector* axis, double angle);
    /// The same about the line through the origin.
    virtual void rotate(const LA_RealVector& axis, double angle);
    virtual void rotate(const LA_RealVector* axis, double angle);
    virtual void translate(const GEO_Point& by);
    virtual void translate(const GEO_Point* by);
    /// centre + factor (this - centre)
    virtual void homothetize(const GEO_Point& centre, double factor);
    virtual void homothetize(const GEO_Point* centre, double factor);

protected:
    /// The origin of the plane.
    GEO_Point()
        : GEO_Point(0.0, 0.0)
    {}
    /// A point of a line: it has one coordinate.
    explicit GEO_Point(double x);
    GEO_Point(double x, double y);
    GEO_Point(double x, double y, double z);
    GEO_Point(const GEO_Point& point);
    explicit GEO_Point(const GEO_Point* point)
        : GEO_Point(*point)
    {}
    ~GEO_Point() override = default;
};
