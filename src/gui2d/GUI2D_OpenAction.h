#pragma once
#include "gui2d/GUI2D_Action.h"

class GUI_ChildWindow;

/// Opens a window about the draw panel, a child of the panel's window, or raises the one that is open.
class GUI2D_OpenAction : public GUI2D_Action
{
protected:
    GUI2D_OpenAction(GUI_ParentWindow* window, const std::string& label,
                     const std::string& speaker);
    ~GUI2D_OpenAction() override = default;

    void act(GUI2D_DrawPanel& panel) override;
    /// With a reference for the caller.
    virtual GUI_ChildWindow* NewWindow(GUI_ParentWindow& parent) const = 0;

private:
    unsigned long mWindowId = 0; ///< Of the window opened last; 0 before that.
};
