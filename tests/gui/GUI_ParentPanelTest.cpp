#include "gui/GUI_ParentPanel.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_CheckBox.h"
#include "gui/GUI_FramePanel.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "gui/GUI_SpinBox.h"
#include "support/Ends.h"
#include "support/Printed.h"
#include "support/TestPanel.h"

#include <QApplication>
#include <QPointer>

namespace {

/// A child panel that counts how often it is to show the model.
class CountingPanel : public GUI_FramePanel
{
    COM_CLASS(CountingPanel)
public:
    void updateValues() override
    {
        ++mUpdates;
        if (mShowModel) {
            mShowModel();
        }
        GUI_FramePanel::updateValues();
    }

    int mUpdates = 0;
    int mPaints = 0;
    std::function<void()> mShowModel;

protected:
    explicit CountingPanel(GUI_ParentPanel* parent)
        : GUI_FramePanel(parent)
    {
        COM_TYPE(CountingPanel);
    }
    ~CountingPanel() override = default;
    void paintEvent(QPaintEvent* event) override
    {
        ++mPaints;
        GUI_FramePanel::paintEvent(event);
    }
};

template <typename Layout, typename Component>
Component& addComponent(GUI_ParentPanel& panel, int flag)
{
    const COM_Scoped layout(Layout::New(panel));
    const COM_Scoped component(Component::New(panel, static_cast<unsigned char>(flag)));
    layout->addToComponents(*component);
    return *component;
}

} // namespace

TEST(GUI_ParentPanel, CountsItsLayoutAndItsChildrenWhichCountIt)
{
    const COM_Scoped panel(TestPanel::New());
    EXPECT_EQ(panel->getReferenceCount(), 1);

    const COM_Scoped layout(GUI_RootHBoxLayout::New(*panel));
    EXPECT_EQ(panel->getReferenceCount(), 2);
    EXPECT_EQ(layout->getReferenceCount(), 2);

    const COM_Scoped child(GUI_FramePanel::New(*panel));
    EXPECT_EQ(panel->getReferenceCount(), 3);
    EXPECT_EQ(child->getReferenceCount(), 2);

    panel->resetMainLayout();
    panel->resetChildren();
    EXPECT_EQ(panel->getReferenceCount(), 1);
    EXPECT_EQ(layout->getReferenceCount(), 1);
    EXPECT_EQ(child->getReferenceCount(), 1);
    EXPECT_EQ(layout->getPanel(), nullptr);
    EXPECT_EQ(child->getParent(), nullptr);
}

TEST(GUI_ParentPanel, TakesItsWholeTreeAlongWithoutAWord)
{
    QPointer<QWidget> panelAlive;
    QPointer<QWidget> childAlive;
    QPointer<QWidget> buttonAlive;
    QPointer<QLayout> layoutAlive;
    const std::string printed = printedBy([&] {
        const COM_Scoped panel(TestPanel::New());
        const COM_Scoped child(GUI_FramePanel::New(*panel));
        auto& button = addComponent<GUI_RootVBoxLayout, GUI_Button>(*child, 1);
        addComponent<GUI_RootHBoxLayout, GUI_Button>(*panel, 2);
        panel->getMainLayout()->addPanel(*child);
        panelAlive = panel.get();
        childAlive = child.get();
        buttonAlive = &button;
        layoutAlive = panel->getMainLayout()->qtLayout();
    });

    EXPECT_EQ(printed, "");
    EXPECT_TRUE(panelAlive.isNull());
    EXPECT_TRUE(childAlive.isNull());
    EXPECT_TRUE(buttonAlive.isNull());
    EXPECT_TRUE(layoutAlive.isNull());
}

TEST(GUI_ParentPanel, ReleasesItsLayoutAndThenItsChildrenTheLastOneFirst)
{
    Ends ends;
    {
        const COM_Scoped panel(TestPanel::New());
        const COM_Scoped first(GUI_FramePanel::New(*panel));
        const COM_Scoped second(GUI_FramePanel::New(*panel));
        GUI_Button& button = addComponent<GUI_RootVBoxLayout, GUI_Button>(*panel, 0);
        ends.watch(*first, "first");
        ends.watch(*second, "second");
        ends.watch(button, "button");
    }
    EXPECT_EQ(ends.names(), (std::vector<std::string>{"button", "second", "first"}));
}

