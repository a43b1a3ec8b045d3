#include "gui/GUI_ActionTextRedo.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextRedo::GUI_ActionTextRedo(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&Redo"), "editredo.png")
{
    COM_TYPE(GUI_ActionTextRedo);
}

void GUI_ActionTextRedo::act(GUI_TextWindow& window)
{
    window.redo();
}
