#include "gui/GUI_ActionTextLoad.h"

#include "gui/GUI_File.h"
#include "gui/GUI_TextWindow.h"

GUI_ActionTextLoad::GUI_ActionTextLoad(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&Load Text"), "fileopen.png")
{
    COM_TYPE(GUI_ActionTextLoad);
}

void GUI_ActionTextLoad::act(GUI_TextWindow& window)
{
    askToSave(window, translate("Load Text File"),
              translate("Do you want to save before Loading a Text File ?"));
    const std::string name =
        GUI_File::selectFile(&window, window.getSavingPath(), translate("Text File") + " (*.txt)",
                             translate("Load a Nex Text File"), translate("Load a Text File"));
    if (!name.empty()) {
        window.load(name);
    }
}
