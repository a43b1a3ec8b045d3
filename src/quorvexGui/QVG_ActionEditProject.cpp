#include "quorvexGui/QVG_ActionEditProject.h"

#include "gui/GUI_RootWindow.h"
#include "gui/GUI_TextWindow.h"
#include "quorvexGui/QVG_MainWindow.h"

QVG_ActionEditProject::QVG_ActionEditProject()
    : GUI_RootAction(nullptr, translate("Project Description"))
{
    COM_TYPE(QVG_ActionEditProject);
}

void QVG_ActionEditProject::toDo()
{
    if (GUI_RootWindow* const window = getRootWindow()) {
        window->openForm(mWindowId, [](GUI_ParentWindow& parent) {
            GUI_TextWindow* const text =
                GUI_TextWindow::New(parent, true, "Project Description", false);
            text->load(parent.getSavingPath(), QVG_MainWindow::DESCRIPTION_FILE);
            return text;
        });
    }
    GUI_RootAction::toDo();
}
