#include "gui/GUI_CheckBox.h"
#include "gui/GUI_RadioButton.h"
#include "support/TestPanel.h"

#include <type_traits>

/// What holds for the switches of either look.
template <typename Switch>
class SwitchOf : public testing::Test
{
protected:
    static constexpr const char* NAME =
        std::is_same_v<Switch, GUI_CheckBox> ? "GUI_CheckBox" : "GUI_RadioButton";
};

using Looks = testing::Types<GUI_CheckBox, GUI_RadioButton>;
TYPED_TEST_SUITE(SwitchOf, Looks);

TYPED_TEST(SwitchOf, ReportsEachClickOnce)
{
    const TestForm form;
    auto& box = form.template add<TypeParam>(9);
    form.show();

    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    QTest::keyClick(&box, Qt::Key_Space);
    QTest::keyClick(&box, Qt::Key_Space);

    EXPECT_EQ(form->mFlags, (std::vector<int>{9, 9, 9}));
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "0", "1"}));
    EXPECT_TRUE(box.instanceOf(TestFixture::NAME));
}

TYPED_TEST(SwitchOf, IsOnForEveryNumberButZero)
{
    const TestForm form;
    auto& box = form.template add<TypeParam>();
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

TYPED_TEST(SwitchOf, HasALabelAndAToolTipWithoutItsMark)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped box(TypeParam::New(panel.get()));
    EXPECT_EQ(box->text().toStdString(), "");
    box->setLabel("Show &Ex");
    EXPECT_EQ(box->text().toStdString(), "Show &Ex");
    EXPECT_EQ(box->toolTip().toStdString(), "Show Ex");
    box->setTooltipText("&tip");
    EXPECT_EQ(box->toolTip().toStdString(), "&tip");
    static_cast<GUI_ActionComponent&>(*box).setEnabled(false);
    EXPECT_FALSE(box->isEnabled());
}
