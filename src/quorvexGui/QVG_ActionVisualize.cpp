#include "quorvexGui/QVG_ActionVisualize.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootWindow.h"
#include "quorvexGui/QVG_VisualizationWindow.h"

QVG_ActionVisualize::QVG_ActionVisualize()
    : GUI_RootAction(nullptr, translate("&Visualize"), "visu.png")
{
    COM_TYPE(QVG_ActionVisualize);
}

void QVG_ActionVisualize::toDo()
{
    if (GUI_RootWindow* const window = getRootWindow()) {
        if (auto* const open =
                dynamic_cast<QVG_VisualizationWindow*>(window->getChild(mWindowId))) {
            open->checkResults();
            open->bringToFront();
        } else {
            const COM_Scoped visualization(QVG_VisualizationWindow::New(*window));
            visualization->show();
            mWindowId = GUI_ParentWindow::getId(*visualization);
        }
    }
    GUI_RootAction::toDo();
}
