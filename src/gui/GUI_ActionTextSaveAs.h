#pragma once
#include "gui/GUI_TextAction.h"

/// Asks for a file and saves the text there.
class GUI_ActionTextSaveAs : public GUI_TextAction
{
    COM_CLASS(GUI_ActionTextSaveAs)
protected:
    explicit GUI_ActionTextSaveAs(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionTextSaveAs() override = default;

    void act(GUI_TextWindow& window) override;
};
