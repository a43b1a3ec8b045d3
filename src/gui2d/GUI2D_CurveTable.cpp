#include "gui2d/GUI2D_CurveTable.h"

#include "common/COM_Real.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"
#include "linearAlgebra/LA_RealVector.h"

#include <algorithm>
#include <vector>

namespace {

constexpr unsigned long precision = 16; ///< Digits after the point with which a double reads back.

std::string quoted(const std::string& text, char separator)
{
    if (text.find_first_of(std::string("\"\r\n") + separator) == std::string::npos) {
        return text;
    }
    std::string result = "\"";
    for (const char c : text) {
        result += c == '"' ? std::string("\"\"") : std::string(1, c);
    }
    return result + "\"";
}

std::vector<const GUI2D_Curve*> shownCurves(const GUI2D_Plotter& plotter)
{
    std::vector<const GUI2D_Curve*> curves;
    for (unsigned long i = 0; i < plotter.getCurves().size(); ++i) {
        if (plotter.getCurves()[i].isShown()) {
            curves.push_back(&plotter.getCurves()[i]);
        }
    }
    return curves;
}

} // namespace

std::string GUI2D_CurveTable::text(const GUI2D_Plotter& plotter, char separator)
{
    const std::vector<const GUI2D_Curve*> curves = shownCurves(plotter);
    std::string table;
    unsigned long lines = 0;
    for (const GUI2D_Curve* const curve : curves) {
        table += table.empty() ? std::string() : std::string(1, separator);
        table += quoted(curve->getName() + ": " + plotter.getXLabel(), separator) + separator;
        table += quoted(curve->getName() + ": " + plotter.getYLabel(), separator);
        lines = std::max(lines, curve->getPointsNumber());
    }
    table += curves.empty() ? "" : "\n";
    for (unsigned long i = 0; i < lines; ++i) {
        bool isFirst = true;
        for (const GUI2D_Curve* const curve : curves) {
            if (!isFirst) {
                table += separator;
            }
            isFirst = false;
            const bool isPoint = i < curve->getPointsNumber();
            if (isPoint) {
                COM_Real::append(table, (*curve->getXValues())[i], 0, precision);
            }
            table += separator;
            if (isPoint) {
                COM_Real::append(table, (*curve->getYValues())[i], 0, precision);
            }
        }
        table += '\n';
    }
    return table;
}
