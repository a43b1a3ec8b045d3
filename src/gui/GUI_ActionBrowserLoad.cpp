#include "gui/GUI_ActionBrowserLoad.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserLoad::GUI_ActionBrowserLoad(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("&Open File"), "fileopen.png")
{
    COM_TYPE(GUI_ActionBrowserLoad);
}

void GUI_ActionBrowserLoad::act(GUI_BrowserWindow& window)
{
    window.openFile();
}
