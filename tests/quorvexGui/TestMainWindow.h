#pragma once
#include "common/COM_Array.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_RootMenu.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"
#include "quorvex/QV_Problem.h"
#include "quorvexGui/QVG_MainMenu.h"
#include "quorvexGui/QVG_MainWindow.h"
#include "support/EnglishTexts.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestWindows.h"
#include "support/WorkingDirectory.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

/// The main window of the tests' application, with English texts, in a directory of its own that is the working
/// directory meanwhile. What all share is put back at the end.
class TestMainWindow
{
public:
    TestMainWindow()
    {
        mWindow = QVG_MainWindow::New("Main", false);
        application().setMainWindow(mWindow);
    }
    ~TestMainWindow()
    {
        application().resetMainWindow();
        mWindow->Delete();
        application().resetModel();
        QCoreApplication::processEvents();
        GUI_Grave::flush();
        QV_Bloch::resetShared();
    }
    TestMainWindow(const TestMainWindow&) = delete;
    TestMainWindow& operator=(const TestMainWindow&) = delete;

    QVG_MainWindow& operator*() const { return *mWindow; }
    QVG_MainWindow* operator->() const { return mWindow; }
    static GUI_Application& application() { return dynamic_cast<GUI_Application&>(*qApp); }
    const TestDirectory& directory() const { return mDirectory; }
    /// The path of the project that `createProject` makes, with its slash.
    std::string path() const { return mDirectory.slashed() + "project/"; }
    /// The path of a file of that project.
    std::string file(const std::string& name) const { return path() + name; }
    std::string read(const std::string& name) const { return mDirectory.read("project/" + name); }
    void write(const std::string& name, const std::string& text) const
    {
        mDirectory.write("project/" + name, text);
    }
    bool exists(const std::string& name) const { return std::filesystem::exists(file(name)); }

    /// Makes a project in a new directory. What is printed.
    std::string createProject() const
    {
        std::filesystem::create_directory(path());
        return printedBy([this] { mWindow->createFile(path(), "project.dpj"); });
    }
    /// Makes a project that runs in no time: 40 nodes, a pulse of 4 fs, 40 steps by splitting.
    void createSmallProject() const
    {
        createProject();
        auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem().getMilieu());
        milieu.setLength(40.5 * milieu.getCaracteristicLength() / 20.0); // in the midst of a cell
        problem().setMethod(QV_Problem::SPLIT_METHOD);
        problem().setMaxTimeStepsNumber(40);
        wave().setWavePackageDuration(4e-15);
    }
    /// Makes another project, in place of the present one.
    void createOtherProject() const
    {
        const std::string other = mDirectory.slashed() + "elsewhere/";
        std::filesystem::create_directory(other);
        mWindow->createFile(other, "project.dpj");
    }
    /// Requires: there is a project.
    QV_Problem& problem() const { return *mWindow->getProblem(); }
    QV_IncidentFields& wave() const { return *problem().getMaxwellSystem()->getIncidentFields(); }

    GUI_Action& action(QVG_MainMenu::Menu menu, int index) const
    {
        return *mWindow->getMenu()->getMenu(menu)->getAction(index);
    }
    /// Expects that the menus learn by the action that there are results. Requires: a project without any.
    void expectMenusUpToDateAfter(GUI_Action& action) const
    {
        const GUI_Action& results = this->action(QVG_MainMenu::VISUALIZE, 0);
        write("tps.res", "");
        EXPECT_FALSE(results.isEnabled());
        action.trigger();
        EXPECT_TRUE(results.isEnabled());
    }
    /// The captions of a window's child windows, in the order of their making.
    static std::vector<std::string> captionsOf(const GUI_ParentWindow& window)
    {
        std::vector<std::string> names;
        for (const GUI_ChildWindow* const child : childrenOf<GUI_ChildWindow>(window)) {
            names.push_back(child->getName());
        }
        return names;
    }
    /// Those of the main window.
    std::vector<std::string> children() const { return captionsOf(*mWindow); }

    /// A file's text with every identity number as "#".
    static std::string withoutIdentities(const std::string& text)
    {
        return std::regex_replace(text, std::regex("@[0-9]+"), "@#");
    }

private:
    EnglishTexts mEnglish;
    TestDirectory mDirectory;
    WorkingDirectory mWorkingDirectory{mDirectory.path()};
    QVG_MainWindow* mWindow; ///< Counted.
};
