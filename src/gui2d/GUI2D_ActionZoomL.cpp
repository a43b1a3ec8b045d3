#include "gui2d/GUI2D_ActionZoomL.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionZoomL::GUI2D_ActionZoomL(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Zoom -"), "GUI2D_ActionZoomL", "zoomout.gif")
{
    COM_TYPE(GUI2D_ActionZoomL);
}

void GUI2D_ActionZoomL::act(GUI2D_DrawPanel& panel)
{
    panel.zoom(panel.getZoomFactor());
}
