#include "gui2d/GUI2D_ActionSavePlot.h"

#include "common/COM_FileWriter.h"
#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_ParentWindow.h"

GUI2D_ActionSavePlot::GUI2D_ActionSavePlot(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Save Plot"), "GUI2D_ActionSavePlot")
{
    COM_TYPE(GUI2D_ActionSavePlot);
}

void GUI2D_ActionSavePlot::act(GUI2D_DrawPanel& /*panel*/)
{
    GUI_ParentWindow* const window = getWindow();
    const std::string name = GUI_File::selectSavingFile(window, getStartPath(), "(*.xml)",
                                                        translate("Save Plot"), "...");
    if (name.empty()) {
        return;
    }
    // Tried out first, since the plotter would tell a failure on standard output alone.
    if (COM_FileWriter(name).isOpen()) {
        window->save(name);
    } else {
        GUI_Message::printInformation(translate("Warning"),
                                      translate("The file can not be written"));
    }
}
