#include "gui/GUI_Button.h"

#include <QIcon>
#include <QImage>
#include <QPixmap>

GUI_Button::GUI_Button(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    COM_TYPE(GUI_Button);
    connect(this, &QPushButton::clicked, this, &GUI_Button::toDo);
}

GUI_Button::GUI_Button(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_Button(&panel, flag)
{}

void GUI_Button::setLabel(const std::string& label)
{
    const QString marked = toQString(label);
    // The shortcut comes last: each new text resets it.
    setText(GUI_Mnemonic::text(marked));
    setShortcut(GUI_Mnemonic::shortcut(marked));
}

void GUI_Button::setIcon(const std::string& fileName)
{
    QPushButton::setIcon(QIcon(QPixmap::fromImage(QImage(toQString(ICONS_PATH + fileName)))));
}

void GUI_Button::setAccelText(const std::string& accelerator)
{
    setShortcut(QKeySequence(toQString(accelerator)));
}

std::string GUI_Button::getValue() const
{
    return toTString(text());
}
