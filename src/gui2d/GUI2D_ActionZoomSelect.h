#pragma once
#include "gui2d/GUI2D_Action.h"

/// Lets the mouse drag the rectangle to zoom to.
class GUI2D_ActionZoomSelect : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionZoomSelect)
protected:
    explicit GUI2D_ActionZoomSelect(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionZoomSelect() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
