#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Goes back to the page before.
class GUI_ActionBrowserBack : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserBack)
protected:
    explicit GUI_ActionBrowserBack(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserBack() override = default;

    void act(GUI_BrowserWindow& window) override;
};
