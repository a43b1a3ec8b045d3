#include "gui2d/GUI2D_DetailWindow.h"

GUI2D_DetailWindow::GUI2D_DetailWindow(GUI_ParentWindow& parent, const std::string& name,
                                       bool isContainer)
    : GUI_ChildWindow(parent, isContainer)
{
    COM_TYPE(GUI2D_DetailWindow);
    setName(name);
    closeOnEscape();
}
