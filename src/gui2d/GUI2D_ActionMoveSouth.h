#pragma once
#include "gui2d/GUI2D_Action.h"

/// Moves the view one step south.
class GUI2D_ActionMoveSouth : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionMoveSouth)
protected:
    explicit GUI2D_ActionMoveSouth(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionMoveSouth() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
