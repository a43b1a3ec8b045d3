#pragma once
#include "gui/GUI_RootAction.h"

class QV_Problem;
class QVG_MainWindow;

/// Runs the problem of the project. The run holds the program to its end; a bar shows how far it has come.
///
/// Before anything of a former run is touched the problem is checked: what has no meaning is refused, and the
/// user is asked about what would go wrong.
class QVG_ActionRun : public GUI_RootAction
{
    COM_CLASS(QVG_ActionRun)
public:
    void toDo() override;

protected:
    QVG_ActionRun();
    ~QVG_ActionRun() override = default;

private:
    /// Whether the run is to begin.
    static bool check(QVG_MainWindow& window, const QV_Problem& problem);
    /// What the run returned.
    static int run(QVG_MainWindow& window, QV_Problem& problem);
    static void report(int result);
};
