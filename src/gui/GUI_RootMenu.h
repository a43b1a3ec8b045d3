#pragma once
#include "gui/GUI_ParentMenu.h"

class GUI_MenuPanel;

/// A pulldown of a menu bar.
class GUI_RootMenu : public GUI_ParentMenu
{
    COM_CLASS(GUI_RootMenu)
public:
    GUI_RootMenu* getRoot() override { return this; }
    virtual GUI_MenuPanel* getPanel() { return mPanel; }

    // Two-way link with GUI_MenuPanel::addToMenus.
    void setPanel(GUI_MenuPanel& panel);
    void resetPanel();

protected:
    GUI_RootMenu();
    explicit GUI_RootMenu(const std::string& name);
    GUI_RootMenu(GUI_MenuPanel& panel, const std::string& name);
    ~GUI_RootMenu() override = default;

private:
    GUI_MenuPanel* mPanel = nullptr; ///< Counted back reference.
};
