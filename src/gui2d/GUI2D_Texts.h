#pragma once
#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QList>
#include <QString>

class QPainter;

/// The texts of a panel, each laid out once: a redraw writes the same numbers and labels again, and laying them
/// out takes longer than drawing them.
class GUI2D_Texts
{
public:
    /// How far a text in that font moves the pen, in pixels, as `QFontMetrics::horizontalAdvance` gives it.
    int getWidth(const QFont& font, const QString& text);
    /// Draws a text from `x` on, `y` being its baseline, in the painter's font, exactly as
    /// `QPainter::drawText` does. A device without pixels, such as a printer, gets the text itself.
    void draw(QPainter& painter, int x, int y, const QString& text);

private:
    struct Text
    {
        QList<QGlyphRun> mGlyphs; ///< Placed from the pen on the baseline.
        int mWidth = 0;
    };
    /// Lays the text out, unless it is.
    const Text& find(const QFont& font, const QString& text);

    QFont mFont; ///< Of all of them.
    QHash<QString, Text> mTexts;
};
