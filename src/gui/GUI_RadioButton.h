#pragma once
#include "gui/GUI_Widget.h"

#include <QRadioButton>

#include <string>

/// An on/off switch with the look of a radio button. It switches by itself: others in the same panel keep
/// their state.
class GUI_RadioButton : public GUI_Widget<QRadioButton>
{
    Q_OBJECT
    COM_CLASS(GUI_RadioButton)
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
    explicit GUI_RadioButton(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_RadioButton(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_RadioButton() override = default;
};
