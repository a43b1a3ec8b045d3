#include "gui2d/GUI2D_ActionSavePlot.h"

#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "gui2d/GUI2D_PlotterWindow.h"

GUI2D_ActionSavePlot::GUI2D_ActionSavePlot(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Save Plot"), "GUI2D_ActionSavePlot")
{
    COM_TYPE(GUI2D_ActionSavePlot);
}

void GUI2D_ActionSavePlot::act(GUI2D_DrawPanel& /*panel*/)
{
    auto* const window = dynamic_cast<GUI2D_PlotterWindow*>(getWindow());
    if (window == nullptr) {
        return;
    }
    const std::string name = GUI_File::selectSavingFile(window, getStartPath(), "(*.xml)",
                                                        translate("Save Plot"), "...");
    if (name.empty()) {
        return;
    }
    const std::string path = window->getSavingPath();
    const std::string file = window->getSavingFile();
    window->save(name);
    if (!window->isSaved()) {
        window->setSavingPath(path);
        window->setSavingFile(file);
        GUI_Message::printInformation(translate("Warning"),
                                      translate("The file can not be written"));
    }
}
