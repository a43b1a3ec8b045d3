#include "gui/GUI_ComboBox.h"

#include "common/COM_Integer.h"
#include "gui/GUI_ToolBar.h"

#include <QLineEdit>

#include <algorithm>

GUI_ComboBox::GUI_ComboBox(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_ComboBox);
    connect(this, &QComboBox::activated, this, &GUI_ComboBox::toDo);
    connect(this, &QComboBox::textActivated, this, &GUI_ComboBox::toDo);
}

GUI_ComboBox::GUI_ComboBox(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_ComboBox(&panel, flag)
{}

GUI_ComboBox::GUI_ComboBox(bool isEditable, GUI_ToolBar& tool, const unsigned char& flag)
    : GUI_ComboBox(nullptr, flag)
{
    setEditable(isEditable);
    setInsertPolicy(QComboBox::NoInsert);
    if (isEditable) {
        connect(lineEdit(), &QLineEdit::returnPressed, this, &GUI_ComboBox::typed);
    }
    setTool(tool);
}

void GUI_ComboBox::setLabel(const std::string& label)
{
    setObjectName(toQString(label));
    setTooltipLabel(label);
}

std::string GUI_ComboBox::getSelectedItemValue() const
{
    return toTString(currentText());
}

void GUI_ComboBox::setValue(const std::string& value)
{
    const long index = std::min<long>(COM_Integer::parseInt(value), count() - 1);
    if (index >= 0) {
        setCurrentIndex(static_cast<int>(index));
    }
}

std::string GUI_ComboBox::getValue() const
{
    return COM_Integer::toString(currentIndex());
}

// Qt activates a text that was typed only if it is one of the items.
void GUI_ComboBox::typed()
{
    if (findText(currentText()) < 0) {
        toDo();
    }
}
