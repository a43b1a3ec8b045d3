#include "gui/GUI_ActionEditPreferences.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_PreferencesWindow.h"
#include "gui/GUI_RootWindow.h"

#include <algorithm>

GUI_ActionEditPreferences::GUI_ActionEditPreferences(GUI_ParentWindow* window)
    : GUI_RootAction(window, translate("Preferences"))
{
    COM_TYPE(GUI_ActionEditPreferences);
}

void GUI_ActionEditPreferences::toDo()
{
    constexpr int width = 640; // shows whole paths

    GUI_RootWindow* const root = getRootWindow();
    if (root == nullptr) {
        return;
    }
    if (auto* const form = root->findForm<GUI_PreferencesWindow>()) {
        form->bringToFront();
    } else {
        const COM_Scoped window(GUI_PreferencesWindow::New(*root, false));
        const QSize size = window->sizeHint();
        window->setSize(std::max(width, size.width()), size.height());
        window->show();
    }
    GUI_RootAction::toDo();
}
