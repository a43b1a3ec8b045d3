#include "gui/GUI_ParentLayout.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_FramePanel.h"
#include "gui/GUI_GridLayout.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "support/Ends.h"
#include "support/Printed.h"
#include "support/TestPanel.h"

#include <QPointer>

template <typename Layout>
class GUI_ParentLayoutOf : public testing::Test
{};

using Layouts = testing::Types<GUI_HBoxLayout, GUI_GridLayout, GUI_RootHBoxLayout,
                               GUI_RootVBoxLayout, GUI_RootGridLayout>;
TYPED_TEST_SUITE(GUI_ParentLayoutOf, Layouts);

TYPED_TEST(GUI_ParentLayoutOf, HasTheTypeOfItsConcreteClassAlone)
{
    const COM_Scoped layout(TypeParam::New());
    const std::vector<std::string> types = layout->getTypes();
    ASSERT_EQ(types.size(), 3U);
    EXPECT_EQ(types[1], "GUI_Object");
    EXPECT_EQ(layout->getClassName(), std::to_string(types[2].size()) + types[2]);
}

TEST(GUI_ParentLayout, TakesAComponentOnce)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped button(GUI_Button::New(*panel));

    EXPECT_TRUE(layout->addToComponents(*button));
    EXPECT_FALSE(layout->addToComponents(*button));

    EXPECT_EQ(layout->count(), 1);
    EXPECT_EQ(layout->itemAt(0)->widget(), button.get());
    EXPECT_EQ(button->getLayout(), layout.get());
}

TEST(GUI_ParentLayout, HasAPointerFormThatPassesOverNull)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped button(GUI_Button::New(*panel));
    const COM_Scoped frame(GUI_FramePanel::New(*panel));

    EXPECT_FALSE(layout->addToComponents(static_cast<GUI_Component*>(nullptr)));
    EXPECT_TRUE(layout->addToComponents(button.get()));
    EXPECT_FALSE(layout->addPanel(static_cast<GUI_ParentPanel*>(nullptr)));
    EXPECT_TRUE(layout->addPanel(frame.get()));
    EXPECT_EQ(layout->count(), 2);

    layout->removeFromComponents(static_cast<GUI_Component*>(nullptr));
    EXPECT_EQ(layout->count(), 2);
    layout->removeFromComponents(button.get());
    EXPECT_EQ(layout->count(), 1);
}

TEST(GUI_ParentLayout, CountsComponentsAndChildrenWhichCountIt)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New());
    const COM_Scoped button(GUI_Button::New(*panel));
    const COM_Scoped row(GUI_HBoxLayout::New());
    EXPECT_EQ(layout->getReferenceCount(), 1);

    layout->addToComponents(*button);
    layout->addToChildren(*row);
    // The button stands in the map by identity and in the one by flag.
    EXPECT_EQ(button->getReferenceCount(), 3);
    EXPECT_EQ(row->getReferenceCount(), 2);
    EXPECT_EQ(layout->getReferenceCount(), 3);

    layout->resetComponents();
    layout->resetChildren();
    EXPECT_EQ(button->getReferenceCount(), 1);
    EXPECT_EQ(row->getReferenceCount(), 1);
    EXPECT_EQ(layout->getReferenceCount(), 1);
    EXPECT_EQ(layout->count(), 0);
}

TEST(GUI_ParentLayout, TakesItsPartsAlongWithoutAWord)
{
    const COM_Scoped panel(TestPanel::New());
    QPointer<QWidget> buttonAlive;
    QPointer<QLayout> rowAlive;
    const std::string printed = printedBy([&] {
        const COM_Scoped layout(GUI_RootVBoxLayout::New());
        const COM_Scoped row(GUI_HBoxLayout::New());
        const COM_Scoped button(GUI_Button::New(*panel));
        row->addToComponents(*button);
        layout->addToChildren(*row);
        buttonAlive = button.get();
        rowAlive = row.get();
    });

    EXPECT_EQ(printed, "");
    EXPECT_TRUE(buttonAlive.isNull());
    EXPECT_TRUE(rowAlive.isNull());
}

TEST(GUI_ParentLayout, ReleasesItsComponentsAndThenItsChildrenTheLastOneFirst)
{
    Ends ends;
    const COM_Scoped panel(TestPanel::New());
    {
        const COM_Scoped layout(GUI_RootVBoxLayout::New());
        const COM_Scoped first(GUI_HBoxLayout::New());
        const COM_Scoped second(GUI_HBoxLayout::New());
        const COM_Scoped button(GUI_Button::New(*panel));
        layout->addToChildren(*first);
        layout->addToChildren(*second);
        layout->addToComponents(*button);
        ends.watch(*first, "first");
        ends.watch(*second, "second");
        ends.watch(*button, "button");
    }
    EXPECT_EQ(ends.names(), (std::vector<std::string>{"button", "second", "first"}));
}

