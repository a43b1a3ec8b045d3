#pragma once
#include "gui2d/GUI2D_CaptorCurves.h"
#include "quorvex/QV_Results.h"

#include <string>

class GUI2D_PlotterWindow;
class GUI_RootWindow;
class QVG_Captor;
class QVG_CaptorsSelectionPanel;

/// The plot of the results of a run: a new plotter window with a curve over the seconds for everything that is
/// chosen at the captors.
///
/// The files are read whole each time. A file that is missing gives a curve without points.
class QVG_ResultsPlot
{
public:
    /// Plots the results in the directory of the main window. Without a curve a message says so, and there is
    /// no window. The curves of the field are divided by the greatest absolute value of them all if
    /// `isNormalized`.
    static void show(GUI_RootWindow& mainWindow, const QVG_CaptorsSelectionPanel& captors,
                     bool isNormalized);

private:
    QVG_ResultsPlot(GUI2D_PlotterWindow& window, const std::string& directory,
                    unsigned long captorsNumber);

    /// The curves of the captor at place `k` of the list.
    void addCaptor(const QVG_Captor& captor, unsigned long k);
    void addFields(const QVG_Captor& captor, const QV_Results::Captor& files, unsigned long k);
    void addDensities(const QVG_Captor& captor, const QV_Results::Captor& files, unsigned long b,
                      unsigned long k);
    void finish();

    GUI2D_PlotterWindow& mWindow;
    QV_Results mResults;
    GUI2D_CaptorCurves mCurves;
};
