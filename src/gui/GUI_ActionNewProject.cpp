#include "gui/GUI_ActionNewProject.h"

#include "gui/GUI_NewProjectWindow.h"
#include "gui/GUI_RootWindow.h"

GUI_ActionNewProject::GUI_ActionNewProject(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("&New Project"), "filenew.png")
{
    COM_TYPE(GUI_ActionNewProject);
}

void GUI_ActionNewProject::toDo()
{
    GUI_RootWindow* const window = getRootWindow();
    if (window == nullptr) {
        return;
    }
    askToSave(*window, translate("New Project"),
              translate("Do you want to save before creating a New Project ?"));
    GUI_NewProjectWindow::open(*window, false);
    GUI_RootAction::toDo();
}
