#pragma once
#include "gui/GUI_ChildOf.h"
#include "gui/GUI_ParentMenu.h"

/// A menu inside another one.
class GUI_ChildMenu : public GUI_ChildOf<GUI_ChildMenu, GUI_ParentMenu, GUI_RootMenu>
{
    COM_CLASS(GUI_ChildMenu)
protected:
    GUI_ChildMenu();
    explicit GUI_ChildMenu(const std::string& name);
    ~GUI_ChildMenu() override = default;
};
