#include "gui/GUI_RootVBoxLayout.h"

GUI_RootVBoxLayout::GUI_RootVBoxLayout()
{
    COM_TYPE(GUI_RootVBoxLayout);
}

GUI_RootVBoxLayout::GUI_RootVBoxLayout(GUI_ParentPanel& panel)
    : GUI_RootVBoxLayout(panel, 0, -1)
{}

GUI_RootVBoxLayout::GUI_RootVBoxLayout(GUI_ParentPanel& panel, int margin, int spacing)
    : GUI_RootVBoxLayout()
{
    install(panel, margin);
    setSpacing(spacing);
}
