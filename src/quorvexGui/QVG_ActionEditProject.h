#pragma once
#include "gui/GUI_RootAction.h"

/// Opens the description of the project, a text of the user in the project's directory, or raises the window
/// that shows it already. Without a project it is greyed.
class QVG_ActionEditProject : public GUI_RootAction
{
    COM_CLASS(QVG_ActionEditProject)
public:
    void toDo() override;

protected:
    QVG_ActionEditProject();
    ~QVG_ActionEditProject() override = default;

private:
    unsigned long mWindowId = 0; ///< Of the window opened last; 0 before that.
};
