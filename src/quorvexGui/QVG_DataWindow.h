#pragma once
#include "gui/GUI_ChildWindow.h"

class QV_Problem;
class QVG_DerivedDataBar;

/// The window of the parameters: the forms of the physical and the numerical data, and below them what
/// follows from these data.
///
/// Everything typed is in the problem at once; closing the window takes nothing back. The windows of matrices
/// and vectors are its children.
class QVG_DataWindow : public GUI_ChildWindow
{
    Q_OBJECT
    COM_CLASS(QVG_DataWindow)
public:
    /// Shows the quantities that follow from the data of `problem`. The forms call it after each change.
    void showDerivedData(const QV_Problem& problem);
    /// The same after a change in a window that was opened from the forms. Nothing for other windows.
    static void showDerivedData(GUI_ParentWindow* detail);

protected:
    explicit QVG_DataWindow(GUI_ParentWindow& parent, bool isContainer = false);
    ~QVG_DataWindow() override = default;

private:
    void initComponents();

    QVG_DerivedDataBar* mBar = nullptr; ///< Owned by Qt, as part of the status bar.
};
