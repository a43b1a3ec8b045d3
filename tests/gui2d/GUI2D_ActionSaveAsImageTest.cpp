#include "gui2d/GUI2D_ActionSaveAsImage.h"

#include "gui2d/TestPlot.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/TestDirectory.h"

#include <QMessageBox>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

std::string startOf(const TestDirectory& directory, const std::string& name, std::size_t length)
{
    return directory.read(name).substr(0, length);
}

} // namespace

TEST(GUI2D_ActionSaveAsImage, AppendsTheExtension)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save As Image");
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.directory().canonicalPath().toStdString(),
                  std::filesystem::canonical(directory.path()));
        typeName(dialog, "plot");
    });
    plot.trigger("Save As Image");
    EXPECT_EQ(startOf(directory, "plot.bmp", 2), "BM");
    EXPECT_FALSE(std::filesystem::exists(directory.file("plot")));
}

TEST(GUI2D_ActionSaveAsImage, ANameThatHoldsTheExtensionStays)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "a.bmp.gif"); });
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "b.jpg"); });
    plot.trigger("Save As Image");
    plot.trigger("Save As Image");
    EXPECT_EQ(startOf(directory, "a.bmp.gif", 3), "GIF");
    EXPECT_EQ(startOf(directory, "b.jpg.bmp", 2), "BM");
}

TEST(GUI2D_ActionSaveAsImage, AsksAgainWhenTheLongerNameExists)
{
    const TestDirectory directory;
    directory.write("plot.bmp", "kept");
    const TestPlot plot;
    plot.addAndShowIn(directory);
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "plot"); });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Warning");
        EXPECT_EQ(box.text(), "The file already exists.\nDo you want to replace it ?");
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    });
    plot.trigger("Save As Image");
    EXPECT_EQ(directory.read("plot.bmp"), "kept");
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "plot"); });
    answers.add<QMessageBox>(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); });
    plot.trigger("Save As Image");
    EXPECT_EQ(startOf(directory, "plot.bmp", 2), "BM");
}

TEST(GUI2D_ActionSaveAsImage, AFailureIsTold)
{
    const TestDirectory directory;
    std::filesystem::create_directory(directory.file("there.bmp"));
    const TestPlot plot;
    plot.addAndShowIn(directory);
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "there"); });
    answers.add<QMessageBox>(
        [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Warning");
        EXPECT_EQ(box.text(), "Saving As Image failed!");
    });
    // The directory named "there" doesn't exist; the one named "there.bmp" cannot become a file.
    plot.trigger("Save As Image");
}

TEST(GUI2D_ActionSaveAsImage, CancelWritesNothing)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    plot.trigger("Save As Image");
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}
