#include "gui/GUI_ActionBrowserNewWindow.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserNewWindow::GUI_ActionBrowserNewWindow(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("&New Window"), "filenew.png")
{
    COM_TYPE(GUI_ActionBrowserNewWindow);
}

void GUI_ActionBrowserNewWindow::act(GUI_BrowserWindow& window)
{
    window.newWindow();
}
