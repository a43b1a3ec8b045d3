#include "quorvexGui/QVG_NumericalDataMaxwellPanel.h"

#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_UnknownAction.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_IncidentFields.h"

#include <algorithm>
#include <climits>

QVG_NumericalDataMaxwellPanel::QVG_NumericalDataMaxwellPanel(GUI_ParentPanel& parent)
    : QVG_FormPanel(parent)
{
    COM_TYPE(QVG_NumericalDataMaxwellPanel);
    static constexpr Row rows[] = {
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_TIME, .mLabel = "Time Steps Number"},
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_CFL, .mLabel = "C.F.L."},
    };
    build(translate("Maxwell"), rows);
}

long QVG_NumericalDataMaxwellPanel::stepsOf(const QV_1DProblem& problem)
{
    return static_cast<long>(std::min<unsigned long>(problem.getMaxTimeStepsNumber(), LONG_MAX));
}

void QVG_NumericalDataMaxwellPanel::showModel(const Model& model)
{
    show(COMPO_LE_TIME, stepsOf(*model.mProblem));
    show(COMPO_LE_CFL, model.mFields->getCFL());
}

void QVG_NumericalDataMaxwellPanel::editModel(GUI_ActionComponent& component, const Model& model)
{
    QV_1DProblem& problem = *model.mProblem;
    QV_IncidentFields& fields = *model.mFields;
    switch (component.getFlagId()) {
    case COMPO_LE_TIME:
        // A negative number would be a run of 1.8e19 steps.
        take(component, stepsOf(problem), [&](long steps) {
            problem.setMaxTimeStepsNumber(static_cast<unsigned long>(std::max(steps, 0L)));
        });
        break;
    case COMPO_LE_CFL:
        take(component, fields.getCFL(), [&](double x) { fields.setCFL(std::clamp(x, 0.0, 1.0)); });
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}
