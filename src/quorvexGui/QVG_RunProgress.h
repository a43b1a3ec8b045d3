#pragma once
#include "gui/GUI_Progress.h"

/// The bar that shows how far a run has come.
class QVG_RunProgress : public GUI_Progress
{
    COM_CLASS(QVG_RunProgress)
protected:
    QVG_RunProgress(GUI_ParentWindow& parent, int steps);
    ~QVG_RunProgress() override = default;
};
