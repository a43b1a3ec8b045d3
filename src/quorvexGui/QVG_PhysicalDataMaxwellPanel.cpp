#include "quorvexGui/QVG_PhysicalDataMaxwellPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_CheckBox.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_UnknownAction.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_IncidentFields.h"

#include <algorithm>

QVG_PhysicalDataMaxwellPanel::QVG_PhysicalDataMaxwellPanel(GUI_ParentPanel& parent)
    : QVG_FormPanel(parent)
{
    COM_TYPE(QVG_PhysicalDataMaxwellPanel);
    static constexpr const char* shapes[] = {"Sinus",    "SIT",   "PACKAGE", "OSCILL 1",
                                             "OSCILL 2", "P-SIT", "ON"};
    static constexpr Row rows[] = {
        {.mKind = SPIN_BOX,
         .mFlag = COMPO_DIMENSION,
         .mLabel = "Dimension",
         .mMinimum = 1,
         .mMaximum = 2},
        {.mKind = COMBO_BOX,
         .mFlag = COMPO_CB_IF,
         .mLabel = "Incident Electromagnetic Field",
         .mItems = shapes},
        {.mKind = LINE_EDIT,
         .mFlag = COMPO_LE_E_MAX,
         .mLabel = "Max. Intensity",
         .mUnit = "V/m",
         .mBefore = "\t"},
        {.mKind = LINE_EDIT,
         .mFlag = COMPO_LE_LAMBDA,
         .mLabel = "Wave Length",
         .mUnit = "m",
         .mBefore = "\t"},
        {.mKind = LINE_EDIT,
         .mFlag = COMPO_LE_DURATION,
         .mLabel = "Wave Package Duration",
         .mUnit = "s",
         .mBefore = "\t"},
    };
    build(translate("Maxwell"), rows, [this](GUI_HBoxLayout& row) { addEnds(row); });
}

void QVG_PhysicalDataMaxwellPanel::addEnds(GUI_HBoxLayout& row)
{
    const auto addLabel = [this, &row](const std::string& text) {
        const COM_Scoped label(GUI_Label::New(*this, GUI_Label::NO_FIELD));
        label->setLabel(text);
        row.addToComponents(*label);
    };
    const auto addBox = [this, &row](unsigned char flag, const std::string& text) {
        const COM_Scoped box(GUI_CheckBox::New(*this, flag));
        box->setLabel(text);
        row.addToComponents(*box);
    };
    addLabel(translate("Type:"));
    addBox(COMPO_CKB_LASER, translate("Laser"));
    addBox(COMPO_CKB_RLASER, translate("Reflexive Laser"));
    addLabel(translate("Reflexive Coef:"));
    const COM_Scoped factor(GUI_LineEdit::New(*this, COMPO_LASER_COEF));
    factor->setLabel("");
    factor->setFixedWidth(fieldWidth(*this));
    factor->setTooltipText(translate("Reflexive Coef:"));
    row.addToComponents(*factor);
    row.addSpacer(0);
}

void QVG_PhysicalDataMaxwellPanel::showModel(const Model& model)
{
    show(COMPO_CKB_LASER, long{model.mMaxwell->isLaserType()});
    show(COMPO_CKB_RLASER, long{model.mMaxwell->isReflexifLaserType()});
    show(COMPO_LASER_COEF, model.mMaxwell->getLaserReflectorFactor());
    show(COMPO_DIMENSION, static_cast<long>(model.mMaxwell->getDimension()));
    show(COMPO_CB_IF, long{model.mFields->getTestType()});
    show(COMPO_LE_E_MAX, model.mFields->getFieldMaxValue());
    show(COMPO_LE_LAMBDA, model.mFields->getWaveLength());
    show(COMPO_LE_DURATION, model.mFields->getWavePackageDuration());

    enable(COMPO_LASER_COEF,
           model.mMaxwell->isLaserType() || model.mMaxwell->isReflexifLaserType());
}

void QVG_PhysicalDataMaxwellPanel::editModel(GUI_ActionComponent& component, const Model& model)
{
    QV_1DMaxwell& maxwell = *model.mMaxwell;
    QV_IncidentFields& fields = *model.mFields;
    switch (component.getFlagId()) {
    case COMPO_CKB_LASER:
        take(component, long{maxwell.isLaserType()}, [&](long isOn) {
            maxwell.setLaserType(isOn != 0);
            maxwell.setReflexiveLaserType(maxwell.isReflexifLaserType() && isOn == 0);
        });
        break;
    case COMPO_CKB_RLASER:
        take(component, long{maxwell.isReflexifLaserType()}, [&](long isOn) {
            maxwell.setReflexiveLaserType(isOn != 0);
            maxwell.setLaserType(maxwell.isLaserType() && isOn == 0);
        });
        break;
    case COMPO_LASER_COEF:
        take(component, maxwell.getLaserReflectorFactor(),
             [&](double x) { maxwell.setLaserReflectorFactor(x); });
        break;
    case COMPO_DIMENSION:
        take(component, static_cast<long>(maxwell.getDimension()),
             [&](long dimension) { setDimension(dimension, *model.mProblem); });
        break;
    case COMPO_CB_IF:
        take(component, long{fields.getTestType()},
             [&](long type) { fields.setIncidentFieldsType(static_cast<unsigned char>(type)); });
        break;
    case COMPO_LE_E_MAX:
        take(component, fields.getFieldMaxValue(),
             [&](double x) { fields.setFieldMaxValue(std::max(x, 0.0)); });
        break;
    case COMPO_LE_LAMBDA:
        take(component, fields.getWaveLength(),
             [&](double x) { model.mProblem->setWaveLength(std::max(x, 0.0)); });
        break;
    case COMPO_LE_DURATION:
        take(component, fields.getWavePackageDuration(),
             [&](double x) { fields.setWavePackageDuration(std::max(x, 0.0)); });
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}

void QVG_PhysicalDataMaxwellPanel::setDimension(long dimension, QV_1DProblem& problem)
{
    problem.setDimension(static_cast<unsigned long>(dimension));
    if (dimension > 1) {
        problem.setMethod(QV_Problem::SPLIT_METHOD); // the one method that takes several components
    }
    updateWindow();
}
