#include "gui2d/GUI2D_ActionExport.h"

#include "gui2d/TestPlot.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/TestDirectory.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

void exportTo(const TestPlot& plot, const std::string& name)
{
    DialogAnswers answers;
    answers.add<QFileDialog>([&name](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Export the Curves");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"(*.pdf *.svg *.png *.csv)"});
        typeName(dialog, name);
    });
    plot.trigger("Export the Curves");
}

} // namespace

TEST(GUI2D_ActionExport, WritesThePictureInTheFormatOfTheExtension)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    exportTo(plot, "plot.pdf");
    exportTo(plot, "plot.SVG");
    exportTo(plot, "plot.png");
    EXPECT_TRUE(directory.read("plot.pdf").starts_with("%PDF"));
    const QByteArray svg = QByteArray::fromStdString(directory.read("plot.SVG"));
    QSvgRenderer renderer(svg);
    EXPECT_TRUE(renderer.isValid());
    EXPECT_EQ(renderer.viewBox(), plot.plotter().rect());
    EXPECT_TRUE(svg.contains("XLabel"));
    const QImage png(QString::fromStdString(directory.file("plot.png")));
    EXPECT_EQ(png.convertToFormat(QImage::Format_RGB32),
              plot.plotter().grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST(GUI2D_ActionExport, ANameWithoutAFormatIsPdf)
{
    const TestDirectory directory;
    directory.write("there.pdf", "kept");
    const TestPlot plot;
    plot.addAndShowIn(directory);
    exportTo(plot, "plot.txt");
    EXPECT_TRUE(directory.read("plot.txt.pdf").starts_with("%PDF"));
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "there"); });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "The file already exists.\nDo you want to replace it ?");
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    });
    plot.trigger("Export the Curves");
    EXPECT_EQ(directory.read("there.pdf"), "kept");
}

TEST(GUI2D_ActionExport, WritesTheNumbersOfTheShownCurves)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.root()->setSavingPath(directory.slashed());
    plot.add({0.0, 0.1}, {1.0, -2.5}, "a");
    plot.add({5.0}, {6.0}, "b");
    plot.curve(1).setShown(false);
    plot->show();
    exportTo(plot, "plot.csv");
    EXPECT_EQ(directory.read("plot.csv"), "a: XLabel,a: YLabel\n"
                                          "0.0000000000000000e+00,1.0000000000000000e+00\n"
                                          "1.0000000000000001e-01,-2.5000000000000000e+00\n");
}

TEST(GUI2D_ActionExport, WithoutAShownCurveThereIsNothingToWrite)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    plot.curve(0).setShown(false);
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "plot.csv"); });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Warning");
        EXPECT_EQ(box.text(), "No curve selected");
    });
    answers.add<QMessageBox>([](QMessageBox& box) { EXPECT_EQ(box.text(), "No curve selected"); });
    plot.trigger("Export the Curves");
    QGuiApplication::clipboard()->setText("kept");
    plot.trigger("Copy the Values");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "kept");
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST(GUI2D_ActionExport, AFailureIsTold)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    DialogAnswers answers;
    answers.add<QFileDialog>([&](QFileDialog& dialog) {
        emit dialog.fileSelected(QString::fromStdString(directory.file("gone/plot.pdf")));
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Warning");
        EXPECT_EQ(box.text(), "The file can not be written");
    });
    plot.trigger("Export the Curves");
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST(GUI2D_ActionExport, CancelWritesNothing)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    plot.trigger("Export the Curves");
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST(GUI2D_ActionCopyPicture, PutsThePictureOnTheClipboard)
{
    const TestPlot plot;
    plot.addAndShow();
    plot.trigger("Copy the Picture");
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_EQ(copied.size(), plot.plotter().size());
    EXPECT_EQ(copied.convertToFormat(QImage::Format_RGB32),
              plot.plotter().grab().toImage().convertToFormat(QImage::Format_RGB32));
}

TEST(GUI2D_ActionCopyValues, PutsTheNumbersOnTheClipboard)
{
    const TestPlot plot;
    plot.add({0.0}, {1.0}, "a");
    plot.trigger("Copy the Values");
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              "a: XLabel\ta: YLabel\n0.0000000000000000e+00\t1.0000000000000000e+00\n");
}
