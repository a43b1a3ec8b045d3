#include "gui2d/GUI2D_Action.h"

#include "common/COM_Guard.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_RootWindow.h"
#include "gui2d/GUI2D_DrawPanel.h"
#include "gui2d/GUI2D_Window.h"

#include <iostream>

GUI2D_Action::GUI2D_Action(GUI_ParentWindow* window, const std::string& label,
                           const std::string& speaker, const std::string& icon)
    : GUI_Action(window)
    , mSpeaker(speaker)
{
    COM_TYPE(GUI2D_Action);
    setLabel(label);
    if (!icon.empty()) {
        setIcon(icon);
    }
}

std::string GUI2D_Action::getStartPath() const
{
    GUI_ParentWindow* const window = getWindow();
    const GUI_ParentWindow* const root = window == nullptr ? nullptr : window->getRoot();
    std::string path = window == nullptr ? std::string() : window->getSavingPath();
    if (path.empty() && root != nullptr) {
        path = root->getSavingPath();
    }
    return path.empty() ? "./" : path;
}

void GUI2D_Action::toDo()
{
    GUI_ParentWindow* const window = getWindow();
    if (window == nullptr) {
        return;
    }
    const auto* const side = dynamic_cast<GUI2D_Window*>(window);
    if (side == nullptr) {
        std::cout << mSpeaker
                  << "::toDo() Error when casting from  GUI_ParentWindow to GUI2D_Window";
        return;
    }
    if (GUI2D_DrawPanel* const panel = side->getDrawPanel()) {
        // The window may close while a dialog waits.
        const GUI_EventScope scope;
        const COM_Guard windowGuard(*window);
        const COM_Guard guard(*panel);
        act(*panel);
        panel->redraw();
    }
    GUI_Action::toDo();
}
