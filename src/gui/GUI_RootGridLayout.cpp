#include "gui/GUI_RootGridLayout.h"

GUI_RootGridLayout::GUI_RootGridLayout()
    : GUI_RootGridLayout(1, 1)
{}

GUI_RootGridLayout::GUI_RootGridLayout(int rows, int columns)
    : GUI_LayoutOf(rows, columns)
{
    COM_TYPE(GUI_RootGridLayout);
}

GUI_RootGridLayout::GUI_RootGridLayout(GUI_ParentPanel& panel, int rows, int columns, int margin,
                                       int spacing)
    : GUI_RootGridLayout(rows, columns)
{
    setSpacing(spacing);
    install(panel, margin);
}
