#include "gui2d/GUI2D_ActionZoomP.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionZoomP::GUI2D_ActionZoomP(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Zoom +"), "GUI2D_ActionZoomP", "zoomin.gif")
{
    COM_TYPE(GUI2D_ActionZoomP);
}

void GUI2D_ActionZoomP::act(GUI2D_DrawPanel& panel)
{
    panel.zoom(1.0 / panel.getZoomFactor());
}
