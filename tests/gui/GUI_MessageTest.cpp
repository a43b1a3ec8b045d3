#include "gui/GUI_Message.h"

#include "gui/GUI_Object.h"
#include "support/DialogAnswers.h"
#include "support/ProjectRoot.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

int askTwo(GUI_ParentWindow* parent = nullptr)
{
    return GUI_Message::printWarning(parent, "The title", "A & B <b>?</b>", "Oui", "Non");
}

int askThree()
{
    return GUI_Message::printWarning(nullptr, "The title", "A & B <b>?</b>", "Oui", "Non", "Rien");
}

void press(QMessageBox& box, QMessageBox::StandardButton button)
{
    QTest::mouseClick(box.button(button), Qt::LeftButton);
}

} // namespace

TEST(GUI_Message, MessageHasTitleTextAndOneButton)
{
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "The title");
        EXPECT_EQ(box.text(), "<b>first</b>\nsecond");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        press(box, QMessageBox::Ok);
    });
    EXPECT_EQ(GUI_Message::printMessage("The title", "<b>first</b>\nsecond"), QMessageBox::Ok);
}

TEST(GUI_Message, InformationIsAMessage)
{
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Warning");
        EXPECT_EQ(box.text(), "The text");
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(GUI_Message::printInformation("Warning", "The text"), QMessageBox::Ok);
}

TEST(GUI_Message, MessageStandsBeforeTheActiveWindow)
{
    const ProjectRoot root;
    QApplication::setActiveWindow(&*root);
    DialogAnswers answers;
    answers.add<QMessageBox>([&root](QMessageBox& box) { EXPECT_EQ(box.parent(), &*root); });
    GUI_Message::printMessage("The title", "The text");
}

TEST(GUI_Message, AboutRendersRichText)
{
    const ProjectRoot root;
    DialogAnswers answers;
    answers.add<QMessageBox>([&root](QMessageBox& box) {
        EXPECT_EQ(box.parent(), &*root);
        EXPECT_EQ(box.windowTitle(), "About");
        EXPECT_EQ(box.text(), "<b>Quorvex</b>");
        EXPECT_EQ(box.textFormat(), Qt::AutoText);
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        press(box, QMessageBox::Ok);
    });
    EXPECT_EQ(GUI_Message::printAbout(&*root, "About", "<b>Quorvex</b>"), QMessageBox::Ok);
}

TEST(GUI_Message, WarningShowsTheGivenTexts)
{
    const ProjectRoot root;
    DialogAnswers answers;
    answers.add<QMessageBox>([&root](QMessageBox& box) {
        EXPECT_EQ(box.parent(), &*root);
        EXPECT_EQ(box.windowTitle(), "The title");
        EXPECT_EQ(box.text(), "A & B <b>?</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        ASSERT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Oui");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "Non");
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        EXPECT_EQ(box.escapeButton(), box.button(QMessageBox::No));
    });
    askTwo(&*root);
}

TEST(GUI_Message, WarningWithThreeButtonsEscapesByTheLast)
{
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        ASSERT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Oui");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "Non");
        EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "Rien");
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Yes));
        EXPECT_EQ(box.escapeButton(), box.button(QMessageBox::Cancel));
    });
    askThree();
}

TEST(GUI_Message, WarningGivesThePlaceOfTheButton)
{
    static_assert(GUI_Message::YES == 0 && GUI_Message::NO == 1 && GUI_Message::CANCEL == 2);
    const auto pressing = [](QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { press(box, button); };
    };
    DialogAnswers answers;
    answers.add<QMessageBox>(pressing(QMessageBox::Yes));
    EXPECT_EQ(askTwo(), GUI_Message::YES);
    answers.add<QMessageBox>(pressing(QMessageBox::No));
    EXPECT_EQ(askTwo(), GUI_Message::NO);
    answers.add<QMessageBox>(pressing(QMessageBox::Yes));
    EXPECT_EQ(askThree(), GUI_Message::YES);
    answers.add<QMessageBox>(pressing(QMessageBox::No));
    EXPECT_EQ(askThree(), GUI_Message::NO);
    answers.add<QMessageBox>(pressing(QMessageBox::Cancel));
    EXPECT_EQ(askThree(), GUI_Message::CANCEL);
}

TEST(GUI_Message, ReturnSaysYes)
{
    const auto pressReturn = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
    DialogAnswers answers;
    answers.add<QMessageBox>(pressReturn);
    EXPECT_EQ(askTwo(), GUI_Message::YES);
    answers.add<QMessageBox>(pressReturn);
    EXPECT_EQ(askThree(), GUI_Message::YES);
}

TEST(GUI_Message, EscapeAndTheTitleBarPressTheLastButton)
{
    const auto pressEscape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    const auto close = [](QMessageBox& box) { box.close(); };
    DialogAnswers answers;
    answers.add<QMessageBox>(pressEscape);
    EXPECT_EQ(askTwo(), GUI_Message::NO);
    answers.add<QMessageBox>(close);
    EXPECT_EQ(askTwo(), GUI_Message::NO);
    answers.add<QMessageBox>(pressEscape);
    EXPECT_EQ(askThree(), GUI_Message::CANCEL);
    answers.add<QMessageBox>(close);
    EXPECT_EQ(askThree(), GUI_Message::CANCEL);
}

TEST(GUI_Message, BoxesHaveTheSharedFont)
{
    const QFont own = QApplication::font();
    QFont font = own;
    font.setPointSize(own.pointSize() + 7);
    GUI_Object::setFontName(font.toString().toStdString());
    DialogAnswers answers;
    answers.add<QMessageBox>([&font](QMessageBox& box) { EXPECT_EQ(box.font(), font); });
    GUI_Message::printMessage("The title", "The text");
    answers.add<QMessageBox>([&font](QMessageBox& box) { EXPECT_EQ(box.font(), font); });
    askTwo();
    GUI_Object::setFontName("");
    answers.add<QMessageBox>([&own](QMessageBox& box) { EXPECT_EQ(box.font(), own); });
    GUI_Message::printMessage("The title", "The text");
}

TEST(GUI_Message, ABoxOutlivesTheWindowThatItStandsBefore)
{
    ProjectRootWindow* const window = ProjectRootWindow::New();
    window->show();
    DialogAnswers answers;
    answers.add<QMessageBox>([window](QMessageBox& box) {
        window->Delete();
        EXPECT_TRUE(box.isVisible());
        press(box, QMessageBox::Yes);
    });
    EXPECT_EQ(askTwo(window), GUI_Message::YES);
    QCoreApplication::processEvents();
}
