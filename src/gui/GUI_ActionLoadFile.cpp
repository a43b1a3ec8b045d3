#include "gui/GUI_ActionLoadFile.h"

#include "gui/GUI_EventScope.h"
#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_RootWindow.h"

#include <fstream>

GUI_ActionLoadFile::GUI_ActionLoadFile(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("&Load File"), "fileopen.png")
{
    COM_TYPE(GUI_ActionLoadFile);
}

void GUI_ActionLoadFile::toDo()
{
    GUI_RootWindow* const window = getRootWindow();
    if (window == nullptr) {
        return;
    }
    // Loading closes windows, perhaps the one that holds this action.
    const GUI_EventScope scope;
    askToSave(*window, translate("Load File"),
              translate("Do you want to save before Loading a File ?"));
    const std::string path = window->getSavingPath();
    const std::string fileName =
        GUI_File::selectFile(window, path.empty() ? "./" : path, translate("File") + " (*.xml)",
                             translate("Load a New File"), translate("Load File"));
    if (!fileName.empty()) {
        loadOwn(*window, fileName);
    }
    GUI_RootAction::toDo();
}

void GUI_ActionLoadFile::loadOwn(GUI_RootWindow& window, const std::string& fileName)
{
    const bool isReadable = std::ifstream(fileName).is_open();
    if (isReadable && GUI_File::getRootClassName(fileName) != window.getClassName()) {
        GUI_Message::printInformation(translate("Warning"),
                                      translate("The file can not be loaded"));
        return;
    }
    load(window, fileName);
}
