#pragma once
#include "gui2d/GUI2D_OpenAction.h"

/// Opens the looks of the draw panel.
class GUI2D_ActionOptions : public GUI2D_OpenAction
{
    COM_CLASS(GUI2D_ActionOptions)
protected:
    explicit GUI2D_ActionOptions(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionOptions() override = default;

    GUI_ChildWindow* NewWindow(GUI_ParentWindow& parent) const override;
};
