#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Opens another browser window on the present page.
class GUI_ActionBrowserNewWindow : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserNewWindow)
protected:
    explicit GUI_ActionBrowserNewWindow(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserNewWindow() override = default;

    void act(GUI_BrowserWindow& window) override;
};
