#include "gui2d/GUI2D_ToolsWindow.h"

#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_ToolsPanel.h"

GUI2D_ToolsWindow::GUI2D_ToolsWindow(GUI_ParentWindow& parent, bool isContainer)
    : GUI2D_DetailWindow(parent, translate("Tools Window"), isContainer)
{
    COM_TYPE(GUI2D_ToolsWindow);
    const COM_Scoped panel(GUI2D_ToolsPanel::New(*this));
}
