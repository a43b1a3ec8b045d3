#include "gui/GUI_LineEdit.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_Display.h"
#include "support/TestPanel.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>

TEST(GUI_LineEdit, ReportsReturnOnce)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>(6);
    form.show();
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, "1.5e-6");
    EXPECT_TRUE(form->mFlags.empty());

    QTest::keyClick(&edit, Qt::Key_Return);

    EXPECT_EQ(form->mFlags, std::vector<int>{6});
    EXPECT_EQ(form->mValues, std::vector<std::string>{"1.5e-6"});
    EXPECT_TRUE(edit.instanceOf("GUI_LineEdit"));
}

TEST(GUI_LineEdit, ReportsWhenItIsLeftAlsoWithoutTyping)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>(6);
    form.add<GUI_LineEdit>(7);
    form.show();
    edit.setFocus(Qt::MouseFocusReason);

    QTest::keyClick(&edit, Qt::Key_Tab);

    EXPECT_FALSE(edit.hasFocus());
    EXPECT_EQ(form->mFlags, std::vector<int>{6});
}

TEST(GUI_LineEdit, ReportsWhenTheMouseGoesToAnotherField)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>(6);
    auto& other = form.add<GUI_LineEdit>(7);
    form.show();
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, "12");

    QTest::mouseClick(&other, Qt::LeftButton);

    EXPECT_EQ(form->mFlags, std::vector<int>{6});
    EXPECT_EQ(form->mValues, std::vector<std::string>{"12"});
}

TEST(GUI_LineEdit, ReportsWhenAnotherWindowTakesTheFocus)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>(6);
    form.show();
    edit.setFocus();
    const TestForm other;
    other.add<GUI_LineEdit>();

    other.show();

    EXPECT_EQ(form->mFlags, std::vector<int>{6});
}

TEST(GUI_LineEdit, IsNotLeftForItsOwnMenu)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>();
    form.show();
    edit.setFocus();
    edit.selectAll();

    QFocusEvent event(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&edit, &event);

    EXPECT_TRUE(form->mFlags.empty());
    EXPECT_TRUE(edit.hasSelectedText());
}

class GUI_LineEditLeftFor : public testing::TestWithParam<Qt::FocusReason>
{};

TEST_P(GUI_LineEditLeftFor, ReportsAndKeepsItsSelection)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>();
    edit.setValue("selected");
    form.show();
    edit.setFocus();
    edit.selectAll();

    QFocusEvent event(QEvent::FocusOut, GetParam());
    QApplication::sendEvent(&edit, &event);

    EXPECT_EQ(form->mFlags.size(), 1U);
    EXPECT_EQ(edit.selectedText().toStdString(), "selected");
}

INSTANTIATE_TEST_SUITE_P(Reasons, GUI_LineEditLeftFor,
                         testing::Values(Qt::MouseFocusReason, Qt::TabFocusReason,
                                         Qt::BacktabFocusReason, Qt::ActiveWindowFocusReason,
                                         Qt::ShortcutFocusReason, Qt::MenuBarFocusReason,
                                         Qt::OtherFocusReason));

TEST(GUI_LineEdit, IsLeftWhenItIsDisabledUnlessThePanelDisplays)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>();
    form.add<GUI_LineEdit>(1);
    form.show();
    edit.setFocus();
    edit.setEnabled(false);
    EXPECT_EQ(form->mFlags, std::vector<int>{0});

    edit.setEnabled(true);
    edit.setFocus();
    form->forget();
    {
        const GUI_Display display(*form);
        edit.setEnabled(false);
    }
    EXPECT_FALSE(edit.hasFocus());
    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_LineEdit, KeepsCursorSelectionAndUndoWhenItsTextIsSetAgain)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>();
    form.show();
    edit.setFocus();
    edit.setValue("");
    QTest::keyClicks(&edit, "abcdef");
    edit.setSelection(1, 3);

    edit.setValue("abcdef");
    EXPECT_EQ(edit.selectedText().toStdString(), "bcd");
    EXPECT_TRUE(edit.isUndoAvailable());

    edit.setValue("xyz");
    EXPECT_EQ(edit.getValue(), "xyz");
    EXPECT_FALSE(edit.hasSelectedText());
}

TEST(GUI_LineEdit, ShowsTheBeginningOfALongText)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>();
    form.show();
    edit.resize(60, edit.height());
    const std::string begin(50, 'A');

    edit.setValue(begin + std::string(50, 'Z'));

    const QImage shown = edit.grab().toImage();
    edit.setValue(begin + std::string(50, 'I'));
    EXPECT_EQ(edit.grab().toImage(), shown);
    edit.setValue(std::string(100, 'Z'));
    EXPECT_NE(edit.grab().toImage(), shown);
}

TEST(GUI_LineEdit, ShowsItsLabelAsFirstContent)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped edit(GUI_LineEdit::New(*panel));
    EXPECT_EQ(edit->getValue(), "LineEdit");
    EXPECT_EQ(edit->toolTip().toStdString(), "LineEdit");

    edit->setLabel("&Mean");
    EXPECT_EQ(edit->getValue(), "&Mean");
    EXPECT_EQ(edit->toolTip().toStdString(), "Mean");
    edit->setTooltipText("&tip");
    EXPECT_EQ(edit->toolTip().toStdString(), "&tip");
}

TEST(GUI_LineEdit, MayBeReleasedByTheAnswerToItsLeaving)
{
    const TestForm form;
    auto& edit = form.add<GUI_LineEdit>();
    auto& other = form.add<GUI_Button>(1);
    const QPointer<QWidget> alive(&edit);
    form.show();
    edit.setFocus();
    form->mAnswer = [&](GUI_ActionComponent& sender) {
        form.layout().removeFromComponents(sender);
        EXPECT_FALSE(alive.isNull());
    };

    QTest::mouseClick(&other, Qt::LeftButton);
    QApplication::processEvents();

    EXPECT_TRUE(alive.isNull());
}

TEST(GUI_LineEdit, KeepsUtf8)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped edit(GUI_LineEdit::New(panel.get()));
    edit->setValue("\xce\xbb = 1.5 \xc2\xb5m");
    EXPECT_EQ(edit->getValue(), "\xce\xbb = 1.5 \xc2\xb5m");
}
