#include "gui2d/GUI2D_CurvesSelectionPanel.h"

#include "common/COM_Color.h"
#include "gui/GUI_ListBox.h"
#include "gui/GUI_ListPanel.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_CurveItemPanel.h"

#include <QIcon>
#include <QPixmap>

GUI2D_CurvesSelectionPanel::GUI2D_CurvesSelectionPanel(GUI_ParentPanel& parent,
                                                       const COM_Array<GUI2D_Curve>& curves)
    : GUI_SelectionPanel(parent)
{
    COM_TYPE(GUI2D_CurvesSelectionPanel);
    setLabel(translate("Curves"));
    initComponents(false, false);
    for (unsigned long i = 0; i < curves.size(); ++i) {
        addToItems(curves[i], numberedName(translate("Curve"), i + 1, curves.size()));
    }
    showCurves();
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

void GUI2D_CurvesSelectionPanel::showCurves()
{
    auto* const list =
        dynamic_cast<GUI_ListBox*>(getListPanel()->getComponent(GUI_ListPanel::COMPO_LIST));
    if (list == nullptr) {
        return;
    }
    const int side = list->fontMetrics().ascent();
    list->setIconSize({side, side});
    for (int i = 0; i < list->count(); ++i) {
        if (const auto* const curve = dynamic_cast<const GUI2D_Curve*>(getObject(i))) {
            QPixmap color(side, side);
            color.fill(colorOf(*curve));
            QIcon icon(color);
            icon.addPixmap(color, QIcon::Selected); // or the style would shade it
            list->item(i)->setIcon(icon);
            list->item(i)->setToolTip(toQString(curve->getName()));
        }
    }
}

QColor GUI2D_CurvesSelectionPanel::colorOf(const GUI2D_Curve& curve)
{
    const COM_Color* const color = curve.getColor();
    return color == nullptr ? QColor(Qt::black)
                            : QColor(color->getRed(), color->getGreen(), color->getBlue());
}

GUI_ItemPanel* GUI2D_CurvesSelectionPanel::NewItemPanel()
{
    return GUI2D_CurveItemPanel::New(*this);
}
