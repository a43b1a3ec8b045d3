#include "gui/GUI_ActionBrowserBack.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserBack::GUI_ActionBrowserBack(GUI_ParentWindow* window)
    : GUI_ActionBrowser(window, translate("Back"), "back.xpm")
{
    COM_TYPE(GUI_ActionBrowserBack);
    setAccelText("Alt+Left");
}

void GUI_ActionBrowserBack::act(GUI_BrowserWindow& window)
{
    window.backward();
}
