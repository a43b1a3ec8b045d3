#pragma once
#include "gui/GUI_ActionBrowser.h"

/// An entry about the browser itself, told apart by its number: 0 what it is, 1 how to use it.
class GUI_ActionBrowserHelp : public GUI_ActionBrowser
{
    COM_CLASS(GUI_ActionBrowserHelp)
public:
    static constexpr const char* mLabels[] = {"About", "About Browser"}; ///< By number.

protected:
    /// Requires: `number` is that of a label.
    GUI_ActionBrowserHelp(GUI_ParentWindow* window, int number);
    ~GUI_ActionBrowserHelp() override = default;

    void act(GUI_BrowserWindow& window) override;

private:
    int mNumber;
};
