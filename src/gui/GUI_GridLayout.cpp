#include "gui/GUI_GridLayout.h"

GUI_GridLayout::GUI_GridLayout()
    : GUI_GridLayout(1, 1)
{}

GUI_GridLayout::GUI_GridLayout(int rows, int columns, int spacing)
    : GUI_LayoutOf(rows, columns)
{
    COM_TYPE(GUI_GridLayout);
    setSpacing(spacing);
}
