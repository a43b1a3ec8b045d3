#include "gui/GUI_CheckBox.h"

GUI_CheckBox::GUI_CheckBox(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Switch(panel, flag)
{
    COM_TYPE(GUI_CheckBox);
    connect(this, &QCheckBox::clicked, this, &GUI_CheckBox::toDo);
}

GUI_CheckBox::GUI_CheckBox(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_CheckBox(&panel, flag)
{}
