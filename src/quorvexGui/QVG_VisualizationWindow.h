#pragma once
#include "gui/GUI_ChildWindow.h"

#include <filesystem>

/// The window of the results: what was saved at the captors of the last run, and which of it is to be plotted.
/// The captors are those of the time at which the window opened.
class QVG_VisualizationWindow : public GUI_ChildWindow
{
    COM_CLASS(QVG_VisualizationWindow)
public:
    /// Says in the status bar that there are results newer than the captors shown, if there are.
    void checkResults();

protected:
    explicit QVG_VisualizationWindow(GUI_ParentWindow& parent);
    ~QVG_VisualizationWindow() override = default;

private:
    void initComponents();
    std::filesystem::file_time_type resultsTime();

    std::filesystem::file_time_type mTime; ///< Of the captors' file when it was read.
};
