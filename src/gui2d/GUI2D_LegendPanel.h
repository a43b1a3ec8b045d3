#pragma once
#include "gui/GUI_RootPanel.h"

#include <string>

class GUI2D_CurvesSelectionPanel;
class GUI2D_Plotter;

/// Where a plotter names its curves, and the curves one by one. Each change is in the plotter at once.
class GUI2D_LegendPanel : public GUI_RootPanel
{
    COM_CLASS(GUI2D_LegendPanel)
public:
    static constexpr unsigned char COMPO_VISIBLE_IN_SUBTITLES = 0;
    static constexpr unsigned char COMPO_VISIBLE_IN_LEGEND = 1;
    static constexpr unsigned char COMPO_XLOG = 2; ///< Without effect, like the next.
    static constexpr unsigned char COMPO_YLOG = 3;

    /// Shows the plotter as it is now, other curves than before included.
    void updateValues() override;
    /// Subtitles and legends exclude each other; both may be off.
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit GUI2D_LegendPanel(GUI_ParentWindow& window);
    ~GUI2D_LegendPanel() override = default;

private:
    void addSwitch(unsigned char flag, const std::string& label);
    void showCurves(const GUI2D_Plotter& plotter);

    /// Child 0, counted there; null before a plotter is shown.
    GUI2D_CurvesSelectionPanel* mSelection = nullptr;
};
