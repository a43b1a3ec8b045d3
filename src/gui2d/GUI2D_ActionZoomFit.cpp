#include "gui2d/GUI2D_ActionZoomFit.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionZoomFit::GUI2D_ActionZoomFit(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Zoom Fit"), "GUI2D_ActionZoomFit", "zoomfit.gif")
{
    COM_TYPE(GUI2D_ActionZoomFit);
}

void GUI2D_ActionZoomFit::act(GUI2D_DrawPanel& panel)
{
    panel.fitToGraphics();
}
