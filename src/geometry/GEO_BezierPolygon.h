#pragma once
#include "geometry/GEO_Polygon.h"

class LA_RealVector;

/// A smooth curve through a chain of vertices: cubic pieces that join with continuous first and second
/// derivatives with respect to the length of the chords. An open chain has no curvature at its ends.
class GEO_BezierPolygon : public GEO_Polygon
{
    COM_CLASS(GEO_BezierPolygon)
public:
    /// Adjusts the pieces to the present vertices.
    void stateChanged() override;
    GEO_BezierPolygon* NewShellInstance() const override;
    GEO_Curve* NewCurve() const override;
    GEO_Curve* NewCurve(GEO_Vertex& a, GEO_Vertex& b) const override;

    /// Replaces the chain by one through new vertices on these points.
    void setPoints(const COM_Array<GEO_Point>& points);
    /// Parameter of each vertex.
    const LA_RealVector* getParameters() const { return mU; }

    /// Derivatives of the interpolating cubic spline through x[i] at u[i], i from 0 to n - 1, with free
    /// ends: a new array that the caller frees with delete[]. Null for n below 2, and, after a warning on
    /// standard output, when two neighbouring parameters are equal.
    static double* computeDerivatives(const double* u, const double* x, unsigned long n);
    /// The same for a closed curve, whose last value repeats the first.
    static double* computePeriodicDerivatives(const double* u, const double* x, unsigned long n);
    /// The derivatives at `points`, coordinate by coordinate, with the present parameters. False, with
    /// `derivatives` empty, when they cannot be computed.
    bool computeDerivatives(const COM_Array<GEO_Point>& points, bool isPeriodic,
                            COM_Array<GEO_Point>& derivatives) const;

protected:
    GEO_BezierPolygon();
    explicit GEO_BezierPolygon(const COM_Array<GEO_Point>& points);
    ~GEO_BezierPolygon() override;

private:
    void updateParametrization();
    /// Adjusts the pieces from `first` up to `end`, which join, by the parameters of their vertices. An edge
    /// without both end points leaves them all as they are.
    void adjust(unsigned long first, unsigned long end);
    static bool computeDerivatives(const double* u, const COM_Array<GEO_Point>& points,
                                   bool isPeriodic, COM_Array<GEO_Point>& derivatives);

    LA_RealVector* mU; ///< Chord-length parameters, one more than edges. Counted, never null.
    bool mIsAdjusting = false; ///< True while the chain is built or adjusted.
};
