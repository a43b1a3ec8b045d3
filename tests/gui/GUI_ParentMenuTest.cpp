#include "gui/GUI_ParentMenu.h"

#include "common/COM_Array.h"
#include "gui/GUI_ToolBar.h"
#include "support/Ends.h"
#include "support/TestWindows.h"

#include <QAction>
#include <QKeySequence>
#include <QPointer>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> texts(const QMenu& menu)
{
    std::vector<std::string> result;
    for (const QAction* const item : menu.actions()) {
        result.push_back(item->isSeparator() ? "-" : item->text().toStdString());
    }
    return result;
}

using Texts = std::vector<std::string>;

} // namespace

TEST(GUI_ParentMenu, TheNameIsTheTitleThatTheUserSees)
{
    const COM_Scoped menu(GUI_RootMenu::New());
    EXPECT_EQ(menu->getName(), "");
    menu->setName("&\xc3\x89"
                  "dition");
    EXPECT_EQ(menu->getName(), "&\xc3\x89"
                               "dition");
    EXPECT_EQ(menu->objectName(), QString::fromUtf8("&\xc3\x89"
                                                    "dition"));
    EXPECT_EQ(menu->title(), QString::fromUtf8("&\xc3\x89"
                                               "dition"));
}

TEST(GUI_ParentMenu, ActionsSeparatorsAndSubmenusStandInTheOrderOfAdding)
{
    const TestFamily family;
    family.mMenu->addSeparator();
    const COM_Scoped last(TestAction::New("Last"));
    family.mMenu->addToActions(*last);
    EXPECT_EQ(texts(*family.mMenu), (Texts{"&Quit", "Toggle", "More", "-", "Last"}));
    EXPECT_EQ(family.mMenu->getActions().size(), 3U);
    EXPECT_EQ(family.mMenu->getChildren().size(), 1U);
    EXPECT_EQ(family.mMenu->actions().at(2)->menu(), family.mMore);
}

TEST(GUI_ParentMenu, AnActionOrSubmenuAddedTwiceStandsOnce)
{
    const TestFamily family;
    const long count = family.mMenu->getReferenceCount();
    family.mMenu->addToActions(*family.mToggle);
    family.mMenu->addToActions(*family.mToggle, 0);
    family.mMenu->addToChildren(*family.mMore);
    EXPECT_EQ(texts(*family.mMenu), (Texts{"&Quit", "Toggle", "More"}));
    EXPECT_EQ(family.mMenu->getActions().size(), 2U);
    EXPECT_EQ(family.mMenu->getReferenceCount(), count);
    EXPECT_EQ(family.mToggle->getReferenceCount(), 1);
    EXPECT_EQ(family.mMore->getReferenceCount(), 2);
}

TEST(GUI_ParentMenu, EachPartCountsTheMenuAndDoesNotKeepItAlive)
{
    auto* const menu = GUI_RootMenu::New("menu");
    const COM_Scoped child(GUI_ChildMenu::New("child"));
    const COM_Scoped action(GUI_Action::New());
    menu->addToChildren(*child);
    menu->addToActions(*action);
    EXPECT_EQ(menu->getReferenceCount(), 3);
    EXPECT_EQ(child->getReferenceCount(), 2);
    EXPECT_EQ(action->getReferenceCount(), 2);
    const QPointer<QObject> life = menu;
    menu->Delete();
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(child->getReferenceCount(), 1);
    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_EQ(action->getReferenceCount(), 1);
    EXPECT_EQ(action->getMenu(), nullptr);
}

TEST(GUI_ParentMenu, PartsAreRemovedByThemselvesOrByTheirPlace)
{
    const TestFamily family;
    family.mMenu->removeFromActions(7);
    family.mMenu->removeFromActions(-1);
    family.mMenu->removeFromChildren(7);
    family.mMenu->removeFromChildren(-1);
    EXPECT_EQ(texts(*family.mMenu), (Texts{"&Quit", "Toggle", "More"}));
    family.mMenu->removeFromActions(0);
    EXPECT_EQ(texts(*family.mMenu), (Texts{"Toggle", "More"}));
    family.mMenu->removeFromActions(*family.mToggle);
    EXPECT_EQ(texts(*family.mMenu), (Texts{"More"}));
    family.mMenu->removeFromChildren(0);
    EXPECT_TRUE(family.mMenu->actions().isEmpty());
    EXPECT_EQ(family.mMenu->getAction(0), nullptr);
    EXPECT_EQ(family.mMenu->getChild(0), nullptr);
}

