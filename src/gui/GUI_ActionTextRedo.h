#pragma once
#include "gui/GUI_TextAction.h"

/// Makes again the change that was taken back last.
class GUI_ActionTextRedo : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextRedo)
protected:
    explicit GUI_ActionTextRedo(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextRedo() override = default;

    void act(GUI_TextWindow& window) override;
};
