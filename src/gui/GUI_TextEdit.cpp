#include "gui/GUI_TextEdit.h"

#include <QKeyEvent>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextFrame>
#include <QTextList>

#include <algorithm>

namespace {

constexpr const char* byteOrderMark = "\xef\xbb\xbf";

/// A property may be there and say what a text without it has.
bool isDefault(int property, const QVariant& value)
{
    switch (property) {
    case QTextFormat::BlockAlignment:
        return (value.toInt() & (Qt::AlignRight | Qt::AlignHCenter | Qt::AlignJustify)) == 0;
    case QTextFormat::FontWeight:
        return value.toInt() == QFont::Normal;
    default:
        break;
    }
    const int type = value.typeId();
    const bool isNumber =
        type == QMetaType::Bool || type == QMetaType::Int || type == QMetaType::Double;
    return isNumber && value.toDouble() == 0.0;
}

bool isPlain(const QTextFormat& format)
{
    const QMap<int, QVariant> properties = format.properties();
    return std::all_of(properties.keyValueBegin(), properties.keyValueEnd(),
                       [](const auto& entry) { return isDefault(entry.first, entry.second); });
}

bool isPlain(const QTextBlock& block)
{
    if (block.textList() != nullptr || !isPlain(block.blockFormat())) {
        return false;
    }
    for (QTextBlock::iterator i = block.begin(); !i.atEnd(); ++i) {
        if (!isPlain(i.fragment().charFormat())) {
            return false;
        }
    }
    return true;
}

bool hasFormats(const QTextDocument& text)
{
    if (!text.rootFrame()->childFrames().empty()
        || !text.metaInformation(QTextDocument::DocumentTitle).isEmpty()) {
        return true;
    }
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        if (!isPlain(block)) {
            return true;
        }
    }
    return false;
}

/// The lines as they are: Qt's own operation would make blanks of those that must not break.
QString plainText(const QTextDocument& text)
{
    QStringList lines;
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        lines.append(block.text().replace(QChar::LineSeparator, '\n'));
    }
    return lines.join('\n');
}

/// True for a text all of whose line ends have two characters.
bool hasLongLineEnds(const std::string& text)
{
    std::size_t end = text.find('\n');
    if (end == std::string::npos) {
        return false;
    }
    for (; end != std::string::npos; end = text.find('\n', end + 1)) {
        if (end == 0 || text[end - 1] != '\r') {
            return false;
        }
    }
    return true;
}

} // namespace

GUI_TextEdit::GUI_TextEdit(GUI_ParentPanel* panel, const unsigned char& flag)
    : GUI_Widget(panel, flag)
{
    initComponents();
}

GUI_TextEdit::GUI_TextEdit(GUI_ParentPanel& panel, const unsigned char& flag)
    : GUI_TextEdit(&panel, flag)
{}

void GUI_TextEdit::initComponents()
{
    COM_TYPE(GUI_TextEdit);
    connect(this, &QTextEdit::textChanged, this, [this] { mIsChanged = true; });
    connect(this, &QTextEdit::textChanged, this, &GUI_TextEdit::toDo);
}

void GUI_TextEdit::setValue(const std::string& value)
{
    clear();
    // A plain text takes the format at the cursor, which outlives the text before.
    setCurrentCharFormat({});
    setText(toQString(value));
    // The former cursor keeps its format, whatever text it now stands in.
    setTextCursor(QTextCursor(document()));
    mValue = value;
    mIsChanged = false;
}

std::string GUI_TextEdit::getValue() const
{
    if (!mIsChanged) {
        return mValue;
    }
    QString text = plainText(*document());
    if (hasFormats(*document()) || Qt::mightBeRichText(text)) {
        return toTString(toHtml());
    }
    if (hasLongLineEnds(mValue)) {
        text.replace("\n", "\r\n");
    }
    return (mValue.starts_with(byteOrderMark) ? byteOrderMark : "") + toTString(text);
}

bool GUI_TextEdit::isModified() const
{
    return document()->isModified();
}

void GUI_TextEdit::setModified(bool flag)
{
    document()->setModified(flag);
}

QTextCharFormat GUI_TextEdit::getShownFormat() const
{
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection()) {
        // A cursor has the format of the character before it.
        cursor.setPosition(cursor.selectionStart() + 1);
        return cursor.charFormat();
    }
    return currentCharFormat();
}

void GUI_TextEdit::keyPressEvent(QKeyEvent* event)
{
    QTextEdit::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        toDo();
    }
}
