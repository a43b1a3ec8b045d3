#pragma once
#include "gui2d/GUI2D_Curve.h"

class GEO_BezierPolygon;
class GEO_Polygon;

/// A curve of a plot that is drawn from a polygon: straight ones through the points of the curve, Bezier
/// polygons in their present smooth shape, sampled as finely as the view shows them.
///
/// Figures and legend are those of the points. Dividing the values does not change a smooth shape. Files keep
/// no polygons: a plot that is read back lacks the curve.
class GUI2D_Polygon : public GUI2D_Curve
{
    COM_CLASS(GUI2D_Polygon)
public:
    /// Without polygon nothing is drawn.
    void draw(GUI2D_Plotter& plotter) override;
    /// Draws the points of the curve, as every curve does.
    virtual void drawPolygon(GEO_Polygon& polygon, GUI2D_Plotter& plotter);
    virtual void drawPolygon(GEO_BezierPolygon& polygon, GUI2D_Plotter& plotter);

    void setPolygon(GEO_Polygon& polygon) { setPolygon(&polygon); }
    /// Null is `resetPolygon`.
    void setPolygon(GEO_Polygon* polygon);
    void resetPolygon();
    GEO_Polygon* getPolygon() const { return mPolygon; }

protected:
    GUI2D_Polygon();
    ~GUI2D_Polygon() override;

private:
    GEO_Polygon* mPolygon = nullptr; ///< Counted.
};
