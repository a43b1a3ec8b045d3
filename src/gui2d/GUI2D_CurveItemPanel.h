#pragma once
#include "gui/GUI_ItemPanel.h"

/// The name, the colour and the visibility of a curve. Each change is in the curve at once, and the plotter
/// is painted again.
class GUI2D_CurveItemPanel : public GUI_ItemPanel
{
    COM_CLASS(GUI2D_CurveItemPanel)
public:
    static constexpr unsigned char COMPO_NAME = 0;
    static constexpr unsigned char COMPO_COLOR = 1;
    static constexpr unsigned char COMPO_VISIBLE = 2;

    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit GUI2D_CurveItemPanel(GUI_ParentPanel& parent);
    ~GUI2D_CurveItemPanel() override = default;

private:
    void initComponents();
};
