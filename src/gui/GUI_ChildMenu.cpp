#include "gui/GUI_ChildMenu.h"

#include "common/COM_Guard.h"

GUI_ChildMenu::GUI_ChildMenu()
{
    COM_TYPE(GUI_ChildMenu);
}

GUI_ChildMenu::GUI_ChildMenu(const std::string& name)
{
    COM_TYPE(GUI_ChildMenu);
    GUI_ParentMenu::setName(name);
}

GUI_RootMenu* GUI_ChildMenu::getRoot()
{
    return mParent == nullptr ? nullptr : mParent->getRoot();
}

void GUI_ChildMenu::setParent(GUI_ParentMenu& parent)
{
    if (mParent == &parent) {
        return;
    }
    const COM_Guard guard(*this);
    resetParent();
    associate(mParent, &parent);
    parent.addToChildren(*this);
}

void GUI_ChildMenu::resetParent()
{
    if (mParent == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentMenu* const parent = mParent;
    const COM_Guard parentGuard(*parent);
    dissociate(mParent);
    parent->removeFromChildren(*this);
}
