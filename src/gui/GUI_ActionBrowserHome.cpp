#include "gui/GUI_ActionBrowserHome.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserHome::GUI_ActionBrowserHome(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("Home"), "home.xpm")
{
    COM_TYPE(GUI_ActionBrowserHome);
    setAccelText("Alt+Home");
}

void GUI_ActionBrowserHome::act(GUI_BrowserWindow& window)
{
    window.home();
}
