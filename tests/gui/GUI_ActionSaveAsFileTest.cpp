#include "gui/GUI_ActionSaveAsFile.h"

#include "dictionary/DICO_Dictionary.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/ProjectRoot.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using Calls = std::vector<std::string>;

} // namespace

TEST(GUI_ActionSaveAsFile, AsksForTheFileAndSaves)
{
    const TestDirectory directory;
    const ProjectRoot root;
    root->setSavingPath(directory.slashed());
    auto& action = root.add<GUI_ActionSaveAsFile>();
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &*root);
        EXPECT_EQ(dialog.windowTitle(), "Save As");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"(*.xml)"});
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  std::filesystem::canonical(directory.path()));
        typeName(dialog, "new.xml");
    });
    action.trigger();
    const std::string place = directory.slashed() + " new.xml";
    EXPECT_EQ(root->mCalls, (Calls{"saveAs " + place, "save " + place}));
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
    root->setSavingFile("");
}

TEST(GUI_ActionSaveAsFile, AsksOnceBeforeAFileIsReplaced)
{
    const TestDirectory directory;
    directory.write("there.xml", "");
    const ProjectRoot root;
    root->setSavingPath(directory.slashed());
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "there.xml"); });
    answers.add<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    root.add<GUI_ActionSaveAsFile>().trigger();
    EXPECT_EQ(root->getSavingFile(), "there.xml");
    root->setSavingFile("");
}

TEST(GUI_ActionSaveAsFile, CancelSavesNothing)
{
    const TestDirectory directory;
    const WorkingDirectory working(directory.path());
    const ProjectRoot root;
    DialogAnswers answers;
    answers.add<QFileDialog>([&directory](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  std::filesystem::canonical(directory.path()));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    root.add<GUI_ActionSaveAsFile>().trigger();
    EXPECT_EQ(root->mCalls, Calls{});
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
}

TEST(GUI_ActionSaveAsFile, SpeaksTheLanguageOfTheUser)
{
    const TestDirectory directory;
    directory.write("there.xml", "");
    const ProjectRoot root;
    root->setSavingPath(directory.slashed());
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    auto& action = root.add<GUI_ActionSaveAsFile>();
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Enregistrer sous");
        typeName(dialog, "there.xml");
    });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Avertissement");
        EXPECT_EQ(box.text(), "Le fichier existe d\xc3\xa9j\xc3\xa0.\nVoulez-vous le remplacer ?");
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Oui");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "Non");
    });
    answers.add<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    action.trigger();
    EXPECT_EQ(root->mCalls, Calls{});
}
