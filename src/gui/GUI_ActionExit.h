#pragma once
#include "gui/GUI_RootAction.h"

/// Closes the root window, which ends the program unless the user says Cancel.
class GUI_ActionExit : public GUI_RootAction
{
    COM_CLASS(GUI_ActionExit)
public:
    void toDo() override;

protected:
    explicit GUI_ActionExit(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionExit() override = default;
};
