#pragma once
#include "gui/GUI_RootAction.h"

/// Saves the file of the root window.
class GUI_ActionSaveFile : public GUI_RootAction
{
    COM_CLASS(GUI_ActionSaveFile)
public:
    void toDo() override;

protected:
    explicit GUI_ActionSaveFile(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionSaveFile() override = default;
};
