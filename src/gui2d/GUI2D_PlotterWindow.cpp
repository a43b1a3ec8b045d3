#include "gui2d/GUI2D_PlotterWindow.h"

#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_ClassFactory.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_PlotterMenu.h"
#include "gui2d/GUI2D_RootPanel.h"
#include "metaModel/MM_Class.h"

#include <QStatusBar>

namespace {

constexpr int startWidth = 720;
constexpr int startHeight = 540;

} // namespace

GUI2D_PlotterWindow::GUI2D_PlotterWindow(GUI_ParentWindow& parent, const std::string& name,
                                         bool isContainer)
    : GUI_ChildWindow(parent, isContainer)
{
    COM_TYPE(GUI2D_PlotterWindow);
    setName(name);
    const COM_Scoped panel(GUI2D_RootPanel::New(*this));
    const COM_Scoped menu(GUI2D_PlotterMenu::New(*this));
    // Made by the first message, it would take its lines from the plot under the user's mouse.
    statusBar();
    setSize(startWidth, startHeight);
}

GUI2D_DrawPanel* GUI2D_PlotterWindow::getDrawPanel() const
{
    return getPlotter();
}

GUI2D_Plotter* GUI2D_PlotterWindow::getPlotter() const
{
    const auto* const panel = dynamic_cast<GUI2D_RootPanel*>(getPanel());
    return panel == nullptr ? nullptr : panel->getPlotter();
}

void GUI2D_PlotterWindow::addPlot(const LA_RealVector& x, const LA_RealVector& y,
                                  const std::string& name, bool shown, COM_Color& color)
{
    if (GUI2D_Plotter* const plotter = getPlotter()) {
        plotter->addPlot(x, y, name, shown, color);
        updateMenus();
    }
}

void GUI2D_PlotterWindow::addPlot(const std::vector<double>& x, const std::vector<double>& y,
                                  const std::string& name, COM_Color& color)
{
    if (GUI2D_Plotter* const plotter = getPlotter()) {
        plotter->addPlot(x, y, name, color);
        updateMenus();
    }
}

void GUI2D_PlotterWindow::curvesYNormalization(const std::string& key, double value)
{
    if (GUI2D_Plotter* const plotter = getPlotter()) {
        plotter->curvesYNormalization(key, value);
        updateMenus();
    }
}

void GUI2D_PlotterWindow::updateMenus() const
{
    if (GUI_MenuPanel* const menu = getMenu()) {
        menu->updateStateMenus();
    }
}

unsigned long GUI2D_PlotterWindow::getPlotsNumber() const
{
    const GUI2D_Plotter* const plotter = getPlotter();
    return plotter == nullptr ? 0 : plotter->getPlotsNumber();
}

void GUI2D_PlotterWindow::save() const
{
    mIsSaved = false;
    if (const GUI2D_Plotter* const plotter = getPlotter()) {
        const COM_Scoped factory(GUI2D_ClassFactory::New());
        mIsSaved = factory->save(getSavingPath() + getSavingFile(), *plotter);
    }
}

void GUI2D_PlotterWindow::load()
{
    mIsLoaded = false;
    GUI2D_Plotter* const plotter = getPlotter();
    if (plotter == nullptr) {
        return;
    }
    const COM_Scoped factory(GUI2D_ClassFactory::New());
    factory->load(getSavingPath() + getSavingFile(), *plotter);
    const MM_Class* const root = factory->getRootMetaClass();
    mIsLoaded = root != nullptr && root->getName() == plotter->getClassName();
    if (mIsLoaded) {
        updateMenus();
        updateValues();
    }
}
