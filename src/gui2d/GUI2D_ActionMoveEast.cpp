#include "gui2d/GUI2D_ActionMoveEast.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionMoveEast::GUI2D_ActionMoveEast(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Move East"), "GUI2D_ActionMoveEast", "right.gif")
{
    COM_TYPE(GUI2D_ActionMoveEast);
}

void GUI2D_ActionMoveEast::act(GUI2D_DrawPanel& panel)
{
    panel.pan(GUI2D_DrawPanel::EAST_DIRECTION);
}
