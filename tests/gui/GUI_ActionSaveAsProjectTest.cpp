#include "gui/GUI_ActionSaveAsProject.h"

#include "gui/GUI_NewProjectWindow.h"
#include "support/DialogAnswers.h"
#include "support/ProjectRoot.h"

#include <gtest/gtest.h>

TEST(GUI_ActionSaveAsProject, OpensTheFormWithoutAQuestion)
{
    const ProjectRoot root;
    root->setSavingFile("project.dpj");
    auto& action = root.add<GUI_ActionSaveAsProject>();
    DialogAnswers noDialogs;
    action.trigger();
    const auto forms = root.children<GUI_NewProjectWindow>();
    ASSERT_EQ(forms.size(), 1U);
    EXPECT_EQ(forms[0]->getName(), "Save As Project");
    EXPECT_TRUE(forms[0]->isSavingAs());
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
    EXPECT_TRUE(root->mCalls.empty());
}
