#include "gui2d/GUI2D_ActionMoveWest.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionMoveWest::GUI2D_ActionMoveWest(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("Move West"), "GUI2D_ActionMoveWest", "left.gif")
{
    COM_TYPE(GUI2D_ActionMoveWest);
}

void GUI2D_ActionMoveWest::act(GUI2D_DrawPanel& panel)
{
    panel.pan(GUI2D_DrawPanel::WEST_DIRECTION);
}
