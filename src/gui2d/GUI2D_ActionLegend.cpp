#include "gui2d/GUI2D_ActionLegend.h"

#include "gui2d/GUI2D_LegendWindow.h"

GUI2D_ActionLegend::GUI2D_ActionLegend(GUI_ParentWindow* window)
    : GUI2D_OpenAction(window, translate("&Legends"), "GUI2D_ActionLegend")
{
    COM_TYPE(GUI2D_ActionLegend);
}

GUI_ChildWindow* GUI2D_ActionLegend::NewWindow(GUI_ParentWindow& parent) const
{
    return GUI2D_LegendWindow::New(parent);
}
