#include "gui/GUI_ActionTextUndo.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextUndo::GUI_ActionTextUndo(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Undo"), "editundo.png", "Ctrl+Z")
{
    COM_TYPE(GUI_ActionTextUndo);
}

void GUI_ActionTextUndo::act(GUI_TextWindow& window)
{
    window.undo();
}
