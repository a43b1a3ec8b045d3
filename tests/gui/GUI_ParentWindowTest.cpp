#include "gui/GUI_ParentWindow.h"

#include "common/COM_Array.h"
#include "gui/GUI_Workspace.h"
#include "support/CaseName.h"
#include "support/Ends.h"
#include "support/TestWindows.h"

#include <QFont>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace {

/// A window that writes down which of its operations on files were called.
class FileWindow : public GUI_RootWindow
{
    COM_CLASS(FileWindow)
public:
    using GUI_RootWindow::createFile;
    using GUI_RootWindow::load;
    using GUI_RootWindow::save;
    void createFile(const std::string& path, const std::string& file) override
    {
        mCalls += "create(" + path + "," + file + ")";
        GUI_RootWindow::createFile(path, file);
    }
    void load(const std::string& path, const std::string& file) override
    {
        mCalls += "load(" + path + "," + file + ")";
        GUI_RootWindow::load(path, file);
    }
    void load() override { mCalls += "load()"; }
    void save() const override { mCalls += "save()"; }
    void save(const std::string& path, const std::string& file) const override
    {
        mCalls += "save(" + path + "," + file + ")";
        GUI_RootWindow::save(path, file);
    }

    mutable std::string mCalls;

protected:
    FileWindow() { COM_TYPE(FileWindow); }
    ~FileWindow() override = default;
};

/// A child window that counts the updates, and does more if it is told.
class UpdateWindow : public GUI_ChildWindow
{
    COM_CLASS(UpdateWindow)
public:
    void updateValues() override
    {
        ++mUpdates;
        if (mWork) {
            mWork();
        }
        GUI_ChildWindow::updateValues();
    }

    int mUpdates = 0;
    std::function<void()> mWork;

protected:
    explicit UpdateWindow(GUI_ParentWindow& parent)
        : GUI_ChildWindow(parent)
    {
        COM_TYPE(UpdateWindow);
    }
    ~UpdateWindow() override = default;
};

/// A panel that counts the updates, and does more if it is told.
class UpdatePanel : public GUI_RootPanel
{
    COM_CLASS(UpdatePanel)
public:
    void updateValues() override
    {
        ++mUpdates;
        if (mWork) {
            mWork();
        }
        GUI_RootPanel::updateValues();
    }

    int mUpdates = 0;
    std::function<void()> mWork;

protected:
    explicit UpdatePanel(GUI_ParentWindow& window)
        : GUI_RootPanel(window)
    {
        COM_TYPE(UpdatePanel);
    }
    ~UpdatePanel() override = default;
};

struct FileName
{
    const char* mName;
    const char* mPath;
    const char* mFile;
};

void PrintTo(const FileName& row, std::ostream* out)
{
    *out << caseName(row.mName);
}

class GUI_ParentWindowFileTest : public testing::TestWithParam<FileName>
{
protected:
    std::string both() const
    {
        return std::string("(") + GetParam().mPath + "," + GetParam().mFile + ")";
    }

    COM_Scoped<FileWindow> mWindow{FileWindow::New()};
};

} // namespace

TEST(GUI_ParentWindow, ANewWindowHasItsDefaults)
{
    const COM_Scoped window(GUI_RootWindow::New());
    EXPECT_EQ(window->getName(), "Parent Window");
    EXPECT_EQ(window->getSavingFile(), "save.txt");
    EXPECT_EQ(window->getSavingPath(), "");
    EXPECT_FALSE(window->isContainer());
    EXPECT_EQ(window->getMenu(), nullptr);
    EXPECT_EQ(window->getPanel(), nullptr);
    EXPECT_EQ(window->parentWidget(), nullptr);
    EXPECT_TRUE(window->isWindow());
    EXPECT_TRUE(window->isHidden());
    EXPECT_EQ(window->getReferenceCount(), 1);
}

TEST(GUI_ParentWindow, TheNameIsCaptionAndObjectNameAndComesBackByteForByte)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const std::string name = "\xce\xa9 h\xc3\xa9 \xe6\x97\xa5";
    window->setName(name);
    EXPECT_EQ(window->getName(), name);
    EXPECT_EQ(window->windowTitle(), QString::fromUtf8(name.c_str()));
    EXPECT_EQ(window->objectName(), QString::fromUtf8(name.c_str()));
}

