#include "gui2d/GUI2D_ActionOptions.h"

#include "gui2d/GUI2D_OptionsWindow.h"

GUI2D_ActionOptions::GUI2D_ActionOptions(GUI_ParentWindow* window)
    : GUI2D_OpenAction(window, translate("&Options"), "GUI2D_ActionOptions")
{
    COM_TYPE(GUI2D_ActionOptions);
}

GUI_ChildWindow* GUI2D_ActionOptions::NewWindow(GUI_ParentWindow& parent) const
{
    return GUI2D_OptionsWindow::New(parent);
}
