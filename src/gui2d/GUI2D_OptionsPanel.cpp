#include "gui2d/GUI2D_OptionsPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_ColorButton.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RadioButton.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_SpinBox.h"
#include "gui/GUI_UnknownAction.h"
#include "gui2d/GUI2D_DrawPanel.h"
#include "gui2d/GUI2D_Source.h"

#include <cmath>

namespace {

constexpr int margin = GUI_ParentLayout::MARGIN;
constexpr int spacing = GUI_ParentLayout::SPACING;
constexpr int maxPan = 1000;  ///< Pixels.
constexpr int textWidth = 32; ///< Of a field, in characters.

} // namespace

GUI2D_OptionsPanel::GUI2D_OptionsPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI2D_OptionsPanel);
    initComponents();
    GUI2D_OptionsPanel::updateValues();
}

void GUI2D_OptionsPanel::initComponents()
{
    static constexpr Row rows[] = {
        {.mKind = SPIN_BOX, .mFlag = COMPO_SB_PANX, .mLabel = "Pan X", .mMaximum = maxPan},
        {.mKind = SPIN_BOX, .mFlag = COMPO_SB_PANY, .mLabel = "Pan Y", .mMaximum = maxPan},
        {.mKind = SPIN_BOX,
         .mFlag = COMPO_SB_DIGIT,
         .mLabel = "Number of Scale Digits",
         .mMaximum = static_cast<int>(GUI2D_DrawPanel::MAX_DIGITS)},
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_ZOOM, .mLabel = "Zoom Factor"},
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_TITLE, .mLabel = "Title"},
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_XLABEL, .mLabel = "X Label"},
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_YLABEL, .mLabel = "Y Label"},
        {.mKind = RADIO_BUTTON, .mFlag = COMPO_RB_ORTHO, .mLabel = "Orthonormal Axes"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_AXE, .mLabel = "Axes Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_GRID, .mLabel = "Grid Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_BACKGROUND, .mLabel = "Background Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_BORDER, .mLabel = "Border Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_BORDER_LINE, .mLabel = "Border Line Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_SCALE, .mLabel = "Scale Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_TITLE, .mLabel = "Title Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_XLABEL, .mLabel = "X Label Color"},
        {.mKind = COLOR_BUTTON, .mFlag = COMPO_BUTTON_YLABEL, .mLabel = "Y Label Color"},
        {.mKind = RADIO_BUTTON, .mFlag = COMPO_RB_SCALE, .mLabel = "Print Scale"},
        {.mKind = RADIO_BUTTON, .mFlag = COMPO_RB_TITLE, .mLabel = "Print Title"},
        {.mKind = RADIO_BUTTON, .mFlag = COMPO_RB_XLABEL, .mLabel = "Print X Label"},
        {.mKind = RADIO_BUTTON, .mFlag = COMPO_RB_YLABEL, .mLabel = "Print Y Label"},
    };
    constexpr int rowsNumber = static_cast<int>(std::size(rows));

    const COM_Scoped layout(GUI_RootGridLayout::New(*this, rowsNumber + 1, 2, margin, spacing));
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(rowsNumber, 1);
    int number = 0;
    for (const Row& row : rows) {
        const COM_Scoped field(newField(row));
        field->setFlagId(row.mFlag);
        field->qtWidget()->setToolTip(toQString(translate(row.mLabel)));
        layout->addLabel(*this, number, translate(row.mLabel), *field->qtWidget());
        layout->addToComponents(*field, number, 1);
        ++number;
    }
}

GUI_ActionComponent* GUI2D_OptionsPanel::newField(const Row& row)
{
    switch (row.mKind) {
    case SPIN_BOX: {
        GUI_SpinBox* const box = GUI_SpinBox::New(*this);
        box->setRange(0, row.mMaximum);
        return box;
    }
    case COLOR_BUTTON:
        return GUI_ColorButton::New(*this);
    case RADIO_BUTTON:
        return GUI_RadioButton::New(*this);
    default: {
        GUI_LineEdit* const edit = GUI_LineEdit::New(*this);
        edit->setLabel("");
        edit->setMinimumWidth(textWidth * fontMetrics().averageCharWidth());
        return edit;
    }
    }
}

