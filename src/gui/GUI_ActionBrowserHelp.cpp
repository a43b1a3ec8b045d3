#include "gui/GUI_ActionBrowserHelp.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserHelp::GUI_ActionBrowserHelp(GUI_ParentWindow* window, int number)
    : GUI_ActionBrowser(window, translate(mLabels[number]))
    , mNumber(number)
{
    COM_TYPE(GUI_ActionBrowserHelp);
}

void GUI_ActionBrowserHelp::act(GUI_BrowserWindow& window)
{
    if (mNumber == 0) {
        window.about();
    } else {
        window.help();
    }
}
