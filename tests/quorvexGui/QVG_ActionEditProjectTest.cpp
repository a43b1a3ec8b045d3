#include "quorvexGui/QVG_ActionEditProject.h"

#include "gui/GUI_TextEdit.h"
#include "gui/GUI_TextWindow.h"
#include "quorvexGui/TestMainWindow.h"
#include "support/DialogAnswers.h"

#include <QMessageBox>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr const char* FILE_NAME = "projectDescription.txt";

/// The window that the entry has opened.
GUI_TextWindow& description(const TestMainWindow& window)
{
    return *childrenOf<GUI_TextWindow>(*window).at(0);
}

/// A project whose description is open, with that text at its beginning.
void openAndType(const TestMainWindow& window, const char* text)
{
    window.createProject();
    window.action(QVG_MainMenu::EDIT, 1).trigger();
    QTest::keyClicks(description(window).getTextEdit(), text);
}

} // namespace

TEST(QVG_ActionEditProject, TheDescriptionOpensOnceAndIsThenRaised)
{
    const TestMainWindow window;
    window.createProject();
    window.write(FILE_NAME, "mine");
    GUI_Action& action = window.action(QVG_MainMenu::EDIT, 1);
    EXPECT_EQ(action.getLabel(), "Project Description");
    action.trigger();
    ASSERT_EQ(window.children(), std::vector<std::string>{"Project Description"});
    GUI_TextWindow& text = description(window);
    EXPECT_TRUE(text.isVisible());
    EXPECT_TRUE(text.isEditable());
    EXPECT_EQ(text.getSavingPath() + text.getSavingFile(), window.file(FILE_NAME));
    EXPECT_EQ(text.getTextEdit()->getValue(), "mine");
    EXPECT_EQ(text.getMenu()->getMenu(0)->getActions().size(), 3U) << "no entry for other files";
    text.showMinimized();
    action.trigger();
    EXPECT_EQ(window.children().size(), 1U);
    EXPECT_FALSE(text.isMinimized());
}

TEST(QVG_ActionEditProject, AProjectWithoutDescriptionHasAnEmptyOne)
{
    const TestMainWindow window;
    window.createProject();
    window.action(QVG_MainMenu::EDIT, 1).trigger();
    EXPECT_EQ(description(window).getTextEdit()->getValue(), "");
    EXPECT_FALSE(window.exists(FILE_NAME));
    window->closeChildrenWindow();
    window.write(FILE_NAME, "since then");
    window.action(QVG_MainMenu::EDIT, 1).trigger();
    EXPECT_EQ(description(window).getTextEdit()->getValue(), "since then");
}

TEST(QVG_ActionEditProject, SavingTheProjectSavesTheDescription)
{
    const TestMainWindow window;
    openAndType(window, "typed");
    EXPECT_EQ(printedBy([&window] { window->save(); }),
              "save the model file " + window.path()
                  + "parameters.xml...\n"
                    "14GUI_TextWindow\n"
                    "Types[0]=COM_Object\nTypes[1]=GUI_Object\nTypes[2]=GUI_ParentWindow\n"
                    "Types[3]=GUI_ChildWindow\nTypes[4]=GUI_TextWindow\n"
                    "save the project file..\nsaving finished.\n");
    EXPECT_EQ(window.read(FILE_NAME), "typed");
    EXPECT_FALSE(description(window).getTextEdit()->isModified());
}

TEST(QVG_ActionEditProject, LeavingTheProgramWithYesSavesWhatWasTypedLast)
{
    for (const auto button : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel}) {
        const TestMainWindow window;
        openAndType(window, "typed");
        DialogAnswers answers;
        answers.add<QMessageBox>([button](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Quit");
            EXPECT_EQ(box.text(), "Do you want to save before exiting ?");
            QTest::mouseClick(box.button(button), Qt::LeftButton);
        });
        description(window).getMenu()->getMenu(0)->getAction(2)->trigger();
        settle();
        EXPECT_EQ(window.children().empty(), button != QMessageBox::Cancel);
        ASSERT_EQ(window.exists(FILE_NAME), button == QMessageBox::Yes);
        if (button == QMessageBox::Yes) {
            EXPECT_EQ(window.read(FILE_NAME), "typed");
        }
    }
}

TEST(QVG_ActionEditProject, SavingAsTakesTheDescriptionToTheNewProject)
{
    const TestMainWindow window;
    openAndType(window, "one");
    window->save();
    QTest::keyClicks(description(window).getTextEdit(), "two");
    const std::string path = window.directory().slashed() + "other/";
    std::filesystem::create_directory(path);
    window->saveAs(path, "project.dpj");
    EXPECT_EQ(window.read(FILE_NAME), "one");
    EXPECT_EQ(window.directory().read("other/projectDescription.txt"), "onetwo");
    EXPECT_EQ(description(window).getSavingPath(), path);
    window.action(QVG_MainMenu::EDIT, 1).trigger();
    EXPECT_EQ(window.children().size(), 1U);
}

TEST(QVG_ActionEditProject, AnotherProjectClosesTheDescriptionOfTheFormerWithoutAQuestion)
{
    const DialogAnswers answers;
    const TestMainWindow window;
    openAndType(window, "lost");
    window.createOtherProject();
    EXPECT_TRUE(window.children().empty());
    EXPECT_FALSE(window.exists(FILE_NAME));
    openAndType(window, "lost");
    window->load(window.file("project.dpj"));
    EXPECT_EQ(window.children(), std::vector<std::string>{"Options Window"});
    EXPECT_FALSE(window.exists(FILE_NAME));
}

TEST(QVG_ActionEditProject, BringsTheMenusUpToDate)
{
    const TestMainWindow window;
    window.createProject();
    window.expectMenusUpToDateAfter(window.action(QVG_MainMenu::EDIT, 1));
}

TEST(QVG_ActionEditProject, OutsideAMenuItDoesNothing)
{
    const TestMainWindow window;
    window.createProject();
    const COM_Scoped action(QVG_ActionEditProject::New());
    action->toDo();
    EXPECT_TRUE(window.children().empty());
}
