#pragma once
#include "gui/GUI_RootAction.h"

/// Opens the parameters of the problem, or raises the window that shows them already.
class QVG_ActionEditParameters : public GUI_RootAction
{
    COM_CLASS(QVG_ActionEditParameters)
public:
    void toDo() override;

protected:
    QVG_ActionEditParameters();
    ~QVG_ActionEditParameters() override = default;

private:
    unsigned long mWindowId = 0; ///< Of the window opened last; 0 before that.
};
