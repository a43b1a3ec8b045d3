#pragma once
#include "gui/GUI_ChildWindow.h"

/// The form of the preferences.
class GUI_PreferencesWindow : public GUI_ChildWindow
{
    COM_CLASS(GUI_PreferencesWindow)
protected:
    GUI_PreferencesWindow(GUI_ParentWindow& parent, bool isContainer);
    ~GUI_PreferencesWindow() override = default;

private:
    void initComponents();
};
