#include "gui/GUI_ActionTextItalic.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextItalic::GUI_ActionTextItalic(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&Italic"), "textitalic.png")
{
    COM_TYPE(GUI_ActionTextItalic);
    setCheckable(true);
}

void GUI_ActionTextItalic::act(GUI_TextWindow& window)
{
    window.italic();
}
