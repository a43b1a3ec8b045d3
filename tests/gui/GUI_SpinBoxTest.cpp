#include "gui/GUI_SpinBox.h"

#include "gui/GUI_Button.h"
#include "support/TestPanel.h"

#include <QLineEdit>

namespace {

QLineEdit& fieldOf(GUI_SpinBox& box)
{
    return *box.findChild<QLineEdit*>();
}

} // namespace

TEST(GUI_SpinBox, ReportsAStepTwice)
{
    const TestForm form;
    auto& box = form.add<GUI_SpinBox>(3);
    form.show();

    QTest::keyClick(&box, Qt::Key_Up);

    EXPECT_EQ(form->mFlags, (std::vector<int>{3, 3}));
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "1"}));
    EXPECT_TRUE(box.instanceOf("GUI_SpinBox"));
}

TEST(GUI_SpinBox, TakesWhatIsTypedOnReturnAndNotBefore)
{
    const TestForm form;
    auto& box = form.add<GUI_SpinBox>();
    box.setMinimum(1);
    form.show();
    box.setFocus();
    box.selectAll();

    QTest::keyClicks(&fieldOf(box), "12");
    EXPECT_TRUE(form->mFlags.empty());
    EXPECT_EQ(box.getValue(), "1");

    QTest::keyClick(&fieldOf(box), Qt::Key_Return);
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"12", "12"}));
}

TEST(GUI_SpinBox, TakesWhatIsTypedWhenItIsLeft)
{
    const TestForm form;
    auto& box = form.add<GUI_SpinBox>();
    auto& other = form.add<GUI_Button>(1);
    form.show();
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&fieldOf(box), "34");

    other.setFocus();

    EXPECT_EQ(form->mValues, (std::vector<std::string>{"34", "34"}));
}

struct SpinValue
{
    const char* mText;
    const char* mValue;
};

class GUI_SpinBoxSetTo : public testing::TestWithParam<SpinValue>
{};

TEST_P(GUI_SpinBoxSetTo, ShowsTheNumberWithinItsRange)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped box(GUI_SpinBox::New(*panel));
    box->setRange(1, 100);
    box->setValue(GetParam().mText);
    EXPECT_EQ(box->getValue(), GetParam().mValue);
}

INSTANTIATE_TEST_SUITE_P(Texts, GUI_SpinBoxSetTo,
                         testing::Values(SpinValue{"42", "42"}, SpinValue{" 7x", "7"},
                                         SpinValue{"", "1"}, SpinValue{"x", "1"},
                                         SpinValue{"-5", "1"}, SpinValue{"101", "100"},
                                         SpinValue{"4294967297", "100"},
                                         SpinValue{"-99999999999999999999", "1"}));

TEST(GUI_SpinBox, ReportsWhatCodeSetsUnlessItIsTheSame)
{
    const TestForm form;
    auto& box = form.add<GUI_SpinBox>();
    box.setValue("9");
    EXPECT_EQ(form->mFlags.size(), 2U);
    box.setValue("9");
    EXPECT_EQ(form->mFlags.size(), 2U);
}

TEST(GUI_SpinBox, CanBeDisabled)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped box(GUI_SpinBox::New(panel.get()));
    static_cast<GUI_ActionComponent&>(*box).setEnabled(false);
    EXPECT_FALSE(box->isEnabled());
    box->setTooltipText("tip");
    EXPECT_EQ(box->toolTip().toStdString(), "tip");
}
