#include "gui2d/GUI2D_ActionSavePlot.h"

#include "gui2d/GUI2D_ActionLoadPlot.h"
#include "gui2d/GUI2D_LegendWindow.h"
#include "gui2d/TestPlot.h"
#include "support/DialogAnswers.h"
#include "support/FileDialog.h"
#include "support/TestDirectory.h"

#include <QMessageBox>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

void saveAs(const TestPlot& plot, const std::string& name)
{
    DialogAnswers answers;
    answers.add<QFileDialog>([&name](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Save Plot");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"(*.xml)"});
        typeName(dialog, name);
    });
    plot.trigger("Save Plot");
}

void load(const TestPlot& plot, const std::string& name)
{
    DialogAnswers answers;
    answers.add<QFileDialog>([&name](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Load Plot");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"File (*.xml)"});
        typeName(dialog, name);
    });
    plot.trigger("Load Plot");
}

} // namespace

TEST(GUI2D_ActionSavePlot, WhatWasSavedIsLoadedInAnotherWindow)
{
    const TestDirectory directory;
    {
        const TestPlot plot;
        plot.addAndShowIn(directory);
        plot.plotter().setTitle("saved");
        plot.trigger("Zoom +");
        saveAs(plot, "plot.xml");
        EXPECT_EQ(plot->getSavingPath(), directory.slashed());
        EXPECT_EQ(plot->getSavingFile(), "plot.xml");
    }
    const TestPlot plot;
    plot.root()->setSavingPath(directory.slashed());
    plot->show();
    load(plot, "plot.xml");
    EXPECT_TRUE(plot->isLoaded());
    EXPECT_EQ(plot->getSavingFile(), "plot.xml");
    EXPECT_EQ(plot.plotter().getTitle(), "saved");
    ASSERT_EQ(plot->getPlotsNumber(), 1U);
    EXPECT_EQ(plot.curve(0).getPointsNumber(), 5U);
    EXPECT_TRUE(plot.find("&Undo")->isEnabled());
    EXPECT_FALSE(plot.find("&Redo")->isEnabled());
}

TEST(GUI2D_ActionSavePlot, OpenLegendsShowTheLoadedCurves)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot.addAndShowIn(directory);
    saveAs(plot, "plot.xml");
    plot.add({0.0, 1.0}, {0.0, 1.0});
    const auto& legends = plot.open<GUI2D_LegendWindow>("&Legends");
    EXPECT_EQ(legends.findChild<QListWidget*>()->count(), 2);
    load(plot, "plot.xml");
    settle();
    EXPECT_EQ(legends.findChildren<QListWidget*>().size(), 1);
    EXPECT_EQ(legends.findChild<QListWidget*>()->count(), 1);
}

TEST(GUI2D_ActionSavePlot, AForeignFileChangesNothing)
{
    const TestDirectory directory;
    directory.write("foreign.xml", "<?xml version=\"1.0\"?>\n<nothing/>\n");
    const TestPlot plot;
    plot->setSavingPath(directory.slashed());
    plot->setSavingFile("own.xml");
    plot.addAndShow();
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { typeName(dialog, "foreign.xml"); });
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Warning");
        EXPECT_EQ(box.text(), "The file can not be loaded");
    });
    plot.trigger("Load Plot");
    EXPECT_FALSE(plot->isLoaded());
    EXPECT_EQ(plot->getSavingPath(), directory.slashed());
    EXPECT_EQ(plot->getSavingFile(), "own.xml");
    EXPECT_EQ(plot->getPlotsNumber(), 1U);
}

TEST(GUI2D_ActionSavePlot, AFileThatCannotBeWrittenIsTold)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot->setSavingPath(directory.slashed());
    plot->setSavingFile("own.xml");
    plot.addAndShow();
    // The directory goes while the dialog is open; the disk is full.
    for (const std::string& name : {directory.file("gone/plot.xml"), std::string("/dev/full")}) {
        DialogAnswers answers;
        answers.add<QFileDialog>([&](QFileDialog& dialog) {
            emit dialog.fileSelected(QString::fromStdString(name));
            static_cast<QDialog&>(dialog).done(QDialog::Accepted);
        });
        if (std::filesystem::exists(name)) {
            answers.add<QMessageBox>([](QMessageBox& box) {
                QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
            });
        }
        answers.add<QMessageBox>([](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Warning");
            EXPECT_EQ(box.text(), "The file can not be written");
        });
        plot.trigger("Save Plot");
        EXPECT_FALSE(plot->isSaved());
        EXPECT_EQ(plot->getSavingPath(), directory.slashed());
        EXPECT_EQ(plot->getSavingFile(), "own.xml");
    }
}

TEST(GUI2D_ActionSavePlot, CancelChangesNothing)
{
    const TestDirectory directory;
    const TestPlot plot;
    plot->setSavingPath(directory.slashed());
    plot.addAndShow();
    DialogAnswers answers;
    answers.add<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    answers.add<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    plot.trigger("Save Plot");
    plot.trigger("Load Plot");
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
    EXPECT_EQ(plot->getPlotsNumber(), 1U);
}
