#include "gui/GUI_Action.h"

#include "common/COM_Guard.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_Mnemonic.h"
#include "gui/GUI_ParentMenu.h"
#include "gui/GUI_RootMenu.h"

#include <QIcon>
#include <QImage>
#include <QKeySequence>
#include <QPixmap>

std::string GUI_Action::ICONS_PATH = "icons/";

GUI_Action::GUI_Action()
    : QAction(nullptr)
{
    initComponents();
}

GUI_Action::GUI_Action(GUI_ParentWindow* /*window*/)
    : GUI_Action()
{}

void GUI_Action::initComponents()
{
    COM_TYPE(GUI_Action);
    setLabel("Action");
    const auto callToDo = [this] {
        const GUI_EventScope scope;
        toDo();
    };
    connect(this, &QAction::triggered, this, callToDo);
    connect(this, &QAction::toggled, this, callToDo);
}

void GUI_Action::toDo()
{
    if (GUI_MenuPanel* const panel = getMenuPanel()) {
        panel->updateStateMenus();
    }
}

GUI_MenuPanel* GUI_Action::getMenuPanel() const
{
    GUI_RootMenu* const root = mMenu == nullptr ? nullptr : mMenu->getRoot();
    return root == nullptr ? nullptr : root->getPanel();
}

GUI_ParentWindow* GUI_Action::getWindow() const
{
    GUI_MenuPanel* const panel = getMenuPanel();
    return panel == nullptr ? nullptr : panel->getWindow();
}

void GUI_Action::setLabel(const std::string& label)
{
    mName = label;
    const QString text = toQString(label);
    setText(text);
    const QString plain = GUI_Mnemonic::text(text);
    setIconText(plain);
    setToolTip(plain);
    const QKeySequence accelerator = GUI_Mnemonic::shortcut(text);
    if (!accelerator.isEmpty()) {
        setShortcut(accelerator);
    }
}

void GUI_Action::setPlainLabel(const std::string& label)
{
    mName = label;
    const QString plain = toQString(label);
    setText(QString(plain).replace("&", "&&"));
    setIconText(plain);
    setToolTip(plain);
    setShortcut({});
}

void GUI_Action::setIcon(const std::string& fileName)
{
    const QImage image(toQString(ICONS_PATH + fileName));
    QAction::setIcon(QIcon(QPixmap::fromImage(image)));
}

void GUI_Action::setTooltipText(const std::string& text)
{
    setToolTip(toQString(text));
}

void GUI_Action::setAccelText(const std::string& text)
{
    setShortcut(QKeySequence(toQString(text)));
}

void GUI_Action::setMenu(GUI_ParentMenu& menu)
{
    if (mMenu == &menu) {
        return;
    }
    const COM_Guard guard(*this);
    resetMenu();
    associate(mMenu, &menu);
    menu.addToActions(*this);
}

void GUI_Action::resetMenu()
{
    if (mMenu == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentMenu* const menu = mMenu;
    const COM_Guard menuGuard(*menu);
    dissociate(mMenu);
    menu->removeFromActions(*this);
}
