#pragma once
#include "gui/GUI_ChildOf.h"
#include "gui/GUI_ParentPanel.h"

/// A panel inside another one. The widget comes from the class below.
class GUI_ChildPanel : public GUI_ChildOf<GUI_ChildPanel, GUI_ParentPanel, GUI_RootPanel>
{
protected:
    GUI_ChildPanel() = default;
    explicit GUI_ChildPanel(GUI_ParentPanel* parent) { setParent(parent); }
    ~GUI_ChildPanel() override = default;
};
