#include "quorvexGui/QVG_NumericalDataBlochPanel.h"

#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_UnknownAction.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"

#include <algorithm>

namespace {

// Bounds of the convergence rate.
constexpr double smallest = 1e-24;
constexpr double largest = 0.1;

} // namespace

QVG_NumericalDataBlochPanel::QVG_NumericalDataBlochPanel(GUI_ParentPanel& parent)
    : QVG_FormPanel(parent)
{
    COM_TYPE(QVG_NumericalDataBlochPanel);
    static constexpr const char* methods[] = {"CN-Z", "CN-P", "CN-dtP", "RELAX", "SPLIT", "PC"};
    static constexpr const char* splitTypes[] = {"hrn", "rnh", "hrnh", "rhhrn", "PC"};
    static constexpr Row rows[] = {
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_CONV, .mLabel = "Convergence Criterium"},
        {.mKind = COMBO_BOX,
         .mFlag = COMPO_CB_METHOD,
         .mLabel = "Numerical Method",
         .mItems = methods},
        {.mKind = COMBO_BOX,
         .mFlag = COMPO_CB_SPLIT,
         .mLabel = "Splitting Type",
         .mItems = splitTypes},
    };
    build(translate("Bloch"), rows);
}

void QVG_NumericalDataBlochPanel::showModel(const Model& model)
{
    show(COMPO_LE_CONV, QV_Bloch::getConvergenceRate());
    if (model.mMaxwell->getDimension() > 1) {
        enable(COMPO_CB_METHOD, false);
        model.mProblem->setMethod(QV_Problem::SPLIT_METHOD);
    }
    show(COMPO_CB_METHOD, long{model.mProblem->getMethod()});
    show(COMPO_CB_SPLIT, long{QV_Bloch::getSplitType()});
    enable(COMPO_CB_SPLIT, model.mProblem->getMethod() == QV_Problem::SPLIT_METHOD);
}

void QVG_NumericalDataBlochPanel::editModel(GUI_ActionComponent& component, const Model& model)
{
    switch (component.getFlagId()) {
    case COMPO_LE_CONV:
        take(component, QV_Bloch::getConvergenceRate(),
             [](double x) { QV_Bloch::setConvergenceRate(std::clamp(x, smallest, largest)); });
        break;
    case COMPO_CB_METHOD:
        take(component, long{model.mProblem->getMethod()}, [&](long method) {
            model.mProblem->setMethod(static_cast<unsigned char>(method));
            updateWindow(); // the form of the atoms depends on the method
        });
        break;
    case COMPO_CB_SPLIT:
        take(component, long{QV_Bloch::getSplitType()},
             [](long type) { QV_Bloch::setSplitType(static_cast<unsigned char>(type)); });
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}
