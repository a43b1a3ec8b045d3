#pragma once
#include "gui2d/GUI2D_Action.h"

/// Reads the plotter from a file that the user names. A file that holds none changes nothing.
class GUI2D_ActionLoadPlot : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionLoadPlot)
protected:
    explicit GUI2D_ActionLoadPlot(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionLoadPlot() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
