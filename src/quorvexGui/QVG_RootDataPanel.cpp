#include "quorvexGui/QVG_RootDataPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootHBoxLayout.h"
#include "quorvexGui/QVG_DataPanel.h"

QVG_RootDataPanel::QVG_RootDataPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(QVG_RootDataPanel);
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*this));
    const COM_Scoped pages(QVG_DataPanel::New(*this));
    layout->addPanel(*pages);
}
