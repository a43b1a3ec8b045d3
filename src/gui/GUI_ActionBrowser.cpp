#include "gui/GUI_ActionBrowser.h"

#include "common/COM_Guard.h"
#include "gui/GUI_BrowserWindow.h"
#include "gui/GUI_EventScope.h"

GUI_ActionBrowser::GUI_ActionBrowser(GUI_ParentWindow* window, const std::string& label,
                                     const std::string& icon)
    : GUI_Action(window)
{
    COM_TYPE(GUI_ActionBrowser);
    setLabel(label);
    if (!icon.empty()) {
        setIcon(icon);
    }
}

void GUI_ActionBrowser::toDo()
{
    if (auto* const window = dynamic_cast<GUI_BrowserWindow*>(getWindow())) {
        // The window may close, and take this action along.
        const GUI_EventScope scope;
        const COM_Guard windowGuard(*window);
        const COM_Guard guard(*this);
        act(*window);
        GUI_Action::toDo();
    }
}
