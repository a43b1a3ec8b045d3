#include "gui2d/GUI2D_OpenAction.h"

#include "gui/GUI_ChildWindow.h"

GUI2D_OpenAction::GUI2D_OpenAction(GUI_ParentWindow* window, const std::string& label,
                                   const std::string& speaker)
    : GUI2D_Action(window, label, speaker)
{
    COM_TYPE(GUI2D_OpenAction);
}

void GUI2D_OpenAction::act(GUI2D_DrawPanel& /*panel*/)
{
    getWindow()->openForm(mWindowId,
                          [this](GUI_ParentWindow& parent) { return NewWindow(parent); });
}
