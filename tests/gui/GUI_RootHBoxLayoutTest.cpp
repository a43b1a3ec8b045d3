#include "gui/GUI_RootHBoxLayout.h"

#include "gui/GUI_Button.h"
#include "support/TestPanel.h"

TEST(GUI_RootHBoxLayout, PutsItsItemsSideBySide)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*panel));
    const COM_Scoped first(GUI_Button::New(*panel));
    const COM_Scoped second(GUI_Button::New(*panel));
    layout->addToComponents(*first);
    layout->addToComponents(*second);
    panel->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(panel.get()));

    EXPECT_TRUE(layout->instanceOf("GUI_RootHBoxLayout"));
    EXPECT_GT(second->geometry().left(), first->geometry().right());
    EXPECT_EQ(second->geometry().top(), first->geometry().top());
}

TEST(GUI_RootHBoxLayout, IsInstalledOnItsPanelWithoutMargin)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*panel));

    EXPECT_EQ(panel->getMainLayout(), layout.get());
    EXPECT_EQ(panel->layout(), layout.get());
    EXPECT_EQ(layout->contentsMargins(), QMargins());
}

TEST(GUI_RootHBoxLayout, NeedsNoPanel)
{
    const COM_Scoped layout(GUI_RootHBoxLayout::New());
    EXPECT_EQ(layout->getPanel(), nullptr);
    EXPECT_EQ(layout->parentWidget(), nullptr);
    layout->addSpacer(7);
    ASSERT_NE(layout->itemAt(0), nullptr);
    EXPECT_EQ(layout->itemAt(0)->spacerItem()->sizeHint(), QSize(0, 7));
}
