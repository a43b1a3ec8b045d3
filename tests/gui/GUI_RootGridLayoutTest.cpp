#include "gui/GUI_RootGridLayout.h"

#include "gui/GUI_Button.h"
#include "support/TestPanel.h"

TEST(GUI_RootGridLayout, IsInstalledOnItsPanelWithMarginAndSpacing)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootGridLayout::New(*panel, 3, 2, 11, 6));

    EXPECT_TRUE(layout->instanceOf("GUI_RootGridLayout"));
    EXPECT_EQ(panel->getMainLayout(), layout.get());
    EXPECT_EQ(panel->layout(), layout.get());
    EXPECT_EQ(layout->rowCount(), 3);
    EXPECT_EQ(layout->columnCount(), 2);
    EXPECT_EQ(layout->contentsMargins(), QMargins(11, 11, 11, 11));
    EXPECT_EQ(layout->horizontalSpacing(), 6);
    EXPECT_EQ(layout->verticalSpacing(), 6);
}

TEST(GUI_RootGridLayout, NeedsNoPanel)
{
    const COM_Scoped plain(GUI_RootGridLayout::New());
    const COM_Scoped layout(GUI_RootGridLayout::New(5, 4));
    EXPECT_EQ(plain->rowCount(), 1);
    EXPECT_EQ(plain->columnCount(), 1);
    EXPECT_EQ(layout->rowCount(), 5);
    EXPECT_EQ(layout->columnCount(), 4);
    EXPECT_EQ(layout->getPanel(), nullptr);
}

TEST(GUI_RootGridLayout, PutsAComponentWithoutACellBeyondTheCorner)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootGridLayout::New(*panel, 1, 1, 11, 6));
    const COM_Scoped button(GUI_Button::New(*panel));
    layout->addToComponents(*button);

    ASSERT_NE(layout->itemAtPosition(1, 1), nullptr);
    EXPECT_EQ(layout->itemAtPosition(1, 1)->widget(), button.get());
}

TEST(GUI_RootGridLayout, TellsItsPanelAboutEveryCell)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootGridLayout::New(*panel, 2, 2, 11, 6));
    for (int i = 0; i < 4; ++i) {
        const COM_Scoped button(GUI_Button::New(*panel, static_cast<unsigned char>(i)));
        layout->addToComponents(*button, i / 2, i % 2);
    }
    panel->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(panel.get()));

    for (const int i : {3, 0, 2, 1}) {
        QTest::mouseClick(panel->getComponent(static_cast<unsigned char>(i))->qtWidget(),
                          Qt::LeftButton);
    }

    EXPECT_EQ(panel->mFlags, (std::vector<int>{3, 0, 2, 1}));
}
