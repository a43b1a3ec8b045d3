#pragma once
#include "gui/GUI_TextAction.h"

/// Centres the paragraph while it is on, aligns it to the left when it is switched off.
class GUI_ActionTextCenterAlign : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextCenterAlign)
protected:
    explicit GUI_ActionTextCenterAlign(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextCenterAlign() override = default;

    void act(GUI_TextWindow& window) override;
};
