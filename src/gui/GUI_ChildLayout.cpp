#include "gui/GUI_ChildLayout.h"

#include "common/COM_Guard.h"

void GUI_ChildLayout::setParent(GUI_ParentLayout& parent)
{
    if (mParent == &parent) {
        return;
    }
    const COM_Guard guard(*this);
    resetParent();
    associate(mParent, &parent);
    parent.addToChildren(*this);
}

void GUI_ChildLayout::setParent(GUI_ParentLayout* parent)
{
    if (parent != nullptr) {
        setParent(*parent);
    } else {
        resetParent();
    }
}

void GUI_ChildLayout::resetParent()
{
    if (mParent == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentLayout* const parent = mParent;
    mParent = nullptr;
    parent->removeFromChildren(*this);
    parent->subReference(this);
}

GUI_RootLayout* GUI_ChildLayout::getRoot()
{
    return mParent != nullptr ? mParent->getRoot() : nullptr;
}
