#pragma once
#include "gui/GUI_ParentLayout.h"

/// The main layout of a panel.
class GUI_RootLayout : public GUI_ParentLayout
{
public:
    virtual GUI_ParentPanel* getPanel() const { return mPanel; }

    /// Two-way link with `GUI_ParentPanel::setMainLayout` and `resetMainLayout`.
    void setPanel(GUI_ParentPanel& panel);
    /// Null takes the layout off its panel.
    void setPanel(GUI_ParentPanel* panel);
    void resetPanel();

    GUI_RootLayout* getRoot() override { return this; }

protected:
    GUI_RootLayout() = default;
    ~GUI_RootLayout() override = default;

private:
    GUI_ParentPanel* mPanel = nullptr; ///< Counted back reference.
};
