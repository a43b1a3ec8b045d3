#include "quorvexGui/QVG_CaptorsSelectionPanel.h"

#include "quorvexGui/QVG_Captor.h"
#include "quorvexGui/QVG_CaptorItemPanel.h"

QVG_CaptorsSelectionPanel::QVG_CaptorsSelectionPanel(GUI_ParentPanel& parent)
    : GUI_SelectionPanel(parent)
{
    COM_TYPE(QVG_CaptorsSelectionPanel);
    initComponents(false, false);
}

COM_Object* QVG_CaptorsSelectionPanel::NewItem(std::string& name)
{
    name = translate("Captor") + " " + std::to_string(getObjectsNumber() + 1);
    return QVG_Captor::New();
}

GUI_ItemPanel* QVG_CaptorsSelectionPanel::NewItemPanel()
{
    return QVG_CaptorItemPanel::New(*this);
}
