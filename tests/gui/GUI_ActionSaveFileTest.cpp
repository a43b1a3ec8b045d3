#include "gui/GUI_ActionSaveFile.h"

#include "support/ProjectRoot.h"

#include <gtest/gtest.h>

TEST(GUI_ActionSaveFile, SavesAndBringsTheMenusUpToDate)
{
    const ProjectRoot root;
    root->setSavingPath("/path/");
    root->setSavingFile("project.dpj");
    root.add<GUI_ActionSaveFile>().trigger();
    EXPECT_EQ(root->mCalls, std::vector<std::string>{"save /path/ project.dpj"});
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
}

TEST(GUI_ActionSaveFile, SavesTheRootWindowFromTheMenuOfAChild)
{
    const ProjectRoot root;
    const COM_Scoped child(GUI_ChildWindow::New(*root));
    const COM_Scoped panel(TestMenuPanel::New(*child));
    const COM_Scoped menu(GUI_RootMenu::New(*panel, "Menu"));
    const COM_Scoped action(GUI_ActionSaveFile::New());
    menu->addToActions(*action);
    action->trigger();
    EXPECT_EQ(root->mCalls, std::vector<std::string>{"save  "});
    EXPECT_EQ(panel->mUpdates, 1);
    EXPECT_EQ(root.menuPanel().mUpdates, 0);
}
