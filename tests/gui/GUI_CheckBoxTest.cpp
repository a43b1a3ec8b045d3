#include "gui/GUI_CheckBox.h"

#include "support/TestPanel.h"

TEST(GUI_CheckBox, ReportsEachClickOnce)
{
    const TestForm form;
    auto& box = form.add<GUI_CheckBox>(9);
    form.show();

    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    QTest::keyClick(&box, Qt::Key_Space);
    QTest::keyClick(&box, Qt::Key_Space);

    EXPECT_EQ(form->mFlags, (std::vector<int>{9, 9, 9}));
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "0", "1"}));
    EXPECT_TRUE(box.instanceOf("GUI_CheckBox"));
}

TEST(GUI_CheckBox, IsOnForEveryNumberButZero)
{
    const TestForm form;
    auto& box = form.add<GUI_CheckBox>();
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

TEST(GUI_CheckBox, HasALabelAndAToolTipWithoutItsMark)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped box(GUI_CheckBox::New(panel.get()));
    EXPECT_EQ(box->text().toStdString(), "");
    box->setLabel("Show &Ex");
    EXPECT_EQ(box->text().toStdString(), "Show &Ex");
    EXPECT_EQ(box->toolTip().toStdString(), "Show Ex");
    box->setTooltipText("&tip");
    EXPECT_EQ(box->toolTip().toStdString(), "&tip");
    static_cast<GUI_ActionComponent&>(*box).setEnabled(false);
    EXPECT_FALSE(box->isEnabled());
}