TEST(GUI_ParentMenu, WhatIsNotInTheMenuCannotBeRemoved)
{
    const TestFamily family;
    const COM_Scoped action(GUI_Action::New());
    const COM_Scoped child(GUI_ChildMenu::New("child"));
    family.mMenu->removeFromActions(*action);
    family.mMenu->removeFromChildren(*child);
    EXPECT_EQ(action->getReferenceCount(), 1);
    EXPECT_EQ(child->getReferenceCount(), 1);
    EXPECT_EQ(texts(*family.mMenu).size(), 3U);
}

TEST(GUI_ParentMenu, TheResetsEmptyTheMenuButForItsSeparators)
{
    const TestFamily family;
    family.mMenu->addSeparator();
    const QPointer<QObject> deep = family.mDeep;
    family.mMenu->resetActions();
    family.mMenu->resetChildren();
    EXPECT_EQ(texts(*family.mMenu), (Texts{"-"}));
    EXPECT_TRUE(deep.isNull());
}

TEST(GUI_ParentMenu, SubmenusEndBeforeActionsAndTheLastOneFirst)
{
    Ends ends;
    const TestFamily family;
    {
        const COM_Scoped second(GUI_ChildMenu::New("Second"));
        family.mMenu->addToChildren(*second);
        ends.watch(*second, "Second");
    }
    ends.watch(*family.mMore, "More");
    ends.watch(*family.mQuit, "Quit");
    ends.watch(*family.mToggle, "Toggle");
    family.mPanel->removeFromMenus(*family.mMenu);
    EXPECT_EQ(ends.names(), (Texts{"Second", "More", "Toggle", "Quit"}));
}

TEST(GUI_ParentMenu, ActionsAndSubmenusAreFoundByPlaceAndByTheWholeLabel)
{
    const TestFamily family;
    const COM_Scoped again(TestAction::New("&Quit"));
    family.mMenu->addToActions(*again);
    EXPECT_EQ(family.mMenu->getAction(0), family.mQuit);
    EXPECT_EQ(family.mMenu->getAction(2), again.get());
    EXPECT_EQ(family.mMenu->getAction(3), nullptr);
    EXPECT_EQ(family.mMenu->getAction(-1), nullptr);
    EXPECT_EQ(family.mMenu->getAction("&Quit"), family.mQuit);
    EXPECT_EQ(family.mMenu->getAction("Quit"), nullptr);
    EXPECT_EQ(family.mMenu->getAction("&quit"), nullptr);
    EXPECT_EQ(family.mMenu->getChild(0), family.mMore);
    EXPECT_EQ(family.mMenu->getChild(1), nullptr);
    EXPECT_EQ(family.mMenu->getChild(-1), nullptr);
}

TEST(GUI_ParentMenu, AllMenusAreAppendedDepthFirst)
{
    const TestFamily family;
    const COM_Scoped deeper(GUI_ChildMenu::New("Deeper"));
    family.mMore->addToChildren(*deeper);
    const COM_Scoped second(GUI_ChildMenu::New("Second"));
    family.mMenu->addToChildren(*second);
    const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
    menus->add(*second);
    family.mMenu->getAllMenus(*menus);
    Texts names;
    for (unsigned long i = 0; i < menus->size(); ++i) {
        names.push_back((*menus)[i].getName());
    }
    EXPECT_EQ(names, (Texts{"Second", "&Project", "More", "Deeper", "Second"}));
}

TEST(GUI_ParentMenu, APositionCountsEveryEntryAndBeyondTheEndIsTheEnd)
{
    const TestFamily family;
    family.mMenu->addSeparator();
    const COM_Scoped second(TestAction::New("Second"));
    const COM_Scoped fifth(TestAction::New("Fifth"));
    const COM_Scoped far(TestAction::New("Far"));
    const COM_Scoped negative(TestAction::New("Negative"));
    family.mMenu->addToActions(*second, 1);
    family.mMenu->addToActions(*fifth, 4);
    family.mMenu->addToActions(*far, 99);
    family.mMenu->addToActions(*negative, -1);
    EXPECT_EQ(texts(*family.mMenu),
              (Texts{"&Quit", "Second", "Toggle", "More", "Fifth", "-", "Far", "Negative"}));
    EXPECT_EQ(family.mMenu->getAction(2), second.get());
    EXPECT_EQ(family.mMenu->getAction(5), negative.get());
}

TEST(GUI_ParentMenu, AnActionAtAPositionIsCalledOncePerClickAlsoIfItIsCheckable)
{
    const TestFamily family;
    const COM_Scoped action(TestAction::New("&Placed"));
    action->setCheckable(true);
    family.mMenu->addToActions(*action, 0);
    family.mMenu->actions().at(0)->trigger();
    EXPECT_EQ(action->mCalls, 1);
    EXPECT_FALSE(action->isChecked());
    EXPECT_EQ(family.mPanel->mUpdates, 1);
}

