#pragma once
#include "common/COM_Color.h"
#include "gui/GUI_Action.h"
#include "gui/GUI_BrowserWindow.h"
#include "gui/GUI_NewProjectWindow.h"
#include "gui/GUI_TextWindow.h"
#include "gui2d/GUI2D_PlotterWindow.h"
#include "quorvexGui/QVG_CheckWindow.h"
#include "quorvexGui/QVG_DataWindow.h"
#include "TestMainWindow.h"

#include <QPushButton>
#include <QTabWidget>

#include <functional>

/// The main window with a project that has results, and the windows that it opens, all shown: forms with the windows
/// of their buttons, preferences, a new project, results, a plot with its own windows, what a check found, a text and
/// a browser.
class ManyWindows
{
public:
    ManyWindows()
    {
        mMain->setName(GUI_Object::translate("Quorvex Simulation"));
        mMain.createProject();
        mMain.write("captors.res",
                    "captors Location: 7 RelPosition: 0.25 Position: (1e-6) RhoSize: 2 "
                    "BlochEquationsNumber: 1 EDim: 2\n");
        mMain.write("tps.res", "0 1e14 0 \n1 1e14 1e-14 \n");
        mMain->getMenu()->updateStateMenus();
        mMain->show();
        for (const QVG_MainMenu::Menu menu : {QVG_MainMenu::EDIT, QVG_MainMenu::VISUALIZE}) {
            mMain.action(menu, 0).trigger();
        }
        mMain.action(QVG_MainMenu::EDIT, 2).trigger();
        GUI_NewProjectWindow::open(*mMain, true);
        QVG_CheckWindow::tell(
            *mMain,
            {{QV_ProblemCheck::NOTE, "C.F.L.", "1", "has no effect with absorbing ends.", {}}});
        pressTheButtonsOfTheForms();
        showPlot();
        const COM_Scoped text(GUI_TextWindow::New(*mMain, true));
        text->show();
        const COM_Scoped browser(GUI_BrowserWindow::New(*mMain));
        browser->show();
        QCoreApplication::processEvents();
    }

    const TestMainWindow& main() const { return mMain; }
    GUI2D_PlotterWindow& plot() const { return *childrenOf<GUI2D_PlotterWindow>(*mMain).front(); }
    GUI_TextWindow& text() const { return *childrenOf<GUI_TextWindow>(*mMain).front(); }
    GUI_BrowserWindow& browser() const { return *childrenOf<GUI_BrowserWindow>(*mMain).front(); }
    /// Calls `look` for every window that is shown, and once more for the second page of the forms. The number of
    /// calls.
    int visit(const std::function<void(QWidget& window)>& look) const
    {
        int views = 0;
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (!window->isVisible()) {
                continue;
            }
            look(*window);
            ++views;
            if (auto* const pages = window->findChild<QTabWidget*>()) {
                pages->setCurrentIndex(1 - pages->currentIndex());
                QCoreApplication::processEvents();
                look(*window);
                ++views;
            }
        }
        return views;
    }

    static constexpr int VIEWS = 18; ///< What `visit` gives.

private:
    void pressTheButtonsOfTheForms() const
    {
        for (QVG_DataWindow* const forms : childrenOf<QVG_DataWindow>(*mMain)) {
            auto* const pages = forms->findChild<QTabWidget*>();
            for (const int page : {1, 0}) {
                pages->setCurrentIndex(page);
                for (QPushButton* const button :
                     pages->currentWidget()->findChildren<QPushButton*>()) {
                    button->setEnabled(true); // also of what the present kind of relaxation has not
                    button->click();
                }
            }
        }
    }
    void showPlot() const
    {
        const COM_Scoped window(GUI2D_PlotterWindow::New(*mMain, "Plot"));
        const COM_Scoped color(COM_Color::New(255, 0, 0));
        window->setName(GUI_Object::translate("Quorvex Visualization"));
        window->addPlot({0.0, 1.0, 2.0}, {0.0, 1.0, 4.0}, "Ex", *color);
        window->show();
        const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
        window->getMenu()->getAllMenus(*menus);
        for (unsigned long i = 0; i < menus->size(); ++i) {
            for (unsigned long j = 0; j < (*menus)[i].getActions().size(); ++j) {
                GUI_Action& action = (*menus)[i].getActions()[j];
                for (const char* const opener :
                     {"GUI2D_ActionOptions", "GUI2D_ActionLegend", "GUI2D_ActionTools"}) {
                    if (action.instanceOf(opener)) {
                        action.trigger();
                    }
                }
            }
        }
    }

    TestMainWindow mMain;
};
