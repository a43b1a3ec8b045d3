#include "gui/GUI_RootVBoxLayout.h"

GUI_RootVBoxLayout::GUI_RootVBoxLayout()
{
    COM_TYPE(GUI_RootVBoxLayout);
}

GUI_RootVBoxLayout::GUI_RootVBoxLayout(GUI_ParentPanel& panel)
    : GUI_RootVBoxLayout()
{
    install(panel, 0);
}
