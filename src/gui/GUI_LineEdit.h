#pragma once
#include "gui/GUI_Widget.h"

#include <QLineEdit>

#include <string>

/// A field for a line of text. Return reports, and so does leaving the field, whether or not anything was
/// typed.
class GUI_LineEdit : public GUI_Widget<QLineEdit>
{
    Q_OBJECT
    COM_CLASS(GUI_LineEdit)
public:
    /// The first content of the field, which also becomes its tool tip.
    void setLabel(const std::string& label);

    /// Shows the beginning of a text that is too long for the field. The present text is not set again: it
    /// keeps its cursor, its selection and what can be undone.
    void setValue(const std::string& value) override;
    std::string getValue() const override;

public slots:
    void toDo() override { GUI_Widget::toDo(); }

protected:
    explicit GUI_LineEdit(GUI_ParentPanel* panel, const unsigned char& flag = 0);
    explicit GUI_LineEdit(GUI_ParentPanel& panel, const unsigned char& flag = 0);
    ~GUI_LineEdit() override = default;

    void focusOutEvent(QFocusEvent* event) override;
};
