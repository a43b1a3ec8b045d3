#include "gui/GUI_File.h"

#include "gui/GUI_Object.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/ProjectRoot.h"
#include "support/TestDirectory.h"
#include "support/WorkingDirectory.h"

#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

using Names = std::vector<std::string>;

Names filesOf(const std::string& path, const std::string& filter)
{
    Names names;
    GUI_File::getFiles(path, filter, names);
    return names;
}

/// Two results, and what must not be taken for one.
void fill(const TestDirectory& directory)
{
    directory.write("b.res", "B");
    directory.write("a.res", "A");
    directory.write("C.RES", "C");
    directory.write("d.txt", "D");
    directory.write(".e.res", "E");
    fs::create_directory(directory.path() / "f.res");
}

std::string file(const std::string& filter, const std::string& text, GUI_ParentWindow* parent,
                 const std::string& oldPath)
{
    return GUI_File::selectFile(parent, oldPath, filter, "The title", text);
}

} // namespace

TEST(GUI_File, GetFilesAppendsPlainFilesByName)
{
    const TestDirectory directory;
    fill(directory);
    Names names{"before"};
    GUI_File::getFiles(directory.slashed(), "*.res", names);
    EXPECT_EQ(names, (Names{"before", "a.res", "b.res"}));
}

TEST(GUI_File, AFilterHoldsSeveralPatterns)
{
    const TestDirectory directory;
    fill(directory);
    EXPECT_EQ(filesOf(directory.slashed(), "*.txt *.RES"), (Names{"C.RES", "d.txt"}));
    EXPECT_EQ(filesOf(directory.slashed(), "a.*;d.*"), (Names{"a.res", "d.txt"}));
    EXPECT_EQ(filesOf(directory.slashed(), "?.res"), (Names{"a.res", "b.res"}));
    EXPECT_EQ(filesOf(directory.slashed(), ""), (Names{"C.RES", "a.res", "b.res", "d.txt"}));
}

TEST(GUI_File, FileNamesAreUtf8)
{
    const TestDirectory directory;
    directory.write("d\xc3\xa9"
                    "but.res",
                    "");
    EXPECT_EQ(filesOf(directory.path().string(), "*.res"), Names{"d\xc3\xa9"
                                                                 "but.res"});
}

TEST(GUI_File, AnEmptyOrMissingPathHoldsNoFiles)
{
    const TestDirectory directory;
    fill(directory);
    const WorkingDirectory working(directory.path());
    EXPECT_EQ(filesOf("", "*"), Names{});
    EXPECT_EQ(filesOf(directory.file("missing"), "*"), Names{});
    GUI_File::removeFiles("", "*");
    GUI_File::copyFiles("", "*", directory.file("f.res"));
    GUI_File::copyFiles(directory.file("f.res"), "*", "");
    EXPECT_EQ(filesOf("./", ""), (Names{"C.RES", "a.res", "b.res", "d.txt"}));
    EXPECT_TRUE(fs::is_empty(directory.path() / "f.res"));
}

TEST(GUI_File, RemoveFilesRemovesWhatMatches)
{
    const TestDirectory directory;
    fill(directory);
    GUI_File::removeFiles(directory.slashed(), "*.res");
    EXPECT_EQ(filesOf(directory.slashed(), ""), (Names{"C.RES", "d.txt"}));
    EXPECT_TRUE(fs::exists(directory.path() / ".e.res"));
    EXPECT_TRUE(fs::exists(directory.path() / "f.res"));
}

TEST(GUI_File, RemoveFilesWithoutAMatchDoesNothing)
{
    const TestDirectory directory;
    fill(directory);
    GUI_File::removeFiles(directory.slashed(), "plotter_window_saving_*.xml");
    EXPECT_EQ(filesOf(directory.slashed(), ""), (Names{"C.RES", "a.res", "b.res", "d.txt"}));
}

TEST(GUI_File, CopyFilesWritesOverWhatIsThere)
{
    const TestDirectory source;
    const TestDirectory target;
    fill(source);
    source.write("b.res", std::string("B\0\n\xff", 4));
    source.write("empty.res", "");
    target.write("a.res", "a longer text than the new one");
    target.write("empty.res", "not empty");
    target.write("other.res", "other");
    GUI_File::copyFiles(source.slashed(), "*.res", target.path().string());
    EXPECT_EQ(filesOf(target.slashed(), ""), (Names{"a.res", "b.res", "empty.res", "other.res"}));
    EXPECT_EQ(target.read("a.res"), "A");
    EXPECT_EQ(target.read("b.res"), std::string("B\0\n\xff", 4));
    EXPECT_EQ(target.read("empty.res"), "");
    EXPECT_EQ(target.read("other.res"), "other");
    EXPECT_EQ(source.read("a.res"), "A");
}

