#include "gui2d/GUI2D_CurveItemPanel.h"

#include "common/COM_Color.h"
#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_CheckBox.h"
#include "gui/GUI_ColorButton.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_UnknownAction.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_CurvesSelectionPanel.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_Source.h"

namespace {

constexpr int margin = GUI_ParentLayout::MARGIN;
constexpr int spacing = GUI_ParentLayout::SPACING;
constexpr int nameWidth = 24; ///< In characters.

std::string colorOf(const GUI2D_Curve& curve)
{
    return GUI_Object::toTString(GUI2D_CurvesSelectionPanel::colorOf(curve).name());
}

void setColor(GUI2D_Curve& curve, const std::string& name)
{
    // The button reports dialogs that were cancelled too.
    const QColor chosen(GUI_Object::toQString(name));
    if (chosen.isValid() && name != colorOf(curve)) {
        const COM_Scoped color(COM_Color::New(chosen.red(), chosen.green(), chosen.blue()));
        curve.setColor(*color);
    }
}

} // namespace

GUI2D_CurveItemPanel::GUI2D_CurveItemPanel(GUI_ParentPanel& parent)
    : GUI_ItemPanel(parent)
{
    COM_TYPE(GUI2D_CurveItemPanel);
    initComponents();
}

void GUI2D_CurveItemPanel::initComponents()
{
    setLabel(translate("Curve"));
    const COM_Scoped layout(GUI_RootGridLayout::New(*this, 4, 2, margin, spacing));
    layout->setRowStretch(3, 1);
    const COM_Scoped name(GUI_LineEdit::New(*this, COMPO_NAME));
    name->setLabel("");
    name->setMinimumWidth(nameWidth * fontMetrics().averageCharWidth());
    layout->addLabel(*this, 0, translate("Name"), *name);
    layout->addToComponents(*name, 0, 1);

    const COM_Scoped color(GUI_ColorButton::New(*this, COMPO_COLOR));
    layout->addLabel(*this, 1, translate("Color"), *color);
    layout->addToComponents(*color, 1, 1);

    const COM_Scoped visible(GUI_CheckBox::New(*this, COMPO_VISIBLE));
    visible->setLabel(translate("Visible"));
    layout->addToComponents(*visible, 2, 1);
}

void GUI2D_CurveItemPanel::updateValues()
{
    const GUI_Display display(*this);
    if (const auto* const curve = dynamic_cast<const GUI2D_Curve*>(getItem())) {
        showValue(COMPO_NAME, curve->getName());
        showValue(COMPO_COLOR, colorOf(*curve));
        showValue(COMPO_VISIBLE, curve->isShown() ? "1" : "0");
    }
    GUI_ItemPanel::updateValues();
}

void GUI2D_CurveItemPanel::componentClicked(GUI_ActionComponent& component)
{
    auto* const curve = dynamic_cast<GUI2D_Curve*>(getItem());
    if (curve == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    switch (component.getFlagId()) {
    case COMPO_NAME:
        curve->setName(component.getValue());
        break;
    case COMPO_COLOR:
        setColor(*curve, component.getValue());
        break;
    case COMPO_VISIBLE:
        curve->setShown(COM_Integer::parseInt(component.getValue()) != 0);
        break;
    default:
        GUI_UnknownAction::print(component);
        return;
    }
    if (auto* const selection = dynamic_cast<GUI2D_CurvesSelectionPanel*>(getParent())) {
        selection->showCurves();
    }
    if (GUI2D_DrawPanel* const panel = GUI2D_Source::drawPanel(*this)) {
        panel->redraw();
    }
}
