#include "gui/GUI_MenuPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_ChildMenu.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_ParentWindow.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_ToolBar.h"

#include <QKeySequence>

#include <set>

namespace {

/// Ctrl+Shift+letter for Ctrl+letter; empty for any other sequence.
QKeySequence shifted(const QKeySequence& sequence)
{
    if (sequence.count() != 1 || sequence[0].keyboardModifiers() != Qt::ControlModifier) {
        return {};
    }
    return {QKeyCombination(Qt::ControlModifier | Qt::ShiftModifier, sequence[0].key())};
}

} // namespace

GUI_MenuPanel::GUI_MenuPanel(GUI_ParentWindow& window)
    : QMenuBar(nullptr)
    , mMenus(COM_Array<GUI_RootMenu>::New())
    , mToolBars(COM_Map<std::string, GUI_ToolBar>::New())
{
    COM_TYPE(GUI_MenuPanel);
    setObjectName("GUI_MenuPanel");
    window.setMenu(*this);
}

GUI_MenuPanel::GUI_MenuPanel(GUI_ParentWindow* window)
    : GUI_MenuPanel(*window)
{}

GUI_MenuPanel::~GUI_MenuPanel()
{
    GUI_Grave::orphanCounted(*this);
    mToolBars->Delete();
    mMenus->Delete();
}

void GUI_MenuPanel::add(GUI_RootMenu& menu, GUI_Action* newAction)
{
    const COM_Scoped action(newAction);
    menu.addToActions(*action);
}

void GUI_MenuPanel::addTool(GUI_RootMenu& menu, GUI_Action* newAction)
{
    const COM_Scoped action(newAction);
    menu.addToActions(*action, TOOL_BAR_NAME);
}

unsigned long GUI_MenuPanel::getInverseAgregatedObjectsCount() const
{
    return mMenus->size() + mToolBars->size();
}

void GUI_MenuPanel::resetInverseAgregatedObjects()
{
    resetMenus();
    resetToolBars();
}

void GUI_MenuPanel::componentClicked(GUI_ActionComponent& /*component*/) {}

void GUI_MenuPanel::updateStateMenus() {}

void GUI_MenuPanel::setWindow(GUI_ParentWindow& window)
{
    if (mWindow == &window) {
        return;
    }
    const COM_Guard guard(*this);
    resetWindow();
    associate(mWindow, &window);
    window.setMenu(*this);
    for (const std::string& name : mToolBars->keys()) {
        GUI_ToolBar& bar = (*mToolBars)[name];
        window.addToolBar(Qt::TopToolBarArea, &bar);
        bar.show();
    }
}

void GUI_MenuPanel::resetWindow()
{
    if (mWindow == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentWindow* const window = mWindow;
    const COM_Guard windowGuard(*window);
    dissociate(mWindow);
    for (const std::string& name : mToolBars->keys()) {
        GUI_Grave::detach((*mToolBars)[name]);
    }
    window->resetMenu();
}

void GUI_MenuPanel::addToMenus(GUI_RootMenu& menu)
{
    if (mMenus->exists(menu)) {
        return;
    }
    addMenu(&menu);
    mMenus->add(menu);
    menu.setPanel(*this);
}

void GUI_MenuPanel::removeFromMenus(GUI_RootMenu& menu)
{
    const COM_Guard guard(menu);
    if (mMenus->exists(menu)) {
        removeAction(menu.menuAction());
        mMenus->remove(menu);
        menu.resetPanel();
    }
}

void GUI_MenuPanel::resetMenus()
{
    // One removal may take away several.
    for (unsigned long i = mMenus->size(); i-- > 0;) {
        if (i < mMenus->size()) {
            removeFromMenus((*mMenus)[i]);
        }
    }
}

GUI_RootMenu* GUI_MenuPanel::getMenu(int index) const
{
    const bool isThere = index >= 0 && static_cast<unsigned long>(index) < mMenus->size();
    return isThere ? mMenus->get(static_cast<unsigned long>(index)) : nullptr;
}

GUI_RootMenu* GUI_MenuPanel::getMenu(const std::string& name) const
{
    for (unsigned long i = 0; i < mMenus->size(); ++i) {
        if ((*mMenus)[i].getName() == name) {
            return mMenus->get(i);
        }
    }
    return nullptr;
}

void GUI_MenuPanel::getAllMenus(COM_Array<GUI_ParentMenu>& menus) const
{
    for (unsigned long i = 0; i < mMenus->size(); ++i) {
        (*mMenus)[i].getAllMenus(menus);
    }
}

void GUI_MenuPanel::addToToolBars(GUI_ToolBar& bar)
{
    const std::string name = bar.getName();
    GUI_ToolBar* const former = getToolBar(name);
    if (former == &bar) {
        return;
    }
    if (former != nullptr) {
        removeFromToolBars(*former);
    }
    mToolBars->put(name, bar);
    bar.setMenu(*this);
}

void GUI_MenuPanel::removeFromToolBars(GUI_ToolBar& bar)
{
    const COM_Guard guard(bar);
    for (const std::string& name : mToolBars->keys()) {
        if (getToolBar(name) == &bar && mToolBars->remove(name)) {
            bar.resetMenu();
        }
    }
}

void GUI_MenuPanel::resetToolBars()
{
    for (const std::string& name : mToolBars->keys()) {
        if (GUI_ToolBar* const bar = getToolBar(name)) {
            removeFromToolBars(*bar);
        }
    }
}

GUI_ToolBar* GUI_MenuPanel::getToolBar(const std::string& name) const
{
    return mToolBars->get(name);
}

void GUI_MenuPanel::resolveAccelerators()
{
    const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
    getAllMenus(*menus);
    std::set<QKeySequence> taken;
    for (unsigned long i = 0; i < menus->size(); ++i) {
        const COM_Array<GUI_Action>& actions = (*menus)[i].getActions();
        for (unsigned long j = 0; j < actions.size(); ++j) {
            GUI_Action& action = actions[j];
            if (taken.contains(action.shortcut())) {
                const QKeySequence other = shifted(action.shortcut());
                action.setAccelText(taken.contains(other)
                                        ? std::string()
                                        : toTString(other.toString(QKeySequence::PortableText)));
            }
            if (!action.shortcut().isEmpty()) {
                taken.insert(action.shortcut());
            }
        }
    }
}
