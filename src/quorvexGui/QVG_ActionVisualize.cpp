#include "quorvexGui/QVG_ActionVisualize.h"

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
        }
        window->openForm(mWindowId, [](GUI_ParentWindow& parent) {
            return QVG_VisualizationWindow::New(parent);
        });
    }
    GUI_RootAction::toDo();
}
