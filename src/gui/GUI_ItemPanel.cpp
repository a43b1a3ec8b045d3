#include "gui/GUI_ItemPanel.h"

#include "gui/GUI_Display.h"

GUI_ItemPanel::GUI_ItemPanel(GUI_ParentPanel* parent)
    : GUI_FramePanel(parent)
{
    COM_TYPE(GUI_ItemPanel);
}

GUI_ItemPanel::GUI_ItemPanel(GUI_ParentPanel& parent)
    : GUI_ItemPanel(&parent)
{}

GUI_ItemPanel::~GUI_ItemPanel()
{
    resetItem();
}

void GUI_ItemPanel::setItem(COM_Object* item)
{
    if (associate(mItem, item) && item != nullptr) {
        const GUI_Display display(*this);
        updateValues();
    }
}

void GUI_ItemPanel::resetItem()
{
    dissociate(mItem);
}
