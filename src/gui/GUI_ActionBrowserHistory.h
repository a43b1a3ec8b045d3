#pragma once
#include "gui/GUI_ActionBrowser.h"

#include <string>

/// Goes to a page that was visited. Its label is the path.
class GUI_ActionBrowserHistory : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserHistory)
protected:
    /// `id` is the window's number for the page.
    GUI_ActionBrowserHistory(GUI_ParentWindow* window, const std::string& label, int id);
    ~GUI_ActionBrowserHistory() override = default;

    void act(GUI_BrowserWindow& window) override;

private:
    int mId;
};
