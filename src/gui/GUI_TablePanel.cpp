#include "gui/GUI_TablePanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_DimensionBox.h"
#include "gui/GUI_Display.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_RootGridLayout.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_UnknownAction.h"

GUI_TablePanel::GUI_TablePanel(GUI_ParentPanel* parent, bool showDim)
    : GUI_FramePanel(parent)
    , mShowDim(showDim)
{}

GUI_TablePanel::~GUI_TablePanel()
{
    for (GUI_Label*& label : mLabels) {
        dissociate(label);
    }
}

void GUI_TablePanel::initTable(const std::vector<std::string>& dimensions)
{
    const COM_Scoped layout(
        GUI_RootGridLayout::New(*this, 2, 2, GUI_ParentLayout::MARGIN, GUI_ParentLayout::SPACING));
    const COM_Scoped row(GUI_HBoxLayout::New());
    layout->addToChildren(*row, 0, 0);
    mDimensions = dimensions.size();
    for (unsigned long i = 0; mShowDim && i < mDimensions; ++i) {
        const auto flag = static_cast<unsigned char>(COMPO_TABLE + 1 + i);
        associate(mLabels.emplace_back(), GUI_DimensionBox::add(*this, *row, flag, dimensions[i]));
    }
    const COM_Scoped table(GUI_Table::New(this, COMPO_TABLE));
    layout->addToComponents(*table, 1, 0);
}

void GUI_TablePanel::resetTable()
{
    if (GUI_Table* const table = getTable()) {
        const GUI_Display display(*this);
        table->setRowsNumber(0);
    }
}

void GUI_TablePanel::updateValues()
{
    const COM_Guard guard(*this);
    updateTable();
    showDimensions();
    GUI_FramePanel::updateValues();
}

void GUI_TablePanel::componentClicked(GUI_ActionComponent& component)
{
    const COM_Guard guard(*this);
    const unsigned char flag = component.getFlagId();
    if (flag > COMPO_TABLE + mDimensions) {
        GUI_UnknownAction::print(component);
    } else if (flag > COMPO_TABLE) {
        resize();
    } else if (auto* const table = dynamic_cast<GUI_Table*>(&component)) {
        edit(*table);
    }
    updateValues();
}

void GUI_TablePanel::setDimensionLabel(unsigned char flag, const std::string& label)
{
    const unsigned long index = flag - COMPO_TABLE - 1UL;
    if (index < mLabels.size()) {
        mLabels[index]->setLabel(label);
    }
}

void GUI_TablePanel::setColumnsResizabled(bool flag)
{
    if (GUI_Table* const table = getTable()) {
        table->setColumnsResizabled(flag);
    }
}

GUI_Table* GUI_TablePanel::getTable() const
{
    return getMainLayout() != nullptr
               ? dynamic_cast<GUI_Table*>(getMainLayout()->getComponent(COMPO_TABLE))
               : nullptr;
}
