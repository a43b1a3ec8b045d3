#include "gui/GUI_ListPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_ListBox.h"
#include "gui/GUI_RootVBoxLayout.h"
#include "gui/GUI_SelectionPanel.h"
#include "gui/GUI_UnknownAction.h"

GUI_ListPanel::GUI_ListPanel(GUI_ParentPanel* parent, bool showAdd, bool showDelete)
    : GUI_FramePanel(parent)
    , mShowAddAction(showAdd)
    , mShowDeleteAction(showDelete)
{
    COM_TYPE(GUI_ListPanel);
    initComponents();
}

GUI_ListPanel::GUI_ListPanel(GUI_ParentPanel& parent, bool showAdd, bool showDelete)
    : GUI_ListPanel(&parent, showAdd, showDelete)
{}

void GUI_ListPanel::initComponents()
{
    setLabel(translate("Items List"));
    const COM_Scoped layout(
        GUI_RootVBoxLayout::New(*this, GUI_ParentLayout::MARGIN, GUI_ParentLayout::SPACING));
    const COM_Scoped listBox(GUI_ListBox::New(this, COMPO_LIST));
    layout->addToComponents(*listBox);
    const COM_Scoped buttons(GUI_HBoxLayout::New());
    layout->addToChildren(*buttons);
    if (mShowAddAction) {
        const COM_Scoped button(GUI_Button::New(this, COMPO_ADD));
        button->setLabel(translate("Add"));
        buttons->addToComponents(*button);
    }
    if (mShowDeleteAction) {
        const COM_Scoped button(GUI_Button::New(this, COMPO_DELETE));
        button->setLabel(translate("Delete"));
        buttons->addToComponents(*button);
    }
}

void GUI_ListPanel::componentClicked(GUI_ActionComponent& component)
{
    auto* const parent = dynamic_cast<GUI_SelectionPanel*>(getParent());
    if (parent == nullptr || getListBox() == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    switch (component.getFlagId()) {
    case COMPO_LIST:
        parent->setSelectedItem(static_cast<int>(COM_Integer::parseInt(component.getValue())));
        break;
    case COMPO_ADD:
        addItem(*parent);
        break;
    case COMPO_DELETE:
        deleteItem(*parent);
        break;
    default:
        GUI_UnknownAction::print(component);
    }
    QGroupBox::update();
}

void GUI_ListPanel::addItem(GUI_SelectionPanel& parent)
{
    const COM_Guard guard(parent);
    const int index = mEndAdding ? getItemsNumber() : getCurrentIndex() + 1;
    std::string name;
    if (const COM_Scoped object(parent.NewItem(name)); object) {
        parent.addToItems(*object, name, index);
    }
}

void GUI_ListPanel::deleteItem(GUI_SelectionPanel& parent)
{
    const COM_Guard guard(parent);
    const int index = mEndAdding ? getItemsNumber() - 1 : getCurrentIndex();
    if (index >= 0 && parent.removeItem(index)) {
        removeFromList(index);
        setCurrentIndex(index - 1);
        parent.setSelectedItem(index - 1);
    }
}

void GUI_ListPanel::addToList(const std::string& name, int index)
{
    if (GUI_ListBox* const listBox = getListBox()) {
        const GUI_Display display(*this);
        listBox->addToItems(name, index);
    }
}

void GUI_ListPanel::removeFromList(int index)
{
    if (GUI_ListBox* const listBox = getListBox()) {
        const GUI_Display display(*this);
        listBox->removeFromItems(index);
    }
}

std::string GUI_ListPanel::getValue(int index) const
{
    const GUI_ListBox* const listBox = getListBox();
    return listBox != nullptr ? listBox->getItemText(index) : std::string();
}

bool GUI_ListPanel::hasItem(int index) const
{
    return index >= 0 && index < getItemsNumber();
}

int GUI_ListPanel::getItemsNumber() const
{
    const GUI_ListBox* const listBox = getListBox();
    return listBox != nullptr ? listBox->count() : 0;
}

int GUI_ListPanel::getCurrentIndex() const
{
    const GUI_ListBox* const listBox = getListBox();
    return listBox != nullptr ? listBox->getCurrentIndex() : -1;
}

void GUI_ListPanel::setCurrentIndex(int index)
{
    if (GUI_ListBox* const listBox = getListBox()) {
        const GUI_Display display(*this);
        listBox->setValue(COM_Integer::toString(index));
    }
}

void GUI_ListPanel::sort()
{
    if (GUI_ListBox* const listBox = getListBox()) {
        const GUI_Display display(*this);
        listBox->sort();
    }
}

GUI_ListBox* GUI_ListPanel::getListBox() const
{
    return dynamic_cast<GUI_ListBox*>(getComponent(COMPO_LIST));
}
