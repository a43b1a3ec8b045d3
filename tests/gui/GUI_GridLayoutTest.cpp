#include "gui/GUI_GridLayout.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_FramePanel.h"
#include "gui/GUI_HBoxLayout.h"
#include "support/TestPanel.h"

TEST(GUI_GridLayout, HasTheSizeThatItIsGiven)
{
    const COM_Scoped plain(GUI_GridLayout::New());
    const COM_Scoped grid(GUI_GridLayout::New(3, 2));
    const COM_Scoped spaced(GUI_GridLayout::New(4, 5, 9));
    const COM_Scoped none(GUI_GridLayout::New(0, -1));

    EXPECT_TRUE(plain->instanceOf("GUI_GridLayout"));
    EXPECT_EQ(plain->rowCount(), 1);
    EXPECT_EQ(plain->columnCount(), 1);
    EXPECT_EQ(grid->rowCount(), 3);
    EXPECT_EQ(grid->columnCount(), 2);
    EXPECT_EQ(spaced->rowCount(), 4);
    EXPECT_EQ(spaced->columnCount(), 5);
    EXPECT_EQ(spaced->spacing(), 9);
    EXPECT_EQ(none->rowCount(), 1);
    EXPECT_EQ(none->columnCount(), 1);
}

TEST(GUI_GridLayout, PutsItemsWithoutACellBeyondTheCorner)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped grid(GUI_GridLayout::New(2, 3));
    const COM_Scoped first(GUI_Button::New(*panel));
    const COM_Scoped second(GUI_FramePanel::New(*panel));
    const COM_Scoped third(GUI_HBoxLayout::New());

    EXPECT_TRUE(grid->addToComponents(*first));
    EXPECT_TRUE(grid->addPanel(*second));
    EXPECT_TRUE(grid->addToChildren(*third));

    ASSERT_NE(grid->itemAtPosition(2, 3), nullptr);
    EXPECT_EQ(grid->itemAtPosition(2, 3)->widget(), first.get());
    ASSERT_NE(grid->itemAtPosition(3, 4), nullptr);
    EXPECT_EQ(grid->itemAtPosition(3, 4)->widget(), second.get());
    ASSERT_NE(grid->itemAtPosition(4, 5), nullptr);
    EXPECT_EQ(grid->itemAtPosition(4, 5)->layout(), third.get());
    EXPECT_EQ(grid->rowCount(), 5);
    EXPECT_EQ(grid->columnCount(), 6);
}

TEST(GUI_GridLayout, PutsItemsIntoTheirCells)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped grid(GUI_GridLayout::New(2, 2));
    const COM_Scoped button(GUI_Button::New(*panel));
    const COM_Scoped frame(GUI_FramePanel::New(*panel));
    const COM_Scoped row(GUI_HBoxLayout::New());

    EXPECT_TRUE(grid->addToComponents(*button, 0, 1));
    EXPECT_FALSE(grid->addToComponents(*button, 1, 1));
    EXPECT_TRUE(grid->addPanel(*frame, 1, 0));
    EXPECT_TRUE(grid->addToChildren(*row, 0, 0));
    EXPECT_FALSE(grid->addToChildren(*row, 1, 1));
    grid->addSpacer(20, 10, 1, 1);

    EXPECT_EQ(grid->count(), 4);
    EXPECT_EQ(grid->itemAtPosition(0, 1)->widget(), button.get());
    EXPECT_EQ(grid->itemAtPosition(1, 0)->widget(), frame.get());
    EXPECT_EQ(grid->itemAtPosition(0, 0)->layout(), row.get());
    EXPECT_EQ(grid->itemAtPosition(1, 1)->spacerItem()->sizeHint(), QSize(20, 10));
    EXPECT_EQ(grid->itemAtPosition(1, 1)->spacerItem()->sizePolicy().horizontalPolicy(),
              QSizePolicy::Expanding);
    EXPECT_EQ(grid->itemAtPosition(1, 1)->spacerItem()->sizePolicy().verticalPolicy(),
              QSizePolicy::Minimum);

    grid->removeFromComponents(*button);
    grid->removeFromChildren(*row);
    EXPECT_EQ(grid->count(), 2);
    EXPECT_EQ(row->parent(), nullptr);
}
