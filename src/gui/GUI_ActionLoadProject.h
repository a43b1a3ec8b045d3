#pragma once
#include "gui/GUI_RootAction.h"

/// Asks whether to save the open project, then for the project file to load.
class GUI_ActionLoadProject : public GUI_RootAction
{
    COM_CLASS(GUI_ActionLoadProject)
public:
    void toDo() override;

protected:
    explicit GUI_ActionLoadProject(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionLoadProject() override = default;
};
