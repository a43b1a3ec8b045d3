#pragma once
#include "gui2d/GUI2D_Action.h"

/// Puts the numbers of the shown curves on the clipboard, separated by tabs.
class GUI2D_ActionCopyValues : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionCopyValues)
protected:
    explicit GUI2D_ActionCopyValues(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionCopyValues() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
