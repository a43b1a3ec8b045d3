#pragma once
#include "gui/GUI_RootAction.h"

/// Opens the results of the last run, or raises the window that shows results already.
class QVG_ActionVisualize : public GUI_RootAction
{
    COM_CLASS(QVG_ActionVisualize)
public:
    void toDo() override;

protected:
    QVG_ActionVisualize();
    ~QVG_ActionVisualize() override = default;

private:
    unsigned long mWindowId = 0; ///< Of the window opened last; 0 before that.
};
