#pragma once
#include "gui/GUI_RootAction.h"

/// Opens the results of the last run.
class QVG_ActionVisualize : public GUI_RootAction
{
    COM_CLASS(QVG_ActionVisualize)
public:
    void toDo() override;

protected:
    QVG_ActionVisualize();
    ~QVG_ActionVisualize() override = default;
};
