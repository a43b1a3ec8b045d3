#include "quorvexGui/QVG_VisualizationWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_TableFit.h"
#include "quorvexGui/QVG_VisualizationRootPanel.h"

#include <QScreen>

QVG_VisualizationWindow::QVG_VisualizationWindow(GUI_ParentWindow& parent)
    : GUI_ChildWindow(parent)
{
    COM_TYPE(QVG_VisualizationWindow);
    initComponents();
}

void QVG_VisualizationWindow::initComponents()
{
    setName(translate("Visualization Window"));
    mTime = resultsTime();
    const COM_Scoped panel(QVG_VisualizationRootPanel::New(*this));
    QSize size = sizeHint();
    if (const auto* const marks = findChild<GUI_Table*>()) {
        constexpr int levels = 4;
        const QSize missing = GUI_TableFit::wholeSize(*marks, levels, levels) - marks->sizeHint();
        size += missing.expandedTo({0, 0});
    }
    size = size.boundedTo(screen()->availableSize());
    setSize(size.width(), size.height());
}

std::filesystem::file_time_type QVG_VisualizationWindow::resultsTime()
{
    std::error_code error; // a missing file is older than any
    const std::string path = getRoot() != nullptr ? getRoot()->getSavingPath() : std::string();
    return std::filesystem::last_write_time(path + QVG_VisualizationRootPanel::CAPTORS_FILE, error);
}

void QVG_VisualizationWindow::checkResults()
{
    if (resultsTime() > mTime) {
        setStatusMessage(translate("New results are there"));
    }
}
