#include "quorvexGui/QVG_NumericalDataPanel.h"

#include "common/COM_Scoped.h"
#include "quorvexGui/QVG_FormPage.h"
#include "quorvexGui/QVG_NumericalDataBlochPanel.h"
#include "quorvexGui/QVG_NumericalDataMaxwellPanel.h"
#include "quorvexGui/QVG_NumericalDataMilieuPanel.h"

QVG_NumericalDataPanel::QVG_NumericalDataPanel(GUI_ParentPanel& parent)
    : GUI_FramePanel(parent)
{
    COM_TYPE(QVG_NumericalDataPanel);
    const COM_Scoped milieu(QVG_NumericalDataMilieuPanel::New(*this));
    const COM_Scoped bloch(QVG_NumericalDataBlochPanel::New(*this));
    const COM_Scoped maxwell(QVG_NumericalDataMaxwellPanel::New(*this));
    QVG_FormPage::arrange(*this, {milieu.get(), bloch.get(), maxwell.get()});
}
