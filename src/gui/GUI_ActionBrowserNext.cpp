#include "gui/GUI_ActionBrowserNext.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserNext::GUI_ActionBrowserNext(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("Next"), "forward.xpm")
{
    COM_TYPE(GUI_ActionBrowserNext);
    setAccelText("Alt+Right");
}

void GUI_ActionBrowserNext::act(GUI_BrowserWindow& window)
{
    window.forward();
}
