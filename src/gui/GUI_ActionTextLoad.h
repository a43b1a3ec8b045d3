#pragma once
#include "gui/GUI_TextAction.h"

/// Asks whether to save the text, then for the file of another one.
class GUI_ActionTextLoad : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextLoad)
protected:
    explicit GUI_ActionTextLoad(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextLoad() override = default;

    void act(GUI_TextWindow& window) override;
};
