#pragma once
#include "gui/GUI_ChildWindow.h"

/// The form that asks for name and directory of a project: a new one, or the open one under a new name.
class GUI_NewProjectWindow : public GUI_ChildWindow
{
    COM_CLASS(GUI_NewProjectWindow)
public:
    /// Shows the form below `parent`. If it is open for the same purpose it comes to the front.
    static void open(GUI_ParentWindow& parent, bool isSavingAs);

    /// True when the open project is to be saved under the new name.
    bool isSavingAs() const { return mIsSavingAs; }

protected:
    explicit GUI_NewProjectWindow(GUI_ParentWindow& parent, bool isSavingAs = false);
    ~GUI_NewProjectWindow() override = default;

private:
    void initComponents();

    bool mIsSavingAs; ///< Not read off the caption, which may come in another language by then.
};
