#include "gui/GUI_ColorButton.h"

#include "common/COM_Guard.h"
#include "gui/GUI_EventScope.h"

#include <QColorDialog>
#include <QPalette>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

GUI_ColorButton::GUI_ColorButton(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Button(panel, flag)
    , mColor(palette().color(QPalette::Button))
{
    COM_TYPE(GUI_ColorButton);
}

GUI_ColorButton::GUI_ColorButton(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_ColorButton(&panel, flag)
{}

GUI_ColorButton::GUI_ColorButton(GUI_ParentPanel* panel, const std::string& label,
                                 const unsigned char& flag)
    : GUI_ColorButton(panel, flag)
{
    setLabel(label);
}

GUI_ColorButton::GUI_ColorButton(GUI_ParentPanel& panel, const std::string& label,
                                 const unsigned char& flag)
    : GUI_ColorButton(&panel, label, flag)
{}

void GUI_ColorButton::setValue(const std::string& value)
{
    setColor(QColor(toQString(value)));
}

std::string GUI_ColorButton::getValue() const
{
    return toTString(mColor.name());
}

void GUI_ColorButton::toDo()
{
    // The window may close while the dialog waits.
    const GUI_EventScope scope;
    const COM_Guard guard(*this);
    setColor(QColorDialog::getColor(mColor, this, QString(), QColorDialog::DontUseNativeDialog));
    GUI_Button::toDo();
}

void GUI_ColorButton::paintEvent(QPaintEvent* /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    painter.fillRect(style()->subElementRect(QStyle::SE_PushButtonContents, &option, this), mColor);
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void GUI_ColorButton::setColor(const QColor& color)
{
    if (!color.isValid()) {
        return;
    }
    mColor = color;
    QPalette colors = palette();
    colors.setColor(QPalette::Button, mColor);
    setPalette(colors);
}
