#pragma once
#include "gui2d/GUI2D_Action.h"

/// Steps to the former view.
class GUI2D_ActionUndo : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionUndo)
protected:
    explicit GUI2D_ActionUndo(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionUndo() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
