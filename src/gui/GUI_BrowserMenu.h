#pragma once
#include "gui/GUI_MenuPanel.h"

#include <string>

class GUI_ComboBox;

/// The menus and the tool bar of a browser window, with a combo box of the paths, in which one can be typed.
class GUI_BrowserMenu : public GUI_MenuPanel
{
    COM_CLASS(GUI_BrowserMenu)
public:
    static constexpr unsigned char COMPO_PATH = 0; ///< Of the combo box.

    /// Null when it was taken out.
    GUI_ComboBox* getComboPath() const;
    /// Makes the path the current one of the combo box. True: it was not there before.
    bool showPath(const std::string& path);
    // Append an entry, where its menu was not taken off. Gives its number, counted from 1 over both menus.
    int addBookmark(const std::string& label);
    int addHistory(const std::string& path);
    // Enable "Next" and "Back".
    void setForwardAvailable(bool flag);
    void setBackwardAvailable(bool flag);

    void componentClicked(GUI_ActionComponent& component) override;

protected:
    /// The flag of the window changes nothing here: all menus are there in any case.
    GUI_BrowserMenu(GUI_ParentWindow& window, bool flag);
    ~GUI_BrowserMenu() override = default;

    /// A menu about the browser itself, which no window has so far.
    void createHelpMenu();

private:
    void initComponents();
    void createFileMenu();
    void createNavigatorMenu();
    void createHistoryMenu();
    void createBookmarkMenu();
    /// Appends a menu, which the bar holds.
    GUI_RootMenu& addMenu(const std::string& name);
    void setAvailable(int index, bool flag) const;

    // With which the menus were built: a translation asked for later may be another.
    std::string mNavigatorName;
    std::string mHistoryName;
    std::string mBookmarkName;
    int mLastId = 0; ///< Number of the last entry of history and bookmarks.
};
