#include "quorvexGui/QVG_DataWindow.h"

#include "common/COM_Scoped.h"
#include "quorvex/QV_DerivedData.h"
#include "quorvexGui/QVG_DerivedDataBar.h"
#include "quorvexGui/QVG_MainWindow.h"
#include "quorvexGui/QVG_RootDataPanel.h"

#include <QScreen>
#include <QStatusBar>

namespace {

constexpr int barFrame = 8; ///< Pixels that a status bar keeps beside what it holds, at most.

} // namespace

QVG_DataWindow::QVG_DataWindow(GUI_ParentWindow& parent, bool isContainer)
    : GUI_ChildWindow(parent, isContainer)
{
    COM_TYPE(QVG_DataWindow);
    initComponents();
}

void QVG_DataWindow::initComponents()
{
    setName(translate("Options Window"));
    mBar = new QVG_DerivedDataBar;
    applyFont(*mBar);
    statusBar()->setSizeGripEnabled(false); // it would take the room of a word
    statusBar()->addWidget(mBar, 1);
    const COM_Scoped panel(QVG_RootDataPanel::New(*this));
    updateValues();
    // The bar would be cut to the width that the forms need.
    const QSize whole = sizeHint().expandedTo({mBar->wholeWidth() + 2 * barFrame, 0});
    const QSize size = screen() != nullptr ? whole.boundedTo(screen()->availableSize()) : whole;
    setSize(size.width(), size.height());
}

void QVG_DataWindow::showDerivedData(const QV_Problem& problem)
{
    mBar->setData(QV_DerivedData(problem));
}

void QVG_DataWindow::showDerivedData(GUI_ParentWindow* detail)
{
    auto* const child = dynamic_cast<GUI_ChildWindow*>(detail);
    auto* const window =
        child != nullptr ? dynamic_cast<QVG_DataWindow*>(child->getParent()) : nullptr;
    const QV_Problem* const problem = QVG_MainWindow::findProblem(window);
    if (window != nullptr && problem != nullptr) {
        window->showDerivedData(*problem);
    }
}
