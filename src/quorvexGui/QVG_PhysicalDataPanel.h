#pragma once
#include "gui/GUI_FramePanel.h"

/// The page of the physical data: domain, atoms and light, one below the other.
class QVG_PhysicalDataPanel : public GUI_FramePanel
{
    Q_OBJECT
    COM_CLASS(QVG_PhysicalDataPanel)
protected:
    explicit QVG_PhysicalDataPanel(GUI_ParentPanel& parent);
    ~QVG_PhysicalDataPanel() override = default;
};
