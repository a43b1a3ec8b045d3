#include "gui/GUI_ActionTextLeftAlign.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextLeftAlign::GUI_ActionTextLeftAlign(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Left Align"), "textleft.png")
{
    COM_TYPE(GUI_ActionTextLeftAlign);
    setCheckable(true);
}

void GUI_ActionTextLeftAlign::act(GUI_TextWindow& window)
{
    window.leftAlign();
}
