#include "gui/GUI_SelectionPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_ListBox.h"
#include "support/CompositeTest.h"
#include "support/SelectionOfObjects.h"
#include "support/TestObject.h"

class GUI_SelectionPanelTest : public CompositeTest
{
protected:
    static GUI_ListBox& list(const GUI_ParentPanel& panel)
    {
        return component<GUI_ListBox>(panel, GUI_ListPanel::COMPO_LIST);
    }
};

TEST_F(GUI_SelectionPanelTest, HasListAndEditorAsItsChildrenSideBySide)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    ASSERT_EQ(panel->getChildren().size(), 2U);
    EXPECT_NE(dynamic_cast<GUI_ListPanel*>(panel->getChild(0)), nullptr);
    EXPECT_EQ(panel->getChild(1), &panel->editor());
    EXPECT_EQ(panel->layout()->count(), 2);
    EXPECT_EQ(panel->layout()->contentsMargins(), QMargins(11, 11, 11, 11));
    EXPECT_EQ(panel->layout()->spacing(), 6);
    show(*panel);
    EXPECT_LT(panel->getChild(0)->qtWidget()->geometry().right(), panel->editor().x());
    EXPECT_EQ(panel->getTypes().back(), "GUI_SelectionPanel");
}

TEST_F(GUI_SelectionPanelTest, ItsListHasTheButtonsThatAreAskedFor)
{
    const COM_Scoped adding(SelectionOfObjects::New(root(), true, false));
    EXPECT_NE(adding->getComponent(GUI_ListPanel::COMPO_ADD), nullptr);
    EXPECT_EQ(adding->getComponent(GUI_ListPanel::COMPO_DELETE), nullptr);
    const COM_Scoped deleting(SelectionOfObjects::New(root(), false, true));
    EXPECT_EQ(deleting->getComponent(GUI_ListPanel::COMPO_ADD), nullptr);
    EXPECT_NE(deleting->getComponent(GUI_ListPanel::COMPO_DELETE), nullptr);
}

TEST_F(GUI_SelectionPanelTest, AnObjectAddedIsHeldAndShown)
{
    const COM_Scoped object(TestObject::New());
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->addToItems(*object, "first");
    EXPECT_EQ(object->getReferenceCount(), 3); // the map and the editor
    EXPECT_EQ(panel->getObjectsNumber(), 1U);
    EXPECT_EQ(panel->getObject(0), object.get());
    EXPECT_EQ(panel->getSelectedObject(), object.get());
    EXPECT_EQ(panel->editor().getItem(), object.get());
    EXPECT_EQ(list(*panel).getItemText(0), "first");
}

TEST_F(GUI_SelectionPanelTest, AnObjectWithoutNameIsListedByItsIdentity)
{
    const COM_Scoped first(TestObject::New());
    const COM_Scoped second(TestObject::New());
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->addToItems(*first);
    panel->addToItems(second.get());
    EXPECT_EQ(list(*panel).getItemText(0), first->getIdentityString());
    EXPECT_EQ(list(*panel).getItemText(1), second->getIdentityString());
    EXPECT_EQ(panel->getObject(1), second.get());
}

TEST_F(GUI_SelectionPanelTest, AllWaysOfAddingTakePointersAndReferences)
{
    const COM_Scoped object(TestObject::New());
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->addToItems(object.get(), "b");
    panel->addToItems(*object, "a", 0);
    panel->addToItems(object.get(), "c", 2);
    panel->addToItems(*object, "d");
    EXPECT_EQ(panel->names(), (std::vector<std::string>{"a", "b", "c", "d"}));
    panel->addToItems(nullptr);
    panel->addToItems(nullptr, "e");
    panel->addToItems(nullptr, "e", 0);
    EXPECT_EQ(panel->getObjectsNumber(), 4U);
    EXPECT_EQ(list(*panel).count(), 4);
}

struct PlaceCase
{
    const char* name;
    int index;
    int place; ///< Where the object ends up in a list of two.
};

class GUI_SelectionPanelPlaceTest : public GUI_SelectionPanelTest,
                                    public testing::WithParamInterface<PlaceCase>
{};

TEST_P(GUI_SelectionPanelPlaceTest, ListAndEditorFollowTheNewItem)
{
    const COM_Scoped object(TestObject::New());
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b"});
    panel->addToItems(*object, "new", GetParam().index);
    EXPECT_EQ(panel->getObject(GetParam().place), object.get());
    EXPECT_EQ(list(*panel).getItemText(GetParam().place), "new");
    EXPECT_EQ(list(*panel).getCurrentIndex(), GetParam().place);
    EXPECT_EQ(panel->editor().getItem(), object.get());
}

INSTANTIATE_TEST_SUITE_P(Places, GUI_SelectionPanelPlaceTest,
                         testing::Values(PlaceCase{"first", 0, 0}, PlaceCase{"between", 1, 1},
                                         PlaceCase{"last", 2, 2}, PlaceCase{"beyond", 99, 2},
                                         PlaceCase{"negative", -1, 2}),
                         [](const auto& entry) { return std::string(entry.param.name); });

