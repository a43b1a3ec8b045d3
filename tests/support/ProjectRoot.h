#pragma once
#include "common/COM_Array.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_RootMenu.h"
#include "gui/GUI_RootWindow.h"
#include "support/EnglishTexts.h"
#include "support/TestWindows.h"

#include <functional>
#include <string>
#include <vector>

/// A root window that writes down what is asked of it.
class ProjectRootWindow : public GUI_RootWindow
{
    COM_CLASS(ProjectRootWindow)
public:
    using GUI_RootWindow::createFile;
    using GUI_RootWindow::load;
    using GUI_RootWindow::save;

    void createFile(const std::string& path, const std::string& file) override
    {
        GUI_RootWindow::createFile(path, file);
        mCalls.push_back("create " + path + " " + file);
        if (mCreation) {
            mCreation();
        }
    }
    void load() override { mCalls.push_back("load " + getSavingPath() + " " + getSavingFile()); }
    void save() const override
    {
        mCalls.push_back("save " + getSavingPath() + " " + getSavingFile());
    }
    void saveAs(const std::string& path, const std::string& file) const override
    {
        mCalls.push_back("saveAs " + path + " " + file);
        GUI_RootWindow::saveAs(path, file);
    }

    mutable std::vector<std::string> mCalls;
    std::function<void()> mCreation; ///< What else making a file does.

protected:
    /// Without a file.
    ProjectRootWindow()
        : GUI_RootWindow("Root")
    {
        COM_TYPE(ProjectRootWindow);
        setSavingFile("");
    }
    ~ProjectRootWindow() override = default;
};

/// A shown root window with a menu for actions, texts in English.
class ProjectRoot
{
public:
    ProjectRoot() { mWindow->show(); }
    ProjectRoot(const ProjectRoot&) = delete;
    ProjectRoot& operator=(const ProjectRoot&) = delete;

    ProjectRootWindow& operator*() const { return *mWindow; }
    ProjectRootWindow* operator->() const { return mWindow.get(); }
    TestMenuPanel& menuPanel() const { return *mMenuPanel; }
    GUI_RootMenu& menu() const { return *mMenu; }

    /// Makes an action and puts it into the menu, which alone holds it.
    template <typename Action>
    Action& add() const
    {
        const COM_Scoped action(Action::New());
        mMenu->addToActions(*action);
        return *action;
    }
    /// The child windows of that class.
    template <typename Window>
    std::vector<Window*> children() const
    {
        return childrenOf<Window>(*mWindow);
    }

private:
    EnglishTexts mEnglish;
    COM_Scoped<ProjectRootWindow> mWindow{ProjectRootWindow::New()};
    COM_Scoped<TestMenuPanel> mMenuPanel{TestMenuPanel::New(*mWindow)};
    COM_Scoped<GUI_RootMenu> mMenu{GUI_RootMenu::New(*mMenuPanel, "Menu")};
};
