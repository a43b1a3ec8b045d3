#pragma once
#include "gui/GUI_RootPanel.h"

#include <string>

class GUI_BrowserEdit;

/// The centre of a browser window, all of it the page. It gives the window the caption of the page, and the combo
/// box of the tool bar its path.
class GUI_BrowserPanel : public GUI_RootPanel
{
    COM_CLASS(GUI_BrowserPanel)
public:
    static constexpr unsigned char COMPO_TEXT = 0; ///< Of the page.

    /// Null when it was taken out.
    GUI_BrowserEdit* getBrowserEdit() const;
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit GUI_BrowserPanel(GUI_ParentWindow& window);
    ~GUI_BrowserPanel() override = default;

private:
    void textChanged();

    std::string
        mContext; ///< Path of the page that the window shows it has; empty before the first.
};
