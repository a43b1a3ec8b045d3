#pragma once

class GUI2D_DrawPanel;
class GUI2D_Plotter;
class GUI_ParentPanel;

/// The way from a panel of a small window to the draw panel that the window is about, which its parent holds.
class GUI2D_Source
{
public:
    /// Null while a link on the way is missing.
    static GUI2D_DrawPanel* drawPanel(GUI_ParentPanel& panel);
    /// Null also when the draw panel is no plotter.
    static GUI2D_Plotter* plotter(GUI_ParentPanel& panel);
};
