#pragma once
#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Point.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_MenuPanel.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "support/PaintCounter.h"
#include "support/ProjectRoot.h"
#include "support/TestDirectory.h"

#include <QToolButton>

#include <array>
#include <string>
#include <vector>

/// A plotter window below a root window, texts in English.
class TestPlot
{
public:
    TestPlot()
    {
        const COM_Scoped window(GUI2D_PlotterWindow::New(*mRoot, "Plot"));
        mWindow = window.get();
    }

    GUI2D_PlotterWindow& operator*() const { return *mWindow; }
    GUI2D_PlotterWindow* operator->() const { return mWindow; }
    const ProjectRoot& root() const { return mRoot; }
    GUI2D_Plotter& plotter() const { return *mWindow->getPlotter(); }
    GUI2D_Curve& curve(unsigned long index) const { return plotter().getCurves()[index]; }

    void add(const std::vector<double>& x, const std::vector<double>& y,
             const std::string& name = "Curve") const
    {
        const COM_Scoped color(COM_Color::New(255, 0, 0));
        mWindow->addPlot(x, y, name, *color);
    }
    /// A curve over (0, 0) to (8, 4), and the window on the screen.
    void addAndShow() const
    {
        add({0.0, 2.0, 4.0, 6.0, 8.0}, {0.0, 1.0, 2.0, 3.0, 4.0});
        mWindow->show();
        mWindow->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(mWindow));
        settle();
    }
    /// The same in a project of that directory, where file dialogs begin.
    void addAndShowIn(const TestDirectory& directory) const
    {
        mRoot->setSavingPath(directory.slashed());
        addAndShow();
    }
    /// The action of that label, or null.
    GUI_Action* find(const std::string& label) const
    {
        for (int i = 0; mWindow->getMenu()->getMenu(i) != nullptr; ++i) {
            if (GUI_Action* const action = mWindow->getMenu()->getMenu(i)->getAction(label)) {
                return action;
            }
        }
        return nullptr;
    }
    void trigger(const std::string& label) const
    {
        GUI_Action* const action = find(label);
        ASSERT_NE(action, nullptr) << label;
        action->trigger();
    }
    /// Clicks the button of that action in the tool bar.
    void clickTool(const std::string& label) const
    {
        GUI_Action* const action = find(label);
        ASSERT_NE(action, nullptr) << label;
        QWidget* const button = mWindow->getMenu()->getToolBar("toolbar")->widgetForAction(action);
        ASSERT_NE(button, nullptr) << label;
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(mWindow, key, modifiers);
    }
    /// The limits of the present view: smallest and largest x, smallest and largest y.
    std::array<double, 4> view() const
    {
        const COM_Scoped box(plotter().getBounds());
        return {box->getMinPoint()->getValue(0), box->getMaxPoint()->getValue(0),
                box->getMinPoint()->getValue(1), box->getMaxPoint()->getValue(1)};
    }
    /// The child windows of that class.
    template <typename Window>
    std::vector<Window*> children() const
    {
        return childrenOf<Window>(*mWindow);
    }
    /// Triggers the action, and the window that it opens.
    template <typename Window>
    Window& open(const std::string& label) const
    {
        trigger(label);
        Window* const window = children<Window>().back();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
        return *window;
    }

private:
    ProjectRoot mRoot;
    GUI2D_PlotterWindow* mWindow; ///< Held by the root window.
};

/// Counts how often a widget is painted on the screen, what waits in the event loop included.
class Repaints
{
public:
    explicit Repaints(QWidget& widget)
        : mCounter(widget)
    {
        take();
    }
    /// Since the last call.
    int take()
    {
        settle();
        return mCounter.take();
    }

private:
    PaintCounter mCounter;
};
