#pragma once
#include "gui/GUI_RootAction.h"

/// The description of the project, a text of the user. Its editor is not in this build, and the user is told so.
class QVG_ActionEditProject : public GUI_RootAction
{
    COM_CLASS(QVG_ActionEditProject)
public:
    void toDo() override;

protected:
    QVG_ActionEditProject();
    ~QVG_ActionEditProject() override = default;
};
