#include "quorvexGui/QVG_FormPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_ChildWindow.h"
#include "gui/GUI_ComboBox.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_GridLayout.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_SpinBox.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvexGui/QVG_DataWindow.h"
#include "quorvexGui/QVG_MainWindow.h"

#include <QLabel>

#include <algorithm>

namespace {

constexpr int margin = GUI_ParentLayout::MARGIN;
constexpr int spacing = GUI_ParentLayout::SPACING;
constexpr int rowSpacing = 3; // so that all forms of a page fit on a screen of 768 lines
constexpr const char* longestNumber = "-1.234567e-100";

} // namespace

QVG_FormPanel::QVG_FormPanel(GUI_ParentPanel& parent)
    : GUI_FramePanel(parent)
{
    COM_TYPE(QVG_FormPanel);
}

// ---------------------------------------------------------------- building

void QVG_FormPanel::build(const std::string& title, std::span<const Row> rows,
                          const std::function<void(GUI_HBoxLayout&)>& addAbove)
{
    setLabel(title);
    const COM_Scoped layout(GUI_RootGridLayout::New(*this, 2, 1, margin, spacing));
    layout->setContentsMargins(margin, rowSpacing, margin, rowSpacing);
    const COM_Scoped grid(GUI_GridLayout::New(static_cast<int>(rows.size()), 4));
    // Tab goes from field to field in the order in which they are made.
    if (addAbove) {
        const COM_Scoped above(GUI_HBoxLayout::New());
        layout->addToChildren(*above, 0, 0);
        addAbove(*above);
    }
    layout->addToChildren(*grid, 1, 0);
    mGrid = grid.get();
    mGrid->setVerticalSpacing(rowSpacing);
    mGrid->setHorizontalSpacing(spacing);
    mGrid->setColumnStretch(3, 1);
    int number = 0;
    for (const Row& row : rows) {
        addRow(*grid, number++, row);
    }
}

void QVG_FormPanel::addRow(GUI_GridLayout& grid, int number, const Row& row)
{
    const std::string text = translate(row.mLabel);
    const COM_Scoped label(GUI_Label::New(*this, GUI_Label::NO_FIELD));
    label->setLabel(row.mBefore + text + row.mAfter);
    label->setTooltipText(text);
    grid.addToComponents(*label, number, 0);

    const COM_Scoped field(newField(row));
    field->setFlagId(row.mFlag);
    field->qtWidget()->setFixedWidth(fieldWidth(*this));
    field->qtWidget()->setToolTip(toQString(text));
    label->setBuddy(field->qtWidget());
    grid.addToComponents(*field, number, 1);

    const COM_Scoped unit(GUI_Label::New(*this, GUI_Label::NO_FIELD));
    unit->setLabel(row.mUnit);
    grid.addToComponents(*unit, number, 2);
}

GUI_ActionComponent* QVG_FormPanel::newField(const Row& row)
{
    switch (row.mKind) {
    case SPIN_BOX: {
        GUI_SpinBox* const box = GUI_SpinBox::New(*this);
        box->setRange(row.mMinimum, row.mMaximum);
        return box;
    }
    case COMBO_BOX: {
        GUI_ComboBox* const box = GUI_ComboBox::New(*this);
        for (const char* const item : row.mItems) {
            box->addItem(toQString(translate(item)));
        }
        return box;
    }
    case BUTTON: {
        GUI_Button* const button = GUI_Button::New(*this);
        button->setLabel(translate("Details"));
        return button;
    }
    default: {
        GUI_LineEdit* const edit = GUI_LineEdit::New(*this);
        edit->setLabel("");
        return edit;
    }
    }
}

int QVG_FormPanel::fieldWidth(const QWidget& widget)
{
    // Margins, frame, and the arrows of the boxes.
    return widget.fontMetrics().horizontalAdvance(longestNumber)
           + 4 * widget.fontMetrics().averageCharWidth();
}

int QVG_FormPanel::getLabelsWidth() const
{
    int width = 0;
    for (int row = 0; mGrid != nullptr && row < mGrid->rowCount(); ++row) {
        if (const QLayoutItem* const label = mGrid->itemAtPosition(row, 0)) {
            width = std::max(width, label->sizeHint().width());
        }
    }
    return width;
}

void QVG_FormPanel::setLabelsWidth(int width)
{
    if (mGrid != nullptr) {
        mGrid->setColumnMinimumWidth(0, width);
    }
}

// ---------------------------------------------------------------- the way to the problem

QVG_FormPanel::Model QVG_FormPanel::findModel()
{
    Model model;
    model.mProblem = dynamic_cast<QV_1DProblem*>(QVG_MainWindow::findProblem(findWindow()));
    if (model.mProblem == nullptr) {
        return {};
    }
    model.mMilieu = dynamic_cast<QV_1DMilieu*>(model.mProblem->getMilieu());
    model.mMaxwell = dynamic_cast<QV_1DMaxwell*>(model.mProblem->getMaxwellSystem());
    model.mFields = model.mMaxwell != nullptr ? model.mMaxwell->getIncidentFields() : nullptr;
    return model;
}

void QVG_FormPanel::updateWindow()
{
    if (GUI_ParentWindow* const window = findWindow()) {
        const COM_Guard guard(*window);
        window->updateValues();
    }
}

void QVG_FormPanel::showDetail(unsigned long& id,
                               const std::function<GUI_ChildWindow*(GUI_ParentWindow&)>& make)
{
    if (GUI_ParentWindow* const window = findWindow()) {
        window->openForm(id, make);
    }
}

// ---------------------------------------------------------------- values

void QVG_FormPanel::updateValues()
{
    const Model model = findModel();
    if (!model) {
        return;
    }
    const GUI_Display display(*this);
    showModel(model);
    GUI_FramePanel::updateValues();
    if (auto* const window = dynamic_cast<QVG_DataWindow*>(findWindow())) {
        window->showDerivedData(*model.mProblem);
    }
}

void QVG_FormPanel::componentClicked(GUI_ActionComponent& component)
{
    const Model model = findModel();
    if (!model) {
        return;
    }
    const COM_Guard guard(*this);
    const COM_Guard problem(*model.mProblem);
    editModel(component, model);
    updateValues();
}

void QVG_FormPanel::show(unsigned char flag, double value)
{
    showValue(flag, COM_Real::toString(value));
}

void QVG_FormPanel::show(unsigned char flag, long value)
{
    showValue(flag, COM_Integer::toString(value));
}

std::optional<double> QVG_FormPanel::typed(const GUI_ActionComponent& component, double stored)
{
    const std::string text = component.getValue();
    return text == COM_Real::toString(stored) ? std::nullopt
                                              : std::optional(COM_Real::parseReal(text));
}

std::optional<long> QVG_FormPanel::typed(const GUI_ActionComponent& component, long stored)
{
    const std::string text = component.getValue();
    return text == COM_Integer::toString(stored) ? std::nullopt
                                                 : std::optional(COM_Integer::parseInt(text));
}
