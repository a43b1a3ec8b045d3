#include "gui/GUI_ActionBrowserPrint.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserPrint::GUI_ActionBrowserPrint(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("&Print"), "print.png")
{
    COM_TYPE(GUI_ActionBrowserPrint);
}

void GUI_ActionBrowserPrint::act(GUI_BrowserWindow& window)
{
    window.print();
}
