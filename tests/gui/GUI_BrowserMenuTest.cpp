#include "gui/GUI_BrowserMenu.h"

#include "gui/GUI_BaseDirectory.h"
#include "gui/GUI_ToolBar.h"
#include "gui/TestBrowser.h"
#include "support/SharedPreferences.h"

#include <QImage>
#include <QLineEdit>
#include <QPixmap>

#include <gtest/gtest.h>

namespace {

/// The class of a menu's action, its label, its accelerator and whether it has an icon.
struct Entry
{
    std::string mClass;
    std::string mLabel;
    std::string mKeys;
    bool mHasIcon;

    bool operator==(const Entry&) const = default;
};

void PrintTo(const Entry& entry, std::ostream* out)
{
    *out << entry.mClass << " " << entry.mLabel << " " << entry.mKeys << " " << entry.mHasIcon;
}

std::vector<Entry> entries(const TestBrowser& browser, const std::string& menu)
{
    std::vector<Entry> found;
    const COM_Array<GUI_Action>& actions = browser.menu(menu).getActions();
    for (unsigned long i = 0; i < actions.size(); ++i) {
        const GUI_Action& action = actions[i];
        found.push_back({action.getTypes().back(), action.getLabel(),
                         action.shortcut().toString().toStdString(), !action.icon().isNull()});
    }
    return found;
}

/// A menu with the entries about the browser.
class HelpMenu : public GUI_BrowserMenu
{
    COM_CLASS(HelpMenu)
protected:
    explicit HelpMenu(GUI_ParentWindow& window)
        : GUI_BrowserMenu(window, false)
    {
        COM_TYPE(HelpMenu);
        createHelpMenu();
    }
    ~HelpMenu() override = default;
};

} // namespace

TEST(GUI_BrowserMenu, HasItsMenusInOrder)
{
    const SharedPreferences former;
    GUI_Action::ICONS_PATH = GUI_BaseDirectory::find() + "/icons/";
    const TestBrowser browser;
    std::vector<std::string> names;
    for (unsigned long i = 0; i < browser.menuPanel().getMenus().size(); ++i) {
        names.push_back(browser.menuPanel().getMenus()[i].getName());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"&File", "&Navigator", "&History", "&Bookmark"}));
    EXPECT_EQ(entries(browser, "&File"),
              (std::vector<Entry>{{"GUI_ActionBrowserNewWindow", "&New Window", "Ctrl+N", true},
                                  {"GUI_ActionBrowserLoad", "&Open File", "Ctrl+O", true},
                                  {"GUI_ActionBrowserPrint", "&Print", "Ctrl+P", true},
                                  {"GUI_ActionBrowserClose", "Close", "Ctrl+Q", false}}));
    EXPECT_EQ(entries(browser, "&Navigator"),
              (std::vector<Entry>{{"GUI_ActionBrowserBack", "Back", "Alt+Left", true},
                                  {"GUI_ActionBrowserNext", "Next", "Alt+Right", true},
                                  {"GUI_ActionBrowserHome", "Home", "Alt+Home", true}}));
    EXPECT_TRUE(entries(browser, "&History").empty());
    EXPECT_EQ(
        entries(browser, "&Bookmark"),
        (std::vector<Entry>{{"GUI_ActionBrowserAddBookMark", "&Add Bookmark", "Ctrl+A", false}}));
    ASSERT_EQ(browser.menu("&Bookmark").actions().size(), 2);
    EXPECT_TRUE(browser.menu("&Bookmark").actions().at(1)->isSeparator());
}

TEST(GUI_BrowserMenu, EachIconIsThatOfItsFile)
{
    struct Row
    {
        const char* mMenu;
        const char* mLabel;
        const char* mFile;
    };
    const SharedPreferences former;
    GUI_Action::ICONS_PATH = GUI_BaseDirectory::find() + "/icons/";
    const TestBrowser browser;
    for (const Row& row :
         {Row{"&File", "&New Window", "filenew.png"}, Row{"&File", "&Open File", "fileopen.png"},
          Row{"&File", "&Print", "print.png"}, Row{"&Navigator", "Back", "back.xpm"},
          Row{"&Navigator", "Next", "forward.xpm"}, Row{"&Navigator", "Home", "home.xpm"}}) {
        const QImage image(QString::fromStdString(GUI_Action::ICONS_PATH + row.mFile));
        ASSERT_FALSE(image.isNull()) << row.mFile;
        EXPECT_EQ(browser.action(row.mMenu, row.mLabel).icon().pixmap(image.size()).toImage(),
                  QPixmap::fromImage(image).toImage())
            << row.mFile;
    }
}

TEST(GUI_BrowserMenu, TheToolBarEndsWithTheCombo)
{
    const TestBrowser browser;
    const GUI_ToolBar* const bar = browser.menuPanel().getToolBar(GUI_BrowserMenu::TOOL_BAR_NAME);
    ASSERT_NE(bar, nullptr);
    std::vector<std::string> tools;
    for (const QAction* const tool : bar->actions()) {
        tools.push_back(tool->isSeparator() ? "-" : tool->iconText().toStdString());
    }
    EXPECT_EQ(tools, (std::vector<std::string>{"New Window", "Open File", "Print", "Back", "Next",
                                               "Home", "-", ""}));
    EXPECT_EQ(bar->getComponent(GUI_BrowserMenu::COMPO_PATH), &browser.combo());
    EXPECT_TRUE(browser.combo().isEditable());
    EXPECT_EQ(browser.combo().count(), 0);
    browser.show();
    EXPECT_GT(browser.combo().width(), browser->width() / 2);
}

