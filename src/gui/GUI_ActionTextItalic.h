#pragma once
#include "gui/GUI_TextAction.h"

/// Writes in italics while it is on.
class GUI_ActionTextItalic : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextItalic)
protected:
    explicit GUI_ActionTextItalic(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextItalic() override = default;

    void act(GUI_TextWindow& window) override;
};
