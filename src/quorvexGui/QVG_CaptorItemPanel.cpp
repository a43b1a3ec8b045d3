#include "quorvexGui/QVG_CaptorItemPanel.h"

#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_GridLayout.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RadioButton.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_SpinBox.h"
#include "gui/GUI_Table.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvexGui/QVG_Captor.h"
#include "quorvexGui/QVG_FormPanel.h"

namespace {

constexpr int margin = GUI_ParentLayout::MARGIN;
constexpr int spacing = GUI_ParentLayout::SPACING;
constexpr int maxSystem = 10;

} // namespace

QVG_CaptorItemPanel::QVG_CaptorItemPanel(GUI_ParentPanel& parent)
    : GUI_ItemPanel(parent)
{
    COM_TYPE(QVG_CaptorItemPanel);
    initComponents();
}

void QVG_CaptorItemPanel::initComponents()
{
    setLabel(translate("Captor"));
    const COM_Scoped layout(GUI_RootGridLayout::New(*this, 2, 1, margin, spacing));
    const COM_Scoped grid(GUI_GridLayout::New(6, 3, spacing));
    layout->addToChildren(*grid, 0, 0);
    grid->setColumnStretch(2, 1);
    addField(*grid, 0, translate("Position"), COMPO_POSITION);
    addField(*grid, 1, translate("Relative Position"), COMPO_RELATIVE_POSITION);
    addField(*grid, 2, translate("Location"), COMPO_LOCATION);
    addSwitch(*grid, 3, translate("Show Ex"), COMPO_Ex);
    addSwitch(*grid, 4, translate("Show Ey"), COMPO_Ey);
    addSystem(*grid, 5);
    const COM_Scoped marks(GUI_MatrixPanel<unsigned long>::New(*this, false));
    mMarks = marks.get();
    layout->addPanel(*marks, 1, 0);
    layout->setRowStretch(1, 1);
    marks->setCheckedMatrix(true, translate("shown"));
}

void QVG_CaptorItemPanel::addField(GUI_GridLayout& grid, int row, const std::string& text,
                                   unsigned char flag)
{
    const COM_Scoped field(GUI_LineEdit::New(*this, flag));
    grid.addLabel(*this, row, text, *field);
    field->setLabel("");
    field->setReadOnly(true);
    field->setToolTip(toQString(text));
    field->setMinimumWidth(QVG_FormPanel::fieldWidth(*this));
    grid.addToComponents(*field, row, 1);
}

void QVG_CaptorItemPanel::addSwitch(GUI_GridLayout& grid, int row, const std::string& text,
                                    unsigned char flag)
{
    const COM_Scoped button(GUI_RadioButton::New(*this, flag));
    button->setLabel(text);
    grid.addToComponents(*button, row, 0);
}

void QVG_CaptorItemPanel::addSystem(GUI_GridLayout& grid, int row)
{
    const COM_Scoped box(GUI_SpinBox::New(*this, COMPO_BLOCH_NUMBER));
    grid.addLabel(*this, row, translate("Show Density of Bloch Equation"), *box);
    box->setRange(1, maxSystem);
    box->setValue("1");
    grid.addToComponents(*box, row, 1);
}

QVG_Captor* QVG_CaptorItemPanel::getCaptor() const
{
    return dynamic_cast<QVG_Captor*>(getItem());
}

void QVG_CaptorItemPanel::updateValues()
{
    QVG_Captor* const captor = getCaptor();
    if (captor == nullptr) {
        return;
    }
    const GUI_Display display(*this);
    showValue(COMPO_POSITION, captor->getPosition().toString());
    showValue(COMPO_RELATIVE_POSITION,
              COM_Real::toString(static_cast<float>(captor->getRelativePosition()) * 100));
    showValue(COMPO_LOCATION, COM_Integer::toString(static_cast<long>(captor->getLocation())));

    const bool hasEx = captor->getEDimension() > 0;
    const bool hasEy = captor->getEDimension() > 1;
    captor->setEx(captor->isEx() && hasEx);
    captor->setEy(captor->isEy() && hasEy);
    enable(COMPO_Ex, hasEx);
    enable(COMPO_Ey, hasEy);
    showValue(COMPO_Ex, captor->isEx() ? "1" : "0");
    showValue(COMPO_Ey, captor->isEy() ? "1" : "0");

    const bool hasDensity = captor->getBlochEquationsNumber() > 0;
    enable(COMPO_BLOCH_NUMBER, hasDensity);
    mMarks->setEnabled(hasDensity);
    showValue(COMPO_BLOCH_NUMBER,
              COM_Integer::toString(static_cast<long>(captor->getLastIndex()) + 1));
    mMarks->setMatrix(captor->getShowRho(captor->getLastIndex()));
    GUI_ItemPanel::updateValues();
}

void QVG_CaptorItemPanel::componentClicked(GUI_ActionComponent& component)
{
    QVG_Captor* const captor = getCaptor();
    if (captor == nullptr) {
        return;
    }
    const long value = COM_Integer::parseInt(component.getValue());
    switch (component.getFlagId()) {
    case COMPO_Ex:
        captor->setEx(value != 0);
        break;
    case COMPO_Ey:
    case COMPO_Ez: // a third component is plotted from the second column of the file
        captor->setEy(value != 0);
        break;
    case COMPO_BLOCH_NUMBER:
        showSystem(*captor, value - 1);
        break;
    default:
        break;
    }
}

void QVG_CaptorItemPanel::showSystem(QVG_Captor& captor, long index)
{
    if (index >= 0 && static_cast<unsigned long>(index) < captor.getBlochEquationsNumber()) {
        captor.setLastIndex(static_cast<unsigned long>(index));
        mMarks->setMatrix(captor.getShowRho(captor.getLastIndex()));
    }
}
