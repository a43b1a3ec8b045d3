#pragma once
#include "gui/GUI_ParentPanel.h"

/// A panel inside another one. The widget comes from the class below.
class GUI_ChildPanel : public GUI_ParentPanel
{
public:
    /// Two-way link with `GUI_ParentPanel::addToChildren` and `removeFromChildren`.
    void setParent(GUI_ParentPanel& parent);
    /// Null takes the panel out of its parent.
    void setParent(GUI_ParentPanel* parent);
    void resetParent();
    GUI_ParentPanel* getParent() const { return mParent; }

    GUI_RootPanel* getRoot() override;

protected:
    GUI_ChildPanel() = default;
    explicit GUI_ChildPanel(GUI_ParentPanel* parent);
    ~GUI_ChildPanel() override = default;

private:
    GUI_ParentPanel* mParent = nullptr; ///< Counted back reference.
};
