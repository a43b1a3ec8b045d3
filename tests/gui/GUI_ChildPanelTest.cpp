#include "gui/GUI_ChildPanel.h"

#include "gui/GUI_FramePanel.h"
#include "gui/GUI_TabPanel.h"
#include "support/TestPanel.h"

TEST(GUI_ChildPanel, BelongsToOneParentAtATime)
{
    const COM_Scoped first(TestPanel::New());
    const COM_Scoped second(TestPanel::New());
    const COM_Scoped child(GUI_FramePanel::New(*first));
    EXPECT_EQ(child->getParent(), first.get());
    EXPECT_EQ(first->getChildren().size(), 1U);

    child->setParent(*second);
    child->setParent(second.get());
    EXPECT_EQ(child->getParent(), second.get());
    EXPECT_EQ(first->getChildren().size(), 0U);
    EXPECT_EQ(second->getChildren().size(), 1U);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    EXPECT_EQ(child->getReferenceCount(), 2);

    child->setParent(static_cast<GUI_ParentPanel*>(nullptr));
    child->resetParent();
    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(child->getReferenceCount(), 1);
}

TEST(GUI_ChildPanel, FindsTheRootThroughItsParents)
{
    const COM_Scoped root(TestPanel::New());
    const COM_Scoped tabs(GUI_TabPanel::New(*root));
    const COM_Scoped frame(GUI_FramePanel::New(*tabs));
    EXPECT_EQ(frame->getRoot(), root.get());

    tabs->resetParent();
    EXPECT_EQ(frame->getRoot(), nullptr);
}

TEST(GUI_ChildPanel, TellsAReceivingParentOnlyOnce)
{
    const COM_Scoped root(TestPanel::New());
    const COM_Scoped child(GUI_FramePanel::New());
    root->addToChildren(*child);
    EXPECT_EQ(child->getParent(), root.get());
    EXPECT_EQ(root->getChildren().size(), 1U);
    EXPECT_EQ(child->getReferenceCount(), 2);
}
