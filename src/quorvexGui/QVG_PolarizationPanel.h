#pragma once
#include "gui/GUI_MatrixPanel.h"

/// The table of a dipole matrix. The largest dipole of all matrices follows each change.
class QVG_PolarizationPanel : public GUI_MatrixPanel<double>
{
    COM_CLASS(QVG_PolarizationPanel)
public:
    void updateValues() override;

protected:
    /// `index` is the place among the matrices that all atoms share.
    QVG_PolarizationPanel(GUI_ParentPanel& parent, unsigned long index);
    ~QVG_PolarizationPanel() override = default;

private:
    unsigned long mIndex;
};
