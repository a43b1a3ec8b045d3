#pragma once
#include "gui2d/GUI2D_DetailWindow.h"

/// The window of the logarithms and Fourier transforms of a plotter.
class GUI2D_ToolsWindow : public GUI2D_DetailWindow
{
    COM_CLASS(GUI2D_ToolsWindow)
protected:
    explicit GUI2D_ToolsWindow(GUI_ParentWindow& parent, bool isContainer = false);
    ~GUI2D_ToolsWindow() override = default;
};
