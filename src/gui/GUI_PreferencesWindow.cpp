#include "gui/GUI_PreferencesWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_PreferencesRootPanel.h"

GUI_PreferencesWindow::GUI_PreferencesWindow(GUI_ParentWindow& parent, bool isContainer)
    : GUI_ChildWindow(parent, isContainer)
{
    COM_TYPE(GUI_PreferencesWindow);
    initComponents();
}

void GUI_PreferencesWindow::initComponents()
{
    setName(translate("Preferences Window"));
    const COM_Scoped panel(GUI_PreferencesRootPanel::New(*this));
}
