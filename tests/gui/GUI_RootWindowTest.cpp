#include "gui/GUI_RootWindow.h"

#include "gui/GUI_EventScope.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "support/DialogAnswers.h"
#include "support/EnglishTexts.h"
#include "support/Printed.h"
#include "support/TestWindows.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

/// A panel with one field, which keeps what the field delivers.
class FieldPanel : public GUI_RootPanel
{
    COM_CLASS(FieldPanel)
public:
    void componentClicked(GUI_ActionComponent& component) override
    {
        // Through the window a form finds what it edits.
        if (getWindow() != nullptr) {
            mDelivered = component.getValue();
        }
    }

    GUI_LineEdit* mEdit = nullptr; ///< Held by the layout.
    std::string mDelivered;

protected:
    explicit FieldPanel(GUI_ParentWindow& window)
        : GUI_RootPanel(window)
    {
        COM_TYPE(FieldPanel);
        const COM_Scoped layout(GUI_RootVBoxLayout::New(*this));
        const COM_Scoped edit(GUI_LineEdit::New(*this));
        layout->addToComponents(*edit);
        mEdit = edit.get();
    }
    ~FieldPanel() override = default;
};

/// A root window with a file, which counts how often it is saved. The words are English.
class GUI_RootWindowQuestionTest : public testing::Test
{
protected:
    class Window : public GUI_RootWindow
    {
        COM_CLASS(Window)
    public:
        void save() const override { ++mSaves; }
        using GUI_RootWindow::save;
        mutable int mSaves = 0;

    protected:
        Window() { COM_TYPE(Window); }
        ~Window() override = default;
    };

    GUI_RootWindowQuestionTest()
    {
        const COM_Scoped panel(GUI_RootPanel::New(*mWindow));
        const COM_Scoped menu(GUI_MenuPanel::New(*mWindow));
        const COM_Scoped child(GUI_ChildWindow::New(*mWindow));
        mWindow->show();
    }

    bool isUntouched() const
    {
        return mWindow->isVisible() && mWindow->getMenu() != nullptr
               && mWindow->getPanel() != nullptr && mWindow->getReferenceCount() == 4
               && mWindow->centralWidget() == mWindow->getPanel();
    }
    bool isClosed() const
    {
        return mWindow->isHidden() && mWindow->getMenu() == nullptr
               && mWindow->getPanel() == nullptr && mWindow->getReferenceCount() == 1;
    }

    const EnglishTexts mEnglish;
    COM_Scoped<Window> mWindow{Window::New()};
};

} // namespace

TEST(GUI_RootWindow, AWindowIsMadeWithOrWithoutNameAndWorkspace)
{
    const COM_Scoped bare(GUI_RootWindow::New());
    const COM_Scoped named(GUI_RootWindow::New("h\xc3\xa9"));
    const COM_Scoped container(GUI_RootWindow::New(std::string("Root"), true));
    EXPECT_EQ(bare->getTypes(), (std::vector<std::string>{"COM_Object", "GUI_Object",
                                                          "GUI_ParentWindow", "GUI_RootWindow"}));
    EXPECT_EQ(bare->getName(), "Parent Window");
    EXPECT_EQ(named->getName(), "h\xc3\xa9");
    EXPECT_FALSE(named->isContainer());
    EXPECT_TRUE(container->isContainer());
    EXPECT_EQ(bare->getRoot(), bare.get());
    EXPECT_EQ(bare->getApplication(), nullptr);
}

TEST(GUI_RootWindow, WithoutFileItClosesWithoutAQuestion)
{
    const TestFamily family;
    family.addPanel();
    const QPointer<QWidget> child = &family.addChild();
    family.mRoot->show();
    EXPECT_TRUE(family.mRoot->close(false));
    EXPECT_TRUE(family.mRoot->isHidden());
    EXPECT_EQ(family.mRoot->getMenu(), nullptr);
    EXPECT_EQ(family.mRoot->getPanel(), nullptr);
    EXPECT_TRUE(child.isNull());
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1);
}

TEST_F(GUI_RootWindowQuestionTest, TheQuestionIsAskedWithThreeButtons)
{
    DialogAnswers answers;
    answers.add<QMessageBox>([this](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Quit");
        EXPECT_EQ(box.text(), "Do you want to save before exiting ?");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.parentWidget(), mWindow.get());
        ASSERT_EQ(box.buttons().size(), 3);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "Yes");
        EXPECT_EQ(box.button(QMessageBox::No)->text(), "No");
        EXPECT_EQ(box.button(QMessageBox::Cancel)->text(), "Cancel");
    });
    mWindow->close(false);
}

