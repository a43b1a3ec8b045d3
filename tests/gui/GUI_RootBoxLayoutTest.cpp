#include "gui/GUI_Button.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "support/TestPanel.h"

/// What holds for the row and the column of a panel.
template <typename Layout>
class RootBoxLayout : public testing::Test
{};

using Directions = testing::Types<GUI_RootHBoxLayout, GUI_RootVBoxLayout>;
TYPED_TEST_SUITE(RootBoxLayout, Directions);

TYPED_TEST(RootBoxLayout, IsInstalledOnItsPanelWithoutMargin)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(TypeParam::New(*panel));

    EXPECT_EQ(panel->getMainLayout(), layout.get());
    EXPECT_EQ(panel->layout(), layout.get());
    EXPECT_EQ(layout->contentsMargins(), QMargins());
}

TYPED_TEST(RootBoxLayout, NeedsNoPanel)
{
    const COM_Scoped layout(TypeParam::New());
    EXPECT_EQ(layout->getPanel(), nullptr);
    EXPECT_EQ(layout->parentWidget(), nullptr);
    layout->addSpacer(7);
    ASSERT_NE(layout->itemAt(0), nullptr);
    EXPECT_EQ(layout->itemAt(0)->spacerItem()->sizeHint(), QSize(0, 7));
}

/// Where a layout puts two buttons.
template <typename Layout>
struct TwoButtons
{
    explicit TwoButtons(const char* type)
    {
        const COM_Scoped panel(TestPanel::New());
        const COM_Scoped layout(Layout::New(*panel));
        const COM_Scoped first(GUI_Button::New(*panel));
        const COM_Scoped second(GUI_Button::New(*panel));
        layout->addToComponents(*first);
        layout->addToComponents(*second);
        panel->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(panel.get()));
        mFirst = first->geometry();
        mSecond = second->geometry();
        EXPECT_TRUE(layout->instanceOf(type));
    }
    QRect mFirst;
    QRect mSecond;
};

TEST(GUI_RootHBoxLayout, PutsItsItemsSideBySide)
{
    const TwoButtons<GUI_RootHBoxLayout> row("GUI_RootHBoxLayout");
    EXPECT_GT(row.mSecond.left(), row.mFirst.right());
    EXPECT_EQ(row.mSecond.top(), row.mFirst.top());
}

TEST(GUI_RootVBoxLayout, PutsItsItemsOneBelowTheOther)
{
    const TwoButtons<GUI_RootVBoxLayout> column("GUI_RootVBoxLayout");
    EXPECT_GT(column.mSecond.top(), column.mFirst.bottom());
    EXPECT_EQ(column.mSecond.left(), column.mFirst.left());
}

TEST(GUI_RootVBoxLayout, TakesMarginAndSpacing)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel, 4, 9));
    EXPECT_EQ(panel->getMainLayout(), layout.get());
    EXPECT_EQ(layout->contentsMargins(), QMargins(4, 4, 4, 4));
    EXPECT_EQ(layout->spacing(), 9);
}
