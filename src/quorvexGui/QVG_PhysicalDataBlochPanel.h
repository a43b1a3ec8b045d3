#pragma once
#include "quorvexGui/QVG_FormPanel.h"

class QV_Problem;

/// The atoms: how many, how warm, and how they relax. All of it is shared by all systems.
///
/// The window of the equilibrium closes when the equilibrium has no effect any more.
class QVG_PhysicalDataBlochPanel : public QVG_FormPanel
{
    Q_OBJECT
    COM_CLASS(QVG_PhysicalDataBlochPanel)
public:
    static constexpr unsigned char COMPO_LE_N_ATOMS = 0;
    static constexpr unsigned char COMPO_LE_TEMP = 1;
    static constexpr unsigned char COMPO_PB_FREQ = 2;
    static constexpr unsigned char COMPO_PB_DENSITY = 3;
    static constexpr unsigned char COMPO_PB_POLARIZATION = 4;
    static constexpr unsigned char COMPO_CB_RELAX = 5;
    static constexpr unsigned char COMPO_LE_COL = 6;
    static constexpr unsigned char COMPO_PB_DIAG = 8;
    static constexpr unsigned char COMPO_PB_EQU = 9;

protected:
    explicit QVG_PhysicalDataBlochPanel(GUI_ParentPanel& parent);
    ~QVG_PhysicalDataBlochPanel() override = default;

    void showModel(const Model& model) override;
    void editModel(GUI_ActionComponent& component, const Model& model) override;

private:
    void showFrequencies(const QV_Problem& problem);
    void showDensity();
    void showPolarizations();
    void showLongitudinalRelaxation();
    void showEquilibrium();
    /// Tells the open window of the rates whether they are diagonal.
    void updateLongitudinalRelaxation();
    void closeEquilibrium();

    // Of the windows opened last; 0 before that.
    unsigned long mLongitudinalRelaxationWinId = 0;
    unsigned long mEquilibriumWinId = 0;
    unsigned long mDensityWinId = 0;
    unsigned long mFrequenciesWinId = 0;
    unsigned long mPolarizationsWinId = 0;
};
