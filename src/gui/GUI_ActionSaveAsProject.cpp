#include "gui/GUI_ActionSaveAsProject.h"

#include "gui/GUI_NewProjectWindow.h"
#include "gui/GUI_RootWindow.h"

GUI_ActionSaveAsProject::GUI_ActionSaveAsProject(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("Save &As Project"))
{
    COM_TYPE(GUI_ActionSaveAsProject);
}

void GUI_ActionSaveAsProject::toDo()
{
    if (GUI_RootWindow* const window = getRootWindow()) {
        GUI_NewProjectWindow::open(*window, true);
        GUI_RootAction::toDo();
    }
}
