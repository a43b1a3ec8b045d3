#pragma once
#include "gui/GUI_Switch.h"

#include <QCheckBox>

/// An on/off switch with a tick.
class GUI_CheckBox : public GUI_Switch<QCheckBox>
{
    Q_OBJECT
    COM_CLASS(GUI_CheckBox)
public slots:
    void toDo() override { GUI_Switch::toDo(); }

protected:
    explicit GUI_CheckBox(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_CheckBox(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_CheckBox() override = default;
};
