#include "gui/GUI_SelectionPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_ItemPanel.h"
#include "gui/GUI_ListPanel.h"
#include "gui/GUI_RootHBoxLayout.h"

#include <algorithm>

GUI_SelectionPanel::GUI_SelectionPanel(GUI_ParentPanel* parent)
    : GUI_FramePanel(parent)
    , mObjects(COM_Map<std::string, COM_Object>::New())
{
    COM_TYPE(GUI_SelectionPanel);
}

GUI_SelectionPanel::GUI_SelectionPanel(GUI_ParentPanel& parent)
    : GUI_SelectionPanel(&parent)
{}

GUI_SelectionPanel::~GUI_SelectionPanel()
{
    mObjects->Delete();
}

void GUI_SelectionPanel::initComponents(bool showAdd, bool showDelete)
{
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*this));
    constexpr int margin = GUI_ParentLayout::MARGIN;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(GUI_ParentLayout::SPACING);
    const COM_Scoped listPanel(GUI_ListPanel::New(this, showAdd, showDelete));
    layout->addPanel(*listPanel);
    if (const COM_Scoped itemPanel(NewItemPanel()); itemPanel) {
        layout->addPanel(*itemPanel);
        layout->setStretch(1, 1);
    }
}

void GUI_SelectionPanel::addToItems(COM_Object& object)
{
    addToItems(&object);
}

void GUI_SelectionPanel::addToItems(COM_Object* object)
{
    if (object != nullptr) {
        addToItems(object, object->getIdentityString(), -1);
    }
}

void GUI_SelectionPanel::addToItems(COM_Object& object, const std::string& name)
{
    addToItems(&object, name);
}

void GUI_SelectionPanel::addToItems(COM_Object* object, const std::string& name)
{
    addToItems(object, name, -1);
}

void GUI_SelectionPanel::addToItems(COM_Object* object, const std::string& name, int index)
{
    GUI_ListPanel* const listPanel = getListPanel();
    if (listPanel == nullptr || object == nullptr) {
        return;
    }
    // The list tells where the end is: objects of one name are a single entry of the map.
    const int end = listPanel->getItemsNumber();
    const int place = index < 0 || index > end ? end : index;
    mObjects->put(name, object);
    listPanel->addToList(name, place);
    listPanel->setCurrentIndex(place);
    setSelectedItem(place);
}

void GUI_SelectionPanel::addToItems(COM_Object& object, const std::string& name, int index)
{
    addToItems(&object, name, index);
}

bool GUI_SelectionPanel::removeItem(int index)
{
    const GUI_ListPanel* const listPanel = getListPanel();
    return listPanel != nullptr && listPanel->hasItem(index)
           && mObjects->remove(listPanel->getValue(index));
}

COM_Object* GUI_SelectionPanel::NewItem(std::string& /*name*/)
{
    return nullptr;
}

GUI_ItemPanel* GUI_SelectionPanel::NewItemPanel()
{
    return nullptr;
}

COM_Object* GUI_SelectionPanel::getObject(int index) const
{
    const GUI_ListPanel* const listPanel = getListPanel();
    return listPanel != nullptr && listPanel->hasItem(index)
               ? mObjects->get(listPanel->getValue(index))
               : nullptr;
}

COM_Object* GUI_SelectionPanel::getSelectedObject() const
{
    const GUI_ListPanel* const listPanel = getListPanel();
    return listPanel != nullptr ? getObject(listPanel->getCurrentIndex()) : nullptr;
}

void GUI_SelectionPanel::setSelectedItem(int index)
{
    GUI_ItemPanel* const itemPanel = getItemPanel();
    COM_Object* const object = getObject(index);
    if (itemPanel != nullptr && object != nullptr) {
        itemPanel->setItem(*object);
    }
}

void GUI_SelectionPanel::selectFirst()
{
    GUI_ListPanel* const listPanel = getListPanel();
    if (listPanel != nullptr && getObjectsNumber() > 0) {
        listPanel->setCurrentIndex(0);
        setSelectedItem(0);
    }
}

std::string GUI_SelectionPanel::numberedName(const std::string& kind, unsigned long number,
                                             unsigned long count)
{
    const std::string digits = std::to_string(number);
    const std::size_t width = std::max(std::to_string(count).size(), digits.size());
    return kind + " " + std::string(width - digits.size(), '0') + digits;
}

void GUI_SelectionPanel::sort()
{
    if (GUI_ListPanel* const listPanel = getListPanel()) {
        listPanel->sort();
    }
}

void GUI_SelectionPanel::setEndAdding(bool flag)
{
    if (GUI_ListPanel* const listPanel = getListPanel()) {
        listPanel->setEndAdding(flag);
    }
}

void GUI_SelectionPanel::setDeleteButtonEnabled(bool flag)
{
    if (GUI_ListPanel* const listPanel = getListPanel()) {
        listPanel->setDeleteButtonEnabled(flag);
    }
}

void GUI_SelectionPanel::setAddButtonEnabled(bool flag)
{
    if (GUI_ListPanel* const listPanel = getListPanel()) {
        listPanel->setAddButtonEnabled(flag);
    }
}

GUI_ListPanel* GUI_SelectionPanel::getListPanel() const
{
    return dynamic_cast<GUI_ListPanel*>(getChild(0));
}

GUI_ItemPanel* GUI_SelectionPanel::getItemPanel() const
{
    return dynamic_cast<GUI_ItemPanel*>(getChild(1));
}
