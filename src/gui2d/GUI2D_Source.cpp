#include "gui2d/GUI2D_Source.h"

#include "gui/GUI_ChildWindow.h"
#include "gui2d/GUI2D_Plotter.h"
#include "gui2d/GUI2D_Window.h"

GUI2D_DrawPanel* GUI2D_Source::drawPanel(GUI_ParentPanel& panel)
{
    auto* const window = dynamic_cast<GUI_ChildWindow*>(panel.findWindow());
    auto* const parent =
        window == nullptr ? nullptr : dynamic_cast<GUI2D_Window*>(window->getParent());
    return parent == nullptr ? nullptr : parent->getDrawPanel();
}

GUI2D_Plotter* GUI2D_Source::plotter(GUI_ParentPanel& panel)
{
    return dynamic_cast<GUI2D_Plotter*>(drawPanel(panel));
}
