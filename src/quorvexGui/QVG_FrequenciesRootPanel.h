#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_RootPanel.h"

class GUI_GridLayout;
class QVG_BlochSelectionPanel;
class QVG_GroupPanel;
class QV_Bloch;
class QV_Problem;

/// The form of the energy levels: how many there are in all systems, their frequencies in the system selected
/// in a list, and the law from which those of the systems past the first can be drawn.
class QVG_FrequenciesRootPanel : public GUI_RootPanel
{
    COM_CLASS(QVG_FrequenciesRootPanel)
public:
    static constexpr unsigned char COMPO_SB_ELN = 0;
    static constexpr unsigned char COMPO_CB_STAT = 1;
    static constexpr unsigned char COMPO_LE_MEAN = 2;
    static constexpr unsigned char COMPO_LE_TYPE = 3;
    static constexpr unsigned char COMPO_PB_GENERATE = 4;

    /// A law can be chosen and used only while there are two systems at least.
    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

    /// The main window's problem, or null.
    QV_Problem* findProblem() const;

protected:
    QVG_FrequenciesRootPanel(GUI_ParentWindow& window, const COM_Array<QV_Bloch>& blochs);
    ~QVG_FrequenciesRootPanel() override = default;

private:
    void initComponents(const COM_Array<QV_Bloch>& blochs);
    void addLevelsNumber();
    void addGeneration();
    void addField(GUI_GridLayout& grid, int row, const std::string& text,
                  GUI_ActionComponent& field);
    void setLevelsNumber(long number);

    QVG_BlochSelectionPanel* mSelection = nullptr; ///< Child 0, counted there.
    QVG_GroupPanel* mGeneration = nullptr;         ///< Child 1, counted there.
};
