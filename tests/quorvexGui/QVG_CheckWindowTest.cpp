#include "quorvexGui/QVG_CheckWindow.h"

#include "quorvexGui/TestMainWindow.h"

#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace {

const QV_ProblemCheck::Finding first{QV_ProblemCheck::NOTE, "C.F.L.", "1", "first.", {}};
const QV_ProblemCheck::Finding second{QV_ProblemCheck::NOTE, "C.F.L.", "2", "second.", {}};

QString shown(const TestMainWindow& window)
{
    const auto windows = childrenOf<GUI_ChildWindow>(*window);
    EXPECT_EQ(windows.size(), 1U);
    return windows.empty() ? QString() : windows[0]->findChild<QTextBrowser*>()->toPlainText();
}

} // namespace

TEST(QVG_CheckWindow, TheFindingsOfTheLastRunAreShown)
{
    const TestMainWindow window;
    QVG_CheckWindow::tell(*window, {first});
    EXPECT_EQ(window.children(), std::vector<std::string>{"Check of the Problem"});
    EXPECT_EQ(shown(window), "notes\nC.F.L. = 1: first.");
    QVG_CheckWindow::tell(*window, {second});
    EXPECT_EQ(shown(window), "notes\nC.F.L. = 2: second.");
    QVG_CheckWindow::tell(*window, {});
    EXPECT_TRUE(window.children().empty());
}

TEST(QVG_CheckWindow, OtherWindowsStay)
{
    const TestMainWindow window;
    const COM_Scoped other(GUI_ChildWindow::New(*window));
    QVG_CheckWindow::tell(*window, {first});
    QVG_CheckWindow::tell(*window, {});
    EXPECT_EQ(window.children().size(), 1U);
    EXPECT_EQ(other->getParent(), &*window);
}

TEST(QVG_CheckWindow, EscapeClosesIt)
{
    const TestMainWindow window;
    QVG_CheckWindow::tell(*window, {first});
    GUI_ChildWindow& notes = *window->findForm<QVG_CheckWindow>();
    notes.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&notes));
    QTest::keyClick(&notes, Qt::Key_Escape);
    EXPECT_TRUE(window.children().empty());
}
