#pragma once
#include "gui2d/GUI2D_OpenAction.h"

/// Opens the transforms of the curves.
class GUI2D_ActionTools : public GUI2D_OpenAction
{
    COM_CLASS(GUI2D_ActionTools)
protected:
    explicit GUI2D_ActionTools(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionTools() override = default;

    GUI_ChildWindow* NewWindow(GUI_ParentWindow& parent) const override;
};
