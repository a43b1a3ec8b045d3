#pragma once
#include "common/COM_Scoped.h"
#include "common/COM_String.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_BrowserEdit.h"
#include "gui/GUI_BrowserMenu.h"
#include "gui/GUI_BrowserWindow.h"
#include "gui/GUI_ComboBox.h"
#include "support/ProjectRoot.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <QStatusBar>

#include <filesystem>
#include <string>
#include <vector>

inline std::vector<std::string> textsOf(const COM_Array<COM_String>& texts)
{
    std::vector<std::string> found;
    for (unsigned long i = 0; i < texts.size(); ++i) {
        found.push_back(texts[i].getString());
    }
    return found;
}

inline std::vector<std::string> historyOf(GUI_BrowserWindow& window)
{
    const COM_Scoped texts(COM_Array<COM_String>::New());
    window.getHistory(*texts);
    return textsOf(*texts);
}

inline std::vector<std::string> bookmarksOf(GUI_BrowserWindow& window)
{
    const COM_Scoped texts(COM_Array<COM_String>::New());
    window.getBookmarks(*texts);
    return textsOf(*texts);
}

/// A browser window below a root window, with English texts, in a directory of its own that is the working directory
/// meanwhile. The pages "one.html" and "two.html" lie there, titled "One" and without title, each with a link to the
/// other.
class TestBrowser
{
public:
    TestBrowser()
    {
        mDirectory.write("one.html", "<html><head><title>One</title></head><body>"
                                     "<p><a href=\"two.html\">to two</a></p></body></html>");
        mDirectory.write("two.html",
                         "<html><body><p><a href=\"one.html\">to one</a></p></body></html>");
    }
    TestBrowser(const TestBrowser&) = delete;
    TestBrowser& operator=(const TestBrowser&) = delete;

    GUI_BrowserWindow& operator*() const { return *mWindow; }
    GUI_BrowserWindow* operator->() const { return mWindow.get(); }
    const ProjectRoot& root() const { return mRoot; }
    const TestDirectory& directory() const { return mDirectory; }
    /// The path of a page as a combo box shows it.
    std::string page(const std::string& name) const { return mDirectory.file(name); }
    GUI_BrowserEdit& edit() const { return *mWindow->getBrowserEdit(); }
    GUI_BrowserMenu& menuPanel() const
    {
        return dynamic_cast<GUI_BrowserMenu&>(*mWindow->getMenu());
    }
    GUI_ComboBox& combo() const { return *menuPanel().getComboPath(); }
    GUI_RootMenu& menu(const std::string& name) const { return *menuPanel().getMenu(name); }
    GUI_Action& action(const std::string& menuName, const std::string& label) const
    {
        return *menu(menuName).getAction(label);
    }
    /// The labels of a menu's actions.
    std::vector<std::string> labels(const std::string& menuName) const
    {
        std::vector<std::string> found;
        const COM_Array<GUI_Action>& actions = menu(menuName).getActions();
        for (unsigned long i = 0; i < actions.size(); ++i) {
            found.push_back(actions[i].getLabel());
        }
        return found;
    }
    /// The items of the combo box, the current one first.
    std::vector<std::string> paths() const
    {
        std::vector<std::string> found{combo().getSelectedItemValue()};
        for (int i = 0; i < combo().count(); ++i) {
            if (i != combo().currentIndex()) {
                found.push_back(combo().itemText(i).toStdString());
            }
        }
        return found;
    }
    std::string status() const { return mWindow->statusBar()->currentMessage().toStdString(); }
    std::vector<std::string> history() const { return historyOf(*mWindow); }
    std::vector<std::string> bookmarks() const { return bookmarksOf(*mWindow); }
    /// Shows the window as the active one.
    void show() const
    {
        mWindow->show();
        mWindow->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
    }
    /// Follows the first link of the page by the keyboard.
    void followLink() const
    {
        edit().moveCursor(QTextCursor::Start);
        edit().setFocus();
        QTest::keyClick(&edit(), Qt::Key_Tab);
        QTest::keyClick(&edit(), Qt::Key_Return);
    }

private:
    TestDirectory mDirectory;
    WorkingDirectory mWorkingDirectory{mDirectory.path()};
    ProjectRoot mRoot;
    COM_Scoped<GUI_BrowserWindow> mWindow{GUI_BrowserWindow::New(*mRoot)};
};
