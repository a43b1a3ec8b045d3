#include "gui/GUI_ToolBar.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_ComboBox.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "support/TestWindows.h"

#include <QMenu>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

/// A bar that can be closed from outside.
class ClosingBar : public GUI_ToolBar
{
    COM_CLASS(ClosingBar)
public:
    using GUI_ToolBar::close;

protected:
    explicit ClosingBar(GUI_ParentWindow& window)
        : GUI_ToolBar(window, "closing")
    {
        COM_TYPE(ClosingBar);
    }
    ~ClosingBar() override = default;
};

/// A shown family with a push button in its tool bar.
class GUI_ToolBarTest : public testing::Test
{
protected:
    GUI_ToolBarTest()
    {
        const COM_Scoped button(GUI_Button::New(static_cast<GUI_ParentPanel*>(nullptr), 5));
        mButton = button.get();
        mButton->setLabel("Go");
        mBar->addToComponents(*mButton);
        mFamily.mRoot->show();
        settle();
    }

    TestFamily mFamily;
    GUI_ToolBar* mBar = mFamily.mPanel->getToolBar("toolbar");
    GUI_Button* mButton = nullptr; ///< Held by the bar.
};

} // namespace

TEST_F(GUI_ToolBarTest, ABarIsDockedAtTheTopOfItsWindow)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped bar(GUI_ToolBar::New(window.get(), "h\xc3\xa9"));
    EXPECT_EQ(bar->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_ToolBar"}));
    EXPECT_EQ(bar->getName(), "h\xc3\xa9");
    EXPECT_EQ(window->toolBarArea(bar.get()), Qt::TopToolBarArea);
    EXPECT_EQ(bar->getMenu(), nullptr);
    EXPECT_EQ(bar->getReferenceCount(), 1);
    EXPECT_EQ(window->getReferenceCount(), 1);
}

TEST_F(GUI_ToolBarTest, ItsLabelIsNoTextForTheUser)
{
    const std::unique_ptr<QMenu> popup(mFamily.mRoot->createPopupMenu());
    EXPECT_TRUE(popup == nullptr || popup->isEmpty());
    EXPECT_TRUE(mBar->isVisible());
}

TEST_F(GUI_ToolBarTest, ABarWithoutWindowWaitsForOne)
{
    const COM_Scoped bar(GUI_ToolBar::New(nullptr, "loose"));
    EXPECT_EQ(bar->parentWidget(), nullptr);
    bar->setMenu(*mFamily.mPanel);
    EXPECT_EQ(mFamily.mPanel->getToolBar("loose"), bar.get());
}

TEST_F(GUI_ToolBarTest, AComponentStandsInTheBarAndCountsIt)
{
    EXPECT_EQ(mBar->getComponent(5), mButton);
    EXPECT_EQ(mBar->getComponent(6), nullptr);
    EXPECT_EQ(mButton->getTool(), mBar);
    EXPECT_EQ(mButton->getReferenceCount(), 1);
    EXPECT_EQ(mBar->getReferenceCount(), 1 + 1);
    EXPECT_TRUE(mButton->isVisible());
    EXPECT_TRUE(mBar->isAncestorOf(mButton));
    mBar->addToComponents(*mButton);
    EXPECT_EQ(mBar->getReferenceCount(), 1 + 1);
}

TEST_F(GUI_ToolBarTest, OfTwoComponentsWithOneFlagTheFirstStays)
{
    const COM_Scoped second(GUI_Button::New(static_cast<GUI_ParentPanel*>(nullptr), 5));
    mBar->addToComponents(*second);
    EXPECT_EQ(mBar->getComponent(5), mButton);
    EXPECT_EQ(second->getTool(), nullptr);
    EXPECT_FALSE(mBar->isAncestorOf(second.get()));
    second->setTool(*mBar);
    EXPECT_EQ(mBar->getComponent(5), mButton);
    EXPECT_EQ(second->getTool(), nullptr);
    EXPECT_EQ(mBar->getReferenceCount(), 1 + 1);
}

TEST_F(GUI_ToolBarTest, UsingAComponentReachesTheMenuPanel)
{
    QTest::mouseClick(mButton, Qt::LeftButton);
    EXPECT_EQ(mFamily.mPanel->mClicked, mButton);
}

TEST_F(GUI_ToolBarTest, WithoutMenuPanelUsingAComponentDoesNothing)
{
    const COM_Scoped bar(GUI_ToolBar::New(*mFamily.mRoot, "loose"));
    const COM_Scoped button(GUI_Button::New(static_cast<GUI_ParentPanel*>(nullptr), 1));
    button->setTool(*bar);
    QTest::mouseClick(button.get(), Qt::LeftButton);
    EXPECT_EQ(mFamily.mPanel->mClicked, nullptr);
    button->resetTool();
}

