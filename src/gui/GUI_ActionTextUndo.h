#pragma once
#include "gui/GUI_TextAction.h"

/// Takes back the last change of the text.
class GUI_ActionTextUndo : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextUndo)
protected:
    explicit GUI_ActionTextUndo(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextUndo() override = default;

    void act(GUI_TextWindow& window) override;
};
