#include "quorvexGui/QVG_PhysicalDataMilieuPanel.h"

#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_UnknownAction.h"
#include "gui/GUI_VectorWindow.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"

#include <algorithm>

QVG_PhysicalDataMilieuPanel::QVG_PhysicalDataMilieuPanel(GUI_ParentPanel& parent)
    : QVG_FormPanel(parent)
{
    COM_TYPE(QVG_PhysicalDataMilieuPanel);
    static constexpr Row rows[] = {
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_LONG, .mLabel = "Domain Length", .mUnit = "m"},
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_IND, .mLabel = "Milieu Index Property"},
        {.mKind = LINE_EDIT,
         .mFlag = COMPO_LE_DEB,
         .mLabel = "Milieu Begining Position",
         .mAfter = " (%)"},
        {.mKind = LINE_EDIT,
         .mFlag = COMPO_LE_FIN,
         .mLabel = "Milieu Ending Position",
         .mAfter = " (%)"},
        {.mKind = BUTTON, .mFlag = COMPO_PB_CAP, .mLabel = "Captors"},
    };
    build(translate("Milieu"), rows);
}

void QVG_PhysicalDataMilieuPanel::showModel(const Model& model)
{
    show(COMPO_LE_LONG, model.mMilieu->getLength());
    show(COMPO_LE_IND, model.mMilieu->getIndice());
    show(COMPO_LE_DEB, model.mMilieu->getStartingPosition());
    show(COMPO_LE_FIN, model.mMilieu->getEndingPosition());
}

void QVG_PhysicalDataMilieuPanel::editModel(GUI_ActionComponent& component, const Model& model)
{
    QV_1DMilieu& milieu = *model.mMilieu;
    switch (component.getFlagId()) {
    case COMPO_LE_LONG:
        take(component, milieu.getLength(), [&](double x) { milieu.setLength(x); });
        break;
    case COMPO_LE_IND:
        take(component, milieu.getIndice(), [&](double x) { milieu.setIndice(std::max(x, 0.0)); });
        break;
    case COMPO_LE_DEB:
        take(component, milieu.getStartingPosition(),
             [&](double x) { milieu.setStartingPosition(std::clamp(x, 0.0, 100.0)); });
        break;
    case COMPO_LE_FIN:
        take(component, milieu.getEndingPosition(),
             [&](double x) { milieu.setEndingPosition(std::clamp(x, 0.0, 100.0)); });
        break;
    case COMPO_PB_CAP:
        showCaptors(milieu);
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}

void QVG_PhysicalDataMilieuPanel::showCaptors(QV_1DMilieu& milieu)
{
    showDetail(mCaptorsWinId, [&milieu](GUI_ParentWindow& parent) {
        if (milieu.getCaptors() == nullptr) {
            milieu.initCaptors();
        }
        auto* const window =
            GUI_VectorWindow<double>::New(parent, false, *milieu.getCaptors(), true);
        window->setName(translate("Captors Window"));
        window->setDimensionLabel(translate("Captors Number"));
        window->setValuesLabel(translate("Relative Position") + " (%)");
        return window;
    });
}
