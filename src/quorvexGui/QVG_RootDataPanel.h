#pragma once
#include "gui/GUI_RootPanel.h"

/// The panel of the data window; it holds the pages.
class QVG_RootDataPanel : public GUI_RootPanel
{
    Q_OBJECT
    COM_CLASS(QVG_RootDataPanel)
public:
    static constexpr unsigned char DATA_PANEL = 0; ///< Place of the pages among the child panels.

protected:
    explicit QVG_RootDataPanel(GUI_ParentWindow& window);
    ~QVG_RootDataPanel() override = default;
};
