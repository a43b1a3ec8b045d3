#pragma once
#include "gui/GUI_TextAction.h"

/// Aligns the paragraph to the left.
class GUI_ActionTextLeftAlign : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextLeftAlign)
protected:
    explicit GUI_ActionTextLeftAlign(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextLeftAlign() override = default;

    void act(GUI_TextWindow& window) override;
};
