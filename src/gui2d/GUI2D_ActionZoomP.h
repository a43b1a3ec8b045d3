#pragma once
#include "gui2d/GUI2D_Action.h"

/// Narrows the view by the zoom factor.
class GUI2D_ActionZoomP : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionZoomP)
protected:
    explicit GUI2D_ActionZoomP(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionZoomP() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
