#include "gui/GUI_ActionExit.h"

#include "gui/GUI_RootWindow.h"

GUI_ActionExit::GUI_ActionExit(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("&Quit"))
{
    COM_TYPE(GUI_ActionExit);
}

void GUI_ActionExit::toDo()
{
    if (GUI_RootWindow* const window = getRootWindow()) {
        window->close(false);
    }
}
