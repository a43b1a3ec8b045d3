#pragma once
#include "gui2d/GUI2D_Action.h"

/// Moves the view one step west.
class GUI2D_ActionMoveWest : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionMoveWest)
protected:
    explicit GUI2D_ActionMoveWest(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionMoveWest() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
