#include "gui2d/GUI2D_RootPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "gui2d/GUI2D_Plotter.h"

GUI2D_RootPanel::GUI2D_RootPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI2D_RootPanel);
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*this));
    const COM_Scoped plotter(GUI2D_Plotter::New(*this));
    layout->addPanel(*plotter);
}

GUI2D_Plotter* GUI2D_RootPanel::getPlotter() const
{
    return dynamic_cast<GUI2D_Plotter*>(getChild(0));
}
