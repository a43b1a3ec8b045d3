#include "gui/GUI_ActionBrowserHistory.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserHistory::GUI_ActionBrowserHistory(GUI_ParentWindow* window,
                                                   const std::string& label, int id)
    : GUI_ActionBrowser(window, {})
    , mId(id)
{
    COM_TYPE(GUI_ActionBrowserHistory);
    setPlainLabel(label);
}

void GUI_ActionBrowserHistory::act(GUI_BrowserWindow& window)
{
    window.historyChosen(mId);
}
