#include "gui2d/GUI2D_PlotterMenu.h"

#include "gui/GUI_RootMenu.h"
#include "gui2d/GUI2D_ActionCopyPicture.h"
#include "gui2d/GUI2D_ActionCopyValues.h"
#include "gui2d/GUI2D_ActionExport.h"
#include "gui2d/GUI2D_ActionLegend.h"
#include "gui2d/GUI2D_ActionLoadPlot.h"
#include "gui2d/GUI2D_ActionSavePlot.h"
#include "gui2d/GUI2D_ActionTools.h"

GUI2D_PlotterMenu::GUI2D_PlotterMenu(GUI_ParentWindow& window)
    : GUI2D_MenuPanel(window)
{
    COM_TYPE(GUI2D_PlotterMenu);
    add(*getEditMenu(), GUI2D_ActionLegend::New(getWindow()));
    createToolsMenu();
    setKeys();
}

void GUI2D_PlotterMenu::createToolsMenu()
{
    GUI_RootMenu& menu = addMenu("&Tools");
    add(menu, GUI2D_ActionTools::New(getWindow()));
    add(menu, GUI2D_ActionSavePlot::New(getWindow()));
    add(menu, GUI2D_ActionLoadPlot::New(getWindow()));
    add(menu, GUI2D_ActionExport::New(getWindow()));
    add(menu, GUI2D_ActionCopyPicture::New(getWindow()));
    add(menu, GUI2D_ActionCopyValues::New(getWindow()));
}