TEST(GUI_ParentWindow, AFontIsSetByItsTextAndATextThatIsNoneChangesNothing)
{
    const COM_Scoped window(GUI_RootWindow::New());
    QFont font("DejaVu Sans", 19);
    window->setFont(font.toString().toStdString());
    EXPECT_EQ(window->font().pointSize(), 19);
    EXPECT_EQ(GUI_Object::getFontName(), "");
    window->setFont("");
    window->setFont("a,b,c,d");
    EXPECT_EQ(window->font().pointSize(), 19);
    // The ten fields of older versions.
    window->setFont("DejaVu Sans,12,-1,5,75,0,0,0,0,0");
    EXPECT_EQ(window->font().pointSize(), 12);
    EXPECT_TRUE(window->font().bold());
}

TEST(GUI_ParentWindow, ItTakesItsSizeAndShowsItsStatus)
{
    const COM_Scoped window(GUI_RootWindow::New());
    window->setSize(321, 234);
    EXPECT_EQ(window->size(), QSize(321, 234));
    window->setStatusMessage("h\xc3\xa9");
    EXPECT_EQ(window->statusBar()->currentMessage(), QString::fromUtf8("h\xc3\xa9"));
}

TEST(GUI_ParentWindow, ShowingGivesItTheFocus)
{
    const COM_Scoped window(GUI_RootWindow::New());
    window->show();
    settle();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->hasFocus());
}

TEST(GUI_ParentWindow, APlaceOffEveryScreenIsCorrectedWhenTheWindowIsShown)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    const COM_Scoped window(GUI_RootWindow::New());
    window->setSize(200, 100);
    window->move(screen.right() + 5000, screen.bottom() + 5000);
    window->show();
    EXPECT_TRUE(screen.intersects(window->frameGeometry()));
    window->hide();
    window->move(40, 30);
    window->show();
    EXPECT_EQ(window->pos(), QPoint(40, 30));
}

TEST(GUI_ParentWindow, BringingToTheFrontShowsAHiddenOrMinimisedWindow)
{
    const COM_Scoped window(GUI_RootWindow::New());
    window->bringToFront();
    EXPECT_TRUE(window->isVisible());
    window->showMinimized();
    window->bringToFront();
    EXPECT_FALSE(window->isMinimized());
    EXPECT_TRUE(window->isVisible());
    settle();
    EXPECT_TRUE(window->isActiveWindow());
}

TEST(GUI_ParentWindow, TheFamilyCountsAsTold)
{
    TestFamily family;
    const QPointer<QWidget> root = family.mRoot;
    const QPointer<QWidget> panel = &family.addPanel();
    const QPointer<QWidget> first = &family.addChild();
    const QPointer<QWidget> second = &family.addChild();
    const QPointer<QWidget> menu = family.mPanel;
    EXPECT_EQ(family.mRoot->getReferenceCount(), 5);
    EXPECT_EQ(family.mRoot->getPanel()->getReferenceCount(), 1);
    EXPECT_EQ(family.mPanel->getReferenceCount(), 1 + 2);
    family.release();
    EXPECT_TRUE(root.isNull());
    EXPECT_TRUE(panel.isNull());
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(second.isNull());
    EXPECT_TRUE(menu.isNull());
}

TEST(GUI_ParentWindow, ASecondHolderKeepsTheFamily)
{
    TestFamily family;
    const QPointer<QWidget> root = family.mRoot;
    const QPointer<QWidget> child = &family.addChild();
    root->show();
    const COM_Scoped holder(family.mRoot);
    holder->addReference(nullptr);
    family.release();
    EXPECT_FALSE(root.isNull());
    EXPECT_FALSE(child.isNull());
    EXPECT_NE(holder->getMenu(), nullptr);
}

