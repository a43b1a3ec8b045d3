#include "gui2d/GUI2D_ActionUndo.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionUndo::GUI2D_ActionUndo(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("&Undo"), "GUI2D_ActionZoomFit", "editundo.png")
{
    COM_TYPE(GUI2D_ActionUndo);
}

void GUI2D_ActionUndo::act(GUI2D_DrawPanel& panel)
{
    panel.back();
}
