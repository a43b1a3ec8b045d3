#include "gui/GUI_ChildWindow.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "gui/GUI_Workspace.h"
#include "support/Printed.h"
#include "support/TestWindows.h"

#include <QApplication>
#include <QMdiSubWindow>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

/// A child that counts how often it is closed.
class CountingChild : public GUI_ChildWindow
{
    COM_CLASS(CountingChild)
public:
    bool close(bool flag) override
    {
        ++mCloses;
        return GUI_ChildWindow::close(flag);
    }
    int mCloses = 0;

protected:
    explicit CountingChild(GUI_ParentWindow& parent)
        : GUI_ChildWindow(parent)
    {
        COM_TYPE(CountingChild);
    }
    ~CountingChild() override = default;
};

/// A panel with two fields and a button, which does what a test asks for when one of them reports.
class ClosingPanel : public GUI_RootPanel
{
    COM_CLASS(ClosingPanel)
public:
    void componentClicked(GUI_ActionComponent& component) override
    {
        if (mWork) {
            mWork(component);
        }
    }

    GUI_LineEdit* mEdit = nullptr;
    GUI_Button* mButton = nullptr;
    std::function<void(GUI_ActionComponent&)> mWork;

protected:
    explicit ClosingPanel(GUI_ParentWindow& window)
        : GUI_RootPanel(window)
    {
        COM_TYPE(ClosingPanel);
        const COM_Scoped layout(GUI_RootVBoxLayout::New(*this));
        const COM_Scoped edit(GUI_LineEdit::New(*this));
        const COM_Scoped button(GUI_Button::New(*this));
        layout->addToComponents(*edit);
        layout->addToComponents(*button);
        mEdit = edit.get();
        mButton = button.get();
    }
    ~ClosingPanel() override = default;
};

/// A shown child window, on the desktop or in a workspace, that only its parent holds.
class GUI_ChildWindowEndTest : public testing::TestWithParam<bool>
{
protected:
    GUI_ChildWindowEndTest()
    {
        mFamily.mRoot->setSize(600, 400);
        mFamily.mRoot->show();
        const COM_Scoped child(GUI_ChildWindow::New(*mFamily.mRoot));
        mChild = child.get();
        mLife = mChild;
        const COM_Scoped panel(ClosingPanel::New(*mChild));
        mPanel = panel.get();
        const COM_Scoped menu(GUI_MenuPanel::New(*mChild));
        const COM_Scoped file(GUI_RootMenu::New(*menu, "&File"));
        const COM_Scoped action(TestAction::New("&Wipe"));
        mAction = action.get();
        file->addToActions(*action);
        child->show();
        settle();
    }
    bool isInWorkspace() const { return GetParam(); }
    /// The child is closed by whatever its panel is told.
    void closeOnReport()
    {
        mPanel->mWork = [this](GUI_ActionComponent&) {
            ++mReports;
            EXPECT_TRUE(mLife == nullptr || mChild->close(false) || mReports > 1);
        };
    }
    void expectEnd()
    {
        settle();
        EXPECT_TRUE(mLife.isNull());
        EXPECT_EQ(mFamily.mRoot->getReferenceCount(), 1 + 1);
        if (isInWorkspace()) {
            EXPECT_TRUE(mFamily.mRoot->getWorkspace()->subWindowList().isEmpty());
        }
    }

    TestFamily mFamily{GetParam()};
    // Held by the root window's tree.
    GUI_ChildWindow* mChild = nullptr;
    ClosingPanel* mPanel = nullptr;
    TestAction* mAction = nullptr;
    QPointer<QWidget> mLife;
    int mReports = 0;
};

} // namespace

