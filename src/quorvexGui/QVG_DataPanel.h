#pragma once
#include "gui/GUI_TabPanel.h"

/// The two pages of the data window: physical and numerical data.
class QVG_DataPanel : public GUI_TabPanel
{
    Q_OBJECT
    COM_CLASS(QVG_DataPanel)
protected:
    explicit QVG_DataPanel(GUI_ParentPanel& parent);
    ~QVG_DataPanel() override = default;
};
