#pragma once
#include "gui/GUI_ActionBrowser.h"

#include <string>

/// Goes to a page with a bookmark. Its label is the caption that the window had there.
class GUI_ActionBrowserBookMark : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserBookMark)
protected:
    /// `id` is the window's number for the page.
    GUI_ActionBrowserBookMark(GUI_ParentWindow* window, const std::string& label, int id);
    ~GUI_ActionBrowserBookMark() override = default;

    void act(GUI_BrowserWindow& window) override;

private:
    int mId;
};
