#pragma once
#include "gui/GUI_ParentMenu.h"

/// A menu inside another one.
class GUI_ChildMenu : public GUI_ParentMenu
{
    COM_CLASS(GUI_ChildMenu)
public:
    GUI_RootMenu* getRoot() override;
    virtual GUI_ParentMenu* getParent() { return mParent; }

    // Two-way link with GUI_ParentMenu::addToChildren.
    void setParent(GUI_ParentMenu& parent);
    void resetParent();

protected:
    GUI_ChildMenu();
    explicit GUI_ChildMenu(const std::string& name);
    ~GUI_ChildMenu() override = default;

private:
    GUI_ParentMenu* mParent = nullptr; ///< Counted back reference.
};
