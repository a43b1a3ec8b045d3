#include "gui2d/GUI2D_ActionMoveSouth.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionMoveSouth::GUI2D_ActionMoveSouth(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Move South"), "GUI2D_ActionMoveSouth", "south.gif")
{
    COM_TYPE(GUI2D_ActionMoveSouth);
}

void GUI2D_ActionMoveSouth::act(GUI2D_DrawPanel& panel)
{
    panel.pan(GUI2D_DrawPanel::SOUTH_DIRECTION);
}
