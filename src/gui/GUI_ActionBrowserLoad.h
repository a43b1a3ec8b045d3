#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Asks for a file and shows it.
class GUI_ActionBrowserLoad : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserLoad)
protected:
    explicit GUI_ActionBrowserLoad(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserLoad() override = default;

    void act(GUI_BrowserWindow& window) override;
};
