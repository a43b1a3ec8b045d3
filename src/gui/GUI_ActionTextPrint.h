#pragma once
#include "gui/GUI_TextAction.h"

/// Prints the text.
class GUI_ActionTextPrint : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextPrint)
protected:
    explicit GUI_ActionTextPrint(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextPrint() override = default;

    void act(GUI_TextWindow& window) override;
};
