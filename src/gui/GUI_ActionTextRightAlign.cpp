#include "gui/GUI_ActionTextRightAlign.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextRightAlign::GUI_ActionTextRightAlign(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Right Align"), "textright.png")
{
    COM_TYPE(GUI_ActionTextRightAlign);
    setCheckable(true);
}

void GUI_ActionTextRightAlign::act(GUI_TextWindow& window)
{
    if (isChecked()) {
        window.rightAlign();
    } else {
        window.leftAlign();
    }
}
