#pragma once
#include "quorvex/QV_ProblemCheck.h"

#include <vector>

class GUI_ParentWindow;

/// The question before a run that would not go well.
class QVG_CheckDialog
{
public:
    QVG_CheckDialog() = delete;

    /// Shows the findings. Where one of them stops the run there is nothing to ask; else the user decides, and
    /// both the Return key and Escape say no. True: the run is wanted.
    static bool ask(GUI_ParentWindow& parent,
                    const std::vector<QV_ProblemCheck::Finding>& findings);
};
