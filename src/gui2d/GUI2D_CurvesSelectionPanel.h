#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_SelectionPanel.h"

#include <QColor>

class GUI2D_Curve;

/// The curves of a plotter by their numbers and colours, and an editor for the one that is selected.
class GUI2D_CurvesSelectionPanel : public GUI_SelectionPanel
{
    COM_CLASS(GUI2D_CurvesSelectionPanel)
public:
    /// Whether the list shows these very curves.
    bool isOf(const COM_Array<GUI2D_Curve>& curves) const;
    /// Shows the colours of the curves in the list, and their names as tool tips.
    void showCurves();
    /// Black without one.
    static QColor colorOf(const GUI2D_Curve& curve);

protected:
    GUI2D_CurvesSelectionPanel(GUI_ParentPanel& parent, const COM_Array<GUI2D_Curve>& curves);
    ~GUI2D_CurvesSelectionPanel() override = default;

    GUI_ItemPanel* NewItemPanel() override;
};
