#include "gui/GUI_ChildWindow.h"

#include "common/COM_Guard.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_Workspace.h"

#include <QMdiSubWindow>
#include <QShortcut>

GUI_ChildWindow::GUI_ChildWindow(GUI_ParentWindow& parent, bool isContainer)
    : GUI_ParentWindow(parent, isContainer)
{
    COM_TYPE(GUI_ChildWindow);
    attach(parent);
}

GUI_ChildWindow::GUI_ChildWindow(GUI_ParentWindow* parent, bool isContainer)
    : GUI_ChildWindow(*parent, isContainer)
{}

bool GUI_ChildWindow::close(bool flag)
{
    if (isClosed()) {
        return true;
    }
    const COM_Guard guard(*this);
    const Closing closing(*this);
    if (!closing.isFirst()) {
        return false;
    }
    commitEdits();
    const bool result = GUI_ParentWindow::close(flag);
    resetParent();
    return result;
}

GUI_RootWindow* GUI_ChildWindow::getRoot()
{
    return mParent == nullptr ? nullptr : mParent->getRoot();
}

GUI_Workspace* GUI_ChildWindow::getWorkspace()
{
    if (isContainer()) {
        return GUI_ParentWindow::getWorkspace();
    }
    return mParent == nullptr ? nullptr : mParent->getWorkspace();
}

void GUI_ChildWindow::closeOnEscape()
{
    auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, [this] {
        const GUI_EventScope scope;
        close(false);
    });
}

void GUI_ChildWindow::resetParent()
{
    if (mParent == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentWindow* const parent = mParent;
    const COM_Guard parentGuard(*parent);
    dissociate(mParent);
    parent->removeFromChildren(*this);
    if (qobject_cast<QMdiSubWindow*>(parentWidget()) != nullptr) {
        GUI_Grave::detach(*this);
    }
}

void GUI_ChildWindow::setParent(GUI_ParentWindow& parent)
{
    if (mParent == &parent) {
        return;
    }
    const COM_Guard guard(*this);
    resetParent();
    attach(parent);
}

void GUI_ChildWindow::attach(GUI_ParentWindow& parent)
{
    associate(mParent, &parent);
    parent.addToChildren(*this);
    if (GUI_Workspace* const workspace = parent.getWorkspace()) {
        workspace->addSubWindow(this);
    }
}

void GUI_ChildWindow::setParent(GUI_ParentWindow* parent)
{
    if (parent == nullptr) {
        resetParent();
    } else {
        setParent(*parent);
    }
}
