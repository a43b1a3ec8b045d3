#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Goes to the page that "Back" has left.
class GUI_ActionBrowserNext : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserNext)
protected:
    explicit GUI_ActionBrowserNext(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserNext() override = default;

    void act(GUI_BrowserWindow& window) override;
};
