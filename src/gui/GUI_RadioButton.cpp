#include "gui/GUI_RadioButton.h"

GUI_RadioButton::GUI_RadioButton(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Switch(panel, flag)
{
    COM_TYPE(GUI_RadioButton);
    // Otherwise a button that is alone in its panel could not be switched off.
    setAutoExclusive(false);
    connect(this, &QRadioButton::clicked, this, &GUI_RadioButton::toDo);
}

GUI_RadioButton::GUI_RadioButton(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_RadioButton(&panel, flag)
{}
