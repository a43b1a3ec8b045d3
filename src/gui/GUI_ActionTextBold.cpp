#include "gui/GUI_ActionTextBold.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextBold::GUI_ActionTextBold(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Bold"), "textbold.png", "Ctrl+B")
{
    COM_TYPE(GUI_ActionTextBold);
    setCheckable(true);
}

void GUI_ActionTextBold::act(GUI_TextWindow& window)
{
    window.bold();
}