TEST(GUI_ParentPanel, LeavesAChildAliveThatSomebodyHolds)
{
    TestPanel* const panel = TestPanel::New();
    const COM_Scoped child(GUI_FramePanel::New(*panel));
    child->setLabel("kept");

    panel->Delete();

    EXPECT_EQ(child->getReferenceCount(), 1);
    EXPECT_EQ(child->parentWidget(), nullptr);
    EXPECT_EQ(child->title().toStdString(), "kept");
}

TEST(GUI_ParentPanel, LeavesAComponentAliveThatSomebodyHolds)
{
    TestPanel* const panel = TestPanel::New();
    GUI_Button& button = addComponent<GUI_RootHBoxLayout, GUI_Button>(*panel, 1);
    button.setLabel("kept");
    button.addReference(nullptr);

    panel->Delete();

    EXPECT_EQ(button.getReferenceCount(), 1);
    EXPECT_EQ(button.parentWidget(), nullptr);
    EXPECT_EQ(button.getLayout(), nullptr);
    EXPECT_EQ(button.getValue(), "kept");
    button.Delete();
}

TEST(GUI_ParentPanel, KeepsOneLayoutAtATime)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped first(GUI_RootHBoxLayout::New());
    const COM_Scoped second(GUI_RootHBoxLayout::New());

    panel->setMainLayout(*first);
    panel->setMainLayout(*first);
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_EQ(first->getPanel(), panel.get());

    panel->setMainLayout(second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(first->getPanel(), nullptr);
    EXPECT_EQ(second->getPanel(), panel.get());
    EXPECT_EQ(panel->getReferenceCount(), 2);

    panel->setMainLayout(nullptr);
    EXPECT_EQ(panel->getMainLayout(), nullptr);
    EXPECT_EQ(second->getPanel(), nullptr);
    EXPECT_EQ(panel->getReferenceCount(), 1);
}

TEST(GUI_ParentPanel, KeepsAChildOnceAndFindsItByIndex)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped first(GUI_FramePanel::New(*panel));
    const COM_Scoped second(GUI_FramePanel::New(*panel));
    panel->addToChildren(*first);

    EXPECT_EQ(panel->getChildren().size(), 2U);
    EXPECT_EQ(panel->getChild(0), first.get());
    EXPECT_EQ(panel->getChild(1), second.get());
    EXPECT_EQ(panel->getChild(2), nullptr);
    EXPECT_EQ(panel->getChild(-1), nullptr);

    panel->removeFromChildren(5);
    panel->removeFromChildren(0);
    EXPECT_EQ(panel->getChildren().size(), 1U);
    EXPECT_EQ(first->getParent(), nullptr);
    EXPECT_EQ(panel->getChild(0), second.get());
    panel->removeFromChildren(*first);
    panel->removeFromChildren(*second);
    EXPECT_EQ(panel->getChildren().size(), 0U);
    EXPECT_EQ(panel->getReferenceCount(), 1);
}

TEST(GUI_ParentPanel, FindsAComponentInItsLayoutBeforeItsChildren)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped child(GUI_FramePanel::New(*panel));
    GUI_Button& below = addComponent<GUI_RootVBoxLayout, GUI_Button>(*child, 7);
    EXPECT_EQ(panel->getComponent(7), &below);
    EXPECT_EQ(panel->getComponent(8), nullptr);

    GUI_Button& here = addComponent<GUI_RootVBoxLayout, GUI_Button>(*panel, 7);
    EXPECT_EQ(panel->getComponent(7), &here);
    EXPECT_EQ(child->getComponent(7), &below);
}

TEST(GUI_ParentPanel, FindsTheComponentOfTheFirstChildThatHasOne)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped empty(GUI_FramePanel::New(*panel));
    const COM_Scoped first(GUI_FramePanel::New(*panel));
    const COM_Scoped second(GUI_FramePanel::New(*panel));
    GUI_Button& wanted = addComponent<GUI_RootVBoxLayout, GUI_Button>(*first, 3);
    addComponent<GUI_RootVBoxLayout, GUI_Button>(*second, 3);

    EXPECT_EQ(panel->getComponent(3), &wanted);
}

TEST(GUI_ParentPanel, UpdatesEveryPanelOfTheTreeAndRepaints)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped child(CountingPanel::New(panel.get()));
    const COM_Scoped grandchild(CountingPanel::New(child.get()));
    const COM_Scoped other(CountingPanel::New(panel.get()));
    panel->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(panel.get()));
    QApplication::processEvents();
    const int paints = grandchild->mPaints;

    panel->updateValues();
    QApplication::processEvents();

    EXPECT_EQ(child->mUpdates, 1);
    EXPECT_EQ(grandchild->mUpdates, 1);
    EXPECT_EQ(other->mUpdates, 1);
    EXPECT_GT(paints, 0);
    EXPECT_GT(grandchild->mPaints, paints);
}

