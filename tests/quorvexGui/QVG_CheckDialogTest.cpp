#include "quorvexGui/QVG_CheckDialog.h"

#include "quorvexGui/TestMainWindow.h"
#include "support/DialogAnswers.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace {

using Findings = std::vector<QV_ProblemCheck::Finding>;

const QV_ProblemCheck::Finding harm{QV_ProblemCheck::HARMS, "C.F.L.", "0", "no length.", {}};
const QV_ProblemCheck::Finding stop{QV_ProblemCheck::STOPS, "Dimension", "0", "too few.", {}};

std::vector<std::string> buttons(const QWidget& dialog)
{
    std::vector<std::string> texts;
    for (const QPushButton* const button : dialog.findChildren<QPushButton*>()) {
        texts.push_back(button->text().toStdString() + (button->isDefault() ? " (default)" : ""));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

} // namespace

TEST(QVG_CheckDialog, TheUserIsAskedAboutWhatHarms)
{
    const TestMainWindow window;
    bool isWanted = false;
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Check of the Problem");
        EXPECT_EQ(dialog.findChild<QTextBrowser*>()->toPlainText(),
                  "harms\nC.F.L. = 0: no length.");
        ASSERT_EQ(dialog.findChildren<QLabel*>().size(), 1);
        EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "Run all the same ?");
        EXPECT_EQ(buttons(dialog), (std::vector<std::string>{"No (default)", "Yes"}));
        pressButton(dialog, "Yes");
    });
    isWanted = QVG_CheckDialog::ask(*window, {harm});
    EXPECT_TRUE(isWanted);
}

TEST(QVG_CheckDialog, WhatStopsLeavesNoChoice)
{
    const TestMainWindow window;
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QTextBrowser*>()->toPlainText(),
                  "stops\nDimension = 0: too few.\nharms\nC.F.L. = 0: no length.");
        EXPECT_TRUE(dialog.findChildren<QLabel*>().empty());
        EXPECT_EQ(buttons(dialog), std::vector<std::string>{"Close (default)"});
        pressButton(dialog, "Close");
    });
    EXPECT_FALSE(QVG_CheckDialog::ask(*window, {stop, harm}));
}

TEST(QVG_CheckDialog, NoEscapeReturnAndTheTitleBarSayNo)
{
    const TestMainWindow window;
    const std::vector<std::function<void(QWidget&)>> refusals{
        [](QWidget& dialog) { pressButton(dialog, "No"); },
        [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QWidget& dialog) {
            QWidget* const field = dialog.focusWidget();
            QTest::keyClick(field != nullptr ? field : &dialog, Qt::Key_Return);
            EXPECT_FALSE(dialog.isVisible());
        },
        [](QWidget& dialog) { dialog.close(); }};
    for (const auto& refusal : refusals) {
        DialogAnswers answers;
        answers.add<QDialog>(refusal);
        EXPECT_FALSE(QVG_CheckDialog::ask(*window, {harm}));
    }
}
