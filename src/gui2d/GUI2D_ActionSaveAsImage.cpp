#include "gui2d/GUI2D_ActionSaveAsImage.h"

#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionSaveAsImage::GUI2D_ActionSaveAsImage(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Save As Image"), "GUI2D_ActionAxe")
{
    COM_TYPE(GUI2D_ActionSaveAsImage);
}

void GUI2D_ActionSaveAsImage::act(GUI2D_DrawPanel& panel)
{
    GUI_ParentWindow* const window = getWindow();
    std::string name = GUI_File::selectSavingFile(window, getStartPath(), "(*.bmp)",
                                                  translate("Save As Image"), "...");
    if (name.empty()) {
        return;
    }
    if (name.find(".bmp") == std::string::npos) {
        name += ".bmp";
        if (!GUI_File::isReplacementAllowed(window, name)) {
            return;
        }
    }
    if (!panel.saveAsImage(name)) {
        GUI_Message::printInformation(translate("Warning"), translate("Saving As Image failed!"));
    }
}
