#pragma once
#include "gui/GUI_ChildLayout.h"
#include "gui/GUI_LayoutOf.h"

#include <QGridLayout>

/// A grid nested in another layout.
class GUI_GridLayout : public GUI_LayoutOf<QGridLayout, GUI_ChildLayout>
{
    COM_CLASS(GUI_GridLayout)
public:
    using GUI_ChildLayout::setParent;

protected:
    /// 1 by 1.
    GUI_GridLayout();
    /// A spacing of -1 is the style's.
    GUI_GridLayout(int rows, int columns, int spacing = -1);
    ~GUI_GridLayout() override = default;
};
