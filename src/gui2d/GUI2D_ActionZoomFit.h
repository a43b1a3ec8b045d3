#pragma once
#include "gui2d/GUI2D_Action.h"

/// Shows the whole extent of what there is to see.
class GUI2D_ActionZoomFit : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionZoomFit)
protected:
    explicit GUI2D_ActionZoomFit(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionZoomFit() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
