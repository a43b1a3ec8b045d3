#include "quorvexGui/QVG_PhysicalDataPanel.h"

#include "common/COM_Scoped.h"
#include "quorvexGui/QVG_FormPage.h"
#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"
#include "quorvexGui/QVG_PhysicalDataMaxwellPanel.h"
#include "quorvexGui/QVG_PhysicalDataMilieuPanel.h"

QVG_PhysicalDataPanel::QVG_PhysicalDataPanel(GUI_ParentPanel& parent)
    : GUI_FramePanel(parent)
{
    COM_TYPE(QVG_PhysicalDataPanel);
    const COM_Scoped milieu(QVG_PhysicalDataMilieuPanel::New(*this));
    const COM_Scoped bloch(QVG_PhysicalDataBlochPanel::New(*this));
    const COM_Scoped maxwell(QVG_PhysicalDataMaxwellPanel::New(*this));
    QVG_FormPage::arrange(*this, {milieu.get(), bloch.get(), maxwell.get()});
}
