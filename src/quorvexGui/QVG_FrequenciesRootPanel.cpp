#include "quorvexGui/QVG_FrequenciesRootPanel.h"

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
#include "gui/GUI_RootVBoxLayout.h"
#include "gui/GUI_SpinBox.h"
#include "gui/GUI_UnknownAction.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Problem.h"
#include "quorvexGui/QVG_BlochSelectionPanel.h"
#include "quorvexGui/QVG_DataWindow.h"
#include "quorvexGui/QVG_FormPanel.h"
#include "quorvexGui/QVG_GroupPanel.h"
#include "quorvexGui/QVG_MainWindow.h"

#include <algorithm>

namespace {

constexpr int margin = GUI_ParentLayout::MARGIN;
constexpr int spacing = GUI_ParentLayout::SPACING;
constexpr int maxLevels = 100;

} // namespace

QVG_FrequenciesRootPanel::QVG_FrequenciesRootPanel(GUI_ParentWindow& window,
                                                   const COM_Array<QV_Bloch>& blochs)
    : GUI_RootPanel(window)
{
    COM_TYPE(QVG_FrequenciesRootPanel);
    initComponents(blochs);
    QVG_FrequenciesRootPanel::updateValues();
}

void QVG_FrequenciesRootPanel::initComponents(const COM_Array<QV_Bloch>& blochs)
{
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*this, margin, spacing));
    // Tab goes from field to field in the order in which they are made.
    addLevelsNumber();
    const COM_Scoped selection(QVG_BlochSelectionPanel::New(*this));
    mSelection = selection.get();
    layout->addPanel(*selection);
    selection->setBlochs(blochs);
    addGeneration();
}

void QVG_FrequenciesRootPanel::addLevelsNumber()
{
    const COM_Scoped row(GUI_HBoxLayout::New());
    getMainLayout()->addToChildren(*row);
    const COM_Scoped label(GUI_Label::New(*this, GUI_Label::NO_FIELD));
    label->setLabel(translate("Energy Levels Number"));
    row->addToComponents(*label);
    const COM_Scoped box(GUI_SpinBox::New(*this, COMPO_SB_ELN));
    box->setRange(1, maxLevels);
    box->setFixedWidth(QVG_FormPanel::fieldWidth(*this));
    label->setBuddy(box.get());
    row->addToComponents(*box);
    row->addSpacer(0);
}

void QVG_FrequenciesRootPanel::addGeneration()
{
    const COM_Scoped group(QVG_GroupPanel::New(*this));
    mGeneration = group.get();
    group->setLabel(translate("Frequencies Generation"));
    getMainLayout()->addPanel(*group);
    const COM_Scoped layout(GUI_RootGridLayout::New(*group, 1, 1, margin, spacing));
    const COM_Scoped grid(GUI_GridLayout::New(4, 3, spacing));
    layout->addToChildren(*grid, 0, 0);
    grid->setColumnStretch(2, 1);

    const COM_Scoped laws(GUI_ComboBox::New(*group, COMPO_CB_STAT));
    laws->addItem(toQString(translate("GAUSS")));
    addField(*grid, 0, translate("Statistical Law"), *laws);
    const COM_Scoped mean(GUI_LineEdit::New(*group, COMPO_LE_MEAN));
    addField(*grid, 1, translate("Mean"), *mean);
    const COM_Scoped delta(GUI_LineEdit::New(*group, COMPO_LE_TYPE));
    addField(*grid, 2, translate("Delta Type"), *delta);
    const COM_Scoped generate(GUI_Button::New(*group, COMPO_PB_GENERATE));
    generate->setLabel(translate("Generate"));
    generate->setFixedWidth(QVG_FormPanel::fieldWidth(*this));
    grid->addToComponents(*generate, 3, 1);
}

void QVG_FrequenciesRootPanel::addField(GUI_GridLayout& grid, int row, const std::string& text,
                                        GUI_ActionComponent& field)
{
    grid.addLabel(*mGeneration, row, text, *field.qtWidget());
    field.qtWidget()->setFixedWidth(QVG_FormPanel::fieldWidth(*this));
    field.qtWidget()->setToolTip(toQString(text));
    grid.addToComponents(field, row, 1);
}

QV_Problem* QVG_FrequenciesRootPanel::findProblem() const
{
    return QVG_MainWindow::findProblem(getWindow());
}

void QVG_FrequenciesRootPanel::updateValues()
{
    const QV_Problem* const problem = findProblem();
    if (problem == nullptr) {
        return;
    }
    const GUI_Display display(*this);
    showValue(COMPO_SB_ELN, COM_Integer::toString(static_cast<long>(QV_Bloch::getLevelsNumber())));
    mGeneration->showValue(COMPO_CB_STAT,
                           COM_Integer::toString(problem->getFrequenciesDistributionMethod()));
    mGeneration->showValue(COMPO_LE_MEAN,
                           COM_Real::toString(problem->getFrequenciesDistributionMean()));
    mGeneration->showValue(COMPO_LE_TYPE,
                           COM_Real::toString(problem->getFrequenciesDistributionDelta()));
    const bool hasSpread = problem->getBlochEquations()->size() >= 2;
    for (const unsigned char flag :
         {COMPO_CB_STAT, COMPO_LE_MEAN, COMPO_LE_TYPE, COMPO_PB_GENERATE}) {
        mGeneration->enable(flag, hasSpread);
    }
    mSelection->setDeleteButtonEnabled(hasSpread);
    GUI_RootPanel::updateValues();
    QVG_DataWindow::showDerivedData(getWindow());
}

void QVG_FrequenciesRootPanel::componentClicked(GUI_ActionComponent& component)
{
    QV_Problem* const problem = findProblem();
    if (problem == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    const COM_Guard problemGuard(*problem);
    using Form = QVG_FormPanel;
    switch (component.getFlagId()) {
    case COMPO_SB_ELN:
        Form::take(component, static_cast<long>(QV_Bloch::getLevelsNumber()),
                   [this](long number) { setLevelsNumber(number); });
        break;
    case COMPO_CB_STAT:
        Form::take(component, long{problem->getFrequenciesDistributionMethod()},
                   [problem](long law) {
                       problem->setFrequenciesDistributionMethod(static_cast<unsigned char>(law));
                   });
        break;
    case COMPO_LE_MEAN:
        Form::take(component, problem->getFrequenciesDistributionMean(), [problem](double x) {
            problem->setFrequenciesDistributionMean(std::max(x, 0.0));
        });
        break;
    case COMPO_LE_TYPE:
        Form::take(component, problem->getFrequenciesDistributionDelta(), [problem](double x) {
            problem->setFrequenciesDistributionDelta(std::max(x, 0.0));
        });
        break;
    case COMPO_PB_GENERATE:
        problem->generateBlochFrequencies();
        break;
    default:
        GUI_UnknownAction::print(component);
    }
    updateValues();
}

/// The forms of the data window and the matrices in its other windows have as many levels.
void QVG_FrequenciesRootPanel::setLevelsNumber(long number)
{
    mSelection->setLevelsNumber(static_cast<unsigned long>(number));
    auto* const child = dynamic_cast<GUI_ChildWindow*>(getWindow());
    GUI_ParentWindow* const parent = child != nullptr ? child->getParent() : nullptr;
    if (parent != nullptr) {
        const COM_Guard guard(*parent);
        parent->updateValues();
    }
}
