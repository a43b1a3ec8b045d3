#pragma once
#include "gui/GUI_TextAction.h"

/// Aligns the paragraph to the right while it is on, to the left when it is switched off.
class GUI_ActionTextRightAlign : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextRightAlign)
protected:
    explicit GUI_ActionTextRightAlign(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextRightAlign() override = default;

    void act(GUI_TextWindow& window) override;
};
