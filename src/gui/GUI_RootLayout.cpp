#include "gui/GUI_RootLayout.h"

#include "common/COM_Guard.h"
#include "gui/GUI_ParentPanel.h"

void GUI_RootLayout::setPanel(GUI_ParentPanel& panel)
{
    if (mPanel == &panel) {
        return;
    }
    const COM_Guard guard(*this);
    resetPanel();
    associate(mPanel, &panel);
    panel.setMainLayout(*this);
}

void GUI_RootLayout::setPanel(GUI_ParentPanel* panel)
{
    if (panel != nullptr) {
        setPanel(*panel);
    } else {
        resetPanel();
    }
}

void GUI_RootLayout::resetPanel()
{
    if (mPanel == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentPanel* const panel = mPanel;
    mPanel = nullptr;
    panel->resetMainLayout();
    panel->subReference(this);
}
