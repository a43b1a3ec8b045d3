#include "quorvexGui/QVG_MainMenu.h"

#include "common/COM_Guard.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_ToolBar.h"
#include "quorvexGui/TestMainWindow.h"

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QMenuBar>
#include <QPixmap>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <utility>

namespace {

using Texts = std::vector<std::string>;

Texts labels(const QVG_MainMenu& menu, int index)
{
    Texts texts;
    const COM_Array<GUI_Action>& actions = menu.getMenu(index)->getActions();
    for (unsigned long i = 0; i < actions.size(); ++i) {
        texts.push_back(actions[i].getLabel());
    }
    return texts;
}

QVG_MainMenu& menuOf(const TestMainWindow& window)
{
    return dynamic_cast<QVG_MainMenu&>(*window->getMenu());
}

/// The actions that can be used, each as the numbers of its menu and of its place there.
Texts enabled(const TestMainWindow& window)
{
    Texts texts;
    const QVG_MainMenu& menu = menuOf(window);
    for (int i = 0; menu.getMenu(i) != nullptr; ++i) {
        for (int j = 0; menu.getMenu(i)->getAction(j) != nullptr; ++j) {
            if (menu.getMenu(i)->getAction(j)->isEnabled()) {
                texts.push_back(std::to_string(i) + "." + std::to_string(j));
            }
        }
    }
    return texts;
}

const Texts noProject{"0.0", "0.1", "0.4", "1.2", "4.0", "4.1"};
const Texts withoutResults{"0.0", "0.1", "0.2", "0.3", "0.4", "1.0",
                           "1.1", "1.2", "2.0", "4.0", "4.1"};
const Texts withResults{"0.0", "0.1", "0.2", "0.3", "0.4", "1.0",
                        "1.1", "1.2", "2.0", "3.0", "4.0", "4.1"};

} // namespace

TEST(QVG_MainMenu, MenusAndActionsStandInTheirOrder)
{
    const TestMainWindow window;
    const QVG_MainMenu& menu = menuOf(window);
    Texts names;
    for (int i = 0; menu.getMenu(i) != nullptr; ++i) {
        names.push_back(menu.getMenu(i)->getName());
    }
    EXPECT_EQ(names, (Texts{"&Project", "&Edit", "&Run", "&Visualize", "&Help"}));
    EXPECT_EQ(labels(menu, 0), (Texts{"&New Project", "&Load Project", "&Save Project",
                                      "Save &As Project", "&Quit"}));
    EXPECT_EQ(labels(menu, 1), (Texts{"&Parameters", "Project Description", "Preferences"}));
    EXPECT_EQ(labels(menu, 2), Texts{"&Run"});
    EXPECT_EQ(labels(menu, 3), Texts{"&Visualize"});
    EXPECT_EQ(labels(menu, 4), (Texts{"Manual", "About"}));
}

TEST(QVG_MainMenu, ActionsAreOfTheirClasses)
{
    const TestMainWindow window;
    const QVG_MainMenu& menu = menuOf(window);
    Texts names;
    for (int i = 0; menu.getMenu(i) != nullptr; ++i) {
        for (int j = 0; menu.getMenu(i)->getAction(j) != nullptr; ++j) {
            names.push_back(menu.getMenu(i)->getAction(j)->getTypes().back());
        }
    }
    EXPECT_EQ(names,
              (Texts{"GUI_ActionNewProject", "GUI_ActionLoadProject", "GUI_ActionSaveProject",
                     "GUI_ActionSaveAsProject", "GUI_ActionExit", "QVG_ActionEditParameters",
                     "QVG_ActionEditProject", "GUI_ActionEditPreferences", "QVG_ActionRun",
                     "QVG_ActionVisualize", "QVG_ActionHelp", "QVG_ActionHelp"}));
}

TEST(QVG_MainMenu, TheToolBarHoldsFiveActions)
{
    const TestMainWindow window;
    const GUI_ToolBar* const bar = menuOf(window).getToolBar("toolbar");
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->actions(), (QList<QAction*>{&window.action(QVG_MainMenu::PROJECT, 0),
                                               &window.action(QVG_MainMenu::PROJECT, 1),
                                               &window.action(QVG_MainMenu::PROJECT, 2),
                                               &window.action(QVG_MainMenu::RUN, 0),
                                               &window.action(QVG_MainMenu::VISUALIZE, 0)}));
}

TEST(QVG_MainMenu, RunAndVisualizeHaveTheirIcons)
{
    const TestMainWindow english;
    const std::string former = GUI_Action::ICONS_PATH;
    GUI_Action::ICONS_PATH = english.directory().slashed();
    for (const auto& [name, color] :
         {std::pair("cheval.png", Qt::red), std::pair("visu.png", Qt::blue)}) {
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(color);
        ASSERT_TRUE(image.save(QString::fromStdString(english.directory().file(name))));
    }
    const COM_Scoped window(QVG_MainWindow::New("another", false));
    GUI_Action::ICONS_PATH = former;
    const QVG_MainMenu& menu = dynamic_cast<QVG_MainMenu&>(*window->getMenu());
    const auto colorOf = [&menu](QVG_MainMenu::Menu place) {
        const QIcon icon = menu.getMenu(place)->getAction(0)->icon();
        return icon.isNull() ? QColor() : icon.pixmap(4, 4).toImage().pixelColor(1, 1);
    };
    EXPECT_EQ(colorOf(QVG_MainMenu::RUN), QColor(Qt::red));
    EXPECT_EQ(colorOf(QVG_MainMenu::VISUALIZE), QColor(Qt::blue));
    EXPECT_EQ(colorOf(QVG_MainMenu::EDIT), QColor());
    EXPECT_EQ(colorOf(QVG_MainMenu::HELP), QColor());
}

