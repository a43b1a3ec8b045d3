#include "gui2d/GUI2D_LegendWindow.h"

#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_LegendPanel.h"

GUI2D_LegendWindow::GUI2D_LegendWindow(GUI_ParentWindow& parent, bool isContainer)
    : GUI2D_DetailWindow(parent, translate("Legends Window"), isContainer)
{
    COM_TYPE(GUI2D_LegendWindow);
    const COM_Scoped panel(GUI2D_LegendPanel::New(*this));
}
