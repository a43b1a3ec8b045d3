#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Prints the page.
class GUI_ActionBrowserPrint : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserPrint)
protected:
    explicit GUI_ActionBrowserPrint(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserPrint() override = default;

    void act(GUI_BrowserWindow& window) override;
};
