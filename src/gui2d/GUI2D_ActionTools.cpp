#include "gui2d/GUI2D_ActionTools.h"

#include "gui2d/GUI2D_ToolsWindow.h"

GUI2D_ActionTools::GUI2D_ActionTools(GUI_ParentWindow* window)
    : GUI2D_OpenAction(window, translate("Log/FFT Transform"), "GUI2D_ActionTools")
{
    COM_TYPE(GUI2D_ActionTools);
}

GUI_ChildWindow* GUI2D_ActionTools::NewWindow(GUI_ParentWindow& parent) const
{
    return GUI2D_ToolsWindow::New(parent);
}
