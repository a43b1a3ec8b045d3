#include "gui/GUI_ActionSaveProject.h"

#include "gui/GUI_RootWindow.h"

GUI_ActionSaveProject::GUI_ActionSaveProject(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("&Save Project"), "filesave.png")
{
    COM_TYPE(GUI_ActionSaveProject);
}

void GUI_ActionSaveProject::toDo()
{
    if (GUI_RootWindow* const window = getRootWindow()) {
        window->save();
        GUI_RootAction::toDo();
    }
}
