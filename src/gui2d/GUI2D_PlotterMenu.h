#pragma once
#include "gui2d/GUI2D_MenuPanel.h"

/// The menus of a plotter window: those of a draw panel, and what can be done with curves.
class GUI2D_PlotterMenu : public GUI2D_MenuPanel
{
    COM_CLASS(GUI2D_PlotterMenu)
protected:
    explicit GUI2D_PlotterMenu(GUI_ParentWindow& window);
    ~GUI2D_PlotterMenu() override = default;

private:
    void createToolsMenu();
};