TEST(GUI_ChildWindow, ItIsMadeUnderItsParentByReferenceOrPointer)
{
    const TestFamily family;
    const COM_Scoped byReference(GUI_ChildWindow::New(*family.mRoot));
    const COM_Scoped byPointer(GUI_ChildWindow::New(family.mRoot));
    const COM_Scoped container(GUI_ChildWindow::New(*family.mRoot, true));
    const COM_Scoped byBoth(GUI_ChildWindow::New(family.mRoot, true));
    EXPECT_EQ(byReference->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_ParentWindow",
                                        "GUI_ChildWindow"}));
    EXPECT_EQ(byReference->getName(), "Parent Window");
    EXPECT_EQ(byReference->getParent(), family.mRoot);
    EXPECT_EQ(byPointer->getParent(), family.mRoot);
    EXPECT_TRUE(container->isContainer());
    EXPECT_TRUE(byBoth->isContainer());
    EXPECT_EQ(byReference->getReferenceCount(), 2);
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1 + 1 + 4);
    EXPECT_TRUE(byReference->isWindow());
}

TEST(GUI_ChildWindow, ItsRootIsThatOfItsParentOrNone)
{
    const TestFamily family;
    const COM_Scoped child(GUI_ChildWindow::New(*family.mRoot));
    const COM_Scoped deep(GUI_ChildWindow::New(child.get()));
    EXPECT_EQ(deep->getRoot(), family.mRoot);
    child->resetParent();
    EXPECT_EQ(deep->getRoot(), nullptr);
    EXPECT_EQ(child->getRoot(), nullptr);
}

TEST(GUI_ChildWindow, WithoutOwnWorkspaceItSharesThatOfItsParent)
{
    const TestFamily family(true);
    const COM_Scoped child(GUI_ChildWindow::New(*family.mRoot));
    const COM_Scoped container(GUI_ChildWindow::New(*family.mRoot, true));
    const COM_Scoped deep(GUI_ChildWindow::New(child.get()));
    EXPECT_EQ(child->getWorkspace(), family.mRoot->getWorkspace());
    EXPECT_EQ(deep->getWorkspace(), family.mRoot->getWorkspace());
    EXPECT_NE(container->getWorkspace(), family.mRoot->getWorkspace());
    EXPECT_NE(container->getWorkspace(), nullptr);
    child->resetParent();
    EXPECT_EQ(child->getWorkspace(), nullptr);
    EXPECT_FALSE(child->isContainer());
}

TEST(GUI_ChildWindow, TheLinkWithTheParentIsMadeFromEitherEnd)
{
    const TestFamily family;
    const TestFamily other;
    const COM_Scoped child(GUI_ChildWindow::New(*family.mRoot));
    child->setParent(*family.mRoot);
    EXPECT_EQ(child->getReferenceCount(), 2);
    child->setParent(other.mRoot);
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1 + 1);
    EXPECT_EQ(other.mRoot->getChild(child->getIdentityNumber()), child.get());
    family.mRoot->addToChildren(*child);
    EXPECT_EQ(other.mRoot->getReferenceCount(), 1 + 1);
    EXPECT_EQ(child->getParent(), family.mRoot);
    EXPECT_EQ(child->getReferenceCount(), 2);
    child->setParent(static_cast<GUI_ParentWindow*>(nullptr));
    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_EQ(child->getReferenceCount(), 1);
    child->resetParent();
    EXPECT_EQ(child->getReferenceCount(), 1);
}

TEST(GUI_ChildWindow, ItMovesFromOneWorkspaceToAnother)
{
    const TestFamily family(true);
    const TestFamily other(true);
    const COM_Scoped child(GUI_ChildWindow::New(*family.mRoot));
    child->setParent(*other.mRoot);
    settle();
    EXPECT_TRUE(family.mRoot->getWorkspace()->subWindowList().isEmpty());
    ASSERT_EQ(other.mRoot->getWorkspace()->subWindowList().size(), 1);
    EXPECT_EQ(other.mRoot->getWorkspace()->subWindowList()[0]->widget(), child.get());
    child->resetParent();
    settle();
    EXPECT_EQ(child->parentWidget(), nullptr);
    EXPECT_TRUE(other.mRoot->getWorkspace()->subWindowList().isEmpty());
}

