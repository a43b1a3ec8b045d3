#pragma once
#include "gui/GUI_RootAction.h"

/// Opens the description of the project, a text of the user.
class QVG_ActionEditProject : public GUI_RootAction
{
    COM_CLASS(QVG_ActionEditProject)
public:
    void toDo() override;

protected:
    QVG_ActionEditProject();
    ~QVG_ActionEditProject() override = default;
};
