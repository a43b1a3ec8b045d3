#pragma once
#include "gui/GUI_Widget.h"

#include <QCheckBox>

#include <string>

/// An on/off switch with a text beside it.
class GUI_CheckBox : public GUI_Widget<QCheckBox>
{
    Q_OBJECT
    COM_CLASS(GUI_CheckBox)
public:
    /// The text, and the tool tip without its first "&".
    void setLabel(const std::string& label);

    /// On if the number that `value` begins with is not 0.
    void setValue(const std::string& value) override;
    /// "1" or "0".
    std::string getValue() const override;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_CheckBox(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_CheckBox(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_CheckBox() override = default;
};
