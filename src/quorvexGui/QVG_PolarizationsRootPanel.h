#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_RootPanel.h"
#include "linearAlgebra/LA_RealMatrix.h"

/// The form of the dipole matrices: a table for each of them, side by side. Tables come and go with the
/// matrices of the array when the form is shown anew.
class QVG_PolarizationsRootPanel : public GUI_RootPanel
{
    COM_CLASS(QVG_PolarizationsRootPanel)
public:
    static constexpr unsigned char COMPO_SB_ELN = 0;
    /// Titles of the tables, keys of the dictionary.
    static constexpr const char* mLabels[] = {
        "X Direction Polarization", "Y Direction Polarization", "Z Direction Polarization"};
    static constexpr unsigned long mLabelsLength = 3;

    void updateValues() override;
    /// Nothing: the tables see to themselves.
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    QVG_PolarizationsRootPanel(GUI_ParentWindow& window, COM_Array<LA_RealMatrix>& polarizations);
    ~QVG_PolarizationsRootPanel() override;

private:
    void arrangePanels();
    void addPanel(unsigned long index);

    COM_Array<LA_RealMatrix>* mPolarizations = nullptr; ///< Counted, shared with all atoms.
};
