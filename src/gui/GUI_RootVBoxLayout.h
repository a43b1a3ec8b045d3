#pragma once
#include "gui/GUI_LayoutOf.h"
#include "gui/GUI_RootLayout.h"

#include <QVBoxLayout>

/// The main layout of a panel, one column.
class GUI_RootVBoxLayout : public GUI_LayoutOf<QVBoxLayout, GUI_RootLayout>
{
    COM_CLASS(GUI_RootVBoxLayout)
protected:
    GUI_RootVBoxLayout();
    /// Installed on the panel without margin.
    explicit GUI_RootVBoxLayout(GUI_ParentPanel& panel);
    /// Installed on the panel; margin and spacing in pixels, a spacing of -1 being the style's.
    GUI_RootVBoxLayout(GUI_ParentPanel& panel, int margin, int spacing);
    ~GUI_RootVBoxLayout() override = default;
};
