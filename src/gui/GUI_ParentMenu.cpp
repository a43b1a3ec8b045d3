#include "gui/GUI_ParentMenu.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_ChildMenu.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_ToolBar.h"

GUI_ParentMenu::GUI_ParentMenu()
    : QMenu(nullptr)
    , mChildren(COM_Array<GUI_ChildMenu>::New())
    , mActions(COM_Array<GUI_Action>::New())
{
    COM_TYPE(GUI_ParentMenu);
    applyFont(*this);
}

GUI_ParentMenu::~GUI_ParentMenu()
{
    GUI_Grave::orphanCounted(*this);
    mActions->Delete();
    mChildren->Delete();
}

unsigned long GUI_ParentMenu::getInverseAgregatedObjectsCount() const
{
    return mChildren->size() + mActions->size();
}

void GUI_ParentMenu::resetInverseAgregatedObjects()
{
    resetChildren();
    resetActions();
}

void GUI_ParentMenu::setName(const std::string& name)
{
    setObjectName(toQString(name));
    setTitle(toQString(name));
}

std::string GUI_ParentMenu::getName() const
{
    return toTString(objectName());
}

void GUI_ParentMenu::addSeparator()
{
    QMenu::addSeparator();
}

void GUI_ParentMenu::addToChildren(GUI_ChildMenu& child)
{
    if (mChildren->exists(child)) {
        return;
    }
    addMenu(&child);
    mChildren->add(child);
    child.setParent(*this);
}

void GUI_ParentMenu::removeFromChildren(GUI_ChildMenu& child)
{
    const COM_Guard guard(child);
    if (mChildren->exists(child)) {
        removeAction(child.menuAction());
        mChildren->remove(child);
        child.resetParent();
    }
}

void GUI_ParentMenu::removeFromChildren(int index)
{
    if (GUI_ChildMenu* const child = getChild(index)) {
        removeFromChildren(*child);
    }
}

void GUI_ParentMenu::resetChildren()
{
    // One removal may take away several.
    for (unsigned long i = mChildren->size(); i-- > 0;) {
        removeFromChildren(static_cast<int>(i));
    }
}

GUI_ChildMenu* GUI_ParentMenu::getChild(int index) const
{
    const bool isThere = index >= 0 && static_cast<unsigned long>(index) < mChildren->size();
    return isThere ? mChildren->get(static_cast<unsigned long>(index)) : nullptr;
}

void GUI_ParentMenu::addToActions(GUI_Action& action)
{
    if (mActions->exists(action)) {
        return;
    }
    addAction(&action);
    mActions->add(action);
    action.setMenu(*this);
}

void GUI_ParentMenu::addToActions(GUI_Action& action, int index)
{
    if (mActions->exists(action)) {
        return;
    }
    mActions->add(action);
    action.setMenu(*this);
    insertAction(actions().value(index), newItem(action));
}

QAction* GUI_ParentMenu::newItem(GUI_Action& action)
{
    auto* const item = new QAction(this);
    mItems[&action] = item;
    const auto followAction = [&action, item] {
        item->setText(action.text());
        item->setEnabled(action.isEnabled());
        item->setVisible(action.isVisible());
        // In a tool bar the action obeys its accelerator itself, and of two equal ones Qt obeys none.
        const bool isShownElsewhere = !action.associatedObjects().isEmpty();
        item->setShortcut(isShownElsewhere ? QKeySequence() : action.shortcut());
    };
    followAction();
    connect(&action, &QAction::changed, item, followAction);
    connect(item, &QAction::triggered, &action, [&action] {
        const GUI_EventScope scope;
        action.toDo();
    });
    return item;
}

void GUI_ParentMenu::addToActions(GUI_Action& action, const std::string& toolBarName)
{
    addToActions(action);
    GUI_RootMenu* const root = getRoot();
    GUI_MenuPanel* const panel = root == nullptr ? nullptr : root->getPanel();
    if (panel == nullptr) {
        return;
    }
    GUI_ToolBar* bar = panel->getToolBar(toolBarName);
    if (bar == nullptr) {
        const COM_Scoped newBar(GUI_ToolBar::New(panel->getWindow(), toolBarName));
        bar = newBar.get();
        panel->addToToolBars(*bar);
    }
    bar->addTool(action);
}

void GUI_ParentMenu::removeFromActions(GUI_Action& action)
{
    const COM_Guard guard(action);
    if (!mActions->remove(action)) {
        return;
    }
    action.resetMenu();
    removeAction(&action);
    const auto item = mItems.find(&action);
    if (item != mItems.end()) {
        removeAction(item->second);
        item->second->disconnect();
        // The click that leads here may come from the item.
        item->second->deleteLater();
        mItems.erase(item);
    }
}

void GUI_ParentMenu::removeFromActions(int index)
{
    if (GUI_Action* const action = getAction(index)) {
        removeFromActions(*action);
    }
}

void GUI_ParentMenu::resetActions()
{
    for (unsigned long i = mActions->size(); i-- > 0;) {
        removeFromActions(static_cast<int>(i));
    }
}

GUI_Action* GUI_ParentMenu::getAction(int index) const
{
    const bool isThere = index >= 0 && static_cast<unsigned long>(index) < mActions->size();
    return isThere ? mActions->get(static_cast<unsigned long>(index)) : nullptr;
}

GUI_Action* GUI_ParentMenu::getAction(const std::string& label) const
{
    for (unsigned long i = 0; i < mActions->size(); ++i) {
        if ((*mActions)[i].getLabel() == label) {
            return mActions->get(i);
        }
    }
    return nullptr;
}

void GUI_ParentMenu::getAllMenus(COM_Array<GUI_ParentMenu>& menus)
{
    menus.add(*this);
    for (unsigned long i = 0; i < mChildren->size(); ++i) {
        (*mChildren)[i].getAllMenus(menus);
    }
}
