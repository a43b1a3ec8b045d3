#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"

#include "gui/GUI_ActionComponent.h"
#include "gui/GUI_MatrixWindow.h"
#include "gui/GUI_UnknownAction.h"
#include "gui/GUI_VectorWindow.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvexGui/QVG_FrequenciesWindow.h"
#include "quorvexGui/QVG_PolarizationsWindow.h"

#include <algorithm>

QVG_PhysicalDataBlochPanel::QVG_PhysicalDataBlochPanel(GUI_ParentPanel& parent)
    : QVG_FormPanel(parent)
{
    COM_TYPE(QVG_PhysicalDataBlochPanel);
    static constexpr const char* relaxationTypes[] = {"PAULI", "CASCADE", "EQUILIBRE"};
    static constexpr Row rows[] = {
        {.mKind = LINE_EDIT,
         .mFlag = COMPO_LE_N_ATOMS,
         .mLabel = "Atoms Number",
         .mUnit = "1/m\xc2\xb3"},
        {.mKind = LINE_EDIT, .mFlag = COMPO_LE_TEMP, .mLabel = "Temperature", .mUnit = "K"},
        {.mKind = BUTTON, .mFlag = COMPO_PB_FREQ, .mLabel = "Energy Levels Frequencies"},
        {.mKind = BUTTON, .mFlag = COMPO_PB_DENSITY, .mLabel = "Density Matrix"},
        {.mKind = BUTTON, .mFlag = COMPO_PB_POLARIZATION, .mLabel = "Polarization Matrix"},
        {.mKind = COMBO_BOX,
         .mFlag = COMPO_CB_RELAX,
         .mLabel = "Relaxation Type",
         .mItems = relaxationTypes},
        {.mKind = LINE_EDIT,
         .mFlag = COMPO_LE_COL,
         .mLabel = "Transversal Relaxation",
         .mUnit = "1/s"},
        {.mKind = BUTTON, .mFlag = COMPO_PB_DIAG, .mLabel = "Longitudinal Relaxation Matrix"},
        {.mKind = BUTTON, .mFlag = COMPO_PB_EQU, .mLabel = "Equilibrium Density"},
    };
    build(translate("Bloch"), rows);
}

void QVG_PhysicalDataBlochPanel::showModel(const Model& model)
{
    show(COMPO_LE_N_ATOMS, QV_Bloch::getAtomsNumber());
    show(COMPO_LE_TEMP, QV_Bloch::getTemperature());
    show(COMPO_CB_RELAX, long{QV_Bloch::getRelaxationType()});
    show(COMPO_LE_COL, QV_Bloch::getTransversalRelaxation());

    const unsigned char method = model.mProblem->getMethod();
    const unsigned char type = QV_Bloch::getRelaxationType();
    const bool isSplitting = method == QV_Problem::SPLIT_METHOD;
    const bool isToEquilibrium =
        type == QV_Bloch::CASCADE_RELAXATION_TYPE || type == QV_Bloch::EQUILIBRE_RELAXATION_TYPE;
    enable(COMPO_CB_RELAX, isSplitting);
    enable(COMPO_LE_COL, method != QV_Problem::PRED_CORR_METHOD);
    enable(COMPO_PB_DIAG, true);
    enable(COMPO_PB_EQU, isSplitting && isToEquilibrium);
    if (!isSplitting || !isToEquilibrium) {
        closeEquilibrium();
    }
    updateLongitudinalRelaxation();
}

