#include "gui/GUI_RadioButton.h"

#include "support/TestPanel.h"

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
