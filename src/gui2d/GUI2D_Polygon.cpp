#include "gui2d/GUI2D_Polygon.h"

#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_BezierPolygon.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Point.h"
#include "gui2d/GUI2D_Pieces.h"
#include "gui2d/GUI2D_Plotter.h"

namespace {

void drawPiece(const GEO_Edge& edge, const GUI2D_Pieces::Piece& piece, GEO_Point& point,
               GUI2D_Plotter& plotter)
{
    const auto compute = [&](int step) {
        const double part = static_cast<double>(step) / piece.mSteps;
        edge.computePoint(piece.mFrom + part * (piece.mTo - piece.mFrom), point);
    };
    compute(0);
    plotter.moveTo(point.getValue(0), point.getValue(1));
    for (int step = 1; step <= piece.mSteps; ++step) {
        compute(step);
        plotter.lineTo(point.getValue(0), point.getValue(1));
    }
}

} // namespace

GUI2D_Polygon::GUI2D_Polygon()
{
    COM_TYPE(GUI2D_Polygon);
}

GUI2D_Polygon::~GUI2D_Polygon()
{
    dissociate(mPolygon);
}

void GUI2D_Polygon::setPolygon(GEO_Polygon* polygon)
{
    associate(mPolygon, polygon);
}

void GUI2D_Polygon::resetPolygon()
{
    dissociate(mPolygon);
}

void GUI2D_Polygon::draw(GUI2D_Plotter& plotter)
{
    if (mPolygon == nullptr) {
        return;
    }
    if (mPolygon->instanceOf("GEO_BezierPolygon")) {
        drawPolygon(dynamic_cast<GEO_BezierPolygon&>(*mPolygon), plotter);
    } else {
        drawPolygon(*mPolygon, plotter);
    }
}

void GUI2D_Polygon::drawPolygon(GEO_Polygon& /*polygon*/, GUI2D_Plotter& plotter)
{
    GUI2D_Curve::draw(plotter);
}

void GUI2D_Polygon::drawPolygon(GEO_BezierPolygon& polygon, GUI2D_Plotter& plotter)
{
    if (!isShown()) {
        return;
    }
    plotter.finishTraces();
    const COM_Scoped black(COM_Color::New());
    const COM_Color& color = getColor() != nullptr ? *getColor() : *black;
    plotter.setPen(color, GUI2D_Plotter::SOLID_LINE);
    plotter.setBrush(color, GUI2D_Plotter::NO_BRUSH);
    int width = 0;
    int height = 0;
    plotter.getGraphicsSize(width, height);
    const GUI2D_Mapping mapping = plotter.getMapping();
    const COM_Scoped point(GEO_Point::New());
    for (unsigned long i = 0; i < polygon.getEdges().size(); ++i) {
        const GEO_Edge& edge = *polygon.getEdge(i);
        for (const GUI2D_Pieces::Piece& piece : GUI2D_Pieces::of(edge, mapping, width, height)) {
            drawPiece(edge, piece, *point, plotter);
        }
    }
}
