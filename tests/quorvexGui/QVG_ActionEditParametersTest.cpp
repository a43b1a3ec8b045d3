#include "quorvexGui/QVG_ActionEditParameters.h"

#include "quorvexGui/TestMainWindow.h"

#include <gtest/gtest.h>

TEST(QVG_ActionEditParameters, TheWindowOpensOnceAndIsThenRaised)
{
    const TestMainWindow window;
    window.createProject();
    GUI_Action& action = window.action(QVG_MainMenu::EDIT, 0);
    action.trigger();
    ASSERT_EQ(window.children(), std::vector<std::string>{"Options Window"});
    GUI_ChildWindow& data = *childrenOf<GUI_ChildWindow>(*window).front();
    EXPECT_TRUE(data.isVisible());
    data.showMinimized();
    action.trigger();
    EXPECT_EQ(window.children().size(), 1U);
    EXPECT_FALSE(data.isMinimized());
    EXPECT_TRUE(data.isVisible());
}

TEST(QVG_ActionEditParameters, AClosedWindowIsFollowedByAFreshOne)
{
    const TestMainWindow window;
    window.createProject();
    GUI_Action& action = window.action(QVG_MainMenu::EDIT, 0);
    action.trigger();
    window->closeChildrenWindow();
    EXPECT_TRUE(window.children().empty());
    action.trigger();
    EXPECT_EQ(window.children(), std::vector<std::string>{"Options Window"});
}

TEST(QVG_ActionEditParameters, BringsTheMenusUpToDate)
{
    const TestMainWindow window;
    window.createProject();
    window.expectMenusUpToDateAfter(window.action(QVG_MainMenu::EDIT, 0));
}

TEST(QVG_ActionEditParameters, OutsideAMenuItDoesNothing)
{
    const TestMainWindow window;
    const COM_Scoped action(QVG_ActionEditParameters::New());
    EXPECT_EQ(action->getLabel(), "&Parameters");
    action->toDo();
    EXPECT_TRUE(window.children().empty());
}
