#include "quorvexGui/QVG_PolarizationPanel.h"

#include "linearAlgebra/LA_RealMatrix.h"
#include "quorvex/QV_Bloch.h"
#include "quorvexGui/QVG_DataWindow.h"

QVG_PolarizationPanel::QVG_PolarizationPanel(GUI_ParentPanel& parent, unsigned long index)
    : GUI_MatrixPanel(parent, false)
    , mIndex(index)
{
    COM_TYPE(QVG_PolarizationPanel);
}

void QVG_PolarizationPanel::updateValues()
{
    GUI_MatrixPanel::updateValues();
    auto* const matrix = dynamic_cast<LA_RealMatrix*>(getMatrix());
    const COM_Array<LA_RealMatrix>* const matrices = QV_Bloch::getPolarizations();
    // A matrix that has left the atoms is not to come back.
    if (matrix != nullptr && matrices != nullptr && mIndex < matrices->size()
        && matrices->get(mIndex) == matrix) {
        QV_Bloch::setPolarization(*matrix, mIndex);
        QVG_DataWindow::showDerivedData(findWindow());
    }
}
