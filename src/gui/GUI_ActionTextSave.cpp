#include "gui/GUI_ActionTextSave.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextSave::GUI_ActionTextSave(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&Save"), "filesave.png")
{
    COM_TYPE(GUI_ActionTextSave);
}

void GUI_ActionTextSave::act(GUI_TextWindow& window)
{
    window.save();
}
