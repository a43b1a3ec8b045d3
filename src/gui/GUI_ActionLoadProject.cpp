#include "gui/GUI_ActionLoadProject.h"

#include "gui/GUI_EventScope.h"
#include "gui/GUI_File.h"
#include "gui/GUI_RootWindow.h"

GUI_ActionLoadProject::GUI_ActionLoadProject(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("&Load Project"), "fileopen.png")
{
    COM_TYPE(GUI_ActionLoadProject);
}

void GUI_ActionLoadProject::toDo()
{
    GUI_RootWindow* const window = getRootWindow();
    if (window == nullptr) {
        return;
    }
    // Loading closes windows, perhaps the one that holds this action.
    const GUI_EventScope scope;
    askToSave(*window, translate("Load Project"),
              translate("Do you want to save before Loading a Project ?"));
    const std::string fileName = GUI_File::selectFile(
        window, window->getSavingPath(), translate("Project File") + " (*.dpj)",
        translate("Load a New Project"), translate("Choose the Project File"));
    if (!fileName.empty()) {
        load(*window, fileName);
    }
    GUI_RootAction::toDo();
}
