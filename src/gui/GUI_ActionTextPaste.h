#pragma once
#include "gui/GUI_TextAction.h"

/// Puts what was copied or cut at the cursor.
class GUI_ActionTextPaste : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextPaste)
protected:
    explicit GUI_ActionTextPaste(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextPaste() override = default;

    void act(GUI_TextWindow& window) override;
};
