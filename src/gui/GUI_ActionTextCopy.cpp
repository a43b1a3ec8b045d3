#include "gui/GUI_ActionTextCopy.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextCopy::GUI_ActionTextCopy(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&Copy"), "editcopy.png")
{
    COM_TYPE(GUI_ActionTextCopy);
}

void GUI_ActionTextCopy::act(GUI_TextWindow& window)
{
    window.copy();
}
