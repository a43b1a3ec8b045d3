#include "gui/GUI_TabPanel.h"

#include "gui/GUI_FramePanel.h"
#include "support/Printed.h"
#include "support/TestPanel.h"

#include <QPointer>
#include <QTabBar>

TEST(GUI_TabPanel, ShowsItsPanelsAsPagesInOrder)
{
    const COM_Scoped root(TestPanel::New());
    const COM_Scoped tabs(GUI_TabPanel::New(*root));
    const COM_Scoped first(GUI_FramePanel::New(*tabs));
    const COM_Scoped second(GUI_FramePanel::New());
    tabs->insertPanel(*first, "First");
    tabs->insertPanel(*second, "Second");

    EXPECT_EQ(tabs->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_TabPanel"}));
    EXPECT_EQ(tabs->parentWidget(), root.get());
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->widget(0), first.get());
    EXPECT_EQ(tabs->tabText(1).toStdString(), "Second");
    EXPECT_EQ(tabs->getChildren().size(), 2U);
    EXPECT_EQ(second->getParent(), tabs.get());
}

TEST(GUI_TabPanel, LosesThePageOfAPanelThatGoes)
{
    const COM_Scoped tabs(GUI_TabPanel::New());
    QPointer<QWidget> alive;
    {
        const COM_Scoped page(GUI_FramePanel::New(*tabs));
        tabs->insertPanel(*page, "Page");
        alive = page.get();
    }
    EXPECT_EQ(tabs->count(), 1);

    tabs->removeFromChildren(0);

    EXPECT_TRUE(alive.isNull());
    EXPECT_EQ(tabs->count(), 0);
}

TEST(GUI_TabPanel, LeavesAPageAliveThatSomebodyHolds)
{
    const COM_Scoped page(GUI_FramePanel::New());
    const std::string printed = printedBy([&] {
        const COM_Scoped tabs(GUI_TabPanel::New());
        tabs->insertPanel(*page, "Page");
    });

    EXPECT_EQ(printed, "");
    EXPECT_EQ(page->getReferenceCount(), 1);
    EXPECT_EQ(page->parentWidget(), nullptr);
}

TEST(GUI_TabPanel, TurnsItsPagesByTheMouse)
{
    const COM_Scoped root(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*root));
    const COM_Scoped tabs(GUI_TabPanel::New(*root));
    layout->addPanel(*tabs);
    const COM_Scoped first(GUI_FramePanel::New(*tabs));
    const COM_Scoped second(GUI_FramePanel::New(*tabs));
    tabs->insertPanel(*first, "First");
    tabs->insertPanel(*second, "Second");
    root->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(root.get()));

    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());

    EXPECT_FALSE(first->isVisible());
    EXPECT_TRUE(second->isVisible());
}

TEST(GUI_TabPanel, TakesTheSharedFont)
{
    const COM_Scoped plain(GUI_TabPanel::New());
    QFont font = plain->font();
    font.setPointSize(font.pointSize() + 7);
    GUI_Object::setFontName(GUI_Object::toTString(font.toString()));
    const COM_Scoped tabs(GUI_TabPanel::New());
    GUI_Object::setFontName("");

    EXPECT_EQ(tabs->font().pointSize(), plain->font().pointSize() + 7);
}
