#pragma once
#include "gui/GUI_ChildWindow.h"

#include <string>

/// A small window about the draw panel of its parent. Escape closes it.
class GUI2D_DetailWindow : public GUI_ChildWindow
{
protected:
    GUI2D_DetailWindow(GUI_ParentWindow& parent, const std::string& name, bool isContainer);
    ~GUI2D_DetailWindow() override = default;
};
