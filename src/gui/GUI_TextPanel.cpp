#include "gui/GUI_TextPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "gui/GUI_TextEdit.h"

GUI_TextPanel::GUI_TextPanel(GUI_ParentWindow* window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI_TextPanel);
    initComponents();
}

GUI_TextPanel::GUI_TextPanel(GUI_ParentWindow& window)
    : GUI_TextPanel(&window)
{}

void GUI_TextPanel::initComponents()
{
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*this));
    const COM_Scoped text(GUI_TextEdit::New(*this, COMPO_TEXT));
    layout->addToComponents(*text);
}

GUI_TextEdit* GUI_TextPanel::getTextEdit() const
{
    return dynamic_cast<GUI_TextEdit*>(getComponent(COMPO_TEXT));
}