TEST(GUI_ParentWindow, ThePanelIsTheCentreAndTheLinkIsMadeFromEitherEnd)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped other(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_RootPanel::New());
    window->setPanel(*panel);
    window->setPanel(*panel);
    EXPECT_EQ(window->getPanel(), panel.get());
    EXPECT_EQ(window->centralWidget(), panel.get());
    EXPECT_EQ(panel->getWindow(), window.get());
    EXPECT_EQ(panel->getReferenceCount(), 2);
    EXPECT_EQ(window->getReferenceCount(), 2);
    other->setPanel(*panel);
    EXPECT_EQ(window->getPanel(), nullptr);
    EXPECT_EQ(window->centralWidget(), nullptr);
    EXPECT_EQ(window->getReferenceCount(), 1);
    EXPECT_EQ(other->centralWidget(), panel.get());
    panel->setWindow(*window);
    EXPECT_EQ(window->centralWidget(), panel.get());
    EXPECT_EQ(other->centralWidget(), nullptr);
    window->resetPanel();
    window->resetPanel();
    EXPECT_EQ(panel->getWindow(), nullptr);
    EXPECT_EQ(panel->parentWidget(), nullptr);
    EXPECT_EQ(panel->getReferenceCount(), 1);
    EXPECT_EQ(window->getReferenceCount(), 1);
}

TEST(GUI_ParentWindow, APanelThatMovesToAnotherWindowIsSeenThere)
{
    const COM_Scoped window(GUI_RootWindow::New());
    const COM_Scoped other(GUI_RootWindow::New());
    const COM_Scoped panel(GUI_RootPanel::New(*window));
    window->show();
    other->show();
    settle();
    EXPECT_TRUE(panel->isVisible());
    other->setPanel(*panel);
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(panel->window(), other.get());
}

TEST(GUI_ParentWindow, ANewPanelTakesThePlaceOfTheFormerOne)
{
    const TestFamily family;
    const QPointer<QWidget> former = &family.addPanel();
    GUI_RootPanel& panel = family.addPanel();
    EXPECT_TRUE(former.isNull());
    EXPECT_EQ(family.mRoot->centralWidget(), &panel);
}

TEST(GUI_ParentWindow, APanelInAContainerWindowHidesTheWorkspaceAndKeepsIt)
{
    const TestFamily family(true);
    QPointer<QWidget> frame = family.mRoot->centralWidget();
    GUI_RootPanel& panel = family.addPanel();
    family.mRoot->show();
    settle();
    EXPECT_EQ(family.mRoot->centralWidget(), &panel);
    EXPECT_TRUE(panel.isVisible());
    ASSERT_FALSE(frame.isNull());
    EXPECT_FALSE(frame->isVisible());
    EXPECT_TRUE(family.mRoot->isContainer());
    EXPECT_EQ(family.mRoot->getWorkspace()->parentWidget(), frame);
}

TEST(GUI_ParentWindow, ChildrenAreKeptOnceByTheirIdentityNumber)
{
    const TestFamily family;
    GUI_ChildWindow& first = family.addChild();
    GUI_ChildWindow& second = family.addChild();
    family.mRoot->addToChildren(first);
    family.mRoot->addToChildren(first);
    const COM_Scoped children(COM_Array<GUI_ChildWindow>::New());
    children->add(second);
    children->add(second);
    children->add(second);
    family.mRoot->getChildren(*children);
    ASSERT_EQ(children->size(), 2U);
    EXPECT_EQ(children->get(0), &first);
    EXPECT_EQ(children->get(1), &second);
    EXPECT_EQ(GUI_ParentWindow::getId(first), first.getIdentityNumber());
    EXPECT_EQ(family.mRoot->getChild(first.getIdentityNumber()), &first);
    EXPECT_EQ(family.mRoot->getChild(0), nullptr);
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1 + 1 + 2);
}

TEST(GUI_ParentWindow, AStrangerCannotBeRemovedFromTheChildren)
{
    const TestFamily family;
    const TestFamily other;
    GUI_ChildWindow& child = other.addChild();
    family.mRoot->removeFromChildren(child);
    EXPECT_EQ(child.getParent(), other.mRoot);
    EXPECT_EQ(other.mRoot->getReferenceCount(), 1 + 1 + 1);
}

TEST(GUI_ParentWindow, DescendantsFollowTheirOwnParent)
{
    const TestFamily family;
    GUI_ChildWindow& first = family.addChild();
    GUI_ChildWindow& second = family.addChild();
    const COM_Scoped deep(GUI_ChildWindow::New(&first));
    const COM_Scoped deeper(GUI_ChildWindow::New(deep.get()));
    const COM_Scoped descents(COM_Array<GUI_ChildWindow>::New());
    descents->add(second);
    family.mRoot->getAllDescents(*descents);
    ASSERT_EQ(descents->size(), 4U);
    EXPECT_EQ(descents->get(0), &first);
    EXPECT_EQ(descents->get(1), deep.get());
    EXPECT_EQ(descents->get(2), deeper.get());
    EXPECT_EQ(descents->get(3), &second);
}

