#pragma once
#include "common/COM_Integer.h"
#include "gui/GUI_Widget.h"

#include <string>

/// An on/off switch with a text beside it, over one of Qt's button classes.
template <typename Button>
class GUI_Switch : public GUI_Widget<Button>
{
public:
    /// The text, and the tool tip without its first "&".
    void setLabel(const std::string& label)
    {
        Button::setText(GUI_Object::toQString(label));
        this->setTooltipLabel(label);
    }

    /// On if the number that `value` begins with is not 0.
    void setValue(const std::string& value) override
    {
        Button::setChecked(COM_Integer::parseInt(value) != 0);
    }
    /// "1" or "0".
    std::string getValue() const override { return Button::isChecked() ? "1" : "0"; }

protected:
    GUI_Switch(GUI_ParentPanel* panel, const unsigned char& flag)
        : GUI_Widget<Button>(panel, flag)
    {}
    ~GUI_Switch() override = default;
};