TEST(GUI_ParentPanel, UpdatesItsChildrenInTheirOrder)
{
    std::vector<std::string> order;
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped second(CountingPanel::New(static_cast<GUI_ParentPanel*>(nullptr)));
    const COM_Scoped first(CountingPanel::New(panel.get()));
    panel->addToChildren(*second);
    first->mShowModel = [&order] { order.emplace_back("first"); };
    second->mShowModel = [&order] { order.emplace_back("second"); };

    panel->updateValues();

    EXPECT_EQ(order, (std::vector<std::string>{"first", "second"}));
}

TEST(GUI_ParentPanel, PassesOverAChildThatLeavesDuringTheUpdate)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped first(CountingPanel::New(panel.get()));
    const COM_Scoped second(CountingPanel::New(panel.get()));
    first->mShowModel = [&] { panel->removeFromChildren(*second); };

    panel->updateValues();

    EXPECT_EQ(first->mUpdates, 1);
    EXPECT_EQ(second->mUpdates, 0);
}

TEST(GUI_ParentPanel, SurvivesAnUpdateThatReleasesIt)
{
    TestPanel* const panel = TestPanel::New();
    const QPointer<QWidget> alive(panel);
    {
        const COM_Scoped child(CountingPanel::New(panel));
        child->mShowModel = [panel] { panel->Delete(); };
        panel->GUI_RootPanel::updateValues();
        EXPECT_EQ(child->mUpdates, 1);
    }
    EXPECT_TRUE(alive.isNull());
}

TEST(GUI_ParentPanel, EnablesAndDisablesWhatIsInside)
{
    const COM_Scoped panel(TestPanel::New());
    GUI_Button& button = addComponent<GUI_RootVBoxLayout, GUI_Button>(*panel, 0);

    static_cast<GUI_ParentPanel&>(*panel).setEnabled(false);
    EXPECT_FALSE(panel->isEnabled());
    EXPECT_FALSE(button.isEnabled());

    panel->setEnabled(true);
    EXPECT_TRUE(button.isEnabled());
}

TEST(GUI_ParentPanel, FollowsTheMouseOnlyOnRequest)
{
    const COM_Scoped panel(TestPanel::New());
    EXPECT_FALSE(panel->hasMouseTracking());
    panel->setMouseMoveListener(true);
    EXPECT_TRUE(panel->hasMouseTracking());
    panel->setMouseMoveListener(false);
    EXPECT_FALSE(panel->hasMouseTracking());
}

TEST(GUI_ParentPanel, HearsTheComponentsOfItsOwnLayoutTreeAlone)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped child(GUI_FramePanel::New(*panel));
    GUI_CheckBox& below = addComponent<GUI_RootVBoxLayout, GUI_CheckBox>(*child, 1);
    GUI_CheckBox& here = addComponent<GUI_RootVBoxLayout, GUI_CheckBox>(*panel, 2);

    below.click();
    EXPECT_TRUE(panel->mFlags.empty());
    here.click();
    EXPECT_EQ(panel->mFlags, std::vector<int>{2});
}

TEST(GUI_ParentPanel, ShowsAValueByTheFlagOfItsComponent)
{
    const TestForm form;
    auto& box = form.add<GUI_CheckBox>(3);
    form->showValue(3, "1");
    EXPECT_TRUE(box.isChecked());
    form->showValue(3, "0");
    EXPECT_FALSE(box.isChecked());
    form->showValue(4, "1");
    EXPECT_FALSE(box.isChecked());
}

TEST(GUI_ParentPanel, ShowingTheNumberOfABoxKeepsWhatIsBeingTypedIntoIt)
{
    const TestForm form;
    auto& box = form.add<GUI_SpinBox>(3);
    form->showValue(3, "7");
    form.show();
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box, "12");
    form->showValue(3, "7");
    EXPECT_EQ(box.text(), "12");
    form->showValue(3, "8");
    EXPECT_EQ(box.text(), "8");
}

TEST(GUI_ParentPanel, EnablesAComponentByItsFlag)
{
    const TestForm form;
    auto& box = form.add<GUI_CheckBox>(3);
    form->enable(4, false);
    EXPECT_TRUE(box.isEnabled());
    form->enable(3, false);
    EXPECT_FALSE(box.isEnabled());
    form->enable(3, true);
    EXPECT_TRUE(box.isEnabled());
}
