#pragma once
#include "gui/GUI_FramePanel.h"

/// A titled frame around some components of a form. They report to the panel that the frame stands in.
class QVG_GroupPanel : public GUI_FramePanel
{
    COM_CLASS(QVG_GroupPanel)
public:
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit QVG_GroupPanel(GUI_ParentPanel& parent);
    ~QVG_GroupPanel() override = default;
};
