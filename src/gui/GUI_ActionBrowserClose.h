#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Closes the browser window, and no other.
class GUI_ActionBrowserClose : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserClose)
protected:
    explicit GUI_ActionBrowserClose(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserClose() override = default;

    void act(GUI_BrowserWindow& window) override;
};
