#include "quorvexGui/QVG_NumericalDataMilieuPanel.h"

#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_UnknownAction.h"
#include "quorvex/QV_1DMilieu.h"

QVG_NumericalDataMilieuPanel::QVG_NumericalDataMilieuPanel(GUI_ParentPanel& parent)
    : QVG_FormPanel(parent)
{
    COM_TYPE(QVG_NumericalDataMilieuPanel);
    static constexpr Row rows[] = {
        {.mKind = SPIN_BOX,
         .mFlag = COMPO_SB_DISCR,
         .mLabel = "Number of Points by Wave Length",
         .mMinimum = 1,
         .mMaximum = 1000},
    };
    build(translate("Milieu"), rows);
}

void QVG_NumericalDataMilieuPanel::showModel(const Model& model)
{
    show(COMPO_SB_DISCR, static_cast<long>(model.mMilieu->getDiscretizationNumber()));
}

void QVG_NumericalDataMilieuPanel::editModel(GUI_ActionComponent& component, const Model& model)
{
    QV_1DMilieu& milieu = *model.mMilieu;
    switch (component.getFlagId()) {
    case COMPO_SB_DISCR:
        take(component, static_cast<long>(milieu.getDiscretizationNumber()), [&](long number) {
            milieu.setDiscretizationNumber(static_cast<unsigned long>(number));
        });
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}
