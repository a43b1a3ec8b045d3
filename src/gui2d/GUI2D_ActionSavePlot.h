#pragma once
#include "gui2d/GUI2D_Action.h"

/// Writes the plotter to a file that the user names; it becomes the file of the window.
class GUI2D_ActionSavePlot : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionSavePlot)
protected:
    explicit GUI2D_ActionSavePlot(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionSavePlot() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
