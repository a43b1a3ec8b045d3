#include "gui/GUI_BrowserMenu.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_ActionBrowserAddBookMark.h"
#include "gui/GUI_ActionBrowserBack.h"
#include "gui/GUI_ActionBrowserBookMark.h"
#include "gui/GUI_ActionBrowserClose.h"
#include "gui/GUI_ActionBrowserHelp.h"
#include "gui/GUI_ActionBrowserHistory.h"
#include "gui/GUI_ActionBrowserHome.h"
#include "gui/GUI_ActionBrowserLoad.h"
#include "gui/GUI_ActionBrowserNewWindow.h"
#include "gui/GUI_ActionBrowserNext.h"
#include "gui/GUI_ActionBrowserPrint.h"
#include "gui/GUI_BrowserWindow.h"
#include "gui/GUI_ComboBox.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_ToolBar.h"

namespace {

// Places in "&Navigator".
constexpr int BACK = 0;
constexpr int NEXT = 1;

constexpr int comboLength = 24; ///< Characters that the combo box shows at least.

} // namespace

GUI_BrowserMenu::GUI_BrowserMenu(GUI_ParentWindow& window, bool /*flag*/)
    : GUI_MenuPanel(window)
{
    COM_TYPE(GUI_BrowserMenu);
    initComponents();
}

void GUI_BrowserMenu::initComponents()
{
    createFileMenu();
    createNavigatorMenu();
    createHistoryMenu();
    createBookmarkMenu();
    resolveAccelerators();

    GUI_ToolBar* const bar = getToolBar(TOOL_BAR_NAME);
    bar->addSeparator();
    const COM_Scoped combo(GUI_ComboBox::New(true, *bar, COMPO_PATH));
    combo->setLabel(translate("Open a File"));
    // A long path does not widen the window.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(comboLength);
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

GUI_RootMenu& GUI_BrowserMenu::addMenu(const std::string& name)
{
    const COM_Scoped menu(GUI_RootMenu::New(*this, name));
    return *menu;
}

void GUI_BrowserMenu::createFileMenu()
{
    GUI_RootMenu& menu = addMenu(translate("&File"));
    addTool(menu, GUI_ActionBrowserNewWindow::New(getWindow()));
    addTool(menu, GUI_ActionBrowserLoad::New(getWindow()));
    addTool(menu, GUI_ActionBrowserPrint::New(getWindow()));
    add(menu, GUI_ActionBrowserClose::New(getWindow()));
}

void GUI_BrowserMenu::createNavigatorMenu()
{
    mNavigatorName = translate("&Navigator");
    GUI_RootMenu& menu = addMenu(mNavigatorName);
    addTool(menu, GUI_ActionBrowserBack::New(getWindow()));
    addTool(menu, GUI_ActionBrowserNext::New(getWindow()));
    addTool(menu, GUI_ActionBrowserHome::New(getWindow()));
    setBackwardAvailable(false);
    setForwardAvailable(false);
}

void GUI_BrowserMenu::createHistoryMenu()
{
    mHistoryName = translate("&History");
    addMenu(mHistoryName);
}

void GUI_BrowserMenu::createBookmarkMenu()
{
    mBookmarkName = translate("&Bookmark");
    GUI_RootMenu& menu = addMenu(mBookmarkName);
    add(menu, GUI_ActionBrowserAddBookMark::New(getWindow()));
    menu.addSeparator();
}

void GUI_BrowserMenu::createHelpMenu()
{
    GUI_RootMenu& menu = addMenu(translate("&Help"));
    add(menu, GUI_ActionBrowserHelp::New(getWindow(), 0));
    add(menu, GUI_ActionBrowserHelp::New(getWindow(), 1));
}

GUI_ComboBox* GUI_BrowserMenu::getComboPath() const
{
    const GUI_ToolBar* const bar = getToolBar(TOOL_BAR_NAME);
    return bar == nullptr ? nullptr : dynamic_cast<GUI_ComboBox*>(bar->getComponent(COMPO_PATH));
}

bool GUI_BrowserMenu::showPath(const std::string& path)
{
    GUI_ComboBox* const combo = getComboPath();
    if (combo == nullptr) {
        return false;
    }
    const QString text = toQString(path);
    const bool isNew = combo->findText(text) < 0;
    if (isNew) {
        combo->insertItem(0, text);
    }
    combo->setCurrentIndex(combo->findText(text));
    // The current item does not show where another text was typed over it.
    combo->setEditText(text);
    return isNew;
}

int GUI_BrowserMenu::addBookmark(const std::string& label)
{
    ++mLastId;
    if (GUI_RootMenu* const menu = getMenu(mBookmarkName)) {
        add(*menu, GUI_ActionBrowserBookMark::New(getWindow(), label, mLastId));
    }
    return mLastId;
}

int GUI_BrowserMenu::addHistory(const std::string& path)
{
    ++mLastId;
    if (GUI_RootMenu* const menu = getMenu(mHistoryName)) {
        add(*menu, GUI_ActionBrowserHistory::New(getWindow(), path, mLastId));
    }
    return mLastId;
}

void GUI_BrowserMenu::setForwardAvailable(bool flag)
{
    setAvailable(NEXT, flag);
}

void GUI_BrowserMenu::setBackwardAvailable(bool flag)
{
    setAvailable(BACK, flag);
}

void GUI_BrowserMenu::setAvailable(int index, bool flag) const
{
    const GUI_RootMenu* const menu = getMenu(mNavigatorName);
    GUI_Action* const action = menu == nullptr ? nullptr : menu->getAction(index);
    if (action != nullptr) {
        action->setEnabled(flag);
    }
}

void GUI_BrowserMenu::componentClicked(GUI_ActionComponent& component)
{
    auto* const window = dynamic_cast<GUI_BrowserWindow*>(getWindow());
    const GUI_ComboBox* const combo = getComboPath();
    if (window != nullptr && combo != nullptr && component.getFlagId() == COMPO_PATH) {
        window->setPathSelected(combo->getSelectedItemValue());
    }
}
