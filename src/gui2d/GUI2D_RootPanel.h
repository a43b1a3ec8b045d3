#pragma once
#include "gui/GUI_RootPanel.h"

class GUI2D_Plotter;

/// The centre of a plotter window, all of it a plotter.
class GUI2D_RootPanel : public GUI_RootPanel
{
    COM_CLASS(GUI2D_RootPanel)
public:
    /// Null when it was taken out.
    GUI2D_Plotter* getPlotter() const;

protected:
    explicit GUI2D_RootPanel(GUI_ParentWindow& window);
    ~GUI2D_RootPanel() override = default;
};
