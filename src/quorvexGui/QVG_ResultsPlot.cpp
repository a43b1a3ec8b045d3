#include "quorvexGui/QVG_ResultsPlot.h"

#include "common/COM_Color.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_RootWindow.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "quorvexGui/QVG_Captor.h"
#include "quorvexGui/QVG_CaptorsSelectionPanel.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int width = 800;
constexpr int height = 500;
constexpr int componentsNumber = 3; ///< Steps of the colour counter for a captor.

/// From red at the first captor to blue behind the last one. Requires: `captors` is not 0.
COM_Color* newFieldColor(unsigned long counter, unsigned long captors)
{
    const double part =
        255.0 * static_cast<double>(counter) / static_cast<double>(componentsNumber * captors);
    return COM_Color::New(static_cast<int>(255.0 - part), 0, static_cast<int>(part));
}

int shade(double part)
{
    return 1 + static_cast<int>(254.0 * part);
}

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

std::string atCaptor(unsigned long k)
{
    return GUI_Object::translate("at Captor") + " " + std::to_string(k + 1);
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
        plot.normalize();
    }
    plot.finish();
}

QVG_ResultsPlot::QVG_ResultsPlot(GUI2D_PlotterWindow& window, const std::string& directory,
                                 unsigned long captorsNumber)
    : mWindow(window)
    , mCaptorsNumber(captorsNumber)
{
    mWindow.getPlotter()->setTitle(GUI_Object::translate("Quorvex Solutions"));
    mWindow.getPlotter()->setXLabel(GUI_Object::translate("Times"));
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
    if (mYLabel.empty()) {
        mYLabel = GUI_Object::translate("E Fields");
    }
    const std::vector<std::vector<double>> components = mResults.readFields(files);
    for (const std::vector<double>& values : components) {
        for (const double value : values) {
            mMaxField = std::max(mMaxField, std::abs(value));
        }
    }
    const COM_Scoped color(newFieldColor(mColorCounter, mCaptorsNumber));
    mColorCounter += componentsNumber;
    if (captor.isEx()) {
        addField(components, 0, "Ex " + atCaptor(k), *color);
    }
    if (captor.isEy()) {
        addField(components, 1, "Ey " + atCaptor(k), *color);
    }
    // The forms offer no third component: it has no column of its own.
    if (captor.isEz()) {
        addField(components, 1, "Ez " + atCaptor(k), *color);
    }
}

void QVG_ResultsPlot::addField(const std::vector<std::vector<double>>& components,
                               std::size_t component, const std::string& name, COM_Color& color)
{
    mWindow.addPlot(mResults.getTimes().mSeconds,
                    component < components.size() ? components[component] : std::vector<double>(),
                    name, color);
    ++mFieldsNumber;
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
    if (mYLabel.find("Rho") == std::string::npos) {
        mYLabel += (mYLabel.empty() ? "" : " ") + GUI_Object::translate("Rho Fields");
    }
    const auto part = [](unsigned long value, unsigned long whole) {
        return static_cast<double>(value) / static_cast<double>(whole);
    };
    std::vector<std::vector<double>> values = mResults.readDensities(files, b, elements);
    for (std::size_t e = 0; e < elements.size(); ++e) {
        const auto [i, j] = elements[e];
        const COM_Scoped color(COM_Color::New(shade(part(i * j, size * size)),
                                              shade(part(b, captor.getBlochEquationsNumber())),
                                              shade(part(k, mCaptorsNumber))));
        const QV_Results::Curve curve = mResults.curveOf(std::move(values[e]));
        mWindow.addPlot(curve.mX, curve.mY,
                        "Bloch Eq:" + std::to_string(b) + " Rho[" + std::to_string(i) + "]["
                            + std::to_string(j) + "] " + atCaptor(k),
                        *color);
    }
}

void QVG_ResultsPlot::normalize()
{
    if (mFieldsNumber == 0) {
        return;
    }
    for (const char* const component : {"Ex", "Ey", "Ez"}) {
        mWindow.curvesYNormalization(component, mMaxField);
    }
    GUI2D_Plotter& plotter = *mWindow.getPlotter();
    plotter.setTitle(plotter.getTitle() + " (" + GUI_Object::translate("E Normalized by") + " "
                     + COM_Real::toString(mMaxField) + ")");
}

void QVG_ResultsPlot::finish()
{
    mWindow.getPlotter()->setYLabel(mYLabel);
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
