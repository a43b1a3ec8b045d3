#pragma once
#include "geometry/GEO_Motion.h"
#include "geometry/GEO_Object.h"

class LA_RealVector;

/// A figure that moves with all its points. The forms with `moved` serve motions of several figures that
/// share some: what is in the set stays, what moves enters it.
class GEO_Movable : public GEO_Object
{
public:
    using Moved = GEO_Motion::Moved;

    /// See `GEO_Point` for the motions. `offset` moves each vertex away from `centre`, by `dx`, `dy` and `dz`
    /// along the axes, as `GEO_Box::offset` moves the sides of a box; a coordinate equal to that of the
    /// centre stays.
    virtual void rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle);
    virtual void rotate(const GEO_Point* centre, const LA_RealVector* axis, double angle);
    virtual void rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle,
                        Moved& moved);
    virtual void translate(const GEO_Point& by);
    virtual void translate(const GEO_Point* by);
    virtual void translate(const GEO_Point& by, Moved& moved);
    virtual void homothetize(const GEO_Point& centre, double factor);
    virtual void homothetize(const GEO_Point* centre, double factor);
    virtual void homothetize(const GEO_Point& centre, double factor, Moved& moved);
    virtual void offset(const GEO_Point& centre, double dx, double dy, double dz);
    virtual void offset(const GEO_Point* centre, double dx, double dy, double dz);
    virtual void offset(const GEO_Point& centre, double dx, double dy, double dz, Moved& moved);

    /// Applies `motion` to all points of the figure.
    virtual void move(const GEO_Motion& motion, Moved& moved) = 0;

protected:
    GEO_Movable() =
        default; // adds no name to the chain of types: it only saves its heirs the same lines
    ~GEO_Movable() override = default;

private:
    void moveAndTell(const GEO_Motion& motion);
};
