#include "gui/GUI_MenuPanel.h"

#include "common/COM_Array.h"
#include "support/Ends.h"
#include "support/TestWindows.h"

#include <QKeySequence>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// Adds a pulldown with actions of those labels and gives them.
std::vector<TestAction*> addMenu(GUI_MenuPanel& panel, const std::vector<std::string>& labels)
{
    std::vector<TestAction*> actions;
    const COM_Scoped menu(GUI_RootMenu::New(panel, "menu"));
    for (const std::string& label : labels) {
        const COM_Scoped action(TestAction::New(label));
        menu->addToActions(*action);
        actions.push_back(action.get());
    }
    return actions;
}

} // namespace

TEST(GUI_MenuPanel, ItIsMadeAsTheMenuBarOfItsWindow)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_MenuPanel::New(*window));
    EXPECT_EQ(panel->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_MenuPanel"}));
    EXPECT_EQ(panel->objectName(), "GUI_MenuPanel");
    EXPECT_EQ(panel->getWindow(), window.get());
    EXPECT_EQ(window->getMenu(), panel.get());
    EXPECT_EQ(window->menuBar(), panel.get());
    EXPECT_EQ(panel->getReferenceCount(), 2);
    EXPECT_EQ(window->getReferenceCount(), 2);
}

TEST(GUI_MenuPanel, ANewPanelTakesThePlaceOfTheFormerOne)
{
    const COM_Scoped window(GUI_RootWindow::New());
    auto* const former = GUI_MenuPanel::New(window.get());
    const QPointer<QWidget> life = former;
    former->Delete();
    const COM_Scoped panel(GUI_MenuPanel::New(window.get()));
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(window->menuBar(), panel.get());
    EXPECT_EQ(window->getReferenceCount(), 2);
}

TEST(GUI_MenuPanel, ItGoesToAnotherWindowWithItsToolBars)
{
    const TestFamily family;
    const COM_Scoped other(GUI_RootWindow::New());
    GUI_ToolBar* const bar = family.mPanel->getToolBar("toolbar");
    family.mRoot->show();
    other->show();
    family.mPanel->setWindow(*other);
    EXPECT_EQ(family.mRoot->getMenu(), nullptr);
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1);
    EXPECT_EQ(other->getMenu(), family.mPanel);
    EXPECT_EQ(other->menuBar(), family.mPanel);
    EXPECT_EQ(bar->parentWidget(), other.get());
    EXPECT_EQ(other->toolBarArea(bar), Qt::TopToolBarArea);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_TRUE(family.mPanel->isVisible());
    EXPECT_EQ(family.mPanel->getReferenceCount(), 1 + 2);
}

TEST(GUI_MenuPanel, AWindowGivenAnotherWindowsPanelTakesItAway)
{
    const TestFamily family;
    const COM_Scoped other(GUI_RootWindow::New());
    other->setMenu(*family.mPanel);
    EXPECT_EQ(family.mRoot->getMenu(), nullptr);
    EXPECT_EQ(other->menuBar(), family.mPanel);
    EXPECT_EQ(family.mPanel->getWindow(), other.get());
    EXPECT_EQ(family.mPanel->parentWidget(), other.get());
}

TEST(GUI_MenuPanel, APanelHeldByOthersStandsAloneAfterTheReset)
{
    const TestFamily family;
    const COM_Scoped other(GUI_RootWindow::New());
    TestMenuPanel* const panel = family.mPanel;
    panel->addReference(nullptr);
    family.mRoot->show();
    family.mRoot->resetMenu();
    EXPECT_EQ(panel->getWindow(), nullptr);
    EXPECT_EQ(panel->parentWidget(), nullptr);
    EXPECT_EQ(panel->getToolBar("toolbar")->parentWidget(), nullptr);
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1);
    family.mQuit->trigger();
    EXPECT_EQ(panel->mUpdates, 1);
    panel->setWindow(*other);
    EXPECT_EQ(other->menuBar(), panel);
    panel->resetWindow();
    EXPECT_EQ(other->getMenu(), nullptr);
    EXPECT_EQ(other->getReferenceCount(), 1);
    panel->Delete();
}

TEST(GUI_MenuPanel, MenusStandFromLeftToRightAndAreFoundByPlaceAndWholeName)
{
    const TestFamily family;
    const COM_Scoped edit(GUI_RootMenu::New("&\xc3\x89"
                                            "dition"));
    family.mPanel->addToMenus(*edit);
    family.mPanel->addToMenus(*edit);
    ASSERT_EQ(family.mPanel->actions().size(), 2);
    EXPECT_EQ(family.mPanel->actions().at(1)->text(), QString::fromUtf8("&\xc3\x89"
                                                                        "dition"));
    EXPECT_EQ(family.mPanel->getMenus().size(), 2U);
    EXPECT_EQ(family.mPanel->getMenu(0), family.mMenu);
    EXPECT_EQ(family.mPanel->getMenu(1), edit.get());
    EXPECT_EQ(family.mPanel->getMenu(2), nullptr);
    EXPECT_EQ(family.mPanel->getMenu(-1), nullptr);
    EXPECT_EQ(family.mPanel->getMenu("&Project"), family.mMenu);
    EXPECT_EQ(family.mPanel->getMenu("&\xc3\x89"
                                     "dition"),
              edit.get());
    EXPECT_EQ(family.mPanel->getMenu("Project"), nullptr);
}

TEST(GUI_MenuPanel, ARemovedMenuLeavesTheBar)
{
    const TestFamily family;
    const QPointer<QObject> life = family.mMenu;
    const COM_Scoped stranger(GUI_RootMenu::New("stranger"));
    family.mPanel->removeFromMenus(*stranger);
    EXPECT_EQ(stranger->getReferenceCount(), 1);
    family.mPanel->removeFromMenus(*family.mMenu);
    EXPECT_TRUE(family.mPanel->actions().isEmpty());
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(family.mPanel->getReferenceCount(), 1 + 1);
}

