#include "gui2d/GUI2D_ActionZoomSelect.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionZoomSelect::GUI2D_ActionZoomSelect(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Zoom Select"), "GUI2D_ActionZoomFit", "zoomselect.gif")
{
    COM_TYPE(GUI2D_ActionZoomSelect);
}

void GUI2D_ActionZoomSelect::act(GUI2D_DrawPanel& panel)
{
    panel.setZoomSelection(true);
}
