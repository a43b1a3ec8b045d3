#include "gui/GUI_TextWindow.h"

#include "common/COM_FileWriter.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_RichTextPrinter.h"
#include "gui/GUI_TextEdit.h"
#include "gui/GUI_TextPanel.h"

#include <QByteArray>
#include <QCloseEvent>
#include <QFile>

namespace {

constexpr int startWidth = 500;
constexpr int startHeight = 300;

/// Of a text whose bytes may be Latin-1.
std::string toUtf8(const QByteArray& bytes)
{
    return bytes.isValidUtf8() ? bytes.toStdString()
                               : GUI_Object::toTString(QString::fromLatin1(bytes));
}

} // namespace

GUI_TextWindow::GUI_TextWindow(GUI_ParentWindow& parent, bool isEditable, const std::string& name,
                               bool isLoadFileShown, bool isContainer)
    : GUI_ChildWindow(parent, isContainer)
    , mIsEditable(isEditable)
{
    COM_TYPE(GUI_TextWindow);
    initComponents(name, isLoadFileShown);
}

GUI_TextWindow::GUI_TextWindow(GUI_ParentWindow* parent, bool isEditable, const std::string& name,
                               bool isLoadFileShown, bool isContainer)
    : GUI_TextWindow(*parent, isEditable, name, isLoadFileShown, isContainer)
{}

void GUI_TextWindow::initComponents(const std::string& name, bool isLoadFileShown)
{
    setName(translate(name));
    setSavingPath("./");
    setSavingFile("textWindow.txt");
    const COM_Scoped menu(GUI_TextMenu::New(*this, isLoadFileShown));
    const COM_Scoped panel(GUI_TextPanel::New(*this));
    if (!mIsEditable) {
        panel->setEnabled(false);
    }
    const GUI_TextEdit& text = *panel->getTextEdit();
    connect(&text, &QTextEdit::currentCharFormatChanged, this, [this] { showFormats(); });
    connect(&text, &QTextEdit::cursorPositionChanged, this, [this] { showFormats(); });
    connect(&text, &QTextEdit::textChanged, this, [this] { showFormats(); });
    showFormats();
    setFocusProxy(panel->getTextEdit());
    setSize(startWidth, startHeight);
}

GUI_TextEdit* GUI_TextWindow::getTextEdit() const
{
    const auto* const panel = dynamic_cast<const GUI_TextPanel*>(getPanel());
    return panel == nullptr ? nullptr : panel->getTextEdit();
}

GUI_TextEdit* GUI_TextWindow::getEditable() const
{
    return mIsEditable ? getTextEdit() : nullptr;
}

const GUI_TextMenu* GUI_TextWindow::getTextMenu() const
{
    return dynamic_cast<const GUI_TextMenu*>(getMenu());
}

// ---------------------------------------------------------------- the file

void GUI_TextWindow::createFile(const std::string& path, const std::string& file)
{
    GUI_ChildWindow::createFile(path, file);
    if (GUI_TextEdit* const text = getTextEdit()) {
        setText(*text, "");
    }
}

void GUI_TextWindow::load()
{
    GUI_TextEdit* const text = getTextEdit();
    if (text == nullptr) {
        return;
    }
    QFile file(toQString(getSavingPath() + getSavingFile()));
    setText(*text, file.open(QIODevice::ReadOnly) ? toUtf8(file.readAll()) : std::string());
}

void GUI_TextWindow::setText(GUI_TextEdit& text, const std::string& value) const
{
    text.setValue(value);
    // Its own signals come while the cursor is still that of the text before.
    showFormats();
}

void GUI_TextWindow::save() const
{
    GUI_TextEdit* const text = getTextEdit();
    if (text == nullptr) {
        return;
    }
    COM_FileWriter file(getSavingPath() + getSavingFile());
    if (!file.isOpen()) {
        return;
    }
    file.stream() << text->getValue();
    if (file.commit()) {
        text->setModified(false);
    }
}

// ---------------------------------------------------------------- the text

void GUI_TextWindow::undo()
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->undo();
    }
}

void GUI_TextWindow::redo()
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->redo();
    }
}

void GUI_TextWindow::print()
{
    if (const GUI_TextEdit* const text = getTextEdit()) {
        GUI_RichTextPrinter::print(*text->document(), *this);
    }
}

void GUI_TextWindow::cut()
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->cut();
    }
}

void GUI_TextWindow::copy()
{
    if (GUI_TextEdit* const text = getTextEdit()) {
        text->copy();
    }
}

void GUI_TextWindow::paste()
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->paste();
    }
}

void GUI_TextWindow::bold()
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->setFontWeight(isOn(GUI_TextMenu::BOLD) ? QFont::Bold : QFont::Normal);
    }
    showFormats();
}

void GUI_TextWindow::italic()
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->setFontItalic(isOn(GUI_TextMenu::ITALIC));
    }
    showFormats();
}

void GUI_TextWindow::underline()
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->setFontUnderline(isOn(GUI_TextMenu::UNDERLINE));
    }
    showFormats();
}

void GUI_TextWindow::rightAlign()
{
    align(Qt::AlignRight);
}

void GUI_TextWindow::leftAlign()
{
    align(Qt::AlignLeft);
}

void GUI_TextWindow::centerAlign()
{
    align(Qt::AlignHCenter);
}

void GUI_TextWindow::align(Qt::Alignment alignment)
{
    if (GUI_TextEdit* const text = getEditable()) {
        text->setAlignment(alignment);
    }
    // Whatever the click has done to the marks, they end as the text is.
    showFormats();
}

bool GUI_TextWindow::isOn(GUI_TextMenu::Format format) const
{
    const GUI_TextMenu* const menu = getTextMenu();
    return menu != nullptr && menu->isOn(format);
}

void GUI_TextWindow::showFormats() const
{
    const GUI_TextMenu* const menu = getTextMenu();
    const GUI_TextEdit* const text = getTextEdit();
    if (menu != nullptr && text != nullptr) {
        menu->showFormats(*text);
    }
}

// ---------------------------------------------------------------- closing

void GUI_TextWindow::closeEvent(QCloseEvent* event)
{
    const GUI_EventScope scope;
    // A close by the program has released the text before Qt comes here.
    const GUI_TextEdit* const text = getEditable();
    if (text != nullptr && text->isModified() && !isReadyToClose()) {
        event->ignore();
        return;
    }
    GUI_ChildWindow::closeEvent(event);
}

bool GUI_TextWindow::isReadyToClose()
{
    const int answer = GUI_Message::printWarning(
        this, getName(), translate("Do you want to save before closing the text ?"),
        translate("Yes"), translate("No"), translate("Cancel"));
    if (answer == GUI_Message::YES) {
        save();
        const GUI_TextEdit* const text = getTextEdit();
        return text == nullptr || !text->isModified();
    }
    return answer == GUI_Message::NO;
}
