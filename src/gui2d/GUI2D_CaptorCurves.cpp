#include "gui2d/GUI2D_CaptorCurves.h"

#include "common/COM_Color.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Object.h"
#include "gui2d/GUI2D_Plotter.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned long componentsNumber = 3; ///< Steps of the colour counter for a captor.

/// From 1 to 255.
int shade(unsigned long value, unsigned long whole)
{
    return 1 + static_cast<int>(254.0 * (static_cast<double>(value) / static_cast<double>(whole)));
}

} // namespace

GUI2D_CaptorCurves::GUI2D_CaptorCurves(GUI2D_Plotter& plotter, unsigned long captorsNumber)
    : mPlotter(plotter)
    , mCaptorsNumber(captorsNumber)
{
    mPlotter.setTitle(GUI_Object::translate("Quorvex Solutions"));
    mPlotter.setXLabel(GUI_Object::translate("Times"));
    mPlotter.setYLabel("");
}

std::string GUI2D_CaptorCurves::atCaptor(unsigned long k)
{
    return GUI_Object::translate("at Captor") + " " + std::to_string(k + 1);
}

COM_Color* GUI2D_CaptorCurves::newFieldColor()
{
    const double part = 255.0 * static_cast<double>(mColorCounter)
                        / static_cast<double>(componentsNumber * mCaptorsNumber);
    mColorCounter += componentsNumber;
    return COM_Color::New(static_cast<int>(255.0 - part), 0, static_cast<int>(part));
}

void GUI2D_CaptorCurves::addFields(unsigned long k, const Values& seconds,
                                   const std::vector<Values>& columns,
                                   const std::vector<Component>& components)
{
    if (mPlotter.getYLabel().empty()) {
        mPlotter.setYLabel(GUI_Object::translate("E Fields"));
    }
    for (const Values& values : columns) {
        for (const double value : values) {
            mMaxField = std::max(mMaxField, std::abs(value));
        }
    }
    const COM_Scoped color(newFieldColor());
    for (const Component& component : components) {
        mPlotter.addPlot(seconds,
                         component.mColumn < columns.size() ? columns[component.mColumn] : Values(),
                         component.mName + (" " + atCaptor(k)), *color);
        mHasFields = true;
    }
}

void GUI2D_CaptorCurves::addDensity(unsigned long k, const Element& element, const Values& seconds,
                                    const Values& values)
{
    const std::string label = mPlotter.getYLabel();
    if (label.find("Rho") == std::string::npos) {
        mPlotter.setYLabel(label + (label.empty() ? "" : " ")
                           + GUI_Object::translate("Rho Fields"));
    }
    const auto& [system, systems, i, j, size] = element;
    const COM_Scoped color(COM_Color::New(shade(i * j, size * size), shade(system, systems),
                                          shade(k, mCaptorsNumber)));
    mPlotter.addPlot(seconds, values,
                     "Bloch Eq:" + std::to_string(system) + " Rho[" + std::to_string(i) + "]["
                         + std::to_string(j) + "] " + atCaptor(k),
                     *color);
}

void GUI2D_CaptorCurves::normalize()
{
    if (!mHasFields) {
        return;
    }
    for (const char* const component : {"Ex", "Ey", "Ez"}) {
        mPlotter.curvesYNormalization(component, mMaxField);
    }
    mPlotter.setTitle(mPlotter.getTitle() + " (" + GUI_Object::translate("E Normalized by") + " "
                      + COM_Real::toString(mMaxField) + ")");
}