TEST(GUI_File, CopyFilesOntoThemselvesKeepsThem)
{
    const TestDirectory directory;
    fill(directory);
    fs::create_directory_symlink(directory.path(), directory.path() / "link");
    GUI_File::copyFiles(directory.slashed(), "*.res", directory.slashed());
    GUI_File::copyFiles(directory.slashed(), "*.res", directory.file("f.res/../"));
    GUI_File::copyFiles(directory.slashed(), "*.res", directory.file("link"));
    EXPECT_EQ(directory.read("a.res"), "A");
    EXPECT_EQ(directory.read("b.res"), "B");
}

TEST(GUI_File, FilesThatCannotBeCopiedArePassedOver)
{
    const TestDirectory source;
    const TestDirectory target;
    fill(source);
    // A directory cannot be written over.
    fs::create_directory(target.path() / "a.res");
    GUI_File::copyFiles(source.slashed(), "*.res", target.slashed());
    EXPECT_TRUE(fs::is_directory(target.path() / "a.res"));
    EXPECT_EQ(target.read("b.res"), "B");
    GUI_File::copyFiles(source.slashed(), "*.res", target.file("missing"));
    EXPECT_FALSE(fs::exists(target.path() / "missing"));
}

TEST(GUI_File, RootClassNameIsReadWithoutAWord)
{
    const TestDirectory directory;
    const std::string ours = directory.write(
        "ours.xml", "\n<MM_PACKAGE mRootMetaClassId=\"8MM_Field@41\">\n"
                    "\t<MM_CLASS mId=\"8MM_Field@41\" mName=\"8MM_Field\">\n\t</MM_CLASS>\n"
                    "</MM_PACKAGE>");
    const std::string foreign = directory.write("foreign.xml", "\x7f"
                                                               "ELF not ours");
    testing::internal::CaptureStdout();
    EXPECT_EQ(GUI_File::getRootClassName(ours), "8MM_Field");
    EXPECT_EQ(GUI_File::getRootClassName(foreign), "");
    EXPECT_EQ(GUI_File::getRootClassName(directory.write("empty.xml", "")), "");
    EXPECT_EQ(GUI_File::getRootClassName(directory.file("missing.xml")), "");
    EXPECT_EQ(GUI_File::getRootClassName(directory.path().string()), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(GUI_File, SelectFileShowsWhatItIsGiven)
{
    const ProjectRoot root;
    const TestDirectory directory;
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.parent(), &*root);
        EXPECT_EQ(dialog.windowTitle(), "The title");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "The text");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"Project File (*.dpj)"});
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  fs::canonical(directory.path()));
    });
    EXPECT_EQ(file("Project File (*.dpj)", "The text", &*root, directory.slashed()), "");
}

TEST(GUI_File, EmptyTextsLeaveQtsOwn)
{
    const QFileDialog plain(nullptr);
    const QString label = plain.labelText(QFileDialog::FileName);
    for (const char* const text : {"", "..."}) {
        DialogAnswers answers;
        answers.add<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.labelText(QFileDialog::FileName), label);
            EXPECT_EQ(dialog.nameFilters(), plain.nameFilters());
        });
        file("", text, nullptr, "./");
    }
}

TEST(GUI_File, SelectFileStartsAtTheFormerFile)
{
    const TestDirectory directory;
    const std::string former = directory.write("former.xml", "");
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  fs::canonical(directory.path()));
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "former.xml");
    });
    file("(*.xml)", "", nullptr, former);
}

TEST(GUI_File, SelectFileGivesAnExistingFileOnly)
{
    const TestDirectory directory;
    const std::string existing = directory.write("there.xml", "");
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        typeName(dialog, "missing.xml");
        EXPECT_TRUE(dialog.isVisible());
        typeName(dialog, "there.xml");
        EXPECT_FALSE(dialog.isVisible());
    });
    answers.add<QMessageBox>(
        [](QMessageBox& box) { box.reject(); }); // Qt's own about the missing file
    EXPECT_EQ(fs::canonical(file("(*.xml)", "", nullptr, directory.slashed())),
              fs::canonical(existing));
}

