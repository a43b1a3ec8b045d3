#include "quorvexGui/QVG_ResultsPlot.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_RootWindow.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "quorvexGui/QVG_Captor.h"
#include "quorvexGui/QVG_CaptorsSelectionPanel.h"

namespace {

constexpr int width = 800;
constexpr int height = 500;

/// What the reader of the files is to know.
QV_Results::Captor filesOf(const QVG_Captor& captor)
{
    QV_Results::Captor files;
    files.mLocation = captor.getLocation();
    files.mRhoSize = captor.getRhoSize();
    files.mBlochEquationsNumber = captor.getBlochEquationsNumber();
    files.mEDimension = captor.getEDimension();
    return files;
}

} // namespace

void QVG_ResultsPlot::show(GUI_RootWindow& mainWindow, const QVG_CaptorsSelectionPanel& captors,
                           bool isNormalized)
{
    const COM_Scoped window(GUI2D_PlotterWindow::New(
        mainWindow, GUI_Object::translate("Quorvex Visualization"), false));
    const unsigned long number = captors.getObjectsNumber();
    QVG_ResultsPlot plot(*window, mainWindow.getSavingPath(), number);
    for (unsigned long k = 0; k < number; ++k) {
        if (const auto* const captor =
                dynamic_cast<QVG_Captor*>(captors.getObject(static_cast<int>(k)))) {
            plot.addCaptor(*captor, k);
        }
    }
    if (isNormalized) {
        plot.mCurves.normalize();
    }
    plot.finish();
}

QVG_ResultsPlot::QVG_ResultsPlot(GUI2D_PlotterWindow& window, const std::string& directory,
                                 unsigned long captorsNumber)
    : mWindow(window)
    , mCurves(*window.getPlotter(), captorsNumber)
{
    mResults.readCaptors(directory);
    mResults.readTimes();
}

void QVG_ResultsPlot::addCaptor(const QVG_Captor& captor, unsigned long k)
{
    const QV_Results::Captor files = filesOf(captor);
    if (captor.isEx() || captor.isEy() || captor.isEz()) {
        addFields(captor, files, k);
    }
    for (unsigned long b = 0; b < captor.getBlochEquationsNumber(); ++b) {
        if (captor.hasMarks(b)) {
            addDensities(captor, files, b, k);
        }
    }
}

void QVG_ResultsPlot::addFields(const QVG_Captor& captor, const QV_Results::Captor& files,
                                unsigned long k)
{
    std::vector<GUI2D_CaptorCurves::Component> components;
    if (captor.isEx()) {
        components.push_back({"Ex", 0});
    }
    if (captor.isEy()) {
        components.push_back({"Ey", 1});
    }
    // The forms offer no third component: it has no column of its own.
    if (captor.isEz()) {
        components.push_back({"Ez", 1});
    }
    mCurves.addFields(k, mResults.getTimes().mSeconds, mResults.readFields(files), components);
}

void QVG_ResultsPlot::addDensities(const QVG_Captor& captor, const QV_Results::Captor& files,
                                   unsigned long b, unsigned long k)
{
    const unsigned long size = captor.getRhoSize();
    std::vector<QV_Results::Element> elements;
    for (unsigned long i = 0; i < size; ++i) {
        for (unsigned long j = 0; j < size; ++j) {
            if (captor.isRho(b, i, j)) {
                elements.push_back({i, j});
            }
        }
    }
    if (elements.empty()) {
        return;
    }
    std::vector<std::vector<double>> values = mResults.readDensities(files, b, elements);
    for (std::size_t e = 0; e < elements.size(); ++e) {
        const auto [i, j] = elements[e];
        const QV_Results::Curve curve = mResults.curveOf(std::move(values[e]));
        mCurves.addDensity(k, {b, captor.getBlochEquationsNumber(), i, j, size}, curve.mX,
                           curve.mY);
    }
}

void QVG_ResultsPlot::finish()
{
    mWindow.setSize(width, height);
    if (mWindow.getPlotsNumber() > 0) {
        mWindow.show();
        return;
    }
    // A window that was never shown would be saved with the project.
    mWindow.close(false);
    GUI_Message::printMessage(GUI_Object::translate("Visualization Empty") + ":",
                              GUI_Object::translate("No curve selected") + " !");
}
