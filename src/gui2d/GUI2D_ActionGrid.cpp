#include "gui2d/GUI2D_ActionGrid.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionGrid::GUI2D_ActionGrid(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Show &Grid"), "GUI2D_ActionGrid", "grid.gif")
{
    COM_TYPE(GUI2D_ActionGrid);
}

void GUI2D_ActionGrid::act(GUI2D_DrawPanel& panel)
{
    panel.printGrid(!panel.isGridPrinted());
}