TEST(GUI_ParentMenu, TheItemAtAPositionFollowsItsAction)
{
    const TestFamily family;
    const COM_Scoped action(TestAction::New("&Placed"));
    action->setEnabled(false);
    family.mMenu->addToActions(*action, 0);
    const QAction* const item = family.mMenu->actions().at(0);
    EXPECT_FALSE(item->isEnabled());
    EXPECT_EQ(item->shortcut(), QKeySequence("Ctrl+P"));
    action->setEnabled(true);
    action->setLabel("&Renamed");
    EXPECT_TRUE(item->isEnabled());
    EXPECT_EQ(item->text(), "&Renamed");
    EXPECT_EQ(item->shortcut(), QKeySequence("Ctrl+R"));
}

TEST(GUI_ParentMenu, TheAcceleratorOfAnActionAtAPositionWorksInTheMenuAndInATwinToolBar)
{
    const TestFamily family;
    family.mRoot->show();
    const COM_Scoped action(TestAction::New("&Placed"));
    family.mMenu->addToActions(*action, 0);
    settle();
    QTest::keyClick(family.mRoot, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(action->mCalls, 1);
    family.mPanel->getToolBar("toolbar")->addTool(*action);
    QTest::keyClick(family.mRoot, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(action->mCalls, 2);
}

TEST(GUI_ParentMenu, AnActionAtAPositionCanLeaveInItsOwnClick)
{
    const TestFamily family;
    auto* const action = TestAction::New("Placed");
    family.mMenu->addToActions(*action, 0);
    action->Delete();
    const QPointer<QObject> life = action;
    const QPointer<QAction> item = family.mMenu->actions().at(0);
    action->mWork = [action] { action->resetMenu(); };
    item->trigger();
    EXPECT_EQ(texts(*family.mMenu), (Texts{"&Quit", "Toggle", "More"}));
    settle();
    EXPECT_TRUE(life.isNull());
    EXPECT_TRUE(item.isNull());
}

TEST(GUI_ParentMenu, TwoActionsWithOneToolBarNameShareTheBar)
{
    const TestFamily family;
    GUI_ToolBar* const bar = family.mPanel->getToolBar("toolbar");
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->getReferenceCount(), 1);
    EXPECT_EQ(family.mRoot->toolBarArea(bar), Qt::TopToolBarArea);
    const COM_Scoped second(TestAction::New("Second"));
    family.mMore->addToActions(*second, "toolbar");
    EXPECT_EQ(family.mPanel->getToolBar("toolbar"), bar);
    EXPECT_EQ(bar->actions(), (QList<QAction*>{family.mQuit, second.get()}));
    EXPECT_EQ(family.mMore->getAction(1), second.get());
}

TEST(GUI_ParentMenu, AToolButtonCallsItsAction)
{
    const TestFamily family;
    family.mRoot->show();
    settle();
    QWidget* const button = family.mPanel->getToolBar("toolbar")->widgetForAction(family.mQuit);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(qobject_cast<QToolButton*>(button)->text(), "Quit");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(family.mQuit->mCalls, 1);
}

TEST(GUI_ParentMenu, WithoutMenuPanelAboveItAToolBarNameAddsNoTool)
{
    const COM_Scoped menu(GUI_RootMenu::New("menu"));
    const COM_Scoped child(GUI_ChildMenu::New("child"));
    const COM_Scoped action(TestAction::New("action"));
    const COM_Scoped other(TestAction::New("other"));
    menu->addToActions(*action, "toolbar");
    child->addToActions(*other, "toolbar");
    EXPECT_EQ(menu->getAction(0), action.get());
    EXPECT_EQ(child->getAction(0), other.get());
    EXPECT_EQ(action->associatedObjects().size(), 1);
}

TEST(GUI_ParentMenu, AToolBarNameThatIsNoTextMakesABarUnderTheLabelThatIsShown)
{
    const TestFamily family;
    const COM_Scoped first(TestAction::New("First"));
    const COM_Scoped second(TestAction::New("Second"));
    const std::string shown = "\xef\xbf\xbd"; // in place of a byte that is no UTF-8
    family.mMenu->addToActions(*first, "\xe9");
    ASSERT_NE(family.mPanel->getToolBar(shown), nullptr);
    EXPECT_EQ(family.mPanel->getToolBar(shown)->actions(), QList<QAction*>{first.get()});
    // Not found by the name that was given, so there is a new one.
    family.mMenu->addToActions(*second, "\xe9");
    EXPECT_EQ(family.mPanel->getToolBar(shown)->actions(), QList<QAction*>{second.get()});
}
