#pragma once
#include "gui2d/GUI2D_Action.h"

/// Shows the grid or hides it.
class GUI2D_ActionGrid : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionGrid)
protected:
    explicit GUI2D_ActionGrid(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionGrid() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
