#pragma once
#include "gui/GUI_TextAction.h"

/// Asks whether to save the text, then for the name of a new one, which begins empty.
class GUI_ActionTextNew : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextNew)
protected:
    explicit GUI_ActionTextNew(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextNew() override = default;

    void act(GUI_TextWindow& window) override;
};
