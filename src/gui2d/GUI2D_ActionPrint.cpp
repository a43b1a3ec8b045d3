#include "gui2d/GUI2D_ActionPrint.h"

#include "gui2d/GUI2D_DrawPanel.h"

GUI2D_ActionPrint::GUI2D_ActionPrint(GUI_ParentWindow* window)
    : GUI2D_Action(window, translate("&Print"), "GUI2D_ActionPrint", "print.png")
{
    COM_TYPE(GUI2D_ActionPrint);
}

void GUI2D_ActionPrint::act(GUI2D_DrawPanel& panel)
{
    panel.print();
}