TEST(GUI_ParentWindow, ResettingTheChildrenReleasesThem)
{
    const TestFamily family;
    const QPointer<QWidget> first = &family.addChild();
    const COM_Scoped held(GUI_ChildWindow::New(*family.mRoot));
    family.mRoot->resetChildren();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(held->getParent(), nullptr);
    EXPECT_EQ(held->getReferenceCount(), 1);
    EXPECT_EQ(family.mRoot->getReferenceCount(), 1 + 1);
}

TEST(GUI_ParentWindow, TheNewestChildIsReleasedFirst)
{
    Ends ends;
    const TestFamily family;
    ends.watch(family.addChild(), "first");
    ends.watch(family.addChild(), "second");
    ends.watch(family.addChild(), "third");
    family.mRoot->resetChildren();
    EXPECT_EQ(ends.names(), (std::vector<std::string>{"third", "second", "first"}));
}

TEST(GUI_ParentWindow, ChildrenAreReleasedBeforePanelAndMenu)
{
    for (const bool isClosed : {true, false}) {
        Ends ends;
        TestFamily family;
        ends.watch(*family.mPanel, "menu");
        ends.watch(family.addPanel(), "panel");
        ends.watch(family.addChild(), "child");
        if (isClosed) {
            EXPECT_TRUE(family.mRoot->close(false));
            EXPECT_EQ(ends.names(), (std::vector<std::string>{"child", "menu", "panel"}));
        } else {
            family.release();
            EXPECT_EQ(ends.names(), (std::vector<std::string>{"child", "panel", "menu"}));
        }
    }
}

TEST(GUI_ParentWindow, ClosingTheChildrenClosesEachByItsOwnClose)
{
    const TestFamily family;
    const QPointer<QWidget> first = &family.addChild();
    const COM_Scoped held(GUI_ChildWindow::New(*family.mRoot));
    held->show();
    family.mRoot->closeChildrenWindow();
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(held->isHidden());
    EXPECT_EQ(held->getParent(), nullptr);
    EXPECT_TRUE(family.mRoot->getMenu() != nullptr);
}

TEST(GUI_ParentWindow, AnUpdateReachesPanelAndDescendants)
{
    const TestFamily family;
    const COM_Scoped panel(UpdatePanel::New(*family.mRoot));
    const COM_Scoped child(UpdateWindow::New(*family.mRoot));
    const COM_Scoped deep(UpdateWindow::New(static_cast<GUI_ParentWindow&>(*child)));
    family.mRoot->updateValues();
    EXPECT_EQ(panel->mUpdates, 1);
    EXPECT_EQ(child->mUpdates, 1);
    EXPECT_EQ(deep->mUpdates, 1);
}

TEST(GUI_ParentWindow, AnUpdateReachesThePanelFirstAndThenTheChildrenByAge)
{
    std::vector<std::string> order;
    const TestFamily family;
    const COM_Scoped first(UpdateWindow::New(*family.mRoot));
    const COM_Scoped second(UpdateWindow::New(*family.mRoot));
    const COM_Scoped deep(UpdateWindow::New(static_cast<GUI_ParentWindow&>(*first)));
    const COM_Scoped panel(UpdatePanel::New(*family.mRoot));
    first->mWork = [&order] { order.emplace_back("first"); };
    second->mWork = [&order] { order.emplace_back("second"); };
    deep->mWork = [&order] { order.emplace_back("deep"); };
    panel->mWork = [&order] { order.emplace_back("panel"); };
    family.mRoot->updateValues();
    EXPECT_EQ(order, (std::vector<std::string>{"panel", "first", "deep", "second"}));
}

