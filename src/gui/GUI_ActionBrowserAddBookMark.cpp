#include "gui/GUI_ActionBrowserAddBookMark.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserAddBookMark::GUI_ActionBrowserAddBookMark(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("&Add Bookmark"))
{
    COM_TYPE(GUI_ActionBrowserAddBookMark);
}

void GUI_ActionBrowserAddBookMark::act(GUI_BrowserWindow& window)
{
    window.addBookmark();
}
