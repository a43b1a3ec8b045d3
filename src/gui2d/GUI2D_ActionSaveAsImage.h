#pragma once
#include "gui2d/GUI2D_Action.h"

/// Writes the picture as BMP, or in the format of a name that holds ".bmp" and ends otherwise.
class GUI2D_ActionSaveAsImage : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionSaveAsImage)
protected:
    explicit GUI2D_ActionSaveAsImage(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionSaveAsImage() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
