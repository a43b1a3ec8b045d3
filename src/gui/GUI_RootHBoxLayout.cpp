#include "gui/GUI_RootHBoxLayout.h"

GUI_RootHBoxLayout::GUI_RootHBoxLayout()
{
    COM_TYPE(GUI_RootHBoxLayout);
}

GUI_RootHBoxLayout::GUI_RootHBoxLayout(GUI_ParentPanel& panel)
    : GUI_RootHBoxLayout()
{
    install(panel, 0);
}
