#pragma once
#include "gui/GUI_RootAction.h"

/// Saves the project.
class GUI_ActionSaveProject : public GUI_RootAction
{
    COM_CLASS(GUI_ActionSaveProject)
public:
    void toDo() override;

protected:
    explicit GUI_ActionSaveProject(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionSaveProject() override = default;
};
