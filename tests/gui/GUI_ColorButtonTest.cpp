#include "gui/GUI_ColorButton.h"

#include "support/DialogAnswers.h"
#include "support/TestPanel.h"

#include <QApplication>
#include <QColorDialog>
#include <QPointer>

TEST(GUI_ColorButton, TakesTheColorThatTheUserChooses)
{
    const TestForm form;
    auto& button = form.add<GUI_ColorButton>(3);
    button.setValue("#102030");
    form.show();
    std::string offered;
    DialogAnswers answers;
    answers.add<QColorDialog>([&](QColorDialog& dialog) {
        offered = dialog.currentColor().name().toStdString();
        dialog.setCurrentColor(QColor(1, 2, 255));
        dialog.accept();
    });

    QTest::mouseClick(&button, Qt::LeftButton);

    EXPECT_EQ(offered, "#102030");
    EXPECT_EQ(button.getValue(), "#0102ff");
    EXPECT_EQ(form->mFlags, std::vector<int>{3});
    EXPECT_EQ(form->mValues, std::vector<std::string>{"#0102ff"});
}

TEST(GUI_ColorButton, ReportsAlsoWhenTheUserCancels)
{
    const TestForm form;
    auto& button = form.add<GUI_ColorButton>(3);
    button.setValue("#102030");
    form.show();
    DialogAnswers answers;
    answers.add<QColorDialog>([&](QColorDialog& dialog) {
        dialog.setCurrentColor(Qt::white);
        dialog.reject();
    });

    QTest::mouseClick(&button, Qt::LeftButton);

    EXPECT_EQ(form->mFlags, std::vector<int>{3});
    EXPECT_EQ(button.getValue(), "#102030");
}

TEST(GUI_ColorButton, ShowsItsColorAsBackground)
{
    const TestForm form;
    auto& button = form.add<GUI_ColorButton>();
    form.show();
    const auto shown = [&] {
        return button.grab().toImage().pixelColor(button.width() / 2, button.height() / 2);
    };

    // Not as a style would shade it.
    for (const char* const color : {"#ff0000", "#0000ff", "#d02090", "#808080", "#000000"}) {
        button.setValue(color);
        EXPECT_EQ(shown().name().toStdString(), color);
    }
}

TEST(GUI_ColorButton, PassesOverATextThatIsNoColor)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped button(GUI_ColorButton::New(*panel));
    button->setValue("red");
    EXPECT_EQ(button->getValue(), "#ff0000");
    button->setValue("no color");
    button->setValue("");
    EXPECT_EQ(button->getValue(), "#ff0000");
}

TEST(GUI_ColorButton, HasTheLabelThatItIsGiven)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped plain(GUI_ColorButton::New(*panel, static_cast<unsigned char>(2)));
    const COM_Scoped labelled(
        GUI_ColorButton::New(panel.get(), std::string("Axes"), static_cast<unsigned char>(4)));
    const COM_Scoped other(GUI_ColorButton::New(*panel, "Grid"));

    EXPECT_EQ(plain->text().toStdString(), "");
    EXPECT_EQ(plain->getFlagId(), 2);
    EXPECT_EQ(labelled->text().toStdString(), "Axes");
    EXPECT_EQ(labelled->getFlagId(), 4);
    EXPECT_EQ(other->text().toStdString(), "Grid");
    EXPECT_TRUE(plain->instanceOf("GUI_ColorButton"));
    EXPECT_TRUE(plain->instanceOf("GUI_Button"));
}

TEST(GUI_ColorButton, HasTheStylesColorAtFirst)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped button(GUI_ColorButton::New(*panel));
    EXPECT_EQ(button->getValue(), button->palette().color(QPalette::Button).name().toStdString());
}

TEST(GUI_ColorButton, OutlivesADialogDuringWhichItIsReleased)
{
    const TestForm form;
    auto& button = form.add<GUI_ColorButton>();
    const QPointer<QWidget> alive(&button);
    form.show();
    DialogAnswers answers;
    answers.add<QColorDialog>([&](QColorDialog& dialog) {
        form.layout().removeFromComponents(button);
        EXPECT_FALSE(alive.isNull());
        dialog.setCurrentColor(Qt::white);
        dialog.accept();
    });

    button.click();
    QApplication::processEvents();

    EXPECT_TRUE(alive.isNull());
    EXPECT_TRUE(form->mFlags.empty());
}
