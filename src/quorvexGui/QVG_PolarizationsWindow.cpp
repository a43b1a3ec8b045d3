#include "quorvexGui/QVG_PolarizationsWindow.h"

#include "common/COM_Scoped.h"
#include "quorvexGui/QVG_PolarizationsRootPanel.h"

QVG_PolarizationsWindow::QVG_PolarizationsWindow(GUI_ParentWindow& parent,
                                                 COM_Array<LA_RealMatrix>& polarizations)
    : GUI_ChildWindow(parent)
{
    COM_TYPE(QVG_PolarizationsWindow);
    initComponents(polarizations);
}

void QVG_PolarizationsWindow::initComponents(COM_Array<LA_RealMatrix>& polarizations)
{
    setName(translate("Initial Polarizations Window"));
    const COM_Scoped panel(QVG_PolarizationsRootPanel::New(*this, polarizations));
    setSize(sizeHint().width(), sizeHint().height());
}
