#include "quorvexGui/QVG_ActionEditParameters.h"

#include "common/COM_Scoped.h"
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
        if (GUI_ChildWindow* const open = window->getChild(mWindowId)) {
            open->bringToFront();
        } else {
            const COM_Scoped data(QVG_DataWindow::New(*window));
            data->show();
            mWindowId = GUI_ParentWindow::getId(*data);
        }
    }
    GUI_RootAction::toDo();
}
