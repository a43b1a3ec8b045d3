#include "gui/GUI_Action.h"

#include "gui/GUI_ChildMenu.h"
#include "support/CaseName.h"
#include "support/TestDirectory.h"
#include "support/TestWindows.h"

#include <QImage>
#include <QKeySequence>
#include <QPointer>
#include <QSignalBlocker>
#include <QTest>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace {

struct Label
{
    const char* mLabel;
    const char* mPlain; ///< What a tool button and its tip show.
    const char* mAccelerator;
};

void PrintTo(const Label& row, std::ostream* out)
{
    *out << row.mLabel;
}

class GUI_ActionLabelTest : public testing::TestWithParam<Label>
{};

/// Puts the prefix of icons back at the end.
class GUI_ActionIconTest : public testing::Test
{
protected:
    GUI_ActionIconTest() { GUI_Action::ICONS_PATH = mDirectory.slashed(); }
    ~GUI_ActionIconTest() override { GUI_Action::ICONS_PATH = mFormer; }

    std::string mFormer = GUI_Action::ICONS_PATH;
    TestDirectory mDirectory;
};

} // namespace

TEST_P(GUI_ActionLabelTest, TheMarkedLetterBecomesTheAccelerator)
{
    const COM_Scoped action(GUI_Action::New());
    action->setLabel(GetParam().mLabel);
    EXPECT_EQ(action->getLabel(), GetParam().mLabel);
    EXPECT_EQ(action->text(), QString::fromUtf8(GetParam().mLabel));
    EXPECT_EQ(action->iconText(), QString::fromUtf8(GetParam().mPlain));
    EXPECT_EQ(action->toolTip(), QString::fromUtf8(GetParam().mPlain));
    EXPECT_EQ(action->shortcut(), QKeySequence(QString::fromUtf8(GetParam().mAccelerator)));
}

INSTANTIATE_TEST_SUITE_P(
    Table, GUI_ActionLabelTest,
    testing::Values(Label{"&Load File", "Load File", "Ctrl+L"}, Label{"&load", "load", "Ctrl+L"},
                    Label{"Save &As", "Save As", "Ctrl+A"}, Label{"Load File", "Load File", ""},
                    Label{"Load&", "Load", ""}, Label{"A&&B", "A&B", "Ctrl+&"},
                    Label{"&A &B", "A &B", "Ctrl+A"},
                    Label{"&\xc3\x89"
                          "diter",
                          "\xc3\x89"
                          "diter",
                          "Ctrl+\xc3\x89"},
                    Label{"&\xd0\x96", "\xd0\x96", "Ctrl+\xd0\x96"}, Label{"", "", ""}));

TEST(GUI_Action, ANewActionIsLabelledActionAndStandsAlone)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped action(GUI_Action::New());
    const COM_Scoped ofWindow(GUI_Action::New(window.get()));
    EXPECT_EQ(action->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_Action"}));
    EXPECT_EQ(action->getLabel(), "Action");
    EXPECT_TRUE(action->shortcut().isEmpty());
    EXPECT_EQ(action->getMenu(), nullptr);
    EXPECT_EQ(action->getReferenceCount(), 1);
    EXPECT_EQ(ofWindow->getLabel(), "Action");
    EXPECT_EQ(ofWindow->parent(), nullptr);
    EXPECT_EQ(window->getReferenceCount(), 1);
}

TEST(GUI_Action, ALabelWithoutMarkLeavesTheAcceleratorOfTheFormerOne)
{
    const COM_Scoped action(GUI_Action::New());
    action->setLabel("&Load");
    action->setLabel("Store");
    EXPECT_EQ(action->shortcut(), QKeySequence("Ctrl+L"));
}

TEST(GUI_Action, APlainLabelIsShownAsItStands)
{
    const COM_Scoped action(GUI_Action::New());
    action->setLabel("&Load");
    action->setPlainLabel("/home/R&D/a&b.html");
    EXPECT_EQ(action->getLabel(), "/home/R&D/a&b.html");
    EXPECT_EQ(action->text(), "/home/R&&D/a&&b.html");
    EXPECT_EQ(action->iconText(), "/home/R&D/a&b.html");
    EXPECT_TRUE(action->shortcut().isEmpty());
}

TEST(GUI_Action, TooltipAndAcceleratorCanBeSetByHand)
{
    const COM_Scoped action(GUI_Action::New());
    action->setLabel("&Load");
    action->setTooltipText("h\xc3\xa9");
    action->setAccelText("Ctrl+Shift+F7");
    EXPECT_EQ(action->toolTip(), QString::fromUtf8("h\xc3\xa9"));
    EXPECT_EQ(action->shortcut(), QKeySequence("Ctrl+Shift+F7"));
    action->setAccelText("");
    EXPECT_TRUE(action->shortcut().isEmpty());
}

TEST_F(GUI_ActionIconTest, AnIconIsReadFromTheDirectoryOfIcons)
{
    QImage image(5, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(QString::fromStdString(mDirectory.file("red.png"))));
    const COM_Scoped action(GUI_Action::New());
    action->setIcon("red.png");
    ASSERT_FALSE(action->icon().isNull());
    EXPECT_EQ(action->icon().pixmap(5, 3).toImage().pixelColor(2, 1), QColor(Qt::red));
}

