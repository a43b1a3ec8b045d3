#include "gui/GUI_ActionSaveAsFile.h"

#include "gui/GUI_File.h"
#include "gui/GUI_RootWindow.h"

GUI_ActionSaveAsFile::GUI_ActionSaveAsFile(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("Save &As"))
{
    COM_TYPE(GUI_ActionSaveAsFile);
}

void GUI_ActionSaveAsFile::toDo()
{
    GUI_RootWindow* const window = getRootWindow();
    if (window == nullptr) {
        return;
    }
    const std::string path = window->getSavingPath();
    const std::string fileName = GUI_File::selectSavingFile(window, path.empty() ? "./" : path,
                                                            "(*.xml)", translate("Save As"), "...");
    if (!fileName.empty()) {
        const std::size_t nameStart = fileName.rfind('/') + 1; // the dialog gives whole paths
        window->saveAs(fileName.substr(0, nameStart), fileName.substr(nameStart));
    }
    GUI_RootAction::toDo();
}
