#include "gui/GUI_ActionEditPreferences.h"

#include "common/COM_Array.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_PreferencesWindow.h"
#include "gui/GUI_RootWindow.h"

#include <algorithm>

namespace {

/// The open form below `window`, or null.
GUI_PreferencesWindow* openForm(const GUI_RootWindow& window)
{
    const COM_Scoped children(COM_Array<GUI_ChildWindow>::New());
    window.getChildren(*children);
    for (unsigned long i = 0; i < children->size(); ++i) {
        if (auto* const form = dynamic_cast<GUI_PreferencesWindow*>(children->get(i))) {
            return form;
        }
    }
    return nullptr;
}

} // namespace

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
    if (GUI_PreferencesWindow* const form = openForm(*root)) {
        form->bringToFront();
    } else {
        const COM_Scoped window(GUI_PreferencesWindow::New(*root, false));
        const QSize size = window->sizeHint();
        window->setSize(std::max(width, size.width()), size.height());
        window->show();
    }
    GUI_RootAction::toDo();
}
