#include "gui2d/GUI2D_LegendPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_CheckBox.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "gui/GUI_UnknownAction.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_CurvesSelectionPanel.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_Source.h"

GUI2D_LegendPanel::GUI2D_LegendPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI2D_LegendPanel);
    const COM_Scoped layout(
        GUI_RootVBoxLayout::New(*this, GUI_ParentLayout::MARGIN, GUI_ParentLayout::SPACING));
    addSwitch(COMPO_VISIBLE_IN_SUBTITLES, translate("Visible in sub titles"));
    addSwitch(COMPO_VISIBLE_IN_LEGEND, translate("Visible in legend"));
    GUI2D_LegendPanel::updateValues();
}

void GUI2D_LegendPanel::addSwitch(unsigned char flag, const std::string& label)
{
    const COM_Scoped box(GUI_CheckBox::New(*this, flag));
    box->setLabel(label);
    getMainLayout()->addToComponents(*box);
}

void GUI2D_LegendPanel::updateValues()
{
    const GUI2D_Plotter* const plotter = GUI2D_Source::plotter(*this);
    if (plotter == nullptr) {
        return;
    }
    const GUI_Display display(*this);
    showValue(COMPO_VISIBLE_IN_SUBTITLES, plotter->isSubTitlesPrinted() ? "1" : "0");
    showValue(COMPO_VISIBLE_IN_LEGEND, plotter->isLegendsPrinted() ? "1" : "0");
    showCurves(*plotter);
    GUI_RootPanel::updateValues();
}

void GUI2D_LegendPanel::showCurves(const GUI2D_Plotter& plotter)
{
    if (mSelection != nullptr && mSelection->isOf(plotter.getCurves())) {
        mSelection->showCurves();
        return;
    }
    if (mSelection != nullptr) {
        removeFromChildren(*mSelection);
    }
    const COM_Scoped selection(GUI2D_CurvesSelectionPanel::New(*this, plotter.getCurves()));
    mSelection = selection.get();
    getMainLayout()->addPanel(*selection);
}

void GUI2D_LegendPanel::componentClicked(GUI_ActionComponent& component)
{
    GUI2D_Plotter* const plotter = GUI2D_Source::plotter(*this);
    if (plotter == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    const bool isOn = COM_Integer::parseInt(component.getValue()) != 0;
    switch (component.getFlagId()) {
    case COMPO_VISIBLE_IN_SUBTITLES:
        plotter->showSubTitles(isOn);
        plotter->showLegends(plotter->isLegendsPrinted() && !isOn);
        break;
    case COMPO_VISIBLE_IN_LEGEND:
        plotter->showLegends(isOn);
        plotter->showSubTitles(plotter->isSubTitlesPrinted() && !isOn);
        break;
    case COMPO_XLOG:
    case COMPO_YLOG:
        return;
    default:
        GUI_UnknownAction::print(component);
        return;
    }
    updateValues();
    plotter->redraw();
}
