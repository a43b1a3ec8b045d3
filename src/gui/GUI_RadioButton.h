#pragma once
#include "gui/GUI_Switch.h"

#include <QRadioButton>

/// An on/off switch with the look of a radio button. It switches by itself: others in the same panel keep
/// their state.
class GUI_RadioButton : public GUI_Switch<QRadioButton>
{
    Q_OBJECT
    COM_CLASS(GUI_RadioButton)
public slots:
    void toDo() override { GUI_Switch::toDo(); }

protected:
    explicit GUI_RadioButton(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_RadioButton(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_RadioButton() override = default;
};