TEST_F(GUI_SelectionPanelTest, TwoItemsOfOneNameShareAnObject)
{
    const COM_Scoped first(TestObject::New());
    const COM_Scoped second(TestObject::New());
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->addToItems(*first, "same");
    panel->addToItems(*second, "same");
    EXPECT_EQ(panel->getObjectsNumber(), 1U);
    EXPECT_EQ(list(*panel).count(), 2);
    EXPECT_EQ(panel->getObject(0), second.get());
    EXPECT_EQ(panel->getObject(1), second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_TRUE(panel->removeItem(1));
    EXPECT_EQ(panel->getObject(0), nullptr);
    EXPECT_FALSE(panel->removeItem(0));
}

TEST_F(GUI_SelectionPanelTest, RemovingAnItemLeavesTheListToItsPanel)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b"});
    EXPECT_TRUE(panel->removeItem(0));
    EXPECT_EQ(panel->getObjectsNumber(), 1U);
    EXPECT_EQ(list(*panel).count(), 2);
    EXPECT_FALSE(panel->removeItem(0));
    EXPECT_FALSE(panel->removeItem(2));
    EXPECT_FALSE(panel->removeItem(-1));
    EXPECT_EQ(panel->getObjectsNumber(), 1U);
}

TEST_F(GUI_SelectionPanelTest, OutsideTheListThereIsNoObject)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    EXPECT_EQ(panel->getObject(0), nullptr);
    EXPECT_EQ(panel->getSelectedObject(), nullptr);
    // An empty name is a name like any other, not that of an index outside.
    panel->fill({""});
    EXPECT_NE(panel->getObject(0), nullptr);
    EXPECT_EQ(panel->getObject(-1), nullptr);
    EXPECT_EQ(panel->getObject(1), nullptr);
    EXPECT_FALSE(panel->removeItem(-1));
}

TEST_F(GUI_SelectionPanelTest, SelectingOutsideTheListLeavesTheEditorAlone)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b"});
    panel->setSelectedItem(0);
    COM_Object* const shown = panel->getObject(0);
    EXPECT_EQ(panel->editor().getItem(), shown);
    panel->setSelectedItem(-1);
    panel->setSelectedItem(2);
    EXPECT_EQ(panel->editor().getItem(), shown);
}

TEST_F(GUI_SelectionPanelTest, SortingKeepsNamesAndObjectsTogether)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"c", "a", "b"});
    COM_Object* const c = panel->getObject(0);
    COM_Object* const b = panel->getSelectedObject();
    panel->sort();
    EXPECT_EQ(panel->names(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(panel->getObject(2), c);
    EXPECT_EQ(panel->getSelectedObject(), b);
    EXPECT_EQ(panel->editor().getItem(), b);
}

TEST_F(GUI_SelectionPanelTest, WithoutEditorTheListWorks)
{
    const COM_Scoped panel(SelectionWithoutEditor::New(root()));
    EXPECT_EQ(panel->getChildren().size(), 1U);
    const COM_Scoped object(TestObject::New());
    panel->addToItems(*object, "a");
    panel->setSelectedItem(0);
    EXPECT_EQ(panel->getSelectedObject(), object.get());
    std::string name;
    EXPECT_EQ(panel->NewItem(name), nullptr);
}

TEST_F(GUI_SelectionPanelTest, WithoutListNothingIsAdded)
{
    const COM_Scoped object(TestObject::New());
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->resetChildren();
    panel->addToItems(*object, "a");
    panel->sort();
    panel->setEndAdding(true);
    panel->setAddButtonEnabled(false);
    panel->setDeleteButtonEnabled(false);
    panel->setSelectedItem(0);
    EXPECT_EQ(panel->getObjectsNumber(), 0U);
    EXPECT_EQ(panel->getObject(0), nullptr);
    EXPECT_EQ(panel->getSelectedObject(), nullptr);
    EXPECT_FALSE(panel->removeItem(0));
    EXPECT_EQ(object->getReferenceCount(), 1);
}

TEST_F(GUI_SelectionPanelTest, ReleasesItsObjects)
{
    const COM_Scoped object(TestObject::New());
    auto* const panel = SelectionOfObjects::New(root());
    panel->addToItems(*object, "a");
    root().removeFromChildren(*panel);
    panel->Delete();
    EXPECT_EQ(object->getReferenceCount(), 1);
}

TEST_F(GUI_SelectionPanelTest, TheFirstItemIsSelectedWhereThereIsOne)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->selectFirst();
    EXPECT_EQ(panel->getSelectedObject(), nullptr);
    panel->fill({"a", "b"});
    panel->selectFirst();
    EXPECT_EQ(list(*panel).currentRow(), 0);
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(0));
}

TEST(GUI_SelectionPanel, NumbersInNamesAreAsWideAsTheirCount)
{
    EXPECT_EQ(GUI_SelectionPanel::numberedName("Item", 9, 9), "Item 9");
    EXPECT_EQ(GUI_SelectionPanel::numberedName("Item", 9, 10), "Item 09");
    EXPECT_EQ(GUI_SelectionPanel::numberedName("Item", 12, 100), "Item 012");
}
