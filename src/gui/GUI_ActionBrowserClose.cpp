#include "gui/GUI_ActionBrowserClose.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserClose::GUI_ActionBrowserClose(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("Close"))
{
    COM_TYPE(GUI_ActionBrowserClose);
    setAccelText("Ctrl+Q");
}

void GUI_ActionBrowserClose::act(GUI_BrowserWindow& window)
{
    window.close();
}