TEST(GUI_File, SelectFileTakesANewNameWhereNoneNeedsToExist)
{
    const TestDirectory directory;
    directory.write("there.txt", "");
    const auto choose = [&directory](const char* name) {
        DialogAnswers answers;
        answers.add<QFileDialog>([name](QFileDialog& dialog) {
            EXPECT_EQ(dialog.fileMode(), QFileDialog::AnyFile);
            EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
            EXPECT_EQ(dialog.labelText(QFileDialog::Accept),
                      QFileDialog().labelText(QFileDialog::Accept))
                << "that of opening";
            typeName(dialog, name);
        });
        return GUI_File::selectFile(nullptr, directory.slashed(), "(*.txt)", "", "", false);
    };
    EXPECT_EQ(choose("new.txt"), directory.file("new.txt"));
    EXPECT_FALSE(fs::exists(directory.file("new.txt")));
    EXPECT_EQ(choose("there.txt"), directory.file("there.txt"));
}

TEST(GUI_File, SelectFileGivesNothingOnCancel)
{
    const TestDirectory directory;
    directory.write("there.xml", "");
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(file("(*.xml)", "", nullptr, directory.file("there.xml")), "");
}

TEST(GUI_File, SelectSavingFileTakesANewNameWithoutAQuestion)
{
    const TestDirectory directory;
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save As");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"(*.xml)"});
        EXPECT_EQ(dialog.fileMode(), QFileDialog::AnyFile);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        typeName(dialog, "new.xml");
    });
    EXPECT_EQ(fs::path(GUI_File::selectSavingFile(nullptr, directory.slashed(), "(*.xml)",
                                                  "Save As", "...")),
              directory.path() / "new.xml");
}

TEST(GUI_File, SelectSavingFileAsksOnceBeforeAFileIsReplaced)
{
    const ProjectRoot root;
    const TestDirectory directory;
    const std::string existing = directory.write("there.xml", "");
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "there.xml"); });
    answers.add<QMessageBox>([&root](QMessageBox& box) {
        EXPECT_EQ(box.parent(), &*root);
        EXPECT_EQ(box.windowTitle(), "Warning");
        EXPECT_EQ(box.text(), "The file already exists.\nDo you want to replace it ?");
        ASSERT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Yes");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "No");
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    });
    EXPECT_EQ(GUI_File::selectSavingFile(&*root, directory.slashed(), "(*.xml)", "Save As", "..."),
              existing);
}

TEST(GUI_File, SelectSavingFileComesAgainWhenTheFileIsToStay)
{
    const TestDirectory directory;
    directory.write("there.xml", "");
    const auto typeExisting = [](QFileDialog& dialog) { typeName(dialog, "there.xml"); };
    const auto no = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    const auto select = [&directory] {
        return GUI_File::selectSavingFile(nullptr, directory.slashed(), "(*.xml)", "Save As",
                                          "...");
    };
    DialogAnswers answers;
    answers.add<QFileDialog>(typeExisting).add<QMessageBox>(no);
    answers.add<QFileDialog>(typeExisting).add<QMessageBox>(no);
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "other.xml"); });
    EXPECT_EQ(select(), directory.file("other.xml"));

    answers.add<QFileDialog>(typeExisting).add<QMessageBox>(no);
    answers.add<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(select(), "");
}

TEST(GUI_File, SelectPathGivesADirectoryWithASlash)
{
    const TestDirectory directory;
    fs::create_directory(directory.path() / "inner");
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "The title");
        EXPECT_EQ(dialog.labelText(QFileDialog::FileName), "The text");
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontUseNativeDialog));
        typeName(dialog, "inner");
    });
    EXPECT_EQ(GUI_File::selectPath(nullptr, directory.slashed(), "The title", "The text"),
              directory.file("inner/"));
    answers.add<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(GUI_File::selectPath(nullptr, directory.slashed(), "The title", "The text"), "");
}

TEST(GUI_File, DialogsHaveTheSharedFont)
{
    QFont font = QApplication::font();
    font.setPointSize(font.pointSize() + 7);
    GUI_Object::setFontName(font.toString().toStdString());
    const auto looksSo = [&font](QFileDialog& dialog) { EXPECT_EQ(dialog.font(), font); };
    DialogAnswers answers;
    answers.add<QFileDialog>(looksSo).add<QFileDialog>(looksSo).add<QFileDialog>(looksSo);
    file("", "", nullptr, "./");
    GUI_File::selectSavingFile(nullptr, "./", "", "The title", "");
    GUI_File::selectPath(nullptr, "./", "The title", "");
    GUI_Object::setFontName("");
}
