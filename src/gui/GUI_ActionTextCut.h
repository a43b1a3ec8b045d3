#pragma once
#include "gui/GUI_TextAction.h"

/// Cuts out what is selected.
class GUI_ActionTextCut : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextCut)
protected:
    explicit GUI_ActionTextCut(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextCut() override = default;

    void act(GUI_TextWindow& window) override;
};
