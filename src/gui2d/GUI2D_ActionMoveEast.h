#pragma once
#include "gui2d/GUI2D_Action.h"

/// Moves the view one step east.
class GUI2D_ActionMoveEast : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionMoveEast)
protected:
    explicit GUI2D_ActionMoveEast(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionMoveEast() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
