#include "gui/GUI_ActionNewProject.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_NewProjectWindow.h"
#include "support/DialogAnswers.h"
#include "support/ProjectRoot.h"
#include "support/SaveQuestion.h"

#include <gtest/gtest.h>

namespace {

using Calls = std::vector<std::string>;

auto answering(QMessageBox::StandardButton button)
{
    return answerSaveQuestion("New Project", "Do you want to save before creating a New Project ?",
                              button);
}

} // namespace

TEST(GUI_ActionNewProject, OpensTheFormAndBringsTheMenusUpToDate)
{
    const ProjectRoot root;
    auto& action = root.add<GUI_ActionNewProject>();
    DialogAnswers noDialogs;
    action.trigger();
    const auto forms = root.children<GUI_NewProjectWindow>();
    ASSERT_EQ(forms.size(), 1U);
    EXPECT_EQ(forms[0]->getName(), "Create a New Project");
    EXPECT_TRUE(forms[0]->isVisible());
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
    EXPECT_EQ(root->mCalls, Calls{});
}

TEST(GUI_ActionNewProject, AsksToSaveAnOpenProject)
{
    const ProjectRoot root;
    root->setSavingPath("/path/");
    root->setSavingFile("project.dpj");
    auto& action = root.add<GUI_ActionNewProject>();
    DialogAnswers answers;
    answers.add<QMessageBox>(answering(QMessageBox::No));
    action.trigger();
    EXPECT_EQ(root->mCalls, Calls{});
    EXPECT_EQ(root.children<GUI_NewProjectWindow>().size(), 1U);
    answers.add<QMessageBox>(answering(QMessageBox::Yes));
    action.trigger();
    EXPECT_EQ(root->mCalls, Calls{"save /path/ project.dpj"});
    EXPECT_EQ(root.children<GUI_NewProjectWindow>().size(), 1U);
}

TEST(GUI_ActionNewProject, SpeaksTheLanguageOfTheUser)
{
    const ProjectRoot root;
    root->setSavingFile("project.dpj");
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    auto& action = root.add<GUI_ActionNewProject>();
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Nouveau projet");
        EXPECT_EQ(box.text(), "Voulez-vous enregistrer avant de cr\xc3\xa9"
                              "er un nouveau projet ?");
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Oui");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "Non");
    });
    action.trigger();
    root->setSavingFile("");
}
