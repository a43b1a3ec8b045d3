#include "gui/GUI_ActionSaveProject.h"

#include "support/ProjectRoot.h"

#include <gtest/gtest.h>

TEST(GUI_ActionSaveProject, SavesAndBringsTheMenusUpToDate)
{
    const ProjectRoot root;
    root->setSavingPath("/path/");
    root->setSavingFile("project.dpj");
    root.add<GUI_ActionSaveProject>().trigger();
    EXPECT_EQ(root->mCalls, std::vector<std::string>{"save /path/ project.dpj"});
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
}
