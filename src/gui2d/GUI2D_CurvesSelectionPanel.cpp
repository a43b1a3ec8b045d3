#include "gui2d/GUI2D_CurvesSelectionPanel.h"

#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_CurveItemPanel.h"

GUI2D_CurvesSelectionPanel::GUI2D_CurvesSelectionPanel(GUI_ParentPanel& parent,
                                                       const COM_Array<GUI2D_Curve>& curves)
    : GUI_SelectionPanel(parent)
{
    COM_TYPE(GUI2D_CurvesSelectionPanel);
    setLabel(translate("Curves"));
    initComponents(false, false);
    const std::size_t width = std::to_string(curves.size()).size();
    for (unsigned long i = 0; i < curves.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        addToItems(curves[i],
                   translate("Curve") + " " + std::string(width - number.size(), '0') + number);
    }
}

bool GUI2D_CurvesSelectionPanel::isOf(const COM_Array<GUI2D_Curve>& curves) const
{
    if (getObjectsNumber() != curves.size()) {
        return false;
    }
    for (unsigned long i = 0; i < curves.size(); ++i) {
        if (getObject(static_cast<int>(i)) != &curves[i]) {
            return false;
        }
    }
    return true;
}

GUI_ItemPanel* GUI2D_CurvesSelectionPanel::NewItemPanel()
{
    return GUI2D_CurveItemPanel::New(*this);
}
