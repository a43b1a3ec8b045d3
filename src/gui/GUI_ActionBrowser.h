#pragma once
#include "gui/GUI_Action.h"

#include <string>

class GUI_BrowserWindow;

/// An action on the browser window whose menu holds it. In any other place it does nothing.
class GUI_ActionBrowser : public GUI_Action
{
public:
    void toDo() override;

protected:
    /// The label as it is shown; no icon for an empty name.
    GUI_ActionBrowser(GUI_ParentWindow* window, const std::string& label,
                      const std::string& icon = {});
    ~GUI_ActionBrowser() override = default;

    virtual void act(GUI_BrowserWindow& window) = 0;
};
