#include "gui/GUI_ActionTextCut.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextCut::GUI_ActionTextCut(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Cut"), "editcut.png", "Ctrl+X")
{
    COM_TYPE(GUI_ActionTextCut);
}

void GUI_ActionTextCut::act(GUI_TextWindow& window)
{
    window.cut();
}
