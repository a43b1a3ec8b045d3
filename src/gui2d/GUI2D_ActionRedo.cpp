#include "gui2d/GUI2D_ActionRedo.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionRedo::GUI2D_ActionRedo(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("&Redo"), "GUI2D_ActionZoomFit", "editredo.png")
{
    COM_TYPE(GUI2D_ActionRedo);
}

void GUI2D_ActionRedo::act(GUI2D_DrawPanel& panel)
{
    panel.next();
}
