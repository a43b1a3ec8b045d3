#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "common/COM_String.h"
#include "gui/GUI_ChildWindow.h"

#include <string>
#include <vector>

class GUI_BrowserEdit;
class GUI_BrowserMenu;

/// A browser of files: the manual, with its pages, anchors and pictures. The caption is the title of the page.
///
/// Files ".history" and ".bookmarks" of the working directory are read but never written: what is visited and
/// marked lives as long as the window.
class GUI_BrowserWindow : public GUI_ChildWindow
{
    COM_CLASS(GUI_BrowserWindow)
public:
    using GUI_ChildWindow::close;
    /// Closes this window alone.
    virtual void close();
    /// Asks for a file and shows it.
    virtual void openFile();
    /// Opens a window like this one, beside it, on the same page.
    virtual void newWindow();
    /// Asks for the printer first.
    virtual void print();
    virtual void forward();
    virtual void backward();
    virtual void home();
    // An entry of the menus, by its number.
    virtual void historyChosen(int id);
    virtual void bookmarkChosen(int id);
    /// Marks the page under the caption of the window. Nothing before the first page.
    virtual void addBookmark();
    /// Nothing.
    virtual void help();
    virtual void about();
    /// Shows the page, and offers its path from now on also where it cannot be read yet.
    virtual void setHome(const std::string& path);
    /// Shows the page of a path that was chosen or typed. One that cannot be read leaves the window as it is.
    virtual void setPathSelected(const std::string& path);
    /// Remembers a page that was visited.
    virtual void addToPaths(const std::string& path);

    /// With the focus in the page, so that the keys scroll it.
    void show() override;

    // Replace the contents of the array by the paths.
    void getHistory(COM_Array<COM_String>& history) const { mHistory->values(history); }
    void getBookmarks(COM_Array<COM_String>& bookmarks) const { mBookmarks->values(bookmarks); }
    /// True for a path that was visited, and for the one that a file told.
    bool isInHistory(const std::string& path) const;

    /// Null once the window is closed.
    GUI_BrowserEdit* getBrowserEdit() const;

protected:
    /// `name` is the key of the caption. All browsers look alike, whatever `flag` is.
    explicit GUI_BrowserWindow(GUI_ParentWindow& parent, const std::string& name = "Browser Window",
                               bool flag = false);
    /// Requires: `parent` is not null.
    explicit GUI_BrowserWindow(GUI_ParentWindow* parent, const std::string& name = "Browser Window",
                               bool flag = false);
    ~GUI_BrowserWindow() override;

private:
    void initComponents(const std::string& name, bool flag);
    void readHistory();
    void readBookmarks();
    void addToHistory(const std::string& path);
    /// Shows the page of that number.
    void choose(const COM_Map<int, COM_String>& paths, int id) const;
    /// Null once the window is closed.
    GUI_BrowserMenu* getBrowserMenu() const;

    std::vector<std::string> mPaths; ///< What was visited, each path once.
    COM_Map<int, COM_String>*
        mHistory; ///< By the number of the entry; 0 from a file. Counted, never null.
    COM_Map<int, COM_String>* mBookmarks; ///< The same.
};
