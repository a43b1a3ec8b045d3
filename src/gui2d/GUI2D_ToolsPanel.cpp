#include "gui2d/GUI2D_ToolsPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_CheckBox.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_ParentWindow.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_SpinBox.h"
#include "gui/GUI_UnknownAction.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_Source.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

constexpr int margin = GUI_ParentLayout::MARGIN;
constexpr int spacing = GUI_ParentLayout::SPACING;
constexpr int buttonsRow = 7;

} // namespace

GUI2D_ToolsPanel::GUI2D_ToolsPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI2D_ToolsPanel);
    initComponents();
    if (const GUI2D_Plotter* const plotter = GUI2D_Source::plotter(*this)) {
        mPeriodX = std::abs(plotter->getMeanDeltaX());
        mPeriodY = std::abs(plotter->getMeanDeltaY());
    }
    mP = getMaxPower();
    showValue(COMPO_FFTX_PERIOD, COM_Real::toString(mPeriodX));
    showValue(COMPO_FFTY_PERIOD, COM_Real::toString(mPeriodY));
    GUI2D_ToolsPanel::updateValues();
}

void GUI2D_ToolsPanel::initComponents()
{
    const COM_Scoped layout(GUI_RootGridLayout::New(*this, buttonsRow + 2, 2, margin, spacing));
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(buttonsRow + 1, 1);
    const auto addCheckBox = [this, &layout](int row, const std::string& text, unsigned char flag) {
        const COM_Scoped box(GUI_CheckBox::New(*this, flag));
        box->setLabel(text);
        layout->addToComponents(*box, row, 0);
    };
    const auto addPeriod = [&](int row, const std::string& text, unsigned char flag) {
        const COM_Scoped period(GUI_LineEdit::New(*this, flag));
        period->setLabel("");
        period->setToolTip(toQString(text));
        layout->addLabel(*this, row, "\t" + text, *period);
        layout->addToComponents(*period, row, 1);
    };
    addCheckBox(0, translate("Log X"), COMPO_LOGX);
    addCheckBox(1, translate("Log Y"), COMPO_LOGY);
    addCheckBox(2, translate("X FFT"), COMPO_FFTX);
    addPeriod(3, translate("X FFT Period"), COMPO_FFTX_PERIOD);
    addCheckBox(4, translate("Y FFT"), COMPO_FFTY);
    addPeriod(5, translate("Y FFT Period"), COMPO_FFTY_PERIOD);

    const COM_Scoped power(GUI_SpinBox::New(*this, COMPO_FFT2P));
    layout->addLabel(*this, 6, translate("FFT computed on the 2 power"), *power);
    const COM_Scoped powerRow(GUI_HBoxLayout::New());
    layout->addToChildren(*powerRow, 6, 1);
    powerRow->addToComponents(*power);
    const COM_Scoped count(GUI_Label::New(*this, COMPO_LABEL_FFT));
    powerRow->addToComponents(*count);

    const COM_Scoped buttons(GUI_HBoxLayout::New());
    layout->addToChildren(*buttons, buttonsRow, 1);
    buttons->addSpacer(0);
    const auto addButton = [this, &buttons](const std::string& text, unsigned char flag) {
        const COM_Scoped button(GUI_Button::New(*this, flag));
        button->setLabel(text);
        buttons->addToComponents(*button);
    };
    addButton(translate("Visualize"), COMPO_OK);
    addButton(translate("Cancel"), COMPO_CANCEL);
}

unsigned long GUI2D_ToolsPanel::getPointsNumber()
{
    const GUI2D_Plotter* const plotter = GUI2D_Source::plotter(*this);
    return plotter == nullptr ? 0 : plotter->getMinPointsNumber();
}

unsigned long GUI2D_ToolsPanel::getMaxPower()
{
    const unsigned long number = getPointsNumber();
    return number == 0 ? 0 : static_cast<unsigned long>(std::bit_width(number)) - 1;
}

void GUI2D_ToolsPanel::updateValues()
{
    const GUI_Display display(*this);
    const unsigned long maxPower = getMaxPower();
    mP = std::min(mP, maxPower);
    showValue(COMPO_LOGX, mIsLogX ? "1" : "0");
    showValue(COMPO_LOGY, mIsLogY ? "1" : "0");
    showValue(COMPO_FFTX, mIsFFTX ? "1" : "0");
    showValue(COMPO_FFTY, mIsFFTY ? "1" : "0");
    if (auto* const power = dynamic_cast<GUI_SpinBox*>(getComponent(COMPO_FFT2P))) {
        power->setRange(0, static_cast<int>(maxPower));
    }
    showValue(COMPO_FFT2P, std::to_string(mP));
    showLabel();
    GUI_RootPanel::updateValues();
}

void GUI2D_ToolsPanel::showLabel()
{
    if (auto* const label = dynamic_cast<GUI_Label*>(getComponent(COMPO_LABEL_FFT))) {
        label->setLabel("(" + std::to_string(1UL << mP) + "/" + std::to_string(getPointsNumber())
                        + ") " + translate("last values"));
    }
}

void GUI2D_ToolsPanel::componentClicked(GUI_ActionComponent& component)
{
    const COM_Guard guard(*this);
    const long number = COM_Integer::parseInt(component.getValue());
    switch (component.getFlagId()) {
    case COMPO_LOGX:
        mIsLogX = number != 0;
        break;
    case COMPO_LOGY:
        mIsLogY = number != 0;
        break;
    case COMPO_FFTX:
        mIsFFTX = number != 0;
        break;
    case COMPO_FFTY:
        mIsFFTY = number != 0;
        break;
    case COMPO_FFTX_PERIOD:
        edit(component, mPeriodX);
        break;
    case COMPO_FFTY_PERIOD:
        edit(component, mPeriodY);
        break;
    case COMPO_FFT2P:
        mP = static_cast<unsigned long>(number);
        showLabel();
        break;
    case COMPO_OK:
        visualize();
        break;
    case COMPO_CANCEL:
        if (getWindow() != nullptr) {
            getWindow()->close(false);
        }
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}

void GUI2D_ToolsPanel::edit(GUI_ActionComponent& component, double& period)
{
    const std::string text = component.getValue();
    // The text that shows the present period has fewer digits than the period.
    if (text == COM_Real::toString(period)) {
        return;
    }
    std::size_t length = 0;
    period = COM_Real::parseReal(text, length);
    if (period < 0.0) {
        period = 1.0;
        component.setValue("1.0");
    } else if (length == 0) {
        component.setValue(COM_Real::toString(period));
    }
}

void GUI2D_ToolsPanel::visualize()
{
    if (GUI2D_Plotter* const plotter = GUI2D_Source::plotter(*this)) {
        const COM_Guard guard(*plotter);
        plotter->transform(mIsLogX, mIsLogY, mIsFFTX, mIsFFTY, static_cast<int>(mP), mPeriodX,
                           mPeriodY);
    }
}