TEST(GUI_MenuPanel, AllMenusAreTheReachOfEachPulldown)
{
    const TestFamily family;
    const COM_Scoped edit(GUI_RootMenu::New(*family.mPanel, "&Edit"));
    const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
    family.mPanel->getAllMenus(*menus);
    ASSERT_EQ(menus->size(), 3U);
    EXPECT_EQ(menus->get(0), family.mMenu);
    EXPECT_EQ(menus->get(1), family.mMore);
    EXPECT_EQ(menus->get(2), edit.get());
}

TEST(GUI_MenuPanel, MenusAndToolBarsCountItAndDoNotKeepItAlive)
{
    TestFamily family;
    EXPECT_EQ(family.mPanel->getReferenceCount(), 1 + 1 + 1);
    EXPECT_EQ(family.mMenu->getReferenceCount(), 1 + 3);
    const QPointer<QObject> panel = family.mPanel;
    const QPointer<QObject> menu = family.mMenu;
    const QPointer<QObject> more = family.mMore;
    const QPointer<QObject> deep = family.mDeep;
    const QPointer<QObject> bar = family.mPanel->getToolBar("toolbar");
    family.mRoot->resetMenu();
    EXPECT_TRUE(panel.isNull());
    EXPECT_TRUE(menu.isNull());
    EXPECT_TRUE(more.isNull());
    EXPECT_TRUE(deep.isNull());
    EXPECT_TRUE(bar.isNull());
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1);
}

TEST(GUI_MenuPanel, MenusEndBeforeToolBarsAndTheLastOneFirst)
{
    Ends ends;
    const TestFamily family;
    {
        const COM_Scoped edit(GUI_RootMenu::New(*family.mPanel, "&Edit"));
        ends.watch(*edit, "edit");
    }
    ends.watch(*family.mMenu, "project");
    ends.watch(*family.mPanel->getToolBar("toolbar"), "bar");
    family.mRoot->resetMenu();
    EXPECT_EQ(ends.names(), (std::vector<std::string>{"edit", "project", "bar"}));
}

TEST(GUI_MenuPanel, TheOwnAnswersToUseAreEmpty)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_MenuPanel::New(*window));
    addMenu(*panel, {"&Quit"})[0]->trigger();
    EXPECT_TRUE(panel->getMenu(0)->getAction(0)->isEnabled());
}

TEST(GUI_MenuPanel, AnActionThatRepeatsAnAcceleratorGetsShiftInAddition)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_MenuPanel::New(*window));
    const auto file = addMenu(*panel, {"&Load File", "Save &As", "Plain"});
    const auto tools = addMenu(*panel, {"Show &Axes", "&Legends", "&Grid"});
    panel->resolveAccelerators();
    panel->resolveAccelerators();
    EXPECT_EQ(file[0]->shortcut(), QKeySequence("Ctrl+L"));
    EXPECT_EQ(file[1]->shortcut(), QKeySequence("Ctrl+A"));
    EXPECT_TRUE(file[2]->shortcut().isEmpty());
    EXPECT_EQ(tools[0]->shortcut(), QKeySequence("Ctrl+Shift+A"));
    EXPECT_EQ(tools[1]->shortcut(), QKeySequence("Ctrl+Shift+L"));
    EXPECT_EQ(tools[2]->shortcut(), QKeySequence("Ctrl+G"));
    EXPECT_EQ(tools[0]->getLabel(), "Show &Axes");
}

TEST(GUI_MenuPanel, WhatCannotBeMadeDifferentLosesItsAccelerator)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_MenuPanel::New(*window));
    const auto actions = addMenu(*panel, {"&One", "&Oak", "&Old", "a", "b"});
    actions[3]->setAccelText("F5");
    actions[4]->setAccelText("F5");
    panel->resolveAccelerators();
    EXPECT_EQ(actions[1]->shortcut(), QKeySequence("Ctrl+Shift+O"));
    EXPECT_TRUE(actions[2]->shortcut().isEmpty());
    EXPECT_EQ(actions[3]->shortcut(), QKeySequence("F5"));
    EXPECT_TRUE(actions[4]->shortcut().isEmpty());
}

TEST(GUI_MenuPanel, ClashesAreResolvedInSubmenusAndForLettersBeyondAscii)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_MenuPanel::New(*window));
    const auto actions = addMenu(*panel, {"&\xc3\x89"
                                          "diter"});
    const COM_Scoped more(GUI_ChildMenu::New("More"));
    panel->getMenu(0)->addToChildren(*more);
    const COM_Scoped deep(TestAction::New("&\xc3\x89"
                                          "largir"));
    more->addToActions(*deep);
    panel->resolveAccelerators();
    EXPECT_EQ(actions[0]->shortcut(), QKeySequence(QString::fromUtf8("Ctrl+\xc3\x89")));
    EXPECT_EQ(deep->shortcut(), QKeySequence(QString::fromUtf8("Ctrl+Shift+\xc3\x89")));
}

TEST(GUI_MenuPanel, AfterResolvingBothKeysWork)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_MenuPanel::New(*window));
    const auto actions = addMenu(*panel, {"&Load", "&Legends"});
    window->show();
    settle();
    QTest::keyClick(window.get(), Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(actions[0]->mCalls, 0) << "two equal accelerators: Qt obeys none";
    panel->resolveAccelerators();
    QTest::keyClick(window.get(), Qt::Key_L, Qt::ControlModifier);
    QTest::keyClick(window.get(), Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(actions[0]->mCalls, 1);
    EXPECT_EQ(actions[1]->mCalls, 1);
}
