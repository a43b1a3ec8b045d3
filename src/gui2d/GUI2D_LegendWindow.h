#pragma once
#include "gui2d/GUI2D_DetailWindow.h"

/// The window of the legends of a plotter: where they stand, and each curve with its name, colour and
/// visibility.
class GUI2D_LegendWindow : public GUI2D_DetailWindow
{
    COM_CLASS(GUI2D_LegendWindow)
protected:
    explicit GUI2D_LegendWindow(GUI_ParentWindow& parent, bool isContainer = false);
    ~GUI2D_LegendWindow() override = default;
};
