#include "gui/GUI_ActionExit.h"

#include "support/DialogAnswers.h"
#include "support/ProjectRoot.h"
#include "support/SaveQuestion.h"

#include <gtest/gtest.h>

TEST(GUI_ActionExit, ClosesTheRootWindow)
{
    const ProjectRoot root;
    root.add<GUI_ActionExit>().trigger();
    EXPECT_FALSE(root->isVisible());
    EXPECT_EQ(root->getMenu(), nullptr);
    EXPECT_EQ(root.menuPanel().mUpdates, 0);
    QCoreApplication::processEvents();
}

TEST(GUI_ActionExit, ClosesTheRootWindowFromTheMenuOfAChild)
{
    const ProjectRoot root;
    {
        const COM_Scoped child(GUI_ChildWindow::New(*root));
        const COM_Scoped panel(TestMenuPanel::New(*child));
        const COM_Scoped menu(GUI_RootMenu::New(*panel, "Menu"));
        const COM_Scoped action(GUI_ActionExit::New());
        menu->addToActions(*action);
        child->show();
    }
    auto* const action =
        root.children<GUI_ChildWindow>().at(0)->getMenu()->getMenu(0)->getAction(0);
    action->trigger();
    EXPECT_FALSE(root->isVisible());
    EXPECT_TRUE(root.children<GUI_ChildWindow>().empty());
    QCoreApplication::processEvents();
}

TEST(GUI_ActionExit, StaysWhenTheUserSaysCancel)
{
    const ProjectRoot root;
    root->setSavingFile("project.dpj");
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Quit");
        EXPECT_EQ(box.text(), "Do you want to save before exiting ?");
        ASSERT_NE(box.button(QMessageBox::Cancel), nullptr);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Yes");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "No");
        EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "Cancel");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    root.add<GUI_ActionExit>().trigger();
    EXPECT_TRUE(root->isVisible());
    EXPECT_EQ(root->getMenu(), &root.menuPanel());
    EXPECT_EQ(root.menuPanel().mUpdates, 0) << "the menus are left as they are";
    root->setSavingFile("");
}
