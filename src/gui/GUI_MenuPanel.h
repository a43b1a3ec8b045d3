#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "gui/GUI_Object.h"

#include <QMenuBar>

#include <string>

class GUI_Action;
class GUI_ActionComponent;
class GUI_ParentMenu;
class GUI_ParentWindow;
class GUI_RootMenu;
class GUI_ToolBar;

/// The menu bar of a window, with its pulldowns and its tool bars. It counts them, and they count it in turn.
///
/// Heirs build their menus in their constructor and end with `resolveAccelerators`. They look menus up by the
/// names with which they were built: a translation asked for later may be another.
class GUI_MenuPanel : public QMenuBar, public GUI_Object
{
    COM_CLASS(GUI_MenuPanel)
public:
    /// The bar that the tools of all menus share.
    static constexpr const char* TOOL_BAR_NAME = "toolbar";

    /// A component of a tool bar was used.
    virtual void componentClicked(GUI_ActionComponent& component);
    /// Called after each action, to enable what can be used now.
    virtual void updateStateMenus();

    // Two-way link with GUI_ParentWindow::setMenu. The tool bars go with the menu bar.
    void setWindow(GUI_ParentWindow& window);
    void resetWindow();
    GUI_ParentWindow* getWindow() const { return mWindow; }

    // Two-way link with GUI_RootMenu::setPanel.
    void addToMenus(GUI_RootMenu& menu);
    void removeFromMenus(GUI_RootMenu& menu);
    void resetMenus();
    /// From left to right; null out of range.
    GUI_RootMenu* getMenu(int index) const;
    /// The first of that name, "&" included, or null.
    GUI_RootMenu* getMenu(const std::string& name) const;
    const COM_Array<GUI_RootMenu>& getMenus() const { return *mMenus; }
    /// Appends each pulldown followed by its submenus.
    void getAllMenus(COM_Array<GUI_ParentMenu>& menus) const;

    // Two-way link with GUI_ToolBar::setMenu. The key is the label of the bar, whose former holder goes.
    void addToToolBars(GUI_ToolBar& bar);
    void removeFromToolBars(GUI_ToolBar& bar);
    void resetToolBars();
    /// The bar of that label, or null.
    GUI_ToolBar* getToolBar(const std::string& name) const;

    /// Makes the accelerators of the menus differ, since of two equal ones Qt obeys none: an action that
    /// repeats an earlier one's Ctrl+letter gets Ctrl+Shift+letter, or none if that is taken too.
    void resolveAccelerators();

protected:
    explicit GUI_MenuPanel(GUI_ParentWindow& window);
    /// Requires: `window` is not null.
    explicit GUI_MenuPanel(GUI_ParentWindow* window);
    ~GUI_MenuPanel() override;

    // Each takes over the reference to a new action. Tools stand in the bar `TOOL_BAR_NAME`, too.
    static void add(GUI_RootMenu& menu, GUI_Action* newAction);
    static void addTool(GUI_RootMenu& menu, GUI_Action* newAction);

    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    GUI_ParentWindow* mWindow = nullptr;          ///< Counted back reference.
    COM_Array<GUI_RootMenu>* mMenus;              ///< Left to right. Counted, never null.
    COM_Map<std::string, GUI_ToolBar>* mToolBars; ///< By label. Counted, never null.
};
