#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "gui/GUI_Object.h"

#include <QMainWindow>

#include <functional>
#include <string>

class GUI_ChildWindow;
class GUI_MenuPanel;
class GUI_RootPanel;
class GUI_RootWindow;
class GUI_Workspace;

/// A window with a menu bar, a central panel and child windows.
///
/// It counts its menu, its panel and its children, which count it in turn; those references do not keep it
/// alive. Whatever closes the window, the title bar, the frame of a sub-window or the program, ends in the
/// virtual `close(bool)`. A closed window has neither menu, panel nor children.
class GUI_ParentWindow : public QMainWindow, public virtual GUI_Object
{
public:
    /// Shows the window and gives it the focus. A place that lies on no screen is corrected.
    virtual void show();
    /// Releases children, menu and panel and closes the window, whatever `flag` is. False: it stays open.
    /// A window that is closed already says true.
    virtual bool close(bool flag);

protected:
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

public:
    // Two-way link with GUI_RootPanel::setWindow. The panel takes the centre; what was there is hidden.
    virtual void setPanel(GUI_RootPanel& panel);
    /// The top of the tree of windows, or null.
    virtual GUI_RootWindow* getRoot() = 0;
    /// The area for child windows, or null: they are then windows of the desktop.
    virtual GUI_Workspace* getWorkspace() { return mWorkspace; }
    /// Shows the model as it is now: the panel, then the children.
    virtual void updateValues();
    /// Makes `path` and `file` the window's file. Heirs make the file itself.
    virtual void createFile(const std::string& path, const std::string& file);
    /// The forms with one name split it after its last "/"; a bare name lies in "./".
    virtual void createFile(const std::string& fileName);
    virtual void load(const std::string& path, const std::string& file);
    virtual void load(const std::string& fileName);
    /// Reads the window's file: nothing here, for heirs to fill.
    virtual void load();
    /// Writes the window's file: nothing here, for heirs to fill.
    virtual void save() const;
    virtual void save(const std::string& path, const std::string& file) const;
    virtual void save(const std::string& fileName) const;
    virtual void saveAs(const std::string& path, const std::string& file) const;
    virtual void setSize(int width, int height);
    virtual void setFont(const std::string& font);

    void resetPanel();
    GUI_RootPanel* getPanel() const { return mPanel; }

    // Two-way link with GUI_MenuPanel::setWindow.
    void setMenu(GUI_MenuPanel& menu);
    void resetMenu();
    GUI_MenuPanel* getMenu() const { return mMenu; }

    // Two-way link with GUI_ChildWindow::setParent.
    void addToChildren(GUI_ChildWindow& child);
    void removeFromChildren(GUI_ChildWindow& child);
    void resetChildren();
    /// The children in the order in which they were made, in place of what `children` holds.
    void getChildren(COM_Array<GUI_ChildWindow>& children) const;
    /// Each child followed by its descendants, in place of what `descents` holds.
    void getAllDescents(COM_Array<GUI_ChildWindow>& descents) const;
    /// The child of that identity number, or null.
    GUI_ChildWindow* getChild(unsigned long id) const;
    static unsigned long getId(const GUI_ChildWindow& child);
    /// The first child of that class for which `isMeant`, if there is one, is true; else null.
    template <typename Window>
    Window* findForm(const std::function<bool(const Window&)>& isMeant = {}) const
    {
        for (const unsigned long id : mChildren->keys()) {
            auto* const form = dynamic_cast<Window*>(getChild(id));
            if (form != nullptr && (!isMeant || isMeant(*form))) {
                return form;
            }
        }
        return nullptr;
    }
    /// Raises the child of that identity number. Where there is none, opens the one that `make` makes, with
    /// one reference for the caller, and gives its number in `id`.
    void openForm(unsigned long& id,
                  const std::function<GUI_ChildWindow*(GUI_ParentWindow&)>& make);
    /// Closes each child by its own `close`.
    void closeChildrenWindow();

    /// The caption.
    void setName(const std::string& name);
    std::string getName() const;
    void setStatusMessage(const std::string& text);
    bool isContainer() const { return mWorkspace != nullptr; }
    /// Shows the window in front of the others, restored if it is an icon.
    void bringToFront();

    void setSavingFile(const std::string& file) { mSavingFile = file; }
    const std::string& getSavingFile() const { return mSavingFile; }
    void setSavingPath(const std::string& path) { mSavingPath = path; }
    const std::string& getSavingPath() const { return mSavingPath; }

protected:
    GUI_ParentWindow(const std::string& name, bool isContainer);
    GUI_ParentWindow();
    /// A window that is to live in the workspace of `parent`, which GUI_ChildWindow sees to.
    GUI_ParentWindow(GUI_ParentWindow& parent, bool isContainer);
    ~GUI_ParentWindow() override;

    /// Every close by Qt comes here and goes on to `close(bool)`.
    void closeEvent(QCloseEvent* event) override;
    /// Closed and not shown since, or released for good.
    bool isClosed() const { return mIsClosed || mIsCondemned; }
    /// Lets the field that is being typed in deliver its text.
    void commitEdits();

    /// Says that the window is closing; a close that comes meanwhile is not begun.
    class Closing
    {
    public:
        explicit Closing(GUI_ParentWindow& window)
            : mWindow(window)
            , mIsFirst(!window.mIsClosing)
        {
            window.mIsClosing = true;
        }
        ~Closing()
        {
            if (mIsFirst) {
                mWindow.mIsClosing = false;
            }
        }
        Closing(const Closing&) = delete;
        Closing& operator=(const Closing&) = delete;
        bool isFirst() const { return mIsFirst; }

    private:
        GUI_ParentWindow& mWindow;
        bool mIsFirst; ///< False: the window was closing before.
    };

private:
    void setContainerFlag(bool flag);
    static void getPathAndFileName(const std::string& fileName, std::string& path,
                                   std::string& file);
    bool closeQtSide();
    void keepOnScreen();
    void setCentre(QWidget& widget);

    mutable std::string mSavingFile = "save.txt"; ///< Empty: nothing to ask about when closing.
    mutable std::string mSavingPath;              ///< With a slash at its end, or empty.
    /// By identity number. Counted, never null.
    COM_Map<unsigned long, GUI_ChildWindow>* mChildren;
    GUI_Workspace* mWorkspace = nullptr; ///< Counted; null if the window is no container.
    GUI_MenuPanel* mMenu = nullptr;      ///< Counted.
    GUI_RootPanel* mPanel = nullptr;     ///< Counted.

    bool mIsClosed = false;       ///< Closed and not shown since.
    bool mIsClosing = false;      ///< Inside a `close(bool)` of an heir.
    bool mIsCondemned = false;    ///< Released for good.
    bool mIsQtClosing = false;    ///< Qt closes on our behalf: nothing more is to be done.
    bool mIsInCloseEvent = false; ///< Qt closes by itself and waits for our answer.
};
