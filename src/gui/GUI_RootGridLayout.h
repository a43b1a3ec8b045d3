#pragma once
#include "gui/GUI_LayoutOf.h"
#include "gui/GUI_RootLayout.h"

#include <QGridLayout>

/// The main layout of a panel, a grid.
class GUI_RootGridLayout : public GUI_LayoutOf<QGridLayout, GUI_RootLayout>
{
    COM_CLASS(GUI_RootGridLayout)
protected:
    /// 1 by 1.
    GUI_RootGridLayout();
    GUI_RootGridLayout(int rows, int columns);
    /// Installed on the panel; margin and spacing in pixels, a spacing of -1 being the style's.
    GUI_RootGridLayout(GUI_ParentPanel& panel, int rows, int columns, int margin, int spacing);
    ~GUI_RootGridLayout() override = default;
};
