#include "gui/GUI_RadioButton.h"

#include "support/TestPanel.h"

TEST(GUI_RadioButton, ReportsEachClickOnce)
{
    const TestForm form;
    auto& box = form.add<GUI_RadioButton>(9);
    form.show();

    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    QTest::keyClick(&box, Qt::Key_Space);
    QTest::keyClick(&box, Qt::Key_Space);

    EXPECT_EQ(form->mFlags, (std::vector<int>{9, 9, 9}));
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "0", "1"}));
    EXPECT_TRUE(box.instanceOf("GUI_RadioButton"));
}

TEST(GUI_RadioButton, IsOnForEveryNumberButZero)
{
    const TestForm form;
    auto& box = form.add<GUI_RadioButton>();
    EXPECT_EQ(box.getValue(), "0");
    for (const std::string on : {"1", "-1", "17", " 2x"}) {
        box.setValue("0");
        box.setValue(on);
        EXPECT_EQ(box.getValue(), "1") << on;
    }
    for (const std::string off : {"0", "", "x", "true"}) {
        box.setValue("1");
        box.setValue(off);
        EXPECT_EQ(box.getValue(), "0") << off;
    }
    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_RadioButton, HasALabelAndAToolTipWithoutItsMark)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped box(GUI_RadioButton::New(panel.get()));
    EXPECT_EQ(box->text().toStdString(), "");
    box->setLabel("Show &Ex");
    EXPECT_EQ(box->text().toStdString(), "Show &Ex");
    EXPECT_EQ(box->toolTip().toStdString(), "Show Ex");
    box->setTooltipText("&tip");
    EXPECT_EQ(box->toolTip().toStdString(), "&tip");
    static_cast<GUI_ActionComponent&>(*box).setEnabled(false);
    EXPECT_FALSE(box->isEnabled());
}

TEST(GUI_RadioButton, SwitchesIndependentlyOfTheOthersInItsPanel)
{
    const TestForm form;
    auto& first = form.add<GUI_RadioButton>(1);
    auto& second = form.add<GUI_RadioButton>(2);
    auto& third = form.add<GUI_RadioButton>(3);
    first.setValue("1");
    third.setValue("1");
    form.show();

    QTest::mouseClick(&second, Qt::LeftButton, {}, QPoint(8, second.height() / 2));
    EXPECT_EQ(first.getValue(), "1");
    EXPECT_EQ(second.getValue(), "1");
    EXPECT_EQ(third.getValue(), "1");

    QTest::mouseClick(&first, Qt::LeftButton, {}, QPoint(8, first.height() / 2));
    EXPECT_EQ(first.getValue(), "0");
    EXPECT_EQ(second.getValue(), "1");

    third.setValue("0");
    EXPECT_EQ(third.getValue(), "0");
    EXPECT_EQ(form->mFlags, (std::vector<int>{2, 1}));
}
