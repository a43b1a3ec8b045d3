#include "quorvexGui/QVG_ActionVisualize.h"

#include "quorvexGui/QVG_NotInBuild.h"

QVG_ActionVisualize::QVG_ActionVisualize()
    : GUI_RootAction(nullptr, translate("&Visualize"), "visu.png")
{
    COM_TYPE(QVG_ActionVisualize);
}

void QVG_ActionVisualize::toDo()
{
    QVG_NotInBuild::tell();
    GUI_RootAction::toDo();
}
