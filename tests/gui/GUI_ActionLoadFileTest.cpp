#include "gui/GUI_ActionLoadFile.h"

#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_File.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/Printed.h"
#include "support/ProjectRoot.h"
#include "support/SaveQuestion.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using Calls = std::vector<std::string>;

auto answering(QMessageBox::StandardButton button)
{
    return answerSaveQuestion("Load File", "Do you want to save before Loading a File ?", button);
}

/// The text of a file with an object of that class.
std::string fileOf(const std::string& className)
{
    return "\n<MM_PACKAGE mRootMetaClassId=\"" + className + "@1\">\n\t<MM_CLASS mId=\"" + className
           + "@1\" mName=\"" + className + "\">\n\t</MM_CLASS>\n</MM_PACKAGE>";
}

auto choosing(const std::string& name)
{
    return [name](QFileDialog& dialog) { typeName(dialog, name); };
}

} // namespace

TEST(GUI_ActionLoadFile, AsksForTheFileAndLoadsIt)
{
    const TestDirectory directory;
    const ProjectRoot root;
    directory.write("own.xml", fileOf(root->getClassName()));
    root->setSavingPath(directory.slashed());
    auto& action = root.add<GUI_ActionLoadFile>();
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &*root);
        EXPECT_EQ(dialog.windowTitle(), "Load a New File");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "Load File");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"File (*.xml)"});
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  std::filesystem::canonical(directory.path()));
        typeName(dialog, "own.xml");
    });
    EXPECT_EQ(printedBy([&action] { action.trigger(); }), "load the project file \n");
    EXPECT_EQ(root->mCalls, Calls{"load " + directory.slashed() + " own.xml"});
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
}

TEST(GUI_ActionLoadFile, StartsInTheWorkingDirectoryWithoutAPath)
{
    const TestDirectory directory;
    const WorkingDirectory working(directory.path());
    const ProjectRoot root;
    DialogAnswers answers;
    // Qt would go on where the last dialog was left.
    const TestDirectory visited;
    const std::string file = visited.write("own.xml", fileOf(root->getClassName()));
    answers.add<QFileDialog>(choosing(file));
    GUI_File::selectFile(nullptr, visited.slashed(), "", "", "");
    answers.add<QFileDialog>([&directory](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  std::filesystem::canonical(directory.path()));
    });
    root.add<GUI_ActionLoadFile>().trigger();
    EXPECT_EQ(root->mCalls, Calls{});
}

TEST(GUI_ActionLoadFile, RefusesAFileOfAnotherClass)
{
    const TestDirectory directory;
    directory.write("plot.xml", fileOf("14GUI2D_Plotter"));
    directory.write("text.xml", "no file of ours");
    const ProjectRoot root;
    root->setSavingPath(directory.slashed());
    root->setSavingFile("project.dpj");
    const COM_Scoped child(GUI_ChildWindow::New(*root));
    auto& action = root.add<GUI_ActionLoadFile>();
    for (const char* const name : {"plot.xml", "text.xml"}) {
        DialogAnswers answers;
        answers.add<QMessageBox>(answering(QMessageBox::No)).add<QFileDialog>(choosing(name));
        answers.add<QMessageBox>([](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Warning");
            EXPECT_EQ(box.text(), "The file can not be loaded");
            EXPECT_EQ(box.icon(), QMessageBox::Information);
            QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
        });
        EXPECT_EQ(printedBy([&action] { action.trigger(); }), "");
    }
    EXPECT_EQ(root->mCalls, Calls{});
    EXPECT_EQ(root->getSavingPath(), directory.slashed());
    EXPECT_EQ(root->getSavingFile(), "project.dpj");
    EXPECT_EQ(child->getParent(), &*root);
    root->setSavingFile("");
}

TEST(GUI_ActionLoadFile, AFileThatHasGoneMeanwhileIsLeftToTheWindow)
{
    const TestDirectory directory;
    const std::string file = directory.write("gone.xml", "");
    const ProjectRoot root;
    root->setSavingPath(directory.slashed());
    auto& action = root.add<GUI_ActionLoadFile>();
    DialogAnswers answers;
    answers.add<QFileDialog>([&file](QFileDialog& dialog) {
        typeName(dialog, "gone.xml");
        std::filesystem::remove(file);
    });
    EXPECT_EQ(printedBy([&action] { action.trigger(); }), "load the project file \n");
    EXPECT_EQ(root->mCalls, Calls{"load " + directory.slashed() + " gone.xml"});
    root->setSavingFile("");
}

TEST(GUI_ActionLoadFile, AsksToSaveTheOpenFile)
{
    const TestDirectory directory;
    const ProjectRoot root;
    directory.write("own.xml", fileOf(root->getClassName()));
    root->setSavingPath(directory.slashed());
    root->setSavingFile("former.xml");
    auto& action = root.add<GUI_ActionLoadFile>();
    DialogAnswers answers;
    answers.add<QMessageBox>(answering(QMessageBox::Yes)).add<QFileDialog>(choosing("own.xml"));
    action.trigger();
    EXPECT_EQ(root->mCalls, (Calls{"save " + directory.slashed() + " former.xml",
                                   "load " + directory.slashed() + " own.xml"}));
    root->setSavingFile("");
}

TEST(GUI_ActionLoadFile, SpeaksTheLanguageOfTheUser)
{
    const TestDirectory directory;
    const ProjectRoot root;
    root->setSavingFile("project.dpj");
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    auto& action = root.add<GUI_ActionLoadFile>();
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Ouvrir un fichier");
        EXPECT_EQ(box.text(), "Voulez-vous enregistrer avant d'ouvrir un fichier ?");
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Oui");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "Non");
    });
    answers.add<QFileDialog>([&directory](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Ouvrir un autre fichier");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "Ouvrir un fichier");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Fichier (*.xml)"});
        typeName(dialog, directory.write("text.xml", "no file of ours"));
    });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Avertissement");
        EXPECT_EQ(box.text(), "Le fichier ne peut pas \xc3\xaatre charg\xc3\xa9");
    });
    action.trigger();
    root->setSavingFile("");
}
