#include "gui/GUI_ActionTextNew.h"

#include "gui/GUI_File.h"
#include "gui/GUI_TextWindow.h"

GUI_ActionTextNew::GUI_ActionTextNew(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&New Text"), "filenew.png")
{
    COM_TYPE(GUI_ActionTextNew);
}

void GUI_ActionTextNew::act(GUI_TextWindow& window)
{
    askToSave(window, translate("New Text"),
              translate("Do you want to save before creating a new text ?"));
    const std::string name = GUI_File::selectFile(
        &window, window.getSavingPath(), translate("Text File") + " (*.txt)",
        translate("Create a New Text"), translate("File Name of the Text"), false);
    if (!name.empty()) {
        window.createFile(name);
    }
}
