#include "gui/GUI_ActionTextPaste.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextPaste::GUI_ActionTextPaste(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Paste"), "editpaste.png", "Ctrl+V")
{
    COM_TYPE(GUI_ActionTextPaste);
}

void GUI_ActionTextPaste::act(GUI_TextWindow& window)
{
    window.paste();
}
