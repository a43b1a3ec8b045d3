#include "gui/GUI_ChildMenu.h"

GUI_ChildMenu::GUI_ChildMenu()
{
    COM_TYPE(GUI_ChildMenu);
}

GUI_ChildMenu::GUI_ChildMenu(const std::string& name)
    : GUI_ChildMenu()
{
    GUI_ParentMenu::setName(name);
}
