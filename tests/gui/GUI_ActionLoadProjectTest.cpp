#include "gui/GUI_ActionLoadProject.h"

#include "dictionary/DICO_Dictionary.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/Printed.h"
#include "support/ProjectRoot.h"
#include "support/SaveQuestion.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using Calls = std::vector<std::string>;

auto answering(QMessageBox::StandardButton button)
{
    return answerSaveQuestion("Load Project", "Do you want to save before Loading a Project ?",
                              button);
}

void cancel(QFileDialog& dialog)
{
    QTest::keyClick(&dialog, Qt::Key_Escape);
}

} // namespace

TEST(GUI_ActionLoadProject, AsksForTheFileAndLoadsIt)
{
    const TestDirectory directory;
    directory.write("project.dpj", "");
    const ProjectRoot root;
    root->setSavingPath(directory.slashed());
    auto& action = root.add<GUI_ActionLoadProject>();
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &*root);
        EXPECT_EQ(dialog.windowTitle(), "Load a New Project");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "Choose the Project File");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Project File (*.dpj)"});
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  std::filesystem::canonical(directory.path()));
        typeName(dialog, "project.dpj");
    });
    EXPECT_EQ(printedBy([&action] { action.trigger(); }), "load the project file \n");
    EXPECT_EQ(root->mCalls, Calls{"load " + directory.slashed() + " project.dpj"});
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
}

TEST(GUI_ActionLoadProject, CancelLoadsNothing)
{
    const ProjectRoot root;
    root->setSavingPath("./");
    auto& action = root.add<GUI_ActionLoadProject>();
    DialogAnswers answers;
    answers.add<QFileDialog>(cancel);
    EXPECT_EQ(printedBy([&action] { action.trigger(); }), "");
    EXPECT_EQ(root->mCalls, Calls{});
    EXPECT_EQ(root->getSavingPath(), "./");
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
}

TEST(GUI_ActionLoadProject, AsksToSaveAnOpenProject)
{
    const ProjectRoot root;
    root->setSavingPath("/path/");
    root->setSavingFile("project.dpj");
    auto& action = root.add<GUI_ActionLoadProject>();
    DialogAnswers answers;
    answers.add<QMessageBox>(answering(QMessageBox::No)).add<QFileDialog>(cancel);
    action.trigger();
    EXPECT_EQ(root->mCalls, Calls{});
    answers.add<QMessageBox>(answering(QMessageBox::Yes)).add<QFileDialog>(cancel);
    action.trigger();
    EXPECT_EQ(root->mCalls, Calls{"save /path/ project.dpj"});
    root->setSavingFile("");
}

TEST(GUI_ActionLoadProject, SpeaksTheLanguageOfTheUser)
{
    const ProjectRoot root;
    root->setSavingFile("project.dpj");
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    auto& action = root.add<GUI_ActionLoadProject>();
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Ouvrir un projet");
        EXPECT_EQ(box.text(), "Voulez-vous enregistrer avant d'ouvrir un projet ?");
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Oui");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "Non");
    });
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Ouvrir un autre projet");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "Choisissez le fichier de projet");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Fichier de projet (*.dpj)"});
    });
    action.trigger();
    root->setSavingFile("");
}