TEST_F(GUI_RootWindowQuestionTest, TheQuestionIsInTheLanguageOfTheWords)
{
    GUI_Object::setLang(1);
    DialogAnswers answers;
    answers.add<QMessageBox>([](QMessageBox& box) {
        const std::pair<QString, const char*> texts[] = {
            {box.windowTitle(), "Quit"},
            {box.text(), "Do you want to save before exiting ?"},
            {box.button(QMessageBox::Yes)->text(), "Yes"},
            {box.button(QMessageBox::No)->text(), "No"},
            {box.button(QMessageBox::Cancel)->text(), "Cancel"}};
        for (const auto& [text, key] : texts) {
            EXPECT_EQ(text.toStdString(), GUI_Object::translate(key));
            EXPECT_NE(text.toStdString(), key);
        }
    });
    mWindow->close(false);
}

TEST_F(GUI_RootWindowQuestionTest, AFieldThatIsBeingTypedInDeliversItsTextFirst)
{
    mWindow->setSavingFile("");
    const COM_Scoped panel(FieldPanel::New(*mWindow));
    QApplication::setActiveWindow(mWindow.get());
    settle();
    panel->mEdit->setFocus();
    settle();
    panel->mEdit->selectAll();
    QTest::keyClicks(panel->mEdit, "42");
    EXPECT_EQ(panel->mDelivered, "");
    EXPECT_TRUE(mWindow->close(false));
    EXPECT_EQ(panel->mDelivered, "42");
}

TEST_F(GUI_RootWindowQuestionTest, CancelLeavesEverythingUntouched)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "Cancel"); });
    EXPECT_FALSE(mWindow->close(true));
    EXPECT_TRUE(isUntouched());
    EXPECT_EQ(mWindow->mSaves, 0);
}

TEST_F(GUI_RootWindowQuestionTest, EscapeIsCancel)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(mWindow->close(false));
    EXPECT_TRUE(isUntouched());
}

TEST_F(GUI_RootWindowQuestionTest, TheTitleBarOfTheQuestionIsCancel)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { dialog.close(); });
    EXPECT_FALSE(mWindow->close(false));
    EXPECT_TRUE(isUntouched());
}

TEST_F(GUI_RootWindowQuestionTest, YesSavesAndCloses)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "Yes"); });
    EXPECT_TRUE(mWindow->close(false));
    EXPECT_EQ(mWindow->mSaves, 1);
    EXPECT_TRUE(isClosed());
}

TEST_F(GUI_RootWindowQuestionTest, TheReturnKeyIsYes)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    EXPECT_TRUE(mWindow->close(false));
    EXPECT_EQ(mWindow->mSaves, 1);
}

TEST_F(GUI_RootWindowQuestionTest, NoClosesWithoutSaving)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "No"); });
    EXPECT_TRUE(mWindow->close(false));
    EXPECT_EQ(mWindow->mSaves, 0);
    EXPECT_TRUE(isClosed());
}

TEST_F(GUI_RootWindowQuestionTest, TheTitleBarAsksTooAndCanBeRefused)
{
    QWidget* const window = mWindow.get();
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "Cancel"); });
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(isUntouched());
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "No"); });
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(isClosed());
}

TEST_F(GUI_RootWindowQuestionTest, ASecondCloseAsksNothing)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "No"); });
    EXPECT_TRUE(mWindow->close(false));
    EXPECT_TRUE(mWindow->close(false));
    EXPECT_TRUE(static_cast<QWidget*>(mWindow.get())->close());
}

TEST_F(GUI_RootWindowQuestionTest, AReleasedWindowIsNeitherClosedNorShownAgain)
{
    auto* const window = Window::New();
    window->show();
    DialogAnswers noDialogs;
    {
        const GUI_EventScope scope;
        window->Delete();
        EXPECT_TRUE(window->close(false));
        window->show();
        EXPECT_TRUE(window->isHidden());
    }
    settle();
}

TEST_F(GUI_RootWindowQuestionTest, AWindowShownAgainAsksAgain)
{
    DialogAnswers answers;
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "No"); });
    EXPECT_TRUE(mWindow->close(false));
    mWindow->show();
    answers.add<QDialog>([](QDialog& dialog) { pressButton(dialog, "Yes"); });
    EXPECT_TRUE(mWindow->close(false));
    EXPECT_EQ(mWindow->mSaves, 1);
}

TEST_F(GUI_RootWindowQuestionTest, WhileTheQuestionIsOpenAnotherCloseIsNotBegun)
{
    bool isRefused = false;
    bool isRefusedByQt = false;
    DialogAnswers answers;
    answers.add<QDialog>([&](QDialog& dialog) {
        isRefused = !mWindow->close(false);
        isRefusedByQt = !static_cast<QWidget*>(mWindow.get())->close();
        EXPECT_TRUE(mWindow->isVisible());
        EXPECT_NE(mWindow->getMenu(), nullptr);
        pressButton(dialog, "Cancel");
    });
    EXPECT_FALSE(mWindow->close(false));
    EXPECT_TRUE(isRefused);
    EXPECT_TRUE(isRefusedByQt);
    EXPECT_TRUE(isUntouched());
}

