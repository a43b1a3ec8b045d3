#include "gui/GUI_ParentPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_ChildPanel.h"
#include "gui/GUI_RootLayout.h"
#include "gui/GUI_RootPanel.h"

#include <QWidget>

GUI_ParentPanel::GUI_ParentPanel()
    : mChildren(COM_Array<GUI_ChildPanel>::New())
{}

GUI_ParentPanel::~GUI_ParentPanel()
{
    mChildren->Delete();
}

unsigned long GUI_ParentPanel::getInverseAgregatedObjectsCount() const
{
    return mChildren->size() + (mMainLayout != nullptr ? 1 : 0);
}

void GUI_ParentPanel::resetInverseAgregatedObjects()
{
    resetMainLayout();
    resetChildren();
}

void GUI_ParentPanel::setMainLayout(GUI_RootLayout& layout)
{
    if (mMainLayout == &layout) {
        return;
    }
    resetMainLayout();
    associate(mMainLayout, &layout);
    layout.setPanel(*this);
}

void GUI_ParentPanel::setMainLayout(GUI_RootLayout* layout)
{
    if (layout != nullptr) {
        setMainLayout(*layout);
    } else {
        resetMainLayout();
    }
}

void GUI_ParentPanel::resetMainLayout()
{
    if (mMainLayout == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_RootLayout* const layout = mMainLayout;
    mMainLayout = nullptr;
    layout->resetPanel();
    layout->subReference(this);
}

void GUI_ParentPanel::updateValues()
{
    // A child that shows the model may close windows, and panels with them.
    const COM_Scoped children(COM_Array<GUI_ChildPanel>::New(*mChildren));
    const COM_Guard guard(*this);
    for (unsigned long i = 0; i < children->size(); ++i) {
        if (mChildren->exists(children->get(i))) {
            children->get(i)->updateValues();
        }
    }
    if (QWidget* const widget = qtWidget()) {
        widget->update();
    }
}

void GUI_ParentPanel::componentClicked(GUI_ActionComponent& /*component*/) {}

void GUI_ParentPanel::setMouseMoveListener(bool flag)
{
    if (QWidget* const widget = qtWidget()) {
        widget->setMouseTracking(flag);
    }
}

void GUI_ParentPanel::setEnabled(bool flag)
{
    if (QWidget* const widget = qtWidget()) {
        widget->setEnabled(flag);
    }
}

void GUI_ParentPanel::addToChildren(GUI_ChildPanel& child)
{
    if (mChildren->exists(child)) {
        return;
    }
    mChildren->add(child);
    child.setParent(*this);
}

void GUI_ParentPanel::removeFromChildren(GUI_ChildPanel& child)
{
    if (!mChildren->exists(child)) {
        return;
    }
    const COM_Guard guard(child);
    mChildren->remove(child);
    child.resetParent();
}

void GUI_ParentPanel::removeFromChildren(int index)
{
    if (GUI_ChildPanel* const child = getChild(index)) {
        removeFromChildren(*child);
    }
}

void GUI_ParentPanel::resetChildren()
{
    const COM_Guard guard(*this);
    for (unsigned long i = mChildren->size(); i-- > 0;) {
        removeFromChildren(static_cast<int>(i));
    }
}

GUI_ChildPanel* GUI_ParentPanel::getChild(int index) const
{
    const bool exists = index >= 0 && static_cast<unsigned long>(index) < mChildren->size();
    return exists ? mChildren->get(static_cast<unsigned long>(index)) : nullptr;
}

GUI_Component* GUI_ParentPanel::getComponent(unsigned char flag) const
{
    GUI_Component* component = mMainLayout != nullptr ? mMainLayout->getComponent(flag) : nullptr;
    for (unsigned long i = 0; component == nullptr && i < mChildren->size(); ++i) {
        component = mChildren->get(i)->getComponent(flag);
    }
    return component;
}

void GUI_ParentPanel::showValue(unsigned char flag, const std::string& value) const
{
    auto* const component = dynamic_cast<GUI_ActionComponent*>(getComponent(flag));
    if (component != nullptr && component->getValue() != value) {
        component->setValue(value);
    }
}

void GUI_ParentPanel::enable(unsigned char flag, bool isEnabled) const
{
    if (auto* const component = dynamic_cast<GUI_ActionComponent*>(getComponent(flag))) {
        component->setEnabled(isEnabled);
    }
}

GUI_ParentWindow* GUI_ParentPanel::findWindow()
{
    const GUI_RootPanel* const root = getRoot();
    return root != nullptr ? root->getWindow() : nullptr;
}

QWidget* GUI_ParentPanel::qtWidget()
{
    return dynamic_cast<QWidget*>(this);
}

QWidget* GUI_ParentPanel::qtWidget(GUI_ParentPanel* panel)
{
    return panel != nullptr ? panel->qtWidget() : nullptr;
}
