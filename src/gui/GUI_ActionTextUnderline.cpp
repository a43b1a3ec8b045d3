#include "gui/GUI_ActionTextUnderline.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextUnderline::GUI_ActionTextUnderline(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&Underline"), "textunder.png")
{
    COM_TYPE(GUI_ActionTextUnderline);
    setCheckable(true);
}

void GUI_ActionTextUnderline::act(GUI_TextWindow& window)
{
    window.underline();
}
