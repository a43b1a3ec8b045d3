#pragma once
#include "gui2d/GUI2D_Action.h"

/// Steps to the next view.
class GUI2D_ActionRedo : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionRedo)
protected:
    explicit GUI2D_ActionRedo(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionRedo() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
