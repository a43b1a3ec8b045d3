#include "gui/GUI_ActionComponent.h"

#include "common/COM_Guard.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_ParentLayout.h"
#include "gui/GUI_ParentPanel.h"
#include "gui/GUI_RootLayout.h"
#include "gui/GUI_ToolBar.h"

void GUI_ActionComponent::toDo()
{
    const GUI_EventScope scope;
    const COM_Guard guard(*this);
    if (getLayout() != nullptr) {
        GUI_RootLayout* const layout = getLayout()->getRoot();
        GUI_ParentPanel* const panel = layout != nullptr ? layout->getPanel() : nullptr;
        if (panel != nullptr && !panel->isDisplaying()) {
            panel->componentClicked(*this);
        }
    }
    if (getTool() != nullptr) {
        getTool()->componentClicked(*this);
    }
}
