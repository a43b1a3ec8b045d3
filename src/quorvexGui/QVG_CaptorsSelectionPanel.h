#pragma once
#include "gui/GUI_SelectionPanel.h"

/// The list of the captors of a run, with the choices for the one that is selected. Captors come from the
/// files of the run: the user can neither add nor delete any.
class QVG_CaptorsSelectionPanel : public GUI_SelectionPanel
{
    COM_CLASS(QVG_CaptorsSelectionPanel)
public:
    /// A default captor, named by the number that follows that of the objects.
    COM_Object* NewItem(std::string& name) override;

protected:
    explicit QVG_CaptorsSelectionPanel(GUI_ParentPanel& parent);
    ~QVG_CaptorsSelectionPanel() override = default;

    GUI_ItemPanel* NewItemPanel() override;
};
