#include "gui/GUI_ActionBrowserBookMark.h"

#include "gui/GUI_BrowserWindow.h"

GUI_ActionBrowserBookMark::GUI_ActionBrowserBookMark(GUI_ParentWindow* window,
                                                     const std::string& label, int id)
    : GUI_ActionBrowser(window, {})
    , mId(id)
{
    COM_TYPE(GUI_ActionBrowserBookMark);
    setPlainLabel(label);
}

void GUI_ActionBrowserBookMark::act(GUI_BrowserWindow& window)
{
    window.bookmarkChosen(mId);
}
