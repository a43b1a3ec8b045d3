#include "quorvexGui/QVG_ActionHelp.h"

#include "quorvexGui/TestMainWindow.h"
#include "support/DialogAnswers.h"

#include <QMessageBox>

#include <gtest/gtest.h>

TEST(QVG_ActionHelp, AboutShowsTheTextOfItsFile)
{
    const TestMainWindow window;
    const std::string former = GUI_Application::DOC_PATH;
    GUI_Application::DOC_PATH = window.directory().slashed();
    window.directory().write("about.txt", "Pulses in resonant media.");
    std::string title;
    std::string text;
    DialogAnswers answers;
    answers.add<QMessageBox>([&title, &text](QMessageBox& dialog) {
        title = dialog.windowTitle().toStdString();
        text = dialog.text().toStdString();
    });
    window.action(QVG_MainMenu::HELP, 1).trigger();
    GUI_Application::DOC_PATH = former;
    EXPECT_EQ(title, "About");
    EXPECT_EQ(text, "Pulses in resonant media.");
}

TEST(QVG_ActionHelp, TheTypeChoosesTheLabel)
{
    const TestMainWindow window;
    const COM_Scoped about(QVG_ActionHelp::New(QVG_ActionHelp::ABOUT_TYPE));
    const COM_Scoped manual(QVG_ActionHelp::New(QVG_ActionHelp::MANUAL_TYPE));
    EXPECT_EQ(about->getLabel(), "About");
    EXPECT_EQ(manual->getLabel(), "Manual");
}

TEST(QVG_ActionHelp, AboutOutsideAMenuDoesNothing)
{
    const TestMainWindow window;
    const COM_Scoped about(QVG_ActionHelp::New(QVG_ActionHelp::ABOUT_TYPE));
    DialogAnswers noDialogs;
    about->toDo();
    QCoreApplication::processEvents();
}
