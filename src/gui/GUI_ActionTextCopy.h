#pragma once
#include "gui/GUI_TextAction.h"

/// Copies what is selected.
class GUI_ActionTextCopy : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextCopy)
protected:
    explicit GUI_ActionTextCopy(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextCopy() override = default;

    void act(GUI_TextWindow& window) override;
};
