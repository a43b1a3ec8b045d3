#include "gui/GUI_ListPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_ListBox.h"
#include "gui/GUI_SpinBox.h"
#include "support/CompositeTest.h"
#include "support/Printed.h"
#include "support/SelectionOfObjects.h"

using Names = std::vector<std::string>;

class GUI_ListPanelTest : public CompositeTest
{
protected:
    static GUI_ListBox& list(const GUI_ParentPanel& panel)
    {
        return component<GUI_ListBox>(panel, GUI_ListPanel::COMPO_LIST);
    }
    static GUI_Button& addButton(const GUI_ParentPanel& panel)
    {
        return component<GUI_Button>(panel, GUI_ListPanel::COMPO_ADD);
    }
    static GUI_Button& deleteButton(const GUI_ParentPanel& panel)
    {
        return component<GUI_Button>(panel, GUI_ListPanel::COMPO_DELETE);
    }
    static void clickItem(GUI_ListBox& box, int index)
    {
        QTest::mouseClick(box.viewport(), Qt::LeftButton, {},
                          box.visualItemRect(box.item(index)).center());
    }
};

TEST_F(GUI_ListPanelTest, HasItsTypeNamesInOrder)
{
    const COM_Scoped panel(GUI_ListPanel::New(root(), true, true));
    const Names types = panel->getTypes();
    ASSERT_GE(types.size(), 2U);
    EXPECT_EQ(types[types.size() - 2], "GUI_FramePanel");
    EXPECT_EQ(types.back(), "GUI_ListPanel");
}

TEST_F(GUI_ListPanelTest, IsTitledAndLabelledInTheUsersLanguage)
{
    const COM_Scoped english(GUI_ListPanel::New(root(), true, true));
    EXPECT_EQ(english->title(), "Items List");
    EXPECT_EQ(addButton(*english).getValue(), "Add");
    EXPECT_EQ(deleteButton(*english).getValue(), "Delete");
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped french(GUI_ListPanel::New(&root(), true, true));
    EXPECT_EQ(GUI_Object::toTString(french->title()), "Liste des \xC3\xA9l\xC3\xA9ments");
    EXPECT_EQ(addButton(*french).getValue(), "Ajouter");
    EXPECT_EQ(deleteButton(*french).getValue(), "Supprimer");
}

TEST_F(GUI_ListPanelTest, ShowsTheButtonsThatAreAskedFor)
{
    for (const bool add : {false, true}) {
        for (const bool remove : {false, true}) {
            const COM_Scoped panel(GUI_ListPanel::New(root(), add, remove));
            EXPECT_NE(panel->getComponent(GUI_ListPanel::COMPO_LIST), nullptr);
            EXPECT_EQ(panel->getComponent(GUI_ListPanel::COMPO_ADD) != nullptr, add);
            EXPECT_EQ(panel->getComponent(GUI_ListPanel::COMPO_DELETE) != nullptr, remove);
        }
    }
}

TEST_F(GUI_ListPanelTest, AClickedItemIsShownInTheEditor)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b", "c"});
    show(*panel);
    clickItem(list(*panel), 1);
    EXPECT_EQ(panel->getSelectedObject(), panel->getObject(1));
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(1));
    QTest::keyClick(&list(*panel), Qt::Key_Up);
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(0));
}

TEST_F(GUI_ListPanelTest, ANewItemFollowsTheSelectedOne)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b", "c"});
    show(*panel);
    clickItem(list(*panel), 0);
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a", "new 1", "b", "c"}));
    EXPECT_EQ(list(*panel).getCurrentIndex(), 1);
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(1));
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a", "new 1", "new 2", "b", "c"}));
    EXPECT_EQ(panel->getSelectedObject()->getReferenceCount(), 2); // the map and the editor
}

TEST_F(GUI_ListPanelTest, TheFirstItemIsAddedToAnEmptyList)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    show(*panel);
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"new 1"}));
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(0));
}

TEST_F(GUI_ListPanelTest, WithEndAddingANewItemIsTheLast)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b", "c"});
    panel->setEndAdding(true);
    show(*panel);
    clickItem(list(*panel), 0);
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a", "b", "c", "new 1"}));
    panel->setEndAdding(false);
    clickItem(list(*panel), 0);
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a", "new 2", "b", "c", "new 1"}));
}

TEST_F(GUI_ListPanelTest, WithEndAddingTheEndIsBehindItemsOfOneNameToo)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"same", "same", "same"});
    panel->setEndAdding(true);
    show(*panel);
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"same", "same", "same", "new 1"}));
}

TEST_F(GUI_ListPanelTest, NothingIsAddedWhenThereIsNoNewItem)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a"});
    panel->mGivesItems = false;
    show(*panel);
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a"}));
    EXPECT_EQ(panel->getObjectsNumber(), 1U);
}

TEST_F(GUI_ListPanelTest, DeletingSelectsTheItemBefore)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b", "c"});
    show(*panel);
    clickItem(list(*panel), 1);
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a", "c"}));
    EXPECT_EQ(panel->getObjectsNumber(), 2U);
    EXPECT_EQ(list(*panel).getCurrentIndex(), 0);
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(0));
}

