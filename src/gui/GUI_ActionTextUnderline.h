#pragma once
#include "gui/GUI_TextAction.h"

/// Underlines the text while it is on.
class GUI_ActionTextUnderline : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextUnderline)
protected:
    explicit GUI_ActionTextUnderline(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextUnderline() override = default;

    void act(GUI_TextWindow& window) override;
};
