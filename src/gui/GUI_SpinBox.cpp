#include "gui/GUI_SpinBox.h"

#include "common/COM_Integer.h"

#include <algorithm>

GUI_SpinBox::GUI_SpinBox(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_SpinBox);
    // With tracking, the "1" of a "12" being typed would already be a value.
    setKeyboardTracking(false);
    connect(this, &QSpinBox::valueChanged, this, &GUI_SpinBox::toDo);
    connect(this, &QSpinBox::textChanged, this, &GUI_SpinBox::toDo);
}

GUI_SpinBox::GUI_SpinBox(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_SpinBox(&panel, flag)
{}

void GUI_SpinBox::setValue(const std::string& value)
{
    const long low = minimum();
    const long high = maximum();
    QSpinBox::setValue(static_cast<int>(std::clamp(COM_Integer::parseInt(value), low, high)));
}

std::string GUI_SpinBox::getValue() const
{
    return COM_Integer::toString(value());
}
