#include "gui/GUI_CheckBox.h"

#include "common/COM_Integer.h"

GUI_CheckBox::GUI_CheckBox(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_CheckBox);
    connect(this, &QCheckBox::clicked, this, &GUI_CheckBox::toDo);
}

GUI_CheckBox::GUI_CheckBox(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_CheckBox(&panel, flag)
{}

void GUI_CheckBox::setLabel(const std::string& label)
{
    setText(toQString(label));
    setTooltipLabel(label);
}

void GUI_CheckBox::setValue(const std::string& value)
{
    setChecked(COM_Integer::parseInt(value) != 0);
}

std::string GUI_CheckBox::getValue() const
{
    return isChecked() ? "1" : "0";
}
