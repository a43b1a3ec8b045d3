#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_ChildWindow.h"

class QV_Bloch;

/// The window of the energy levels: their number, their frequencies in each system, and a statistical law to
/// draw these from. It writes into the systems as the user types.
class QVG_FrequenciesWindow : public GUI_ChildWindow
{
    COM_CLASS(QVG_FrequenciesWindow)
protected:
    /// `blochs` are the systems of the main window's problem.
    QVG_FrequenciesWindow(GUI_ParentWindow& parent, const COM_Array<QV_Bloch>& blochs);
    ~QVG_FrequenciesWindow() override = default;

private:
    void initComponents(const COM_Array<QV_Bloch>& blochs);
};
