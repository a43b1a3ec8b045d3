#include "gui/GUI_Message.h"

#include "gui/GUI_Dialog.h"

#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <initializer_list>

namespace {

/// A box with an OK button. What `QMessageBox` gives as its result.
int tell(GUI_ParentWindow* parent, const std::string& title, const std::string& text,
         Qt::TextFormat format)
{
    QMessageBox box(QMessageBox::Information, GUI_Object::toQString(title),
                    GUI_Object::toQString(text), QMessageBox::Ok, GUI_Dialog::parent(parent));
    box.setTextFormat(format);
    return GUI_Dialog::run(box);
}

/// A question with two or three buttons. The place of the one that was pressed; the first is the default,
/// the last the one for Escape.
int ask(GUI_ParentWindow* parent, const std::string& title, const std::string& text,
        std::initializer_list<std::string> buttonTexts)
{
    constexpr std::array standard = {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    QMessageBox box(QMessageBox::Warning, GUI_Object::toQString(title), GUI_Object::toQString(text),
                    QMessageBox::NoButton, GUI_Dialog::parent(parent));
    box.setTextFormat(Qt::PlainText);
    int last = 0;
    for (std::size_t i = 0; i < std::min(buttonTexts.size(), standard.size()); ++i) {
        box.addButton(standard.at(i))->setText(GUI_Object::toQString(buttonTexts.begin()[i]));
        last = static_cast<int>(i);
    }
    box.setDefaultButton(standard[0]);
    box.setEscapeButton(standard.at(last));
    const int pressed = GUI_Dialog::run(box);
    for (int i = 0; i < last; ++i) {
        if (pressed == standard.at(i)) {
            return i;
        }
    }
    return last;
}

} // namespace

GUI_Message::GUI_Message()
{
    COM_TYPE(GUI_Message);
}

int GUI_Message::printMessage(const std::string& title, const std::string& text)
{
    return tell(nullptr, title, text, Qt::PlainText);
}

int GUI_Message::printInformation(const std::string& title, const std::string& text)
{
    return printMessage(title, text);
}

int GUI_Message::printAbout(GUI_ParentWindow* parent, const std::string& title,
                            const std::string& text)
{
    return tell(parent, title, text, Qt::AutoText);
}

int GUI_Message::printWarning(GUI_ParentWindow* parent, const std::string& title,
                              const std::string& text, const std::string& button0Text,
                              const std::string& button1Text)
{
    return ask(parent, title, text, {button0Text, button1Text});
}

int GUI_Message::printWarning(GUI_ParentWindow* parent, const std::string& title,
                              const std::string& text, const std::string& button0Text,
                              const std::string& button1Text, const std::string& button2Text)
{
    return ask(parent, title, text, {button0Text, button1Text, button2Text});
}
