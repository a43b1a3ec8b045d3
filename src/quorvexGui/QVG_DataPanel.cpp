#include "quorvexGui/QVG_DataPanel.h"

#include "common/COM_Scoped.h"
#include "quorvexGui/QVG_NumericalDataPanel.h"
#include "quorvexGui/QVG_PhysicalDataPanel.h"

QVG_DataPanel::QVG_DataPanel(GUI_ParentPanel& parent)
    : GUI_TabPanel(parent)
{
    COM_TYPE(QVG_DataPanel);
    const COM_Scoped physical(QVG_PhysicalDataPanel::New(*this));
    insertPanel(*physical, translate("Physical Data"));
    const COM_Scoped numerical(QVG_NumericalDataPanel::New(*this));
    insertPanel(*numerical, translate("Numerical Data"));
}
