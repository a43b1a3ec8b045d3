#pragma once
#include "gui2d/GUI2D_DetailWindow.h"

/// The window of the looks of a draw panel.
class GUI2D_OptionsWindow : public GUI2D_DetailWindow
{
    COM_CLASS(GUI2D_OptionsWindow)
protected:
    explicit GUI2D_OptionsWindow(GUI_ParentWindow& parent, bool isContainer = false);
    ~GUI2D_OptionsWindow() override = default;
};
