#pragma once
#include "gui/GUI_Widget.h"

#include <QPushButton>

#include <string>

/// A push button. Its value is its text.
class GUI_Button : public GUI_Widget<QPushButton>
{
    Q_OBJECT
    COM_CLASS(GUI_Button)
public:
    /// The text without its first "&"; the letter after that becomes the shortcut Ctrl+letter. A label
    /// without such a letter leaves no shortcut.
    void setLabel(const std::string& label);
    /// Shows the icon of `ICONS_PATH` and that name. A file that can't be read gives an empty icon.
    void setIcon(const std::string& fileName);
    /// A shortcut as text, such as "Ctrl+L"; empty takes it off.
    void setAccelText(const std::string& accelerator);

    void setValue(const std::string& value) override { setLabel(value); }
    std::string getValue() const override;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_Button(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_Button(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_Button() override = default;
};
