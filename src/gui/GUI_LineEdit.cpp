#include "gui/GUI_LineEdit.h"

#include <QFocusEvent>

GUI_LineEdit::GUI_LineEdit(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_LineEdit);
    connect(this, &QLineEdit::returnPressed, this, &GUI_LineEdit::toDo);
    setLabel("LineEdit");
}

GUI_LineEdit::GUI_LineEdit(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_LineEdit(&panel, flag)
{}

void GUI_LineEdit::setLabel(const std::string& label)
{
    setText(toQString(label));
    setTooltipLabel(label);
}

void GUI_LineEdit::setValue(const std::string& value)
{
    const QString text = toQString(value);
    if (text != QLineEdit::text()) {
        setText(text);
        setCursorPosition(0);
    }
}

std::string GUI_LineEdit::getValue() const
{
    return toTString(text());
}

// The base class is not called: the field keeps painting its selection and its cursor when it is left.
void GUI_LineEdit::focusOutEvent(QFocusEvent* event)
{
    // The field's own menu takes the focus too. The field is not left then, and the panel's answer would
    // clear the selection before "Copy" can take it.
    if (event->reason() != Qt::PopupFocusReason) {
        toDo();
    }
}
