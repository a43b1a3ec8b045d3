#include "gui2d/GUI2D_OpenAction.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_ChildWindow.h"

GUI2D_OpenAction::GUI2D_OpenAction(GUI_ParentWindow* window, const std::string& label,
                                   const std::string& speaker)
    : GUI2D_Action(window, label, speaker)
{
    COM_TYPE(GUI2D_OpenAction);
}

void GUI2D_OpenAction::act(GUI2D_DrawPanel& /*panel*/)
{
    GUI_ParentWindow* const parent = getWindow();
    if (GUI_ChildWindow* const open = parent->getChild(mWindowId)) {
        open->bringToFront();
        return;
    }
    const COM_Scoped window(NewWindow(*parent));
    mWindowId = GUI_ParentWindow::getId(*window);
    window->show();
}