void QVG_PhysicalDataBlochPanel::editModel(GUI_ActionComponent& component, const Model& model)
{
    switch (component.getFlagId()) {
    case COMPO_LE_N_ATOMS:
        take(component, QV_Bloch::getAtomsNumber(),
             [](double x) { QV_Bloch::setAtomsNumber(std::max(x, 0.0)); });
        break;
    case COMPO_LE_TEMP:
        take(component, QV_Bloch::getTemperature(),
             [](double x) { QV_Bloch::setTemperature(std::max(x, 0.0)); });
        break;
    case COMPO_PB_FREQ:
        showFrequencies(*model.mProblem);
        break;
    case COMPO_PB_DENSITY:
        showDensity();
        break;
    case COMPO_PB_POLARIZATION:
        showPolarizations();
        break;
    case COMPO_CB_RELAX:
        take(component, long{QV_Bloch::getRelaxationType()},
             [](long type) { QV_Bloch::setRelaxationType(static_cast<unsigned char>(type)); });
        break;
    case COMPO_LE_COL:
        take(component, QV_Bloch::getTransversalRelaxation(),
             [](double x) { QV_Bloch::setTransversalRelaxation(std::max(x, 0.0)); });
        break;
    case COMPO_PB_DIAG:
        showLongitudinalRelaxation();
        break;
    case COMPO_PB_EQU:
        showEquilibrium();
        break;
    default:
        GUI_UnknownAction::print(component);
    }
}

void QVG_PhysicalDataBlochPanel::showFrequencies(const QV_Problem& problem)
{
    showDetail(mFrequenciesWinId, [&problem](GUI_ParentWindow& parent) {
        return QVG_FrequenciesWindow::New(parent, *problem.getBlochEquations());
    });
}

void QVG_PhysicalDataBlochPanel::showDensity()
{
    showDetail(mDensityWinId, [](GUI_ParentWindow& parent) {
        if (QV_Bloch::getInitialDensity() == nullptr) {
            QV_Bloch::initInitialDensity();
        }
        auto* const window = GUI_MatrixWindow<std::complex<double>>::New(
            parent, false, *QV_Bloch::getInitialDensity(), false);
        window->setName(translate("Initial Density Window"));
        return window;
    });
}

void QVG_PhysicalDataBlochPanel::showPolarizations()
{
    showDetail(mPolarizationsWinId, [](GUI_ParentWindow& parent) {
        if (QV_Bloch::getPolarizations() == nullptr) {
            QV_Bloch::initPolarizations();
        }
        return QVG_PolarizationsWindow::New(parent, *QV_Bloch::getPolarizations());
    });
}

void QVG_PhysicalDataBlochPanel::showLongitudinalRelaxation()
{
    showDetail(mLongitudinalRelaxationWinId, [](GUI_ParentWindow& parent) {
        if (QV_Bloch::getLongitudinalRelaxation() == nullptr) {
            QV_Bloch::initLongitudinalRelaxation();
        }
        auto* const window = GUI_MatrixWindow<double>::New(
            parent, false, *QV_Bloch::getLongitudinalRelaxation(), false);
        window->setName(translate("Longitudinal Relaxation Matrix Window"));
        window->setSymetric(true);
        return window;
    });
    updateLongitudinalRelaxation();
}

void QVG_PhysicalDataBlochPanel::updateLongitudinalRelaxation()
{
    GUI_ParentWindow* const window = findWindow();
    if (window == nullptr) {
        return;
    }
    if (auto* const rates = dynamic_cast<GUI_MatrixWindow<double>*>(
            window->getChild(mLongitudinalRelaxationWinId))) {
        rates->setDiagonal(QV_Bloch::getRelaxationType() == QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
    }
}

void QVG_PhysicalDataBlochPanel::showEquilibrium()
{
    showDetail(mEquilibriumWinId, [](GUI_ParentWindow& parent) {
        if (QV_Bloch::getEquilibriumDensity() == nullptr) {
            QV_Bloch::initEquilibriumDensity();
        }
        auto* const window =
            GUI_VectorWindow<double>::New(parent, false, *QV_Bloch::getEquilibriumDensity(), false);
        window->setName(translate("Equilibrium Vector Window"));
        window->setValuesLabel(translate("Equilibrium Density"));
        return window;
    });
}

void QVG_PhysicalDataBlochPanel::closeEquilibrium()
{
    GUI_ParentWindow* const window = findWindow();
    GUI_ChildWindow* const equilibrium =
        window != nullptr ? window->getChild(mEquilibriumWinId) : nullptr;
    if (equilibrium != nullptr) {
        equilibrium->close(false);
    }
}
