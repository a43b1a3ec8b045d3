#pragma once
#include "gui/GUI_MenuPanel.h"

#include <string>

class GUI_Action;

/// The menus of a window with a draw panel: its file, its views and its looks.
///
/// The most used actions have a key of their own besides the accelerator that their label gives them.
class GUI2D_MenuPanel : public GUI_MenuPanel
{
    COM_CLASS(GUI2D_MenuPanel)
public:
    /// Enables the steps to the next and to the former view where there is one.
    void updateStateMenus() override;

protected:
    explicit GUI2D_MenuPanel(GUI_ParentWindow& window);
    ~GUI2D_MenuPanel() override = default;

    /// Null when the menu was taken off.
    GUI_RootMenu* getEditMenu() const { return getMenu(mEditName); }
    /// Appends a menu with the text of `key`, which the bar holds.
    GUI_RootMenu& addMenu(const char* key);
    /// Gives all actions their keys. Heirs call it when they have added theirs.
    void setKeys();

private:
    void createFileMenu();
    void createEditMenu();
    void createZoomMenu();
    void createMoveMenu();
    static void addKeys(GUI_Action& action);

    /// With which the menu was built: a translation asked for later may be another.
    std::string mEditName;
};
