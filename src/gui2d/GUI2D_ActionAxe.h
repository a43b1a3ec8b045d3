#pragma once
#include "gui2d/GUI2D_Action.h"

/// Shows the axes or hides them.
class GUI2D_ActionAxe : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionAxe)
protected:
    explicit GUI2D_ActionAxe(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionAxe() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
