#pragma once
#include <QByteArray>

struct PlotOptions;
class GUI2D_Plotter;
class PlotResults;

/// The picture of results, drawn by the plotter of the desktop program. Requires the application of the toolkit.
///
/// A spectrum is that of all steps: the last 2^n of them alone might lack the pulse. So zeros are put behind them up
/// to the next power of two, which leaves the modulus as it is and only takes it at more frequencies.
class PlotPicture
{
public:
    /// The contents of the file in the format of the options. Empty when the toolkit cannot make them.
    static QByteArray contents(const PlotResults& results, const PlotOptions& options);

    /// Gives an empty plotter curves, title and labels. Throws PlotError when there are too few points for a
    /// spectrum.
    static void draw(const PlotResults& results, const PlotOptions& options,
                     GUI2D_Plotter& plotter);

private:
    /// The curves over the seconds, their values filled up with zeros to `valuesNumber`.
    static void addCurves(const PlotResults& results, bool isNormalized, unsigned long valuesNumber,
                          GUI2D_Plotter& plotter);
};