TEST_F(GUI_RootWindowQuestionTest, WindowsReleasedWhileTheQuestionIsOpenLiveUntilItIsAnswered)
{
    auto* const window = Window::New();
    const QPointer<QWidget> life = window;
    window->show();
    DialogAnswers answers;
    answers.add<QDialog>([window](QDialog& dialog) {
        window->Delete();
        pressButton(dialog, "No");
    });
    EXPECT_TRUE(window->close(false));
    settle();
    EXPECT_TRUE(life.isNull());
}

// Ways in which a user closes a window from inside one of its own handlers, which then holds it last.

namespace {

/// A family whose "&Quit" closes the window and gives up the last reference to it.
class GUI_RootWindowEndTest : public testing::Test
{
protected:
    GUI_RootWindowEndTest()
    {
        mFamily.addPanel();
        mFamily.addChild();
        const auto end = [this] {
            EXPECT_TRUE(mFamily.mRoot->close(false));
            mFamily.release();
            EXPECT_FALSE(mLife.isNull());
        };
        mFamily.mQuit->mWork = end;
        mFamily.mDeep->mWork = end;
        mFamily.mToggle->mWork = [this, end] {
            if (mFamily.mRoot != nullptr) {
                end();
            }
        };
        mFamily.mRoot->show();
        settle();
    }
    void expectEnd()
    {
        EXPECT_EQ(mFamily.mRoot, nullptr) << "the action was not called";
        settle();
        EXPECT_TRUE(mLife.isNull());
        EXPECT_TRUE(mQuitLife.isNull());
    }

    TestFamily mFamily;
    QPointer<QWidget> mLife = mFamily.mRoot;
    QPointer<QObject> mQuitLife = mFamily.mQuit;
};

} // namespace

TEST_F(GUI_RootWindowEndTest, ByATriggerOfItsOwnAction)
{
    mFamily.mQuit->trigger();
    expectEnd();
}

TEST_F(GUI_RootWindowEndTest, ByTheAcceleratorOfItsOwnAction)
{
    QTest::keyClick(mFamily.mRoot, Qt::Key_Q, Qt::ControlModifier);
    expectEnd();
}

TEST_F(GUI_RootWindowEndTest, ByTheMouseInItsOwnMenu)
{
    GUI_MenuPanel* const bar = mFamily.mPanel;
    GUI_RootMenu* const menu = mFamily.mMenu;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    settle();
    ASSERT_TRUE(menu->isVisible());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(mFamily.mQuit).center());
    expectEnd();
}

TEST_F(GUI_RootWindowEndTest, ByTheKeyboardInItsOwnSubmenu)
{
    GUI_MenuPanel* const bar = mFamily.mPanel;
    GUI_RootMenu* const menu = mFamily.mMenu;
    GUI_ChildMenu* const more = mFamily.mMore;
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    settle();
    menu->setActiveAction(more->menuAction());
    QTest::keyClick(menu, Qt::Key_Right);
    settle();
    ASSERT_TRUE(more->isVisible());
    more->setActiveAction(mFamily.mDeep);
    QTest::keyClick(more, Qt::Key_Return);
    expectEnd();
}

TEST_F(GUI_RootWindowEndTest, ByAToolButton)
{
    QWidget* const button = mFamily.mPanel->getToolBar("toolbar")->widgetForAction(mFamily.mQuit);
    QTest::mouseClick(button, Qt::LeftButton);
    expectEnd();
}

TEST_F(GUI_RootWindowEndTest, ByACheckableActionThatIsCalledTwice)
{
    mFamily.mToggle->trigger();
    expectEnd();
}

TEST_F(GUI_RootWindowEndTest, ByTheTitleBar)
{
    GUI_RootWindow* const root = mFamily.mRoot;
    EXPECT_TRUE(static_cast<QWidget*>(root)->close());
    EXPECT_TRUE(root->isHidden());
    EXPECT_EQ(root->getMenu(), nullptr);
    EXPECT_EQ(root->getReferenceCount(), 1);
    mFamily.release();
    EXPECT_TRUE(mLife.isNull());
}

TEST_F(GUI_RootWindowEndTest, NothingIsSaidOfReferencesThatWereLeft)
{
    EXPECT_EQ(printedBy([this] {
                  mFamily.mQuit->trigger();
                  settle();
              }),
              "");
    EXPECT_TRUE(mLife.isNull());
}
