#include "quorvexGui/QVG_ActionEditProject.h"

#include "quorvexGui/QVG_NotInBuild.h"

QVG_ActionEditProject::QVG_ActionEditProject()
    : GUI_RootAction(nullptr, translate("Project Description"))
{
    COM_TYPE(QVG_ActionEditProject);
}

void QVG_ActionEditProject::toDo()
{
    QVG_NotInBuild::tell();
    GUI_RootAction::toDo();
}
