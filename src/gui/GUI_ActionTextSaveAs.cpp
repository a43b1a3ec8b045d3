#include "gui/GUI_ActionTextSaveAs.h"

#include "gui/GUI_File.h"
#include "gui/GUI_TextWindow.h"

GUI_ActionTextSaveAs::GUI_ActionTextSaveAs(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("Save &As"))
{
    COM_TYPE(GUI_ActionTextSaveAs);
}

void GUI_ActionTextSaveAs::act(GUI_TextWindow& window)
{
    const std::string name = GUI_File::selectSavingFile(&window, window.getSavingPath(), "(*.txt)",
                                                        translate("Save As"), "...");
    if (!name.empty()) {
        window.save(name);
    }
}
