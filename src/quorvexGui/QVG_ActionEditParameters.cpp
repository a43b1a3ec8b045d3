#include "quorvexGui/QVG_ActionEditParameters.h"

#include "gui/GUI_RootWindow.h"
#include "quorvexGui/QVG_DataWindow.h"

QVG_ActionEditParameters::QVG_ActionEditParameters()
    : GUI_RootAction(nullptr, translate("&Parameters"))
{
    COM_TYPE(QVG_ActionEditParameters);
}

void QVG_ActionEditParameters::toDo()
{
    if (GUI_RootWindow* const window = getRootWindow()) {
        window->openForm(mWindowId,
                         [](GUI_ParentWindow& parent) { return QVG_DataWindow::New(parent); });
    }
    GUI_RootAction::toDo();
}