TEST(GUI_ParentLayout, LeavesANestedLayoutAliveThatSomebodyHolds)
{
    const COM_Scoped row(GUI_HBoxLayout::New());
    {
        const COM_Scoped panel(TestPanel::New());
        const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
        const COM_Scoped button(GUI_Button::New(*panel));
        row->addToComponents(*button);
        layout->addToChildren(*row);
    }
    EXPECT_EQ(row->parent(), nullptr);
    EXPECT_EQ(row->getParent(), nullptr);
    EXPECT_EQ(row->count(), 1);
}

TEST(GUI_ParentLayout, FindsAComponentByTheFlagThatItHasNow)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped first(GUI_Button::New(*panel));
    const COM_Scoped second(GUI_Button::New(*panel));
    layout->addToComponents(*first);
    layout->addToComponents(*second);

    first->setFlagId(11);
    second->setFlagId(12);

    EXPECT_EQ(layout->getComponent(11), first.get());
    EXPECT_EQ(layout->getComponent(12), second.get());
    EXPECT_EQ(layout->getComponent(0), nullptr);
    EXPECT_EQ(layout->getComponent(13), nullptr);
}

TEST(GUI_ParentLayout, FindsAComponentByItsFormerFlagUntilAnUnknownOneIsSought)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped button(GUI_Button::New(*panel, static_cast<unsigned char>(1)));
    layout->addToComponents(*button);
    button->setFlagId(2);

    EXPECT_EQ(layout->getComponent(1), button.get());
    EXPECT_EQ(layout->getComponent(2), button.get());
    EXPECT_EQ(layout->getComponent(1), nullptr);
}

TEST(GUI_ParentLayout, FindsTheYoungestOfTwoComponentsWithOneFlag)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped older(GUI_Button::New(*panel));
    const COM_Scoped younger(GUI_Button::New(*panel));
    layout->addToComponents(*younger);
    layout->addToComponents(*older);
    older->setFlagId(4);
    younger->setFlagId(4);

    EXPECT_EQ(layout->getComponent(4), younger.get());
}

TEST(GUI_ParentLayout, FindsComponentsInItsChildren)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped row(GUI_HBoxLayout::New());
    const COM_Scoped below(GUI_HBoxLayout::New());
    layout->addToChildren(*row);
    row->addToChildren(*below);
    const COM_Scoped button(GUI_Button::New(*panel, static_cast<unsigned char>(9)));
    below->addToComponents(*button);

    EXPECT_EQ(layout->getComponent(9), button.get());

    const COM_Scoped nearer(GUI_Button::New(*panel, static_cast<unsigned char>(9)));
    layout->addToComponents(*nearer);
    EXPECT_EQ(layout->getComponent(9), nearer.get());
}

TEST(GUI_ParentLayout, ForgetsAComponentWhoseFlagHasChangedSince)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped button(GUI_Button::New(*panel));
    layout->addToComponents(*button);
    button->setFlagId(3);

    layout->removeFromComponents(*button);

    EXPECT_EQ(button->getReferenceCount(), 1);
    EXPECT_EQ(layout->getComponent(0), nullptr);
    EXPECT_EQ(layout->getComponent(3), nullptr);
}

TEST(GUI_ParentLayout, ListsItsComponentsInTheOrderOfTheirMaking)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped first(GUI_Button::New(*panel));
    const COM_Scoped second(GUI_Button::New(*panel));
    layout->addToComponents(*second);
    layout->addToComponents(*first);
    const COM_Scoped components(COM_Array<GUI_Component>::New());
    components->add(*first);

    layout->getComponents(*components);

    ASSERT_EQ(components->size(), 2U);
    EXPECT_EQ(components->get(0), first.get());
    EXPECT_EQ(components->get(1), second.get());
}

TEST(GUI_ParentLayout, LeavesOwnershipOfPanelsToTheTreeOfPanels)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped frame(GUI_FramePanel::New(*panel));

    EXPECT_TRUE(layout->addPanel(*frame));

    EXPECT_EQ(layout->itemAt(0)->widget(), frame.get());
    EXPECT_EQ(frame->getReferenceCount(), 2);
}

TEST(GUI_ParentLayout, LetsAComponentMoveToAnother)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped other(TestPanel::New());
    const COM_Scoped otherLayout(GUI_RootVBoxLayout::New(*other));
    const COM_Scoped button(GUI_Button::New(*panel));
    layout->addToComponents(*button);

    otherLayout->addToComponents(*button);

    EXPECT_EQ(layout->count(), 0);
    EXPECT_EQ(otherLayout->count(), 1);
    EXPECT_EQ(button->getLayout(), otherLayout.get());
    EXPECT_EQ(button->parentWidget(), other.get());
    button->click();
    EXPECT_TRUE(panel->mFlags.empty());
    EXPECT_EQ(other->mFlags.size(), 1U);
}
