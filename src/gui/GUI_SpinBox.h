#pragma once
#include "gui/GUI_Widget.h"

#include <QSpinBox>

#include <string>

/// A field for an integer with arrows. Typed digits count when Return is pressed or the field is left.
/// Each new value is reported twice, as text and as number, also one that code has set.
class GUI_SpinBox : public GUI_Widget<QSpinBox>
{
    Q_OBJECT
    COM_CLASS(GUI_SpinBox)
public:
    /// The number that `value` begins with, 0 if with none, moved into the range of the box.
    void setValue(const std::string& value) override;
    /// Decimal.
    std::string getValue() const override;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_SpinBox(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_SpinBox(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_SpinBox() override = default;
};
