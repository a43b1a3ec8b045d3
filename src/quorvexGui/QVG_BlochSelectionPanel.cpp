#include "quorvexGui/QVG_BlochSelectionPanel.h"

#include "common/COM_Guard.h"
#include "gui/GUI_ListPanel.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Problem.h"
#include "quorvexGui/QVG_BlochItemPanel.h"
#include "quorvexGui/QVG_FrequenciesRootPanel.h"

QVG_BlochSelectionPanel::QVG_BlochSelectionPanel(GUI_ParentPanel& parent)
    : GUI_SelectionPanel(parent)
{
    COM_TYPE(QVG_BlochSelectionPanel);
    initComponents(true, true);
}

GUI_ItemPanel* QVG_BlochSelectionPanel::NewItemPanel()
{
    return QVG_BlochItemPanel::New(*this);
}

void QVG_BlochSelectionPanel::setBlochs(const COM_Array<QV_Bloch>& blochs)
{
    for (unsigned long i = 0; i < blochs.size(); ++i) {
        addToItems(blochs[i], nameOf(i + 1));
    }
    selectFirst();
}

COM_Object* QVG_BlochSelectionPanel::NewItem(std::string& name)
{
    QVG_FrequenciesRootPanel* const form = findForm();
    QV_Problem* const problem = form != nullptr ? form->findProblem() : nullptr;
    if (problem == nullptr) {
        return nullptr;
    }
    unsigned long number = 1;
    while (isUsed(nameOf(number))) {
        ++number;
    }
    name = nameOf(number);
    QV_Bloch* const bloch = QV_Bloch::New();
    problem->addToBlochEquations(*bloch);
    form->updateValues();
    return bloch;
}

bool QVG_BlochSelectionPanel::removeItem(int index)
{
    QVG_FrequenciesRootPanel* const form = findForm();
    QV_Problem* const problem = form != nullptr ? form->findProblem() : nullptr;
    auto* const bloch = dynamic_cast<QV_Bloch*>(getObject(index));
    if (problem == nullptr || bloch == nullptr || getObjectsNumber() < 2) {
        return false;
    }
    const COM_Guard guard(*bloch);
    if (!GUI_SelectionPanel::removeItem(index)) {
        return false;
    }
    problem->removeFromBlochEquations(*bloch);
    form->updateValues();
    return true;
}

void QVG_BlochSelectionPanel::setLevelsNumber(unsigned long number)
{
    QV_Bloch::setLevelsNumber(number);
    updateValues();
}

std::string QVG_BlochSelectionPanel::nameOf(unsigned long number)
{
    return translate("Bloch Equation Number") + " " + std::to_string(number);
}

bool QVG_BlochSelectionPanel::isUsed(const std::string& name) const
{
    const GUI_ListPanel& list = *getListPanel();
    for (int i = 0; i < list.getItemsNumber(); ++i) {
        if (list.getValue(i) == name) {
            return true;
        }
    }
    return false;
}

QVG_FrequenciesRootPanel* QVG_BlochSelectionPanel::findForm()
{
    return dynamic_cast<QVG_FrequenciesRootPanel*>(getRoot());
}
