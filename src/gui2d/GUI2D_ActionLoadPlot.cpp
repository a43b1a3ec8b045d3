#include "gui2d/GUI2D_ActionLoadPlot.h"

#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "gui2d/GUI2D_PlotterWindow.h"

GUI2D_ActionLoadPlot::GUI2D_ActionLoadPlot(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Load Plot"), "GUI2D_ActionLoadPlot")
{
    COM_TYPE(GUI2D_ActionLoadPlot);
}

void GUI2D_ActionLoadPlot::act(GUI2D_DrawPanel& /*panel*/)
{
    auto* const window = dynamic_cast<GUI2D_PlotterWindow*>(getWindow());
    if (window == nullptr) {
        return;
    }
    const std::string name =
        GUI_File::selectFile(window, getStartPath(), translate("File") + " (*.xml)",
                             translate("Load Plot"), translate("Load File"));
    if (name.empty()) {
        return;
    }
    const std::string path = window->getSavingPath();
    const std::string file = window->getSavingFile();
    window->load(name);
    if (!window->isLoaded()) {
        // Otherwise the next save would go over a file that is none of ours.
        window->setSavingPath(path);
        window->setSavingFile(file);
        GUI_Message::printInformation(translate("Warning"),
                                      translate("The file can not be loaded"));
    }
}
