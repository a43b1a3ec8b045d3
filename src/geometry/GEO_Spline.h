#pragma once
#include "geometry/GEO_Curve.h"

/// A cubic Bezier piece between two vertices A and B, with two inner control points. Pieces of a smooth
/// curve have a range of its parameter, to which their derivatives refer.
class GEO_Spline : public GEO_Curve
{
public:
    /// A piece without ends.
    static GEO_Spline* New() { return new GEO_Spline; }
    /// The registered piece of the pair with a further reference, or a new one, nearly straight.
    static GEO_Spline* New(GEO_Vertex& a, GEO_Vertex& b);

    GEO_Spline* NewCurveInstance() const override { return New(); }
    /// u^3 A + 3 t u^2 P1 + 3 t^2 u P2 + t^3 B with u = 1 - t. Nothing is done when a vertex, an end point or a
    /// control point is missing.
    void computePoint(double t, GEO_Point& point) const override;
    void computeBoundingBox(GEO_Box& box) const override;
    void move(const GEO_Motion& motion, Moved& moved) override;
    using GEO_Curve::intersect;
    /// Crossings in the plane of x and y.
    unsigned long intersect(const GEO_Point& a, const GEO_Point& b,
                            COM_Array<GEO_Point>& points) const override;
    /// Along the control points.
    double getExtent(unsigned long axis) const override;
    std::vector<double> getParametersAt(unsigned long axis, double value) const override;

    /// Puts the control points at 0.33 and 0.66 of the way from A to B.
    void initControlPoints();
    /// i is 1 or 2; other numbers are ignored.
    void setControlPoint(unsigned long i, GEO_Point* point);
    void setControlPoint(unsigned long i, GEO_Point& point) { setControlPoint(i, &point); }
    void resetControlPoint(unsigned long i) { setControlPoint(i, nullptr); }
    GEO_Point* getControlPoint(unsigned long i) const;

    /// The derivative with respect to `t`; nothing is done when `computePoint` would do nothing.
    void computeDerivativePoint(double t, GEO_Point& derivative) const;
    /// Sets the inner control point next to an end so that the piece has this derivative with respect to
    /// the parameter of the whole curve there.
    void setBeginDerivative(const GEO_Point& derivative);
    void setEndDerivative(const GEO_Point& derivative);
    /// Changes the range of the parameter, keeping the derivatives with respect to it.
    void setParameters(double u0, double u1);
    double getBeginParameter() const { return mU0; }
    double getEndParameter() const { return mU1; }

protected:
    GEO_Spline();
    ~GEO_Spline() override;

private:
    bool isComplete() const;

    double mU0 = 0.0;         ///< Parameter of the whole curve at A.
    double mU1 = 1.0;         ///< The same at B.
    GEO_Point* mP1 = nullptr; ///< Control point next to A. Counted.
    GEO_Point* mP2 = nullptr; ///< Control point next to B. Counted.
};
