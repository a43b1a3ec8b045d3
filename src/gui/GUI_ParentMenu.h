#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_Object.h"

#include <QMenu>

#include <map>
#include <string>

class GUI_Action;
class GUI_ChildMenu;
class GUI_RootMenu;

/// A menu of actions and submenus. It counts them, and they count it in turn.
class GUI_ParentMenu : public QMenu, public GUI_Object
{
public:
    /// The name is the title that the user sees.
    virtual void setName(const std::string& name);
    virtual std::string getName() const;
    /// The pulldown above all, or null.
    virtual GUI_RootMenu* getRoot() = 0;

    void addSeparator();

    // Two-way link with GUI_ChildMenu::setParent.
    void addToChildren(GUI_ChildMenu& child);
    void removeFromChildren(GUI_ChildMenu& child);
    /// Out of range: nothing.
    void removeFromChildren(int index);
    void resetChildren();
    GUI_ChildMenu* getChild(int index) const;
    const COM_Array<GUI_ChildMenu>& getChildren() const { return *mChildren; }

    // Two-way link with GUI_Action::setMenu.
    void addToActions(GUI_Action& action);
    /// Shows the action at a position of the menu, in which separators and submenus count; beyond the end, or
    /// negative, at the end. One click comes to `toDo` once, also for a checkable action.
    void addToActions(GUI_Action& action, int index);
    /// Puts the action into the tool bar of that name too. The bar is made if the menu panel has none yet;
    /// without a menu panel there is no bar.
    void addToActions(GUI_Action& action, const std::string& toolBarName);
    void removeFromActions(GUI_Action& action);
    /// Out of range: nothing.
    void removeFromActions(int index);
    void resetActions();
    /// By place in the order of adding; null out of range.
    GUI_Action* getAction(int index) const;
    /// The first of that label, "&" included, or null.
    GUI_Action* getAction(const std::string& label) const;
    const COM_Array<GUI_Action>& getActions() const { return *mActions; }

    /// Appends this menu and, depth first, those below it.
    void getAllMenus(COM_Array<GUI_ParentMenu>& menus);

protected:
    GUI_ParentMenu();
    ~GUI_ParentMenu() override;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    /// A menu item that stands for `action`, follows its looks and calls its `toDo`.
    QAction* newItem(GUI_Action& action);

    COM_Array<GUI_ChildMenu>* mChildren; ///< Counted, never null.
    COM_Array<GUI_Action>* mActions;     ///< In the order of adding. Counted, never null.
    /// What stands in the menu for an action that was added at a position. Owned by Qt.
    std::map<const GUI_Action*, QAction*> mItems;
};
