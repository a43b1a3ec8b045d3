#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Goes to the first page.
class GUI_ActionBrowserHome : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserHome)
protected:
    explicit GUI_ActionBrowserHome(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserHome() override = default;

    void act(GUI_BrowserWindow& window) override;
};
