#pragma once
#include "gui/GUI_FramePanel.h"

/// The page of the numerical data: mesh, method and steps, one below the other.
class QVG_NumericalDataPanel : public GUI_FramePanel
{
    Q_OBJECT
    COM_CLASS(QVG_NumericalDataPanel)
protected:
    explicit QVG_NumericalDataPanel(GUI_ParentPanel& parent);
    ~QVG_NumericalDataPanel() override = default;
};
