#include "gui/GUI_RadioButton.h"

#include "common/COM_Integer.h"

GUI_RadioButton::GUI_RadioButton(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_RadioButton);
    // Otherwise a button that is alone in its panel could not be switched off.
    setAutoExclusive(false);
    connect(this, &QRadioButton::clicked, this, &GUI_RadioButton::toDo);
}

GUI_RadioButton::GUI_RadioButton(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_RadioButton(&panel, flag)
{}

void GUI_RadioButton::setLabel(const std::string& label)
{
    setText(toQString(label));
    setTooltipLabel(label);
}

void GUI_RadioButton::setValue(const std::string& value)
{
    setChecked(COM_Integer::parseInt(value) != 0);
}

std::string GUI_RadioButton::getValue() const
{
    return isChecked() ? "1" : "0";
}