TEST(GUI_ParentWindow, AnUpdateMayCloseWindowsAndPassesThoseThatHaveLeft)
{
    const TestFamily family;
    auto* const first = UpdateWindow::New(*family.mRoot);
    auto* const second = UpdateWindow::New(*family.mRoot);
    const COM_Scoped third(UpdateWindow::New(*family.mRoot));
    first->Delete();
    const QPointer<QWidget> firstLife = first;
    const QPointer<QWidget> secondLife = second;
    first->mWork = [first, second] {
        second->close(false);
        first->close(false);
    };
    second->Delete();
    family.mRoot->updateValues();
    EXPECT_TRUE(firstLife.isNull());
    EXPECT_TRUE(secondLife.isNull());
    EXPECT_EQ(third->mUpdates, 1);
}

TEST(GUI_ParentWindow, AnUpdateMayCloseTheWindowOfItsOwnPanel)
{
    const TestFamily family;
    const COM_Scoped child(GUI_ChildWindow::New(*family.mRoot));
    auto* const panel = UpdatePanel::New(*child);
    panel->Delete();
    const QPointer<QWidget> life = panel;
    panel->mWork = [&child] { child->close(false); };
    family.mRoot->updateValues();
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(child->getParent(), nullptr);
}

TEST(GUI_ParentWindow, AnUpdateMayEndTheWindowThatIsUpdated)
{
    const TestFamily family;
    GUI_ChildWindow& child = family.addChild();
    const COM_Scoped panel(UpdatePanel::New(child));
    const COM_Scoped deep(UpdateWindow::New(static_cast<GUI_ParentWindow&>(child)));
    const QPointer<QWidget> life = &child;
    panel->mWork = [&child] { child.close(false); };
    child.updateValues();
    EXPECT_TRUE(life.isNull());
    EXPECT_EQ(panel->mUpdates, 1);
    EXPECT_EQ(deep->mUpdates, 0);
}

TEST_P(GUI_ParentWindowFileTest, ANameIsCutAfterItsLastSlash)
{
    mWindow->load(GetParam().mName);
    EXPECT_EQ(mWindow->getSavingPath(), GetParam().mPath);
    EXPECT_EQ(mWindow->getSavingFile(), GetParam().mFile);
    EXPECT_EQ(mWindow->mCalls, "load" + both() + "load()");
}

TEST_P(GUI_ParentWindowFileTest, CreatingAndSavingCutItAlike)
{
    mWindow->createFile(GetParam().mName);
    EXPECT_EQ(mWindow->mCalls, "create" + both());
    mWindow->setSavingFile("other");
    mWindow->setSavingPath("other/");
    mWindow->save(GetParam().mName);
    EXPECT_EQ(mWindow->mCalls, "create" + both() + "save" + both() + "save()");
    EXPECT_EQ(mWindow->getSavingPath(), GetParam().mPath);
    EXPECT_EQ(mWindow->getSavingFile(), GetParam().mFile);
}

INSTANTIATE_TEST_SUITE_P(
    Table, GUI_ParentWindowFileTest,
    testing::Values(FileName{"project.dpj", "./", "project.dpj"},
                    FileName{"/home/a b/project.dpj", "/home/a b/", "project.dpj"},
                    FileName{"sub/file", "sub/", "file"}, FileName{"a//b", "a//", "b"},
                    FileName{"dir/", "dir/", ""}, FileName{"/", "/", ""}, FileName{"", "./", ""}));

TEST(GUI_ParentWindow, TheFormsWithTwoNamesKeepThemAndGoOn)
{
    const COM_Scoped window(FileWindow::New());
    window->saveAs("a/", "b");
    EXPECT_EQ(window->mCalls, "save(a/,b)save()");
    EXPECT_EQ(window->getSavingPath() + window->getSavingFile(), "a/b");
    window->load("c/", "d");
    EXPECT_EQ(window->getSavingPath() + window->getSavingFile(), "c/d");
    window->createFile("e/", "f");
    EXPECT_EQ(window->getSavingPath() + window->getSavingFile(), "e/f");
    EXPECT_EQ(window->mCalls, "save(a/,b)save()load(c/,d)load()create(e/,f)");
}

TEST(GUI_ParentWindow, TheOwnLoadAndSaveOnlyKeepTheNames)
{
    const COM_Scoped window(GUI_RootWindow::New());
    window->load("/no/such/directory/file");
    window->save();
    window->save("x");
    EXPECT_EQ(window->getSavingPath(), "./");
    EXPECT_EQ(window->getSavingFile(), "x");
}