TEST_F(GUI_ListPanelTest, DeletingTheLastSelectsTheItemBefore)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b"});
    show(*panel);
    clickItem(list(*panel), 1);
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a"}));
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(0));
}

TEST_F(GUI_ListPanelTest, DeletingTheFirstSelectsNothingAndTheEditorKeepsIt)
{
    const int before = TestObject::getLivingNumber();
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b"});
    show(*panel);
    clickItem(list(*panel), 0);
    const COM_Object* const first = panel->getObject(0);
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"b"}));
    EXPECT_EQ(list(*panel).getCurrentIndex(), -1);
    EXPECT_EQ(panel->getSelectedObject(), nullptr);
    EXPECT_EQ(panel->editor().getItem(), first);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(TestObject::getLivingNumber(), before + 2);

    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"b"})) << "nothing is selected";
}

TEST_F(GUI_ListPanelTest, DeletingFromAnEmptyListDoesNothing)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    show(*panel);
    click(deleteButton(*panel));
    panel->setEndAdding(true);
    click(deleteButton(*panel));
    EXPECT_EQ(panel->getObjectsNumber(), 0U);
    EXPECT_EQ(list(*panel).count(), 0);
}

TEST_F(GUI_ListPanelTest, WithEndAddingTheLastItemIsDeleted)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a", "b", "c"});
    panel->setEndAdding(true);
    show(*panel);
    clickItem(list(*panel), 0);
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a", "b"}));
    EXPECT_EQ(list(*panel).getCurrentIndex(), 1);
    EXPECT_EQ(panel->editor().getItem(), panel->getObject(1));
}

TEST_F(GUI_ListPanelTest, AnItemThatLostItsObjectStaysInTheList)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"same", "same"});
    show(*panel);
    clickItem(list(*panel), 1);
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"same"}));
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"same"}));
    EXPECT_EQ(panel->getObjectsNumber(), 0U);
}

TEST_F(GUI_ListPanelTest, ButtonsCanBeGreyed)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a"});
    show(*panel);
    panel->setAddButtonEnabled(false);
    panel->setDeleteButtonEnabled(false);
    click(addButton(*panel));
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a"}));
    panel->setAddButtonEnabled(true);
    click(addButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a", "new 1"}));
    panel->setDeleteButtonEnabled(true);
    click(deleteButton(*panel));
    EXPECT_EQ(panel->names(), (Names{"a"}));
}

TEST_F(GUI_ListPanelTest, WithoutButtonsThereIsNothingToGrey)
{
    const COM_Scoped panel(SelectionOfObjects::New(root(), false, false));
    panel->setAddButtonEnabled(false);
    panel->setDeleteButtonEnabled(false);
    EXPECT_EQ(panel->getComponent(GUI_ListPanel::COMPO_ADD), nullptr);
}

TEST_F(GUI_ListPanelTest, AnUnknownFlagIsNamed)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    auto& listPanel = dynamic_cast<GUI_ListPanel&>(*panel->getChild(0));
    const COM_Scoped stranger(GUI_SpinBox::New(listPanel, 7));
    EXPECT_EQ(printedBy([&] { listPanel.componentClicked(*stranger); }), "action unknown !7\n");
}

TEST_F(GUI_ListPanelTest, EveryReportEndsWithANewPicture)
{
    const COM_Scoped panel(SelectionOfObjects::New(root()));
    panel->fill({"a"});
    show(*panel);
    auto& listPanel = dynamic_cast<GUI_ListPanel&>(*panel->getChild(0));
    EXPECT_FALSE(isPaintedAfter(listPanel, [] {}));
    // The editor shows this item already.
    EXPECT_TRUE(isPaintedAfter(listPanel, [&] { listPanel.componentClicked(list(*panel)); }));
}

TEST_F(GUI_ListPanelTest, InsideAnotherPanelOrWithoutListNothingHappens)
{
    const COM_Scoped lone(GUI_ListPanel::New(root(), true, true));
    const COM_Scoped stranger(GUI_SpinBox::New(*lone, 7));
    show(*lone);
    click(addButton(*lone));
    click(deleteButton(*lone));
    EXPECT_EQ(list(*lone).count(), 0);
    EXPECT_EQ(printedBy([&] { lone->componentClicked(*stranger); }), "");

    const COM_Scoped panel(SelectionOfObjects::New(root()));
    auto& listPanel = dynamic_cast<GUI_ListPanel&>(*panel->getChild(0));
    listPanel.resetMainLayout();
    EXPECT_EQ(printedBy([&] { listPanel.componentClicked(*stranger); }), "");
    listPanel.addToList("a", 0);
    listPanel.sort();
    listPanel.setCurrentIndex(0);
    EXPECT_EQ(listPanel.getItemsNumber(), 0);
    EXPECT_EQ(listPanel.getCurrentIndex(), -1);
    EXPECT_EQ(listPanel.getValue(0), "");
}
