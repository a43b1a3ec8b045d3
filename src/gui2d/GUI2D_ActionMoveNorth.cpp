#include "gui2d/GUI2D_ActionMoveNorth.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionMoveNorth::GUI2D_ActionMoveNorth(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Move North"), "GUI2D_ActionMoveNorth", "north.gif")
{
    COM_TYPE(GUI2D_ActionMoveNorth);
}

void GUI2D_ActionMoveNorth::act(GUI2D_DrawPanel& panel)
{
    panel.pan(GUI2D_DrawPanel::NORTH_DIRECTION);
}
