#pragma once
#include "gui/GUI_RootAction.h"

/// Asks whether to save the open project, then opens the form for a new one.
class GUI_ActionNewProject : public GUI_RootAction
{
    COM_CLASS(GUI_ActionNewProject)
public:
    void toDo() override;

protected:
    explicit GUI_ActionNewProject(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionNewProject() override = default;
};
