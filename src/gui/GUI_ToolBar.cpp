#include "gui/GUI_ToolBar.h"

#include "common/COM_Guard.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_Component.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_ParentWindow.h"

#include <QAction>
#include <QHBoxLayout>

GUI_ToolBar::GUI_ToolBar(GUI_ParentWindow* window, const std::string& name)
    : QToolBar(toQString(name), nullptr)
    , mComponents(COM_Map<unsigned char, GUI_Component>::New())
{
    COM_TYPE(GUI_ToolBar);
    // The label is a name and no text for the user: Qt's menu of tool bars would show it.
    toggleViewAction()->setVisible(false);
    if (window != nullptr) {
        window->addToolBar(Qt::TopToolBarArea, this);
    }
}

GUI_ToolBar::GUI_ToolBar(GUI_ParentWindow& window, const std::string& name)
    : GUI_ToolBar(&window, name)
{}

GUI_ToolBar::~GUI_ToolBar()
{
    GUI_Grave::orphanCounted(*this);
    mComponents->Delete();
}

unsigned long GUI_ToolBar::getInverseAgregatedObjectsCount() const
{
    return mComponents->size();
}

void GUI_ToolBar::resetInverseAgregatedObjects()
{
    resetComponents();
}

void GUI_ToolBar::addTool(GUI_Action& action)
{
    addAction(&action);
    // An item that stands for the action in a menu leaves the accelerator to it from now on.
    emit action.changed();
}

void GUI_ToolBar::addToComponents(GUI_Component& component)
{
    const unsigned char flag = component.getFlagId();
    if (getComponent(flag) == nullptr) {
        mComponents->put(flag, component);
        component.setTool(*this);
    }
    auto* const widget = component.qtWidget();
    if (getComponent(flag) != &component || widget == nullptr || mPlaces.contains(&component)) {
        return;
    }
    // Qt deletes what is put into a tool bar; so it gets a frame, which the component can leave.
    auto* const frame = new QWidget;
    auto* const layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(widget);
    widget->show();
    mPlaces[&component] = addWidget(frame);
}

void GUI_ToolBar::removeFromComponents(GUI_Component& component)
{
    const COM_Guard guard(component);
    // The flag may have changed since.
    for (const unsigned char flag : mComponents->keys()) {
        if (getComponent(flag) == &component && mComponents->remove(flag)) {
            component.resetTool();
        }
    }
    const auto place = mPlaces.find(&component);
    if (place != mPlaces.end()) {
        GUI_Grave::detach(*component.qtWidget());
        removeAction(place->second);
        place->second->deleteLater();
        mPlaces.erase(place);
    }
}

void GUI_ToolBar::resetComponents()
{
    for (const unsigned char flag : mComponents->keys()) {
        if (GUI_Component* const component = getComponent(flag)) {
            removeFromComponents(*component);
        }
    }
}

GUI_Component* GUI_ToolBar::getComponent(unsigned char flag) const
{
    return mComponents->get(flag);
}

void GUI_ToolBar::setMenu(GUI_MenuPanel& menu)
{
    if (mMenu == &menu) {
        return;
    }
    const COM_Guard guard(*this);
    resetMenu();
    associate(mMenu, &menu);
    menu.addToToolBars(*this);
}

void GUI_ToolBar::resetMenu()
{
    if (mMenu == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_MenuPanel* const menu = mMenu;
    const COM_Guard menuGuard(*menu);
    dissociate(mMenu);
    menu->removeFromToolBars(*this);
}

std::string GUI_ToolBar::getName() const
{
    return toTString(windowTitle());
}

void GUI_ToolBar::componentClicked(GUI_ActionComponent& component)
{
    if (mMenu != nullptr) {
        mMenu->componentClicked(component);
    }
}

bool GUI_ToolBar::close(bool /*flag*/)
{
    return QWidget::close();
}