TEST_F(GUI_ActionIconTest, AnUnreadableIconLeavesTheActionUsable)
{
    mDirectory.write("text.png", "no picture");
    const COM_Scoped action(TestAction::New());
    for (const char* const name : {"missing.png", "text.png", ""}) {
        action->setIcon(name);
        EXPECT_TRUE(action->icon().isNull());
    }
    action->trigger();
    EXPECT_EQ(action->mCalls, 1);
    EXPECT_EQ(action->iconText(), "Action");
}

TEST(GUI_Action, IconsAreSoughtBesideTheProgramUntilItIsToldWhere)
{
    EXPECT_EQ(GUI_Action::ICONS_PATH, "icons/");
}

TEST(GUI_Action, ATriggerCallsToDoOnceAndTheMenusAreBroughtUpToDate)
{
    const TestFamily family;
    family.mQuit->trigger();
    EXPECT_EQ(family.mQuit->mCalls, 1);
    EXPECT_EQ(family.mPanel->mUpdates, 1);
    family.mDeep->trigger();
    EXPECT_EQ(family.mPanel->mUpdates, 2);
}

TEST(GUI_Action, ToDoIsASlotThatReachesTheHeir)
{
    const TestFamily family;
    EXPECT_TRUE(QMetaObject::invokeMethod(family.mQuit, "toDo"));
    EXPECT_EQ(family.mQuit->mCalls, 1);
}

TEST(GUI_Action, ACheckableActionIsCalledTwicePerClickAndOncePerChangeByCode)
{
    const TestFamily family;
    TestAction& toggle = *family.mToggle;
    toggle.trigger();
    EXPECT_EQ(toggle.mCalls, 2);
    EXPECT_TRUE(toggle.isChecked());
    toggle.setChecked(false);
    EXPECT_EQ(toggle.mCalls, 3);
    toggle.setChecked(false);
    EXPECT_EQ(toggle.mCalls, 3);
    {
        const QSignalBlocker blocker(toggle);
        toggle.setChecked(true);
    }
    EXPECT_EQ(toggle.mCalls, 3);
}

TEST(GUI_Action, WithoutMenuPanelAboveItToDoDoesNothing)
{
    const COM_Scoped action(TestAction::New());
    action->trigger();
    EXPECT_EQ(action->mCalls, 1);
    const COM_Scoped child(GUI_ChildMenu::New("child"));
    child->addToActions(*action);
    action->trigger();
    const COM_Scoped menu(GUI_RootMenu::New("menu"));
    menu->addToChildren(*child);
    action->trigger();
    EXPECT_EQ(action->mCalls, 3);
}

TEST(GUI_Action, ADisabledActionIsNotCalled)
{
    const TestFamily family;
    family.mQuit->setEnabled(false);
    family.mQuit->trigger();
    EXPECT_EQ(family.mQuit->mCalls, 0);
}

TEST(GUI_Action, TheLinkWithTheMenuIsMadeFromEitherEnd)
{
    const COM_Scoped menu(GUI_RootMenu::New("menu"));
    const COM_Scoped other(GUI_RootMenu::New("other"));
    const COM_Scoped action(GUI_Action::New());
    action->setMenu(*menu);
    EXPECT_EQ(action->getMenu(), menu.get());
    EXPECT_EQ(menu->getAction(0), action.get());
    EXPECT_EQ(action->getReferenceCount(), 2);
    EXPECT_EQ(menu->getReferenceCount(), 2);
    action->setMenu(*menu);
    EXPECT_EQ(action->getReferenceCount(), 2);
    action->setMenu(*other);
    EXPECT_EQ(menu->getAction(0), nullptr);
    EXPECT_TRUE(menu->actions().isEmpty());
    EXPECT_EQ(menu->getReferenceCount(), 1);
    EXPECT_EQ(other->getAction(0), action.get());
    action->resetMenu();
    EXPECT_EQ(action->getMenu(), nullptr);
    EXPECT_TRUE(other->actions().isEmpty());
    EXPECT_EQ(other->getReferenceCount(), 1);
    EXPECT_EQ(action->getReferenceCount(), 1);
    action->resetMenu();
    EXPECT_EQ(action->getReferenceCount(), 1);
}

TEST(GUI_Action, AnActionThatLeavesItsMenuInItsOwnClickEndsAfterIt)
{
    const TestFamily family;
    TestAction* const deep = family.mDeep;
    const QPointer<QObject> life = deep;
    deep->mWork = [deep] { deep->resetMenu(); };
    deep->trigger();
    EXPECT_EQ(family.mMore->getAction(0), nullptr);
    EXPECT_FALSE(life.isNull());
    settle();
    EXPECT_TRUE(life.isNull());
}

TEST(GUI_Action, AnActionHeldByOthersOutlivesItsWindow)
{
    TestFamily family;
    TestAction* const quit = family.mQuit;
    quit->addReference(nullptr);
    const QPointer<QWidget> window = family.mRoot;
    family.release();
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(quit->getLabel(), "&Quit");
    EXPECT_EQ(quit->getMenu(), nullptr);
    EXPECT_EQ(quit->getReferenceCount(), 1);
    quit->trigger();
    EXPECT_EQ(quit->mCalls, 1);
    quit->Delete();
}
