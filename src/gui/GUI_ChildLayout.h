#pragma once
#include "gui/GUI_ParentLayout.h"

/// A layout nested in another one.
class GUI_ChildLayout : public GUI_ParentLayout
{
public:
    virtual GUI_ParentLayout* getParent() const { return mParent; }

    /// Two-way link with `GUI_ParentLayout::addToChildren` and `removeFromChildren`.
    void setParent(GUI_ParentLayout& parent);
    /// Null takes the layout out of its parent.
    void setParent(GUI_ParentLayout* parent);
    void resetParent();

    GUI_RootLayout* getRoot() override;

protected:
    GUI_ChildLayout() = default;
    ~GUI_ChildLayout() override = default;

private:
    GUI_ParentLayout* mParent = nullptr; ///< Counted back reference.
};
