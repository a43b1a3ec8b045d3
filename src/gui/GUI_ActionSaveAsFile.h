#pragma once
#include "gui/GUI_RootAction.h"

/// Asks for a file and saves the root window as that.
class GUI_ActionSaveAsFile : public GUI_RootAction
{
    COM_CLASS(GUI_ActionSaveAsFile)
public:
    void toDo() override;

protected:
    explicit GUI_ActionSaveAsFile(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionSaveAsFile() override = default;
};
