#include "gui2d/GUI2D_ActionAxe.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionAxe::GUI2D_ActionAxe(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Show &Axes"), "GUI2D_ActionAxe", "axes.gif")
{
    COM_TYPE(GUI2D_ActionAxe);
}

void GUI2D_ActionAxe::act(GUI2D_DrawPanel& panel)
{
    panel.printAxes(!panel.isAxesPrinted());
}
