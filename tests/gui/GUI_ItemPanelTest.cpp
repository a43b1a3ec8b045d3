#include "gui/GUI_ItemPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_LineEdit.h"
#include "support/CompositeTest.h"
#include "support/TestObject.h"

namespace {

/// Shows its item's text in a field and counts the field's reports.
class TextPanel : public GUI_ItemPanel
{
    COM_CLASS(TextPanel)
public:
    int mUpdates = 0;
    int mClicks = 0;

    void updateValues() override
    {
        ++mUpdates;
        EXPECT_TRUE(isDisplaying());
        GUI_ItemPanel::updateValues();
    }
    void componentClicked(GUI_ActionComponent& /*component*/) override { ++mClicks; }

protected:
    explicit TextPanel(GUI_ParentPanel& parent)
        : GUI_ItemPanel(parent)
    {
        COM_TYPE(TextPanel);
    }
    ~TextPanel() override = default;
};

} // namespace

class GUI_ItemPanelTest : public CompositeTest
{};

TEST_F(GUI_ItemPanelTest, HasItsTypeNamesInOrder)
{
    const COM_Scoped panel(TextPanel::New(root()));
    const std::vector<std::string> types = panel->getTypes();
    ASSERT_GE(types.size(), 3U);
    EXPECT_EQ(types[types.size() - 3], "GUI_FramePanel");
    EXPECT_EQ(types[types.size() - 2], "GUI_ItemPanel");
}

TEST_F(GUI_ItemPanelTest, ShowsANewItemOnce)
{
    const COM_Scoped first(TestObject::New());
    const COM_Scoped second(TestObject::New());
    const COM_Scoped panel(TextPanel::New(root()));
    EXPECT_EQ(panel->getItem(), nullptr);
    panel->setItem(*first);
    EXPECT_EQ(panel->getItem(), first.get());
    EXPECT_EQ(panel->mUpdates, 1);
    panel->setItem(*first);
    EXPECT_EQ(panel->mUpdates, 1);
    panel->setItem(second.get());
    EXPECT_EQ(panel->getItem(), second.get());
    EXPECT_EQ(panel->mUpdates, 2);
    EXPECT_FALSE(panel->isDisplaying());
}

TEST_F(GUI_ItemPanelTest, HoldsItsItemUntilItGetsAnotherOrGoes)
{
    const COM_Scoped first(TestObject::New());
    const COM_Scoped second(TestObject::New());
    auto* const panel = TextPanel::New(root());
    panel->setItem(*first);
    EXPECT_EQ(first->getReferenceCount(), 2);
    panel->setItem(*second);
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    panel->setItem(nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_EQ(panel->mUpdates, 2);
    panel->resetItem();
    EXPECT_EQ(panel->getItem(), nullptr);
    panel->setItem(*second);
    root().removeFromChildren(*panel);
    panel->Delete();
    EXPECT_EQ(second->getReferenceCount(), 1);
}
