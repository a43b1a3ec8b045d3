#pragma once
#include "gui2d/GUI2D_Action.h"

/// Widens the view by the zoom factor.
class GUI2D_ActionZoomL : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionZoomL)
protected:
    explicit GUI2D_ActionZoomL(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionZoomL() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
