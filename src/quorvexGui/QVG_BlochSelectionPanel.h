#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_SelectionPanel.h"

class QVG_FrequenciesRootPanel;
class QV_Bloch;

/// The list of the systems of equations of the problem, with the frequencies of the one that is selected.
/// Adding and deleting change the problem; its last system stays.
class QVG_BlochSelectionPanel : public GUI_SelectionPanel
{
    COM_CLASS(QVG_BlochSelectionPanel)
public:
    /// Lists the systems, named by their places from 1 on, and selects the first. Once, while the list is
    /// empty.
    void setBlochs(const COM_Array<QV_Bloch>& blochs);
    /// A new system of the problem, named by the smallest number that no system in the list has. Null while
    /// there is no problem.
    COM_Object* NewItem(std::string& name) override;
    /// Takes the system out of the problem too.
    bool removeItem(int index) override;
    /// For all systems, whose values are shown anew.
    void setLevelsNumber(unsigned long number);

protected:
    explicit QVG_BlochSelectionPanel(GUI_ParentPanel& parent);
    ~QVG_BlochSelectionPanel() override = default;

    GUI_ItemPanel* NewItemPanel() override;

private:
    static std::string nameOf(unsigned long number);
    bool isUsed(const std::string& name) const;
    /// Null outside a window of frequencies.
    QVG_FrequenciesRootPanel* findForm();
};