TEST_F(GUI_ToolBarTest, AComponentMadeInTheBarIsInIt)
{
    const COM_Scoped combo(GUI_ComboBox::New(true, *mBar, 9));
    EXPECT_EQ(mBar->getComponent(9), combo.get());
    EXPECT_TRUE(mBar->isAncestorOf(combo.get()));
    EXPECT_TRUE(combo->isEditable());
}

TEST_F(GUI_ToolBarTest, ARemovedComponentGoesOrStandsAlone)
{
    const COM_Scoped held(GUI_Button::New(static_cast<GUI_ParentPanel*>(nullptr), 7));
    held->setTool(*mBar);
    const QPointer<QWidget> life = mButton;
    mButton->setFlagId(77); // it stands under its former flag
    mBar->removeFromComponents(*mButton);
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(mBar->getComponent(5), nullptr);
    mBar->removeFromComponents(*held);
    mBar->removeFromComponents(*held);
    EXPECT_EQ(held->getTool(), nullptr);
    EXPECT_EQ(held->parentWidget(), nullptr);
    EXPECT_EQ(held->getReferenceCount(), 1);
    EXPECT_EQ(mBar->getReferenceCount(), 1);
    settle();
    EXPECT_EQ(mBar->actions().size(), 1);
    mBar->addToComponents(*held);
    settle(); // a tool bar shows what it gets when it lays itself out
    EXPECT_TRUE(held->isVisible());
}

TEST_F(GUI_ToolBarTest, AComponentCanLeaveTheBarInItsOwnClick)
{
    GUI_Button* const button = mButton;
    const QPointer<QWidget> life = button;
    mFamily.mPanel->mAnswer = [button] { button->resetTool(); };
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(mBar->getComponent(5), nullptr);
    settle();
    EXPECT_TRUE(life.isNull());
}

TEST_F(GUI_ToolBarTest, AComponentHeldByOthersOutlivesTheWindow)
{
    mButton->addReference(nullptr);
    const QPointer<QWidget> bar = mBar;
    mFamily.release();
    EXPECT_TRUE(bar.isNull());
    EXPECT_EQ(mButton->getTool(), nullptr);
    EXPECT_EQ(mButton->getValue(), "Go");
    EXPECT_EQ(mButton->getReferenceCount(), 1);
    mButton->Delete();
}

TEST_F(GUI_ToolBarTest, HeirsCanCloseIt)
{
    const COM_Scoped bar(ClosingBar::New(*mFamily.mRoot));
    bar->show();
    EXPECT_TRUE(bar->close(true));
    EXPECT_TRUE(bar->isHidden());
    EXPECT_EQ(bar->getReferenceCount(), 1);
}

TEST_F(GUI_ToolBarTest, TheResetReleasesAllComponents)
{
    const QPointer<QWidget> life = mButton;
    mBar->resetComponents();
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(mBar->getReferenceCount(), 1);
}

TEST_F(GUI_ToolBarTest, TheLinkWithTheMenuPanelIsMadeFromEitherEnd)
{
    const COM_Scoped bar(GUI_ToolBar::New(mFamily.mRoot, "second"));
    bar->setMenu(*mFamily.mPanel);
    bar->setMenu(*mFamily.mPanel);
    EXPECT_EQ(mFamily.mPanel->getToolBar("second"), bar.get());
    EXPECT_EQ(bar->getReferenceCount(), 2);
    bar->resetMenu();
    EXPECT_EQ(mFamily.mPanel->getToolBar("second"), nullptr);
    EXPECT_EQ(bar->getReferenceCount(), 1);
    mFamily.mPanel->addToToolBars(*bar);
    mFamily.mPanel->addToToolBars(*bar);
    EXPECT_EQ(bar->getMenu(), mFamily.mPanel);
    EXPECT_EQ(bar->getReferenceCount(), 2);
    mFamily.mPanel->removeFromToolBars(*bar);
    EXPECT_EQ(bar->getMenu(), nullptr);
    mFamily.mPanel->removeFromToolBars(*bar);
    EXPECT_EQ(bar->getReferenceCount(), 1);
}

TEST_F(GUI_ToolBarTest, ABarOfTheSameLabelTakesThePlaceOfTheFormerOne)
{
    const QPointer<QWidget> former = mBar;
    const COM_Scoped bar(GUI_ToolBar::New(mFamily.mRoot, "toolbar"));
    mFamily.mPanel->addToToolBars(*bar);
    EXPECT_TRUE(former.isNull());
    EXPECT_EQ(mFamily.mPanel->getToolBar("toolbar"), bar.get());
}

TEST_F(GUI_ToolBarTest, TheResetOfThePanelReleasesAllBars)
{
    const QPointer<QWidget> life = mBar;
    mFamily.mPanel->resetToolBars();
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(mFamily.mPanel->getToolBar("toolbar"), nullptr);
}
