#pragma once
#include "gui/GUI_ParentWindow.h"

/// A window below another one: inside the workspace of its parent, or on the desktop if there is none.
///
/// The parent's map holds it, so whoever makes one calls `Delete()` when it is shown. Closing detaches it from
/// its parent, which is its end unless somebody else holds it.
class GUI_ChildWindow : public GUI_ParentWindow
{
    COM_CLASS(GUI_ChildWindow)
public:
    bool close(bool flag) override;
    GUI_RootWindow* getRoot() override;
    /// Its own area, else that of its parent.
    GUI_Workspace* getWorkspace() override;

    // Two-way link with GUI_ParentWindow::addToChildren. The window leaves the workspace of its old parent
    // and enters that of its new one.
    virtual void resetParent();
    virtual void setParent(GUI_ParentWindow& parent);
    /// Null is `resetParent`.
    virtual void setParent(GUI_ParentWindow* parent);
    virtual GUI_ParentWindow* getParent() { return mParent; }

protected:
    explicit GUI_ChildWindow(GUI_ParentWindow& parent, bool isContainer = false);
    /// Requires: `parent` is not null.
    explicit GUI_ChildWindow(GUI_ParentWindow* parent, bool isContainer = false);
    ~GUI_ChildWindow() override = default;

    /// Lets the Escape key close the window from now on.
    void closeOnEscape();

private:
    /// Requires: there is no parent.
    void attach(GUI_ParentWindow& parent);

    GUI_ParentWindow* mParent = nullptr; ///< Counted back reference.
};
