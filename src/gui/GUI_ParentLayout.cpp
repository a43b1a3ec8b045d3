#include "gui/GUI_ParentLayout.h"

#include "common/COM_Guard.h"
#include "gui/GUI_ChildLayout.h"
#include "gui/GUI_Component.h"
#include "gui/GUI_RootLayout.h"

#include <QLayout>

GUI_ParentLayout::GUI_ParentLayout()
    : mComponents(COM_Map<unsigned long, GUI_Component>::New())
    , mFlagComponents(COM_Map<unsigned char, GUI_Component>::New())
    , mChildren(COM_Array<GUI_ChildLayout>::New())
{}

GUI_ParentLayout::~GUI_ParentLayout()
{
    mChildren->Delete();
    mFlagComponents->Delete();
    mComponents->Delete();
}

unsigned long GUI_ParentLayout::getInverseAgregatedObjectsCount() const
{
    return mChildren->size() + mComponents->size();
}

void GUI_ParentLayout::resetInverseAgregatedObjects()
{
    resetComponents();
    resetChildren();
}

bool GUI_ParentLayout::addToComponents(GUI_Component& component)
{
    const unsigned long id = component.getIdentityNumber();
    if (mComponents->get(id) != nullptr) {
        return false;
    }
    mComponents->put(id, component);
    mFlagComponents->put(component.getFlagId(), component);
    component.setLayout(*this);
    return true;
}

bool GUI_ParentLayout::addToComponents(GUI_Component* component)
{
    return component != nullptr && addToComponents(*component);
}

void GUI_ParentLayout::removeFromComponents(GUI_Component& component)
{
    const COM_Guard guard(component);
    if (mComponents->remove(component.getIdentityNumber())) {
        mFlagComponents->clear();
        component.resetLayout();
    }
}

void GUI_ParentLayout::removeFromComponents(GUI_Component* component)
{
    if (component != nullptr) {
        removeFromComponents(*component);
    }
}

bool GUI_ParentLayout::addPanel(GUI_ParentPanel* panel)
{
    return panel != nullptr && addPanel(*panel);
}

bool GUI_ParentLayout::addToChildren(GUI_ChildLayout& child)
{
    if (mChildren->exists(child)) {
        return false;
    }
    mChildren->add(child);
    child.setParent(*this);
    return true;
}

void GUI_ParentLayout::removeFromChildren(GUI_ChildLayout& child)
{
    const COM_Guard guard(child);
    if (mChildren->remove(child)) {
        child.resetParent();
    }
}

void GUI_ParentLayout::resetChildren()
{
    const COM_Guard guard(*this);
    for (unsigned long i = mChildren->size(); i-- > 0;) {
        if (i < mChildren->size()) {
            removeFromChildren((*mChildren)[i]);
        }
    }
}

void GUI_ParentLayout::resetComponents()
{
    const COM_Guard guard(*this);
    for (const unsigned long id : mComponents->keys()) {
        removeFromComponents(mComponents->get(id));
    }
}

void GUI_ParentLayout::getComponents(COM_Array<GUI_Component>& components) const
{
    mComponents->values(components);
}

GUI_Component* GUI_ParentLayout::getComponent(unsigned char flag) const
{
    if (GUI_Component* const known = mFlagComponents->get(flag)) {
        return known;
    }
    updateFlagId();
    GUI_Component* component = mFlagComponents->get(flag);
    for (unsigned long i = 0; component == nullptr && i < mChildren->size(); ++i) {
        component = mChildren->get(i)->getComponent(flag);
    }
    return component;
}

void GUI_ParentLayout::updateFlagId() const
{
    mFlagComponents->clear();
    for (const unsigned long id : mComponents->keys()) {
        GUI_Component& component = (*mComponents)[id];
        mFlagComponents->put(component.getFlagId(), component);
    }
}

QLayout* GUI_ParentLayout::qtLayout()
{
    return dynamic_cast<QLayout*>(this);
}
