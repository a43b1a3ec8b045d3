#include "gui/GUI_HBoxLayout.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_FramePanel.h"
#include "support/TestPanel.h"

TEST(GUI_HBoxLayout, PutsItsItemsSideBySide)
{
    const TestForm form;
    const COM_Scoped row(GUI_HBoxLayout::New());
    form.layout().addToChildren(*row);
    const COM_Scoped first(GUI_Button::New(*form));
    const COM_Scoped second(GUI_FramePanel::New(*form));
    row->addToComponents(*first);
    row->addPanel(*second);
    form.show();

    EXPECT_TRUE(row->instanceOf("GUI_HBoxLayout"));
    EXPECT_GT(second->geometry().left(), first->geometry().right());
    EXPECT_GT(second->geometry().bottom(), first->geometry().top());
}

TEST(GUI_HBoxLayout, HasSpacersThatGrowSideways)
{
    const COM_Scoped row(GUI_HBoxLayout::New());
    row->addSpacer(25);

    ASSERT_EQ(row->count(), 1);
    QSpacerItem* const spacer = row->itemAt(0)->spacerItem();
    ASSERT_NE(spacer, nullptr);
    EXPECT_EQ(spacer->sizeHint(), QSize(0, 25));
    EXPECT_EQ(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
}

TEST(GUI_HBoxLayout, ReportsItsComponentsToThePanelOfItsRoot)
{
    const TestForm form;
    const COM_Scoped row(GUI_HBoxLayout::New());
    const COM_Scoped below(GUI_HBoxLayout::New());
    form.layout().addToChildren(*row);
    row->addToChildren(*below);
    const COM_Scoped button(GUI_Button::New(*form, static_cast<unsigned char>(6)));
    below->addToComponents(*button);

    button->click();

    EXPECT_EQ(form->mFlags, std::vector<int>{6});
}
