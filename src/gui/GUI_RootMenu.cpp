#include "gui/GUI_RootMenu.h"

#include "common/COM_Guard.h"
#include "gui/GUI_MenuPanel.h"

GUI_RootMenu::GUI_RootMenu()
{
    COM_TYPE(GUI_RootMenu);
}

GUI_RootMenu::GUI_RootMenu(const std::string& name)
{
    COM_TYPE(GUI_RootMenu);
    GUI_ParentMenu::setName(name);
}

GUI_RootMenu::GUI_RootMenu(GUI_MenuPanel& panel, const std::string& name)
    : GUI_RootMenu(name)
{
    panel.addToMenus(*this);
}

void GUI_RootMenu::setPanel(GUI_MenuPanel& panel)
{
    if (mPanel == &panel) {
        return;
    }
    const COM_Guard guard(*this);
    resetPanel();
    associate(mPanel, &panel);
    panel.addToMenus(*this);
}

void GUI_RootMenu::resetPanel()
{
    if (mPanel == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_MenuPanel* const panel = mPanel;
    const COM_Guard panelGuard(*panel);
    dissociate(mPanel);
    panel->removeFromMenus(*this);
}
