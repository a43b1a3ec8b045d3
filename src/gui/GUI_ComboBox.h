#pragma once
#include "gui/GUI_Widget.h"

#include <QComboBox>

#include <string>

class GUI_ToolBar;

/// A choice of texts, and of texts typed if it is editable. Each choice of the user is reported twice, a text
/// that he types and that is no item at least once; what code sets is not reported.
class GUI_ComboBox : public GUI_Widget<QComboBox>
{
    Q_OBJECT
    COM_CLASS(GUI_ComboBox)
public:
    /// The name of the object and its tool tip; it doesn't show otherwise.
    void setLabel(const std::string& label);
    /// The text shown: the current item's, or what was typed.
    std::string getSelectedItemValue() const;

    /// Makes the item of that index current; beyond the end the last one, below 0 nothing happens.
    void setValue(const std::string& value) override;
    /// The index of the current item; -1 without one.
    std::string getValue() const override;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_ComboBox(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_ComboBox(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    /// In a tool bar; texts can be typed if `isEditable`.
    GUI_ComboBox(bool isEditable, GUI_ToolBar& tool, const unsigned char& flag);
    ~GUI_ComboBox() override = default;

private:
    void typed();
};
