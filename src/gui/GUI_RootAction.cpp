#include "gui/GUI_RootAction.h"

#include "gui/GUI_Message.h"
#include "gui/GUI_RootWindow.h"

#include <iostream>

GUI_RootAction::GUI_RootAction(GUI_ParentWindow* window, const std::string& label,
                               const std::string& icon)
    : GUI_Action(window)
{
    COM_TYPE(GUI_RootAction);
    setLabel(label);
    if (!icon.empty()) {
        setIcon(icon);
    }
}

GUI_RootWindow* GUI_RootAction::getRootWindow() const
{
    GUI_ParentWindow* const window = getWindow();
    return window == nullptr ? nullptr : window->getRoot();
}

void GUI_RootAction::askToSave(GUI_RootWindow& window, const std::string& title,
                               const std::string& question)
{
    if (window.getSavingFile().empty()) {
        return;
    }
    const int answer =
        GUI_Message::printWarning(&window, title, question, translate("Yes"), translate("No"));
    if (answer == GUI_Message::YES) {
        window.save();
    }
}

void GUI_RootAction::load(GUI_RootWindow& window, const std::string& fileName)
{
    std::cout << "load the project file \n";
    window.load(fileName);
}
