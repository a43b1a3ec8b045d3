#pragma once
#include "gui/GUI_TextAction.h"

/// Writes in bold while it is on.
class GUI_ActionTextBold : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextBold)
protected:
    explicit GUI_ActionTextBold(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextBold() override = default;

    void act(GUI_TextWindow& window) override;
};