TEST(GUI_ChildWindow, AChildOnTheDesktopStaysVisibleWhenItChangesItsParent)
{
    const TestFamily family;
    const TestFamily other;
    GUI_ChildWindow& child = family.addChild();
    child.show();
    child.setParent(*other.mRoot);
    EXPECT_TRUE(child.isVisible());
}

TEST(GUI_ChildWindow, HeldByOthersItIsClosedAndAlone)
{
    const TestFamily family;
    const COM_Scoped child(GUI_ChildWindow::New(*family.mRoot));
    const COM_Scoped panel(GUI_RootPanel::New(*child));
    const QPointer<QWidget> deep = GUI_ChildWindow::New(child.get());
    dynamic_cast<GUI_ChildWindow&>(*deep).Delete();
    child->show();
    EXPECT_TRUE(child->close(false));
    EXPECT_TRUE(child->isHidden());
    EXPECT_TRUE(deep.isNull());
    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_EQ(child->getPanel(), nullptr);
    EXPECT_EQ(panel->getWindow(), nullptr);
    EXPECT_EQ(child->getReferenceCount(), 1);
    EXPECT_TRUE(child->close(false));
    EXPECT_TRUE(static_cast<QWidget*>(child.get())->close());
}

TEST(GUI_ChildWindow, AChildThatNobodyHoldsEndsWithItsClose)
{
    const TestFamily family;
    GUI_ChildWindow& child = family.addChild();
    const QPointer<QWidget> life = &child;
    EXPECT_TRUE(child.close(true));
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1 + 1);
}

TEST(GUI_ChildWindow, TheParentReleasesItsChildrenWithoutClosingThem)
{
    const TestFamily family;
    const COM_Scoped child(CountingChild::New(*family.mRoot));
    family.mRoot->close(false);
    EXPECT_EQ(child->mCloses, 0);
    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_TRUE(child->close(false));
    EXPECT_EQ(child->mCloses, 1);
}

TEST_P(GUI_ChildWindowEndTest, ByItsOwnButton)
{
    closeOnReport();
    QTest::mouseClick(mPanel->mButton, Qt::LeftButton);
    EXPECT_GE(mReports, 1);
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ByItsOwnFieldOnReturn)
{
    closeOnReport();
    mPanel->mEdit->setFocus();
    QTest::keyClick(mPanel->mEdit, Qt::Key_Return);
    EXPECT_GE(mReports, 1);
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ByItsOwnFieldThatIsLeft)
{
    QApplication::setActiveWindow(mChild->window());
    settle();
    mPanel->mEdit->setFocus();
    settle();
    closeOnReport();
    mPanel->mButton->setFocus();
    EXPECT_GE(mReports, 1);
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ByItsOwnAction)
{
    mAction->mWork = [this] { EXPECT_TRUE(mChild->close(false)); };
    mAction->trigger();
    EXPECT_FALSE(mLife.isNull());
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ByItsTitleBar)
{
    EXPECT_TRUE(static_cast<QWidget*>(mChild)->close());
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ByTheBoxOfItsFrame)
{
    if (isInWorkspace()) {
        EXPECT_TRUE(qobject_cast<QMdiSubWindow*>(mChild->parentWidget())->close());
    } else {
        EXPECT_TRUE(mChild->windowHandle()->close());
    }
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ByItsParent)
{
    mFamily.mRoot->removeFromChildren(*mChild);
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ByTheEndOfItsParentFromItsOwnButton)
{
    mPanel->mWork = [this](GUI_ActionComponent&) {
        EXPECT_TRUE(mFamily.mRoot->close(false));
        EXPECT_FALSE(mLife.isNull());
    };
    QTest::mouseClick(mPanel->mButton, Qt::LeftButton);
    settle();
    EXPECT_TRUE(mLife.isNull());
    EXPECT_TRUE(mFamily.mRoot->isHidden());
}

