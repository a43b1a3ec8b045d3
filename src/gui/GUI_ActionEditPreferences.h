#pragma once
#include "gui/GUI_RootAction.h"

/// Opens the form of the preferences. If it is open it comes to the front: a second one would show values
/// that the first has changed, and store them again when a field is left.
class GUI_ActionEditPreferences : public GUI_RootAction
{
    COM_CLASS(GUI_ActionEditPreferences)
public:
    void toDo() override;

protected:
    explicit GUI_ActionEditPreferences(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionEditPreferences() override = default;
};
