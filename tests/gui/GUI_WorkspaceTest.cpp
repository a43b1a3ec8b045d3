#include "gui/GUI_Workspace.h"

#include "support/TestWindows.h"

#include <QFrame>
#include <QMdiSubWindow>
#include <QPointer>

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(GUI_Workspace, ItFillsTheFrameInTheCentreOfAContainerWindow)
{
    const COM_Scoped window(GUI_RootWindow::New("Root", true));
    GUI_Workspace* const workspace = window->getWorkspace();
    ASSERT_NE(workspace, nullptr);
    EXPECT_TRUE(window->isContainer());
    EXPECT_EQ(workspace->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_Workspace"}));
    EXPECT_EQ(workspace->getReferenceCount(), 1);
    EXPECT_EQ(workspace->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    EXPECT_EQ(workspace->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    const auto* const frame = qobject_cast<QFrame*>(window->centralWidget());
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->frameStyle(), 54);
    EXPECT_EQ(workspace->parentWidget(), frame);
}

TEST(GUI_Workspace, AWindowThatIsNoContainerHasNone)
{
    const COM_Scoped window(GUI_RootWindow::New("Root", false));
    EXPECT_FALSE(window->isContainer());
    EXPECT_EQ(window->getWorkspace(), nullptr);
    EXPECT_EQ(window->centralWidget(), nullptr);
}

TEST(GUI_Workspace, ItGoesWithItsWindow)
{
    auto* const window = GUI_RootWindow::New("Root", true);
    const QPointer<QWidget> life = window->getWorkspace();
    window->Delete();
    EXPECT_TRUE(life.isNull());
}

TEST(GUI_Workspace, HeldByOthersItOutlivesItsWindow)
{
    auto* const window = GUI_RootWindow::New("Root", true);
    const COM_Scoped child(GUI_ChildWindow::New(*window));
    GUI_Workspace* const workspace = window->getWorkspace();
    workspace->addReference(nullptr);
    window->Delete();
    EXPECT_EQ(workspace->parentWidget(), nullptr);
    EXPECT_EQ(child->parentWidget(), nullptr);
    settle();
    EXPECT_TRUE(workspace->subWindowList().isEmpty());
    workspace->Delete();
}

TEST(GUI_Workspace, AChildIsASubWindowThatAppearsWithIt)
{
    const TestFamily family(true);
    family.mRoot->show();
    GUI_ChildWindow& child = family.addChild();
    child.setName("Child");
    const QList<QMdiSubWindow*> frames = family.mRoot->getWorkspace()->subWindowList();
    ASSERT_EQ(frames.size(), 1);
    EXPECT_EQ(frames[0]->widget(), &child);
    child.show();
    settle();
    EXPECT_TRUE(child.isVisible());
    EXPECT_TRUE(frames[0]->isVisible());
    EXPECT_EQ(frames[0]->windowTitle(), "Child");
}