TEST(QVG_MainMenu, NoTwoAcceleratorsAreEqualInAnyLanguage)
{
    for (const unsigned char lang : {0, 1, 2, 4, 5}) {
        const TestMainWindow english;
        GUI_Object::setLang(lang);
        const COM_Scoped window(QVG_MainWindow::New("another", false));
        const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
        window->getMenu()->getAllMenus(*menus);
        std::set<QString> accelerators;
        int number = 0;
        for (unsigned long i = 0; i < menus->size(); ++i) {
            for (unsigned long j = 0; j < (*menus)[i].getActions().size(); ++j) {
                const QKeySequence keys = (*menus)[i].getActions()[j].shortcut();
                if (!keys.isEmpty()) {
                    accelerators.insert(keys.toString());
                    ++number;
                }
            }
        }
        EXPECT_EQ(number, 8) << int(lang);
        EXPECT_EQ(accelerators.size(), 8U) << int(lang);
    }
}

TEST(QVG_MainMenu, WhatCanBeUsedDependsOnProjectAndResults)
{
    const TestMainWindow window;
    EXPECT_EQ(enabled(window), noProject);
    window.createProject();
    EXPECT_EQ(enabled(window), withoutResults);
    window.write("tps.res", "");
    window->getMenu()->updateStateMenus();
    EXPECT_EQ(enabled(window), withResults);
    std::filesystem::remove(window.file("tps.res"));
    window->getMenu()->updateStateMenus();
    EXPECT_EQ(enabled(window), withoutResults);
}

TEST(QVG_MainMenu, OtherFilesThanResultsDoNotCount)
{
    const TestMainWindow window;
    window.createProject();
    window.write("tps.res~", "");
    window.write("tps.RES", "");
    std::filesystem::create_directory(window.file("directory.res"));
    window->getMenu()->updateStateMenus();
    EXPECT_EQ(enabled(window), withoutResults);
}

TEST(QVG_MainMenu, APathWithoutAFileIsNoProject)
{
    const TestMainWindow window;
    window.createProject();
    window.write("tps.res", "");
    window->setSavingFile("");
    window->getMenu()->updateStateMenus();
    EXPECT_EQ(enabled(window), noProject);
}

TEST(QVG_MainMenu, AFileWithoutAPathIsNoProject)
{
    const TestMainWindow window;
    window->setSavingPath("");
    window->setSavingFile("project.dpj");
    window->getMenu()->updateStateMenus();
    EXPECT_EQ(enabled(window), noProject);
}

TEST(QVG_MainMenu, LoadingAndSavingAsBringTheMenusUpToDate)
{
    const TestMainWindow window;
    window.createProject();
    window.write("tps.res", "");
    window->load(window.file("project.dpj"));
    EXPECT_EQ(enabled(window), withResults);
    const std::string path = window.directory().slashed() + "other/";
    std::filesystem::create_directory(path);
    std::filesystem::remove(window.file("tps.res"));
    window->saveAs(path, "project.dpj");
    EXPECT_EQ(enabled(window), withoutResults);
    window.createOtherProject();
    EXPECT_EQ(enabled(window), withoutResults);
}

TEST(QVG_MainMenu, AChangeOfTheLanguageLeavesTheMenusUsable)
{
    const TestMainWindow window;
    window.createProject();
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    window->getMenu()->updateStateMenus();
    EXPECT_EQ(enabled(window), withoutResults);
}

TEST(QVG_MainMenu, MenusAndActionsThatWereTakenOffArePassedOver)
{
    const TestMainWindow window;
    window.createProject();
    QVG_MainMenu& menu = menuOf(window);
    menu.getMenu(QVG_MainMenu::PROJECT)->removeFromActions(4);
    menu.getMenu(QVG_MainMenu::EDIT)->removeFromActions(0);
    EXPECT_EQ(menu.getParametersAction(), nullptr);
    menu.removeFromMenus(*menu.getMenu(QVG_MainMenu::EDIT));
    EXPECT_EQ(menu.getParametersAction(), nullptr);
    menu.updateStateMenus();
    EXPECT_EQ(enabled(window), (Texts{"0.0", "0.1", "0.2", "0.3", "1.0", "3.0", "3.1"}));
    window->load(window.file("project.dpj"));
    EXPECT_TRUE(window.children().empty());
}

TEST(QVG_MainMenu, AMenuWithoutWindowHasNoProject)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped other(QVG_MainWindow::New("another", false));
    QVG_MainMenu& menu = dynamic_cast<QVG_MainMenu&>(*other->getMenu());
    const COM_Guard guard(menu);
    other->resetMenu();
    menu.updateStateMenus();
    EXPECT_FALSE(menu.getMenu(QVG_MainMenu::RUN)->getAction(0)->isEnabled());
    EXPECT_TRUE(menu.getMenu(QVG_MainMenu::PROJECT)->getAction(0)->isEnabled());
}

TEST(QVG_MainMenu, QuitClosesTheWindowFromItsOwnMenu)
{
    const TestMainWindow window;
    window->show();
    window.action(QVG_MainMenu::PROJECT, 4).trigger();
    QCoreApplication::processEvents();
    EXPECT_FALSE(window->isVisible());
}
