#include "gui/GUI_Mnemonic.h"

QString GUI_Mnemonic::text(const QString& label)
{
    const qsizetype mark = label.indexOf('&');
    return mark < 0 ? label : label.left(mark) + label.mid(mark + 1);
}

QString GUI_Mnemonic::letter(const QString& label)
{
    const qsizetype mark = label.indexOf('&');
    if (mark < 0 || mark + 1 >= label.size()) {
        return {};
    }
    // Characters beyond the basic plane take two units.
    return label.mid(mark + 1, label.at(mark + 1).isHighSurrogate() ? 2 : 1);
}

QKeySequence GUI_Mnemonic::shortcut(const QString& label)
{
    const QString marked = letter(label);
    return marked.isEmpty() ? QKeySequence() : QKeySequence("Ctrl+" + marked);
}