void GUI2D_OptionsPanel::updateValues()
{
    const GUI2D_DrawPanel* const panel = GUI2D_Source::drawPanel(*this);
    if (panel == nullptr) {
        return;
    }
    const GUI_Display display(*this);
    show(COMPO_SB_PANX, panel->getPanX());
    show(COMPO_SB_PANY, panel->getPanY());
    show(COMPO_SB_DIGIT, panel->getNbCharsAfterComa());
    showValue(COMPO_LE_ZOOM, COM_Real::toString(panel->getZoomFactor()));
    showValue(COMPO_LE_TITLE, panel->getTitle());
    showValue(COMPO_LE_XLABEL, panel->getXLabel());
    showValue(COMPO_LE_YLABEL, panel->getYLabel());
    show(COMPO_BUTTON_SCALE, panel->getScaleColor());
    show(COMPO_BUTTON_XLABEL, panel->getXLabelColor());
    show(COMPO_BUTTON_YLABEL, panel->getYLabelColor());
    show(COMPO_BUTTON_TITLE, panel->getTitleColor());
    show(COMPO_BUTTON_BACKGROUND, panel->getBackgroundColor());
    show(COMPO_BUTTON_AXE, panel->getAxesColor());
    show(COMPO_BUTTON_GRID, panel->getGridColor());
    show(COMPO_BUTTON_BORDER, panel->getBorderColor());
    show(COMPO_BUTTON_BORDER_LINE, panel->getBorderLineColor());
    show(COMPO_RB_ORTHO, panel->isOrthonormee());
    show(COMPO_RB_SCALE, panel->isScalePrinted());
    show(COMPO_RB_TITLE, panel->isTitlePrinted());
    show(COMPO_RB_XLABEL, panel->isXLabelPrinted());
    show(COMPO_RB_YLABEL, panel->isYLabelPrinted());
    GUI_RootPanel::updateValues();
}

void GUI2D_OptionsPanel::componentClicked(GUI_ActionComponent& component)
{
    GUI2D_DrawPanel* const panel = GUI2D_Source::drawPanel(*this);
    if (panel == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    edit(component, *panel);
    updateValues();
    panel->redraw();
}

void GUI2D_OptionsPanel::edit(const GUI_ActionComponent& component, GUI2D_DrawPanel& panel)
{
    const std::string text = component.getValue();
    const auto number = static_cast<unsigned long>(COM_Integer::parseInt(text));
    const QColor color(toQString(text));
    switch (component.getFlagId()) {
    case COMPO_SB_PANX:
        panel.setPanX(number);
        break;
    case COMPO_SB_PANY:
        panel.setPanY(number);
        break;
    case COMPO_SB_DIGIT:
        panel.setNbCharsAfterComa(number);
        break;
    case COMPO_LE_ZOOM:
        setZoomFactor(text, panel);
        break;
    case COMPO_LE_TITLE:
        panel.setTitle(text);
        break;
    case COMPO_LE_XLABEL:
        panel.setXLabel(text);
        break;
    case COMPO_LE_YLABEL:
        panel.setYLabel(text);
        break;
    case COMPO_BUTTON_SCALE:
        panel.setScaleColor(color);
        break;
    case COMPO_BUTTON_XLABEL:
        panel.setXLabelColor(color);
        break;
    case COMPO_BUTTON_YLABEL:
        panel.setYLabelColor(color);
        break;
    case COMPO_BUTTON_TITLE:
        panel.setTitleColor(color);
        break;
    case COMPO_BUTTON_BACKGROUND:
        panel.setBackgroundColor(color);
        break;
    case COMPO_BUTTON_AXE:
        panel.setAxesColor(color);
        break;
    case COMPO_BUTTON_GRID:
        panel.setGridColor(color);
        break;
    case COMPO_BUTTON_BORDER:
        panel.setBorderColor(color);
        break;
    case COMPO_BUTTON_BORDER_LINE:
        panel.setBorderLineColor(color);
        break;
    case COMPO_RB_ORTHO:
        panel.setOrthonormee(number != 0);
        break;
    case COMPO_RB_SCALE:
        printScale(number != 0, panel);
        break;
    case COMPO_RB_TITLE:
        panel.printTitle(number != 0);
        break;
    case COMPO_RB_XLABEL:
        panel.printXLabel(number != 0);
        break;
    case COMPO_RB_YLABEL:
        panel.printYLabel(number != 0);
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}

void GUI2D_OptionsPanel::setZoomFactor(const std::string& text, GUI2D_DrawPanel& panel)
{
    // The text that shows the present factor has fewer digits than the factor.
    const double factor = COM_Real::parseReal(text);
    if (text != COM_Real::toString(panel.getZoomFactor()) && factor >= 1.0
        && std::isfinite(factor)) {
        panel.setZoomFactor(factor);
    }
}

void GUI2D_OptionsPanel::printScale(bool flag, GUI2D_DrawPanel& panel)
{
    panel.printScale(flag);
    if (!flag) {
        panel.resetMargins();
        panel.updateGraphicsArea();
    }
}

void GUI2D_OptionsPanel::show(unsigned char flag, unsigned long value)
{
    showValue(flag, std::to_string(value));
}

void GUI2D_OptionsPanel::show(unsigned char flag, const QColor& value)
{
    showValue(flag, toTString(value.name()));
}

void GUI2D_OptionsPanel::show(unsigned char flag, bool value)
{
    showValue(flag, value ? "1" : "0");
}
