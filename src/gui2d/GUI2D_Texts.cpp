#include "gui2d/GUI2D_Texts.h"

#include "gui2d/GUI2D_Layer.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

namespace {

constexpr qsizetype maxTexts = 1000; ///< Views come and go with their numbers.

} // namespace

int GUI2D_Texts::getWidth(const QFont& font, const QString& text)
{
    return find(font, text).mWidth;
}

void GUI2D_Texts::draw(QPainter& painter, int x, int y, const QString& text)
{
    if (!GUI2D_Layer::hasPixels(painter)) {
        painter.drawText(x, y, text);
        return;
    }
    for (const QGlyphRun& glyphs : find(painter.font(), text).mGlyphs) {
        painter.drawGlyphRun(QPointF(x, y), glyphs);
    }
}

const GUI2D_Texts::Text& GUI2D_Texts::find(const QFont& font, const QString& text)
{
    if (mFont != font || mTexts.size() >= maxTexts) {
        mTexts.clear();
        mFont = font;
    }
    const auto known = mTexts.constFind(text);
    if (known != mTexts.constEnd()) {
        return *known;
    }
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    Text made{layout.glyphRuns(), QFontMetrics(font).horizontalAdvance(text)};
    for (QGlyphRun& glyphs : made.mGlyphs) {
        // The layout counts from its top, the pen from the baseline.
        QList<QPointF> places = glyphs.positions();
        for (QPointF& place : places) {
            place.ry() -= line.ascent();
        }
        glyphs.setPositions(places);
    }
    return *mTexts.insert(text, made);
}
