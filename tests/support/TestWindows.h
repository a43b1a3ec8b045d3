#pragma once
#include "common/COM_Array.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_ChildMenu.h"
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_RootPanel.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_ToolBar.h"
#include "support/TestAction.h"

#include <QPointer>
#include <QTest>

#include <functional>
#include <string>
#include <vector>

/// Lets the event loop do what waits, deletions included.
inline void settle()
{
    constexpr int patience = 10; // ms
    QTest::qWait(patience);
}

/// The child windows of a class, in the order of their making.
template <typename Window>
std::vector<Window*> childrenOf(const GUI_ParentWindow& parent)
{
    std::vector<Window*> found;
    const COM_Scoped all(COM_Array<GUI_ChildWindow>::New());
    parent.getChildren(*all);
    for (unsigned long i = 0; i < all->size(); ++i) {
        if (auto* const window = dynamic_cast<Window*>(all->get(i))) {
            found.push_back(window);
        }
    }
    return found;
}

/// A menu bar that counts its calls.
class TestMenuPanel : public GUI_MenuPanel
{
    COM_CLASS(TestMenuPanel)
public:
    void componentClicked(GUI_ActionComponent& component) override
    {
        mClicked = &component;
        if (mAnswer) {
            mAnswer();
        }
    }
    void updateStateMenus() override { ++mUpdates; }

    int mUpdates = 0;
    GUI_ActionComponent* mClicked = nullptr; ///< The last component used. Borrowed.
    std::function<void()> mAnswer;           ///< What else using one does.

protected:
    template <typename Window>
    explicit TestMenuPanel(Window&& window)
        : GUI_MenuPanel(window)
    {
        COM_TYPE(TestMenuPanel);
    }
    ~TestMenuPanel() override = default;
};

/// A root window without file, so that it closes without a question, with a pulldown "&Project" of three
/// entries: the action "&Quit", the checkable one "Toggle" and the submenu "More" with the action "&Deep". A
/// tool bar "toolbar" shows "&Quit" too. The test holds the window alone, until it calls `release`.
class TestFamily
{
public:
    explicit TestFamily(bool isContainer = false)
        : mRoot(GUI_RootWindow::New("Root", isContainer))
    {
        mRoot->setSavingFile("");
        const COM_Scoped panel(TestMenuPanel::New(*mRoot));
        mPanel = panel.get();
        const COM_Scoped menu(GUI_RootMenu::New(*panel, "&Project"));
        mMenu = menu.get();
        const COM_Scoped quit(TestAction::New("&Quit"));
        mQuit = quit.get();
        menu->addToActions(*quit, "toolbar");
        const COM_Scoped toggle(TestAction::New("Toggle"));
        mToggle = toggle.get();
        toggle->setCheckable(true);
        menu->addToActions(*toggle);
        const COM_Scoped more(GUI_ChildMenu::New("More"));
        mMore = more.get();
        menu->addToChildren(*more);
        const COM_Scoped deep(TestAction::New("&Deep"));
        mDeep = deep.get();
        more->addToActions(*deep);
    }
    ~TestFamily() { release(); }
    TestFamily(const TestFamily&) = delete;
    TestFamily& operator=(const TestFamily&) = delete;

    /// A child that the root's map alone holds.
    GUI_ChildWindow& addChild() const
    {
        const COM_Scoped child(GUI_ChildWindow::New(*mRoot));
        return *child;
    }
    /// A panel that the window alone holds.
    GUI_RootPanel& addPanel() const
    {
        const COM_Scoped panel(GUI_RootPanel::New(*mRoot));
        return *panel;
    }
    /// Gives up the reference to the root window.
    void release()
    {
        if (mRoot != nullptr) {
            GUI_RootWindow* const root = mRoot;
            mRoot = nullptr;
            root->Delete();
        }
    }

    GUI_RootWindow* mRoot; ///< Counted until `release`.
    // Held by the root window's tree.
    TestMenuPanel* mPanel = nullptr;
    GUI_RootMenu* mMenu = nullptr;
    GUI_ChildMenu* mMore = nullptr;
    TestAction* mQuit = nullptr;
    TestAction* mToggle = nullptr;
    TestAction* mDeep = nullptr;
};
