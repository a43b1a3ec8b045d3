#include "gui/GUI_ActionTextCenterAlign.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextCenterAlign::GUI_ActionTextCenterAlign(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Center Align"), "textcenter.png")
{
    COM_TYPE(GUI_ActionTextCenterAlign);
    setCheckable(true);
}

void GUI_ActionTextCenterAlign::act(GUI_TextWindow& window)
{
    if (isChecked()) {
        window.centerAlign();
    } else {
        window.leftAlign();
    }
}
