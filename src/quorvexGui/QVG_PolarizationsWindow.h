#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_ChildWindow.h"
#include "linearAlgebra/LA_RealMatrix.h"

class QVG_PolarizationsRootPanel;

/// The window of the dipole matrices, one for each component of the field.
class QVG_PolarizationsWindow : public GUI_ChildWindow
{
    COM_CLASS(QVG_PolarizationsWindow)
protected:
    QVG_PolarizationsWindow(GUI_ParentWindow& parent, COM_Array<LA_RealMatrix>& polarizations);
    ~QVG_PolarizationsWindow() override = default;

private:
    void initComponents(COM_Array<LA_RealMatrix>& polarizations);
    /// Gives the window the size of its tables, up to five rows and columns of each.
    void fit(const QVG_PolarizationsRootPanel& panel);
};
