#include "gui/GUI_Display.h"

#include "gui/GUI_SpinBox.h"
#include "support/TestPanel.h"

#include <QPointer>

TEST(GUI_Display, KeepsAFormFromAnsweringToWhatItShows)
{
    const TestForm form;
    auto& columns = form.add<GUI_SpinBox>(1);
    auto& rows = form.add<GUI_SpinBox>(2);
    int modelColumns = 3;
    int modelRows = 3;
    form->mAnswer = [&](GUI_ActionComponent&) {
        modelColumns = columns.value();
        modelRows = rows.value();
    };
    form->mShowModel = [&] {
        const GUI_Display display(*form);
        columns.setValue(std::to_string(modelColumns));
        rows.setValue(std::to_string(modelRows));
    };

    form->updateValues();

    EXPECT_EQ(modelColumns, 3);
    EXPECT_EQ(modelRows, 3);
    EXPECT_EQ(columns.getValue(), "3");
    EXPECT_EQ(rows.getValue(), "3");
    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_Display, LetsTheUserBeHeardAgainAfterTheLastOne)
{
    const TestForm form;
    auto& box = form.add<GUI_SpinBox>();
    EXPECT_FALSE(form->isDisplaying());
    {
        const GUI_Display outer(*form);
        {
            const GUI_Display inner(*form);
            box.setValue("5");
        }
        EXPECT_TRUE(form->isDisplaying());
        box.setValue("6");
    }
    EXPECT_FALSE(form->isDisplaying());
    EXPECT_TRUE(form->mFlags.empty());

    box.setValue("7");

    EXPECT_EQ(form->mValues, (std::vector<std::string>{"7", "7"}));
}

TEST(GUI_Display, KeepsItsPanelToItsEnd)
{
    TestPanel* const panel = TestPanel::New();
    const QPointer<QWidget> widget(panel);
    {
        const GUI_Display display(*panel);
        panel->Delete();
        EXPECT_FALSE(widget.isNull());
    }
    EXPECT_TRUE(widget.isNull());
}

TEST(GUI_Display, OfOnePanelIsNotThatOfAnother)
{
    const TestForm form;
    const TestForm other;
    auto& box = other.add<GUI_SpinBox>();
    const GUI_Display display(*form);

    box.setValue("4");

    EXPECT_EQ(other->mFlags.size(), 2U);
}
