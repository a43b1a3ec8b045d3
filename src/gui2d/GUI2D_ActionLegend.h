#pragma once
#include "gui2d/GUI2D_OpenAction.h"

/// Opens the legends of the plotter.
class GUI2D_ActionLegend : public GUI2D_OpenAction
{
    COM_CLASS(GUI2D_ActionLegend)
protected:
    explicit GUI2D_ActionLegend(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionLegend() override = default;

    GUI_ChildWindow* NewWindow(GUI_ParentWindow& parent) const override;
};
