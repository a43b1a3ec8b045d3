#include "gui/GUI_ActionSaveFile.h"

#include "gui/GUI_RootWindow.h"

GUI_ActionSaveFile::GUI_ActionSaveFile(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("&Save"), "filesave.png")
{
    COM_TYPE(GUI_ActionSaveFile);
}

void GUI_ActionSaveFile::toDo()
{
    if (GUI_RootWindow* const window = getRootWindow()) {
        window->save();
        GUI_RootAction::toDo();
    }
}
