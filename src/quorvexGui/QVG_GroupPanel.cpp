#include "quorvexGui/QVG_GroupPanel.h"

QVG_GroupPanel::QVG_GroupPanel(GUI_ParentPanel& parent)
    : GUI_FramePanel(parent)
{
    COM_TYPE(QVG_GroupPanel);
}

void QVG_GroupPanel::componentClicked(GUI_ActionComponent& component)
{
    GUI_ParentPanel* const parent = getParent();
    if (parent != nullptr && !parent->isDisplaying()) {
        parent->componentClicked(component);
    }
}
