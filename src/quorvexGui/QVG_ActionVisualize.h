#pragma once
#include "gui/GUI_RootAction.h"

/// The results of the last run. The plotter is not in this build, and the user is told so.
class QVG_ActionVisualize : public GUI_RootAction
{
    COM_CLASS(QVG_ActionVisualize)
public:
    void toDo() override;

protected:
    QVG_ActionVisualize();
    ~QVG_ActionVisualize() override = default;
};
