#include "gui/GUI_RootLayout.h"

#include "support/TestPanel.h"

TEST(GUI_RootLayout, BelongsToOnePanelAtATime)
{
    const COM_Scoped first(TestPanel::New());
    const COM_Scoped second(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New());
    EXPECT_EQ(layout->getRoot(), layout.get());
    EXPECT_EQ(layout->getPanel(), nullptr);

    layout->setPanel(*first);
    layout->setPanel(first.get());
    EXPECT_EQ(first->getMainLayout(), layout.get());
    EXPECT_EQ(layout->getReferenceCount(), 2);
    EXPECT_EQ(first->getReferenceCount(), 2);

    layout->setPanel(*second);
    EXPECT_EQ(first->getMainLayout(), nullptr);
    EXPECT_EQ(second->getMainLayout(), layout.get());
    EXPECT_EQ(layout->getPanel(), second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);

    layout->setPanel(nullptr);
    layout->resetPanel();
    EXPECT_EQ(second->getMainLayout(), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(layout->getReferenceCount(), 1);
}

TEST(GUI_RootLayout, TakesThePlaceOfAPanelsFormerOne)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped former(GUI_RootVBoxLayout::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New());
    former->setPanel(*panel);

    layout->setPanel(*panel);

    EXPECT_EQ(former->getPanel(), nullptr);
    EXPECT_EQ(former->getReferenceCount(), 1);
    EXPECT_EQ(panel->getMainLayout(), layout.get());
}
