#pragma once
#include "gui/GUI_ChildWindow.h"
#include "quorvex/QV_ProblemCheck.h"

#include <vector>

/// What the check before a run found worth knowing. The window comes up beside the progress of the run, waits
/// for no answer, and stays for the time in which the results are looked at.
class QVG_CheckWindow : public GUI_ChildWindow
{
    COM_CLASS(QVG_CheckWindow)
public:
    /// Shows the findings in place of those of the run before. Without findings there is no window.
    static void tell(GUI_ParentWindow& parent,
                     const std::vector<QV_ProblemCheck::Finding>& findings);

protected:
    QVG_CheckWindow(GUI_ParentWindow& parent,
                    const std::vector<QV_ProblemCheck::Finding>& findings);
    ~QVG_CheckWindow() override = default;
};
