#pragma once
#include "gui2d/GUI2D_Action.h"

/// Prints the picture.
class GUI2D_ActionPrint : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionPrint)
protected:
    explicit GUI2D_ActionPrint(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionPrint() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
