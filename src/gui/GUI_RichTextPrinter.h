#pragma once

class GUI_ParentWindow;
class QPagedPaintDevice;
class QTextDocument;

/// Prints a text on pages, black, with a margin of two centimetres and the number of the page at its foot.
///
/// The text is laid out anew for the width of the paper, whatever window shows it, and no line is cut between
/// two pages.
class GUI_RichTextPrinter
{
public:
    GUI_RichTextPrinter() = delete;

    /// Asks for the printer before that window, and prints unless the user cancels. `text` is one of the window
    /// or of its panels, which live until the dialog is gone, also when they are closed meanwhile.
    static void print(const QTextDocument& text, GUI_ParentWindow& parent);
    /// The pages that the printer asks for, all of them unless it has ranges. A printer that cannot begin
    /// gets nothing, without a message.
    static void print(const QTextDocument& text, QPagedPaintDevice& printer);
};
