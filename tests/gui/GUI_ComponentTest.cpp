#include "gui/GUI_Component.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_ToolBar.h"
#include "support/TestPanel.h"

TEST(GUI_Component, HasTheFlagOfItsCaller)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped plain(GUI_Label::New(*panel));
    const COM_Scoped label(GUI_Label::New(*panel, static_cast<unsigned char>(200)));

    EXPECT_EQ(plain->getFlagId(), 0);
    EXPECT_EQ(label->getFlagId(), 200);
    label->setFlagId(255);
    EXPECT_EQ(label->getFlagId(), 255);
    EXPECT_TRUE(label->instanceOf("GUI_Component"));
}

TEST(GUI_Component, StandsInOneLayoutAtATime)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped first(GUI_HBoxLayout::New());
    const COM_Scoped second(GUI_HBoxLayout::New());
    const COM_Scoped label(GUI_Label::New(*panel));

    label->setLayout(*first);
    label->setLayout(first.get());
    EXPECT_EQ(label->getLayout(), first.get());
    EXPECT_EQ(first->count(), 1);
    EXPECT_EQ(first->getReferenceCount(), 2);

    label->setLayout(*second);
    EXPECT_EQ(first->count(), 0);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->count(), 1);
    EXPECT_EQ(label->getLayout(), second.get());

    label->setLayout(static_cast<GUI_ParentLayout*>(nullptr));
    label->resetLayout();
    EXPECT_EQ(label->getLayout(), nullptr);
    EXPECT_EQ(second->count(), 0);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(label->getReferenceCount(), 1);
}

TEST(GUI_Component, StandsInOneToolBarAtATime)
{
    const COM_Scoped window(GUI_RootWindow::New("window", false));
    const COM_Scoped first(GUI_ToolBar::New(*window, "first"));
    const COM_Scoped second(GUI_ToolBar::New(*window, "second"));
    const COM_Scoped button(
        GUI_Button::New(static_cast<GUI_ParentPanel*>(nullptr), static_cast<unsigned char>(5)));

    button->setTool(*first);
    button->setTool(first.get());
    EXPECT_EQ(button->getTool(), first.get());
    EXPECT_EQ(first->getComponent(5), button.get());
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_EQ(button->getReferenceCount(), 2);

    button->setTool(*second);
    EXPECT_EQ(first->getComponent(5), nullptr);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getComponent(5), button.get());

    button->setTool(static_cast<GUI_ToolBar*>(nullptr));
    button->resetTool();
    EXPECT_EQ(button->getTool(), nullptr);
    EXPECT_EQ(second->getComponent(5), nullptr);
    EXPECT_EQ(button->getReferenceCount(), 1);
}

TEST(GUI_Component, IsInNoToolBarThatHasItsFlagAlready)
{
    const COM_Scoped window(GUI_RootWindow::New("window", false));
    const COM_Scoped bar(GUI_ToolBar::New(*window, "bar"));
    const COM_Scoped first(GUI_Button::New(static_cast<GUI_ParentPanel*>(nullptr)));
    const COM_Scoped second(GUI_Button::New(static_cast<GUI_ParentPanel*>(nullptr)));
    first->setTool(*bar);

    second->setTool(*bar);

    EXPECT_EQ(second->getTool(), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(bar->getComponent(0), first.get());
    EXPECT_EQ(bar->getReferenceCount(), 2);
}

TEST(GUI_Component, NeedsNoPanel)
{
    const COM_Scoped label(GUI_Label::New(static_cast<GUI_ParentPanel*>(nullptr)));
    EXPECT_EQ(label->parentWidget(), nullptr);
    EXPECT_EQ(label->qtWidget(), label.get());
}

TEST(GUI_Component, LooksForIconsBelowTheWorkingDirectoryAtFirst)
{
    EXPECT_EQ(GUI_Component::ICONS_PATH, "icons/");
}
