#include "gui/GUI_RootPanel.h"

#include "gui/GUI_RootWindow.h"
#include "support/TestPanel.h"

#include <QPointer>

TEST(GUI_RootPanel, NeedsNoWindow)
{
    const COM_Scoped panel(GUI_RootPanel::New());
    const COM_Scoped other(GUI_RootPanel::New(static_cast<GUI_ParentWindow*>(nullptr)));

    EXPECT_EQ(panel->getWindow(), nullptr);
    EXPECT_EQ(panel->getRoot(), panel.get());
    EXPECT_EQ(other->getWindow(), nullptr);
    EXPECT_EQ(panel->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_RootPanel"}));
    panel->resetWindow();
    EXPECT_EQ(panel->getReferenceCount(), 1);
}

TEST(GUI_RootPanel, TakesTheCentreOfItsWindow)
{
    const COM_Scoped window(GUI_RootWindow::New("window", false));
    const COM_Scoped panel(GUI_RootPanel::New(*window));

    EXPECT_EQ(panel->getWindow(), window.get());
    EXPECT_EQ(window->getPanel(), panel.get());
    EXPECT_EQ(window->centralWidget(), panel.get());
    EXPECT_EQ(panel->getReferenceCount(), 2);
    EXPECT_EQ(window->getReferenceCount(), 2);

    panel->resetWindow();
    EXPECT_EQ(window->getPanel(), nullptr);
    EXPECT_EQ(window->centralWidget(), nullptr);
    EXPECT_EQ(panel->getReferenceCount(), 1);
    EXPECT_EQ(window->getReferenceCount(), 1);
}

TEST(GUI_RootPanel, MovesFromWindowToWindow)
{
    const COM_Scoped first(GUI_RootWindow::New("first", false));
    const COM_Scoped second(GUI_RootWindow::New("second", false));
    const COM_Scoped panel(GUI_RootPanel::New(*first));

    panel->setWindow(second.get());
    panel->setWindow(*second);

    EXPECT_EQ(first->getPanel(), nullptr);
    EXPECT_EQ(second->getPanel(), panel.get());
    EXPECT_EQ(second->centralWidget(), panel.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);

    panel->setWindow(nullptr);
    EXPECT_EQ(second->getPanel(), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TEST(GUI_RootPanel, GoesWithItsWindow)
{
    GUI_RootWindow* const window = GUI_RootWindow::New("window", false);
    QPointer<QWidget> alive;
    {
        const COM_Scoped panel(GUI_RootPanel::New(*window));
        alive = panel.get();
    }
    EXPECT_FALSE(alive.isNull());
    window->Delete();
    EXPECT_TRUE(alive.isNull());
}

TEST(GUI_RootPanel, ShowsItsLabelAsGiven)
{
    const COM_Scoped panel(GUI_RootPanel::New());
    panel->setLabel("Donn\xc3\xa9"
                    "es");
    EXPECT_EQ(panel->title().toUtf8().toStdString(), "Donn\xc3\xa9"
                                                     "es");
}
