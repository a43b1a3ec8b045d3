#pragma once
#include "gui2d/GUI2D_Action.h"

/// Puts the picture on the clipboard.
class GUI2D_ActionCopyPicture : public GUI2D_Action
{
    COM_CLASS(GUI2D_ActionCopyPicture)
protected:
    explicit GUI2D_ActionCopyPicture(GUI_ParentWindow* window = nullptr);
    ~GUI2D_ActionCopyPicture() override = default;

    void act(GUI2D_DrawPanel& panel) override;
};
