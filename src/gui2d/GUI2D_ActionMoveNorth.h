#pragma once
#include "gui2d/GUI2D_Action.h"

/// Moves the view one step north.
class GUI2D_ActionMoveNorth : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionMoveNorth)
protected:
    explicit GUI2D_ActionMoveNorth(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionMoveNorth() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
