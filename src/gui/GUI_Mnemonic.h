#pragma once
#include <QKeySequence>
#include <QString>

/// Reads the mark of a label: in "&Load File" the letter "L" is marked, and Ctrl+L is its shortcut.
///
/// Only the first "&" is a mark, whatever follows it; it counts in characters, not in bytes.
class GUI_Mnemonic
{
public:
    GUI_Mnemonic() = delete;

    /// The label without its first "&".
    static QString text(const QString& label);
    /// The character after the first "&"; empty when there is none.
    static QString letter(const QString& label);
    /// Ctrl and the marked letter; empty when no letter is marked.
    static QKeySequence shortcut(const QString& label);
};
