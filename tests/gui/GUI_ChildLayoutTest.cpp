#include "gui/GUI_ChildLayout.h"

#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "support/TestPanel.h"

TEST(GUI_ChildLayout, BelongsToOneParentAtATime)
{
    const COM_Scoped first(GUI_RootVBoxLayout::New());
    const COM_Scoped second(GUI_RootHBoxLayout::New());
    const COM_Scoped row(GUI_HBoxLayout::New());

    row->setParent(*first);
    row->setParent(first.get());
    EXPECT_EQ(row->getParent(), first.get());
    EXPECT_EQ(row->parent(), first.get());
    EXPECT_EQ(first->count(), 1);
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_FALSE(first->addToChildren(*row));

    row->setParent(*second);
    EXPECT_EQ(first->count(), 0);
    EXPECT_EQ(first->getChildren().size(), 0U);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(row->parent(), second.get());
    EXPECT_EQ(second->getChildren().get(0), row.get());

    row->setParent(static_cast<GUI_ParentLayout*>(nullptr));
    row->resetParent();
    EXPECT_EQ(row->getParent(), nullptr);
    EXPECT_EQ(row->parent(), nullptr);
    EXPECT_EQ(second->count(), 0);
    EXPECT_EQ(row->getReferenceCount(), 1);
}

TEST(GUI_ChildLayout, FindsTheRootThroughItsParents)
{
    const COM_Scoped root(GUI_RootVBoxLayout::New());
    const COM_Scoped row(GUI_HBoxLayout::New());
    const COM_Scoped below(GUI_HBoxLayout::New());
    EXPECT_EQ(below->getRoot(), nullptr);

    below->setParent(*row);
    EXPECT_EQ(below->getRoot(), nullptr);

    row->setParent(*root);
    EXPECT_EQ(below->getRoot(), root.get());
}
