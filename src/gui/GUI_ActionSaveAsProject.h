#pragma once
#include "gui/GUI_RootAction.h"

/// Opens the form for the new place of the project.
class GUI_ActionSaveAsProject : public GUI_RootAction
{
    COM_CLASS(GUI_ActionSaveAsProject)
public:
    void toDo() override;

protected:
    explicit GUI_ActionSaveAsProject(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionSaveAsProject() override = default;
};
