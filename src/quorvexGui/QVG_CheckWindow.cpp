#include "quorvexGui/QVG_CheckWindow.h"

#include "common/COM_Scoped.h"
#include "quorvexGui/QVG_CheckView.h"

namespace {

constexpr int startWidth = 620;
constexpr int startHeight = 240;
constexpr int progressHeight = 100; ///< Left free below the parent for the bar of the run.

} // namespace

QVG_CheckWindow::QVG_CheckWindow(GUI_ParentWindow& parent,
                                 const std::vector<QV_ProblemCheck::Finding>& findings)
    : GUI_ChildWindow(parent)
{
    COM_TYPE(QVG_CheckWindow);
    setName(translate("Check of the Problem"));
    auto* const view = new QVG_CheckView(findings, this);
    applyFont(*view);
    setCentralWidget(view);
    closeOnEscape();
    setSize(startWidth, startHeight);
    move(parent.frameGeometry().bottomLeft() + QPoint(0, progressHeight));
}

void QVG_CheckWindow::tell(GUI_ParentWindow& parent,
                           const std::vector<QV_ProblemCheck::Finding>& findings)
{
    if (auto* const former = parent.findForm<QVG_CheckWindow>()) {
        former->close(false);
    }
    if (!findings.empty()) {
        const COM_Scoped window(QVG_CheckWindow::New(parent, findings));
        window->show();
    }
}
