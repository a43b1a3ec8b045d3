#include "gui2d/GUI2D_OptionsWindow.h"

#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_OptionsPanel.h"

GUI2D_OptionsWindow::GUI2D_OptionsWindow(GUI_ParentWindow& parent, bool isContainer)
    : GUI2D_DetailWindow(parent, translate("Plotter Options Window"), isContainer)
{
    COM_TYPE(GUI2D_OptionsWindow);
    const COM_Scoped panel(GUI2D_OptionsPanel::New(*this));
}
