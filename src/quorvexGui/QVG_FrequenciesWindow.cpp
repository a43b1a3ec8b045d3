#include "quorvexGui/QVG_FrequenciesWindow.h"

#include "common/COM_Scoped.h"
#include "quorvexGui/QVG_FrequenciesRootPanel.h"

QVG_FrequenciesWindow::QVG_FrequenciesWindow(GUI_ParentWindow& parent,
                                             const COM_Array<QV_Bloch>& blochs)
    : GUI_ChildWindow(parent)
{
    COM_TYPE(QVG_FrequenciesWindow);
    initComponents(blochs);
}

void QVG_FrequenciesWindow::initComponents(const COM_Array<QV_Bloch>& blochs)
{
    setName(translate("Level Frequencies Window"));
    const COM_Scoped panel(QVG_FrequenciesRootPanel::New(*this, blochs));
    setSize(sizeHint().width(), sizeHint().height());
}
