#pragma once
#include "gui/GUI_ActionBrowser.h"

/// Appends the page to the bookmarks.
class GUI_ActionBrowserAddBookMark : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserAddBookMark)
protected:
    explicit GUI_ActionBrowserAddBookMark(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionBrowserAddBookMark() override = default;

    void act(GUI_BrowserWindow& window) override;
};
