#pragma once
#include "gui/GUI_TextAction.h"

/// Saves the text.
class GUI_ActionTextSave : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextSave)
protected:
    explicit GUI_ActionTextSave(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextSave() override = default;

    void act(GUI_TextWindow& window) override;
};