TEST(GUI_BrowserMenu, EntriesAreNumberedFromOne)
{
    const TestBrowser browser;
    EXPECT_EQ(browser.menuPanel().addHistory("/a & b/one.html"), 1);
    EXPECT_EQ(browser.menuPanel().addBookmark("One"), 2);
    EXPECT_EQ(browser.menuPanel().addHistory("/two.html"), 3);
    EXPECT_EQ(browser.labels("&History"),
              (std::vector<std::string>{"/a & b/one.html", "/two.html"}));
    EXPECT_EQ(browser.labels("&Bookmark"), (std::vector<std::string>{"&Add Bookmark", "One"}));
    EXPECT_EQ(browser.action("&History", "/a & b/one.html").text().toStdString(),
              "/a && b/one.html");
    EXPECT_TRUE(browser.action("&History", "/a & b/one.html").shortcut().isEmpty());
}

TEST(GUI_BrowserMenu, BackAndNextStartDisabledAndFollowTheirFlags)
{
    const TestBrowser browser;
    const GUI_Action& back = browser.action("&Navigator", "Back");
    const GUI_Action& next = browser.action("&Navigator", "Next");
    EXPECT_FALSE(back.isEnabled());
    EXPECT_FALSE(next.isEnabled());
    browser.menuPanel().setBackwardAvailable(true);
    EXPECT_TRUE(back.isEnabled());
    EXPECT_FALSE(next.isEnabled());
    browser.edit().setForwardAvailable(true);
    browser.edit().setBackwardAvailable(false);
    EXPECT_FALSE(back.isEnabled());
    EXPECT_TRUE(next.isEnabled());
}

TEST(GUI_BrowserMenu, AnUpdateChangesNoEntry)
{
    const TestBrowser browser;
    browser.menuPanel().addHistory("/one.html");
    browser.action("&File", "&Print").setEnabled(false);
    const auto states = [&browser] {
        std::vector<bool> found;
        for (const char* const menu : {"&File", "&Navigator", "&History", "&Bookmark"}) {
            const COM_Array<GUI_Action>& actions = browser.menu(menu).getActions();
            for (unsigned long i = 0; i < actions.size(); ++i) {
                found.push_back(actions[i].isEnabled());
            }
        }
        return found;
    };
    const std::vector<bool> before = states();
    EXPECT_EQ(before, (std::vector<bool>{true, true, false, true, false, false, true, true, true}));
    browser.menuPanel().updateStateMenus();
    EXPECT_EQ(states(), before);
}

TEST(GUI_BrowserMenu, MenusAreFoundAfterAChangeOfTheLanguage)
{
    const TestBrowser browser;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    EXPECT_TRUE(browser.edit().setFile("one.html"));
    EXPECT_TRUE(browser.edit().setFile("two.html"));
    EXPECT_TRUE(browser.action("&Navigator", "Back").isEnabled());
    EXPECT_EQ(browser.labels("&History").size(), 2UL);
    browser->addBookmark();
    EXPECT_EQ(browser.labels("&Bookmark").size(), 2UL);
}

TEST(GUI_BrowserMenu, APathIsInTheComboOnce)
{
    const TestBrowser browser;
    EXPECT_TRUE(browser.menuPanel().showPath("/one.html"));
    EXPECT_TRUE(browser.menuPanel().showPath("/two.html"));
    EXPECT_FALSE(browser.menuPanel().showPath("/one.html"));
    EXPECT_EQ(browser.paths(), (std::vector<std::string>{"/one.html", "/two.html"}));
    browser.combo().setEditText("something typed");
    EXPECT_FALSE(browser.menuPanel().showPath("/one.html"));
    EXPECT_EQ(browser.combo().getSelectedItemValue(), "/one.html");
}

TEST(GUI_BrowserMenu, TheMenuAboutTheBrowserCanBeMade)
{
    const ProjectRoot root;
    const COM_Scoped menu(HelpMenu::New(*root));
    const GUI_RootMenu* const help = menu->getMenu("&Help");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->getAction(0)->getLabel(), "About");
    EXPECT_EQ(help->getAction(1)->getLabel(), "About Browser");
    EXPECT_EQ(help->getActions().size(), 2UL);
}

TEST(GUI_BrowserMenu, OutsideABrowserItsCommandsDoNothing)
{
    const ProjectRoot root;
    const COM_Scoped menu(HelpMenu::New(*root));
    const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
    menu->getAllMenus(*menus);
    unsigned long actions = 0;
    for (unsigned long i = 0; i < menus->size(); ++i) {
        for (unsigned long j = 0; j < (*menus)[i].getActions().size(); ++j) {
            (*menus)[i].getActions()[j].toDo();
            ++actions;
        }
    }
    EXPECT_EQ(actions, 10UL);
    menu->componentClicked(*menu->getComboPath());
    EXPECT_TRUE(root.children<GUI_ChildWindow>().empty());
    EXPECT_EQ(root->getMenu(), menu.get()) << "open";
}
