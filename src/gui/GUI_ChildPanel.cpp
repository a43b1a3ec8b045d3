#include "gui/GUI_ChildPanel.h"

#include "common/COM_Guard.h"

GUI_ChildPanel::GUI_ChildPanel(GUI_ParentPanel* parent)
{
    setParent(parent);
}

void GUI_ChildPanel::setParent(GUI_ParentPanel& parent)
{
    if (mParent == &parent) {
        return;
    }
    const COM_Guard guard(*this);
    resetParent();
    associate(mParent, &parent);
    parent.addToChildren(*this);
}

void GUI_ChildPanel::setParent(GUI_ParentPanel* parent)
{
    if (parent != nullptr) {
        setParent(*parent);
    } else {
        resetParent();
    }
}

void GUI_ChildPanel::resetParent()
{
    if (mParent == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentPanel* const parent = mParent;
    mParent = nullptr;
    parent->removeFromChildren(*this);
    parent->subReference(this);
}

GUI_RootPanel* GUI_ChildPanel::getRoot()
{
    return mParent != nullptr ? mParent->getRoot() : nullptr;
}
