#include "quorvexGui/QVG_ActionRun.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_File.h"
#include "gui/GUI_Message.h"
#include "quorvex/QV_Problem.h"
#include "quorvex/QV_ProblemCheck.h"
#include "quorvexGui/QVG_CheckDialog.h"
#include "quorvexGui/QVG_CheckWindow.h"
#include "quorvexGui/QVG_MainWindow.h"
#include "quorvexGui/QVG_RunProgress.h"

#include <algorithm>
#include <limits>

QVG_ActionRun::QVG_ActionRun()
    : GUI_RootAction(nullptr, translate("&Run"), "cheval.png")
{
    COM_TYPE(QVG_ActionRun);
}

void QVG_ActionRun::toDo()
{
    auto* const window = dynamic_cast<QVG_MainWindow*>(getRootWindow());
    QV_Problem* const problem = window == nullptr ? nullptr : window->getProblem();
    if (problem != nullptr) {
        const COM_Guard windowGuard(*window);
        const COM_Guard problemGuard(*problem);
        if (check(*window, *problem)) {
            report(run(*window, *problem));
        }
    }
    GUI_RootAction::toDo();
}

bool QVG_ActionRun::check(QVG_MainWindow& window, const QV_Problem& problem)
{
    const std::vector<QV_ProblemCheck::Finding> findings =
        QV_ProblemCheck::check(problem, window.getSavingPath());
    const bool isQuestionable = QV_ProblemCheck::has(findings, QV_ProblemCheck::STOPS)
                                || QV_ProblemCheck::has(findings, QV_ProblemCheck::HARMS);
    if (isQuestionable && !QVG_CheckDialog::ask(window, findings)) {
        return false;
    }
    QVG_CheckWindow::tell(window, findings);
    return true;
}

int QVG_ActionRun::run(QVG_MainWindow& window, QV_Problem& problem)
{
    const std::string path = window.getSavingPath();
    // The parameters of this very run, kept beside those that are edited further.
    window.saveModelFile(path + window.getModelFileName() + "~");
    GUI_File::removeFiles(path, "*.res");
    problem.setSavingPath(path);
    const auto steps =
        std::min<unsigned long>(problem.getMaxTimeStepsNumber(), std::numeric_limits<int>::max());
    const COM_Scoped progress(QVG_RunProgress::New(window, static_cast<int>(steps)));
    window.update();
    return problem.run(*progress);
}

void QVG_ActionRun::report(int result)
{
    if (result >= 0) {
        GUI_Message::printMessage(translate("Information") + "!",
                                  translate("Execution succeeds") + ".");
    } else if (result == QV_Problem::RABBI_FREQUENCY_ERROR) {
        GUI_Message::printMessage(translate("Execution Failure") + "!",
                                  translate("Rabi Frequency is null") + " \n ("
                                      + translate("The maximum value of the polarization is null")
                                      + ").");
    } else {
        GUI_Message::printMessage(translate("Execution Failure") + "!",
                                  translate("Unknown Reason") + ".");
    }
}
