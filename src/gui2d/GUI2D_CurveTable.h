#pragma once
#include <string>

class GUI2D_Plotter;

/// The shown curves of a plotter as a table of numbers: a line that names the columns, then a line for each
/// point. Each curve has a column for X and one for Y; after its last point they are empty.
class GUI2D_CurveTable
{
public:
    /// Numbers have all their digits and a decimal point in every language. A name that holds the separator,
    /// a quotation mark or a line end stands in quotation marks. Empty when no curve is shown.
    static std::string text(const GUI2D_Plotter& plotter, char separator);
};