TEST_P(GUI_ChildWindowEndTest, ByTheEndOfTheFamily)
{
    mFamily.release();
    EXPECT_TRUE(mLife.isNull());
}

TEST_P(GUI_ChildWindowEndTest, WithoutAWordOfReferencesThatWereLeft)
{
    closeOnReport();
    EXPECT_EQ(printedBy([this] {
                  QTest::mouseClick(mPanel->mButton, Qt::LeftButton);
                  settle();
              }),
              "");
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, AFieldThatIsBeingTypedInDeliversItsText)
{
    std::string text;
    mPanel->mWork = [this, &text](GUI_ActionComponent&) { text = mPanel->mEdit->getValue(); };
    QApplication::setActiveWindow(mChild->window());
    settle();
    mPanel->mEdit->setFocus();
    settle();
    mPanel->mEdit->selectAll();
    QTest::keyClicks(mPanel->mEdit, "42");
    text.clear();
    EXPECT_TRUE(mChild->close(false));
    EXPECT_EQ(text, "42");
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, ACloseFromTheFieldThatDeliversIsPartOfTheClose)
{
    bool isBegun = true;
    mPanel->mWork = [this, &isBegun](GUI_ActionComponent&) { isBegun = mChild->close(false); };
    QApplication::setActiveWindow(mChild->window());
    settle();
    mPanel->mEdit->setFocus();
    settle();
    EXPECT_TRUE(mChild->close(false));
    EXPECT_FALSE(isBegun);
    expectEnd();
}

TEST_P(GUI_ChildWindowEndTest, PartsHeldByOthersOutliveIt)
{
    mPanel->addReference(nullptr);
    mPanel->mButton->addReference(nullptr);
    GUI_Button* const button = mPanel->mButton;
    mFamily.release();
    EXPECT_TRUE(mLife.isNull());
    EXPECT_EQ(mPanel->getWindow(), nullptr);
    EXPECT_EQ(mPanel->parentWidget(), nullptr);
    mPanel->Delete();
    EXPECT_EQ(button->getReferenceCount(), 1);
    EXPECT_EQ(button->parentWidget(), nullptr);
    button->Delete();
}

INSTANTIATE_TEST_SUITE_P(Place, GUI_ChildWindowEndTest, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& row) {
                             return row.param ? "InAWorkspace" : "OnTheDesktop";
                         });

TEST(GUI_ChildWindow, IsFoundByItsClassAndWhatIsAskedOfIt)
{
    const TestFamily family;
    EXPECT_EQ(family.mRoot->findForm<CountingChild>(), nullptr);
    family.addChild();
    const COM_Scoped first(CountingChild::New(*family.mRoot));
    const COM_Scoped second(CountingChild::New(*family.mRoot));
    second->mCloses = 1;
    EXPECT_EQ(family.mRoot->findForm<CountingChild>(), first.get());
    EXPECT_EQ(family.mRoot->findForm<CountingChild>(
                  [](const CountingChild& child) { return child.mCloses == 1; }),
              second.get());
    EXPECT_EQ(family.mRoot->findForm<CountingChild>(
                  [](const CountingChild& child) { return child.mCloses == 2; }),
              nullptr);
}

TEST(GUI_ChildWindow, IsOpenedOnceAndRaisedAfterThat)
{
    const TestFamily family;
    int made = 0;
    const auto make = [&made](GUI_ParentWindow& parent) {
        ++made;
        return GUI_ChildWindow::New(parent);
    };
    unsigned long id = 0;
    family.mRoot->openForm(id, make);
    GUI_ChildWindow* const child = family.mRoot->getChild(id);
    ASSERT_NE(child, nullptr);
    EXPECT_TRUE(child->isVisible());
    child->hide();
    family.mRoot->openForm(id, make);
    EXPECT_TRUE(child->isVisible());
    EXPECT_EQ(made, 1);
    child->close(false);
    family.mRoot->openForm(id, make);
    EXPECT_EQ(made, 2);
    EXPECT_NE(family.mRoot->getChild(id), nullptr);
}
