#include "gui2d/GUI2D_Layer.h"

#include "gui2d/GUI2D_Trace.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

QPen penOf(QRgb color)
{
    return {QColor(color), 0};
}

/// Covers a column from one row to another, as far as they are on the picture.
void fillColumn(QImage& picture, int column, int from, int to, QRgb color)
{
    if (column < 0 || column >= picture.width()) {
        return;
    }
    const int first = std::max(std::min(from, to), 0);
    const int last = std::min(std::max(from, to), picture.height() - 1);
    const qsizetype stride = picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    QRgb* pixel = reinterpret_cast<QRgb*>(picture.bits()) + first * stride + column;
    for (int row = first; row <= last; ++row, pixel += stride) {
        *pixel = color;
    }
}

/// A line on the picture from a column to the next.
bool isStep(const QImage& picture, const QLine& line)
{
    return std::abs(line.dx()) == 1 && picture.valid(line.p1()) && picture.valid(line.p2());
}

/// Whether a painter, going `rows` down and one column to the right, reaches that column with its last pixel. It adds
/// up a step of 16 binary places, rounded down, and begins half a step ahead.
bool reachesNextColumn(int rows)
{
    constexpr int one = 1 << 16;
    const int step = one / rows;
    return step / 2 + rows * step >= one;
}

/// A painter puts such a line on its left column, and its end on the right one when it reaches it.
void fillStep(QImage& picture, const QLine& line, QRgb color)
{
    const bool isAscending = line.dx() > 0;
    const QPoint left = isAscending ? line.p1() : line.p2();
    const QPoint right = isAscending ? line.p2() : line.p1();
    const int rows = right.y() - left.y();
    if (rows > 0 && !reachesNextColumn(rows)) {
        fillColumn(picture, left.x(), left.y(), right.y(), color);
        return;
    }
    fillColumn(picture, left.x(), left.y(), right.y() - std::clamp(rows, -1, 1), color);
    fillColumn(picture, right.x(), right.y(), right.y(), color);
}

/// The smallest rectangle with the pixels of all lines.
QRect boundsOf(const std::vector<QLine>& lines)
{
    if (lines.empty()) {
        return {};
    }
    int left = lines.front().x1();
    int right = left;
    int top = lines.front().y1();
    int bottom = top;
    for (const QLine& line : lines) {
        left = std::min({left, line.x1(), line.x2()});
        right = std::max({right, line.x1(), line.x2()});
        top = std::min({top, line.y1(), line.y2()});
        bottom = std::max({bottom, line.y1(), line.y2()});
    }
    return {QPoint(left, top), QPoint(right, bottom)};
}

/// Makes a rectangle of the picture transparent.
void clear(QImage& picture, const QRect& rectangle)
{
    for (int row = rectangle.top(); row <= rectangle.bottom(); ++row) {
        QRgb* const pixels = reinterpret_cast<QRgb*>(picture.scanLine(row)) + rectangle.left();
        std::fill_n(pixels, rectangle.width(), 0U);
    }
}

} // namespace

bool GUI2D_Layer::hasPixels(const QPainter& painter)
{
    const QPaintEngine* const engine = painter.paintEngine();
    return engine != nullptr && engine->type() == QPaintEngine::Raster;
}

void GUI2D_Layer::drawLines(QImage& picture, const std::vector<QLine>& lines, QRgb color)
{
    std::vector<QLine> others;
    for (const QLine& line : lines) {
        if (line.x1() == line.x2()) {
            fillColumn(picture, line.x1(), line.y1(), line.y2(), color);
        } else if (isStep(picture, line)) {
            fillStep(picture, line, color);
        } else {
            others.push_back(line);
        }
    }
    if (!others.empty()) {
        QPainter painter(&picture);
        painter.setPen(penOf(color));
        painter.drawLines(others.data(), static_cast<int>(others.size()));
    }
}

void GUI2D_Layer::paint(QPainter& painter, const GUI2D_Mapping& mapping, const QSize& size,
                        const std::vector<Curve>& curves)
{
    if (hasPixels(painter)) {
        const double ratio = painter.device()->devicePixelRatioF();
        update(mapping.scaled(ratio), (QSizeF(size) * ratio).toSize(), curves);
        mPicture.setDevicePixelRatio(ratio);
        painter.drawImage(QPointF(mCovered.topLeft()) / ratio, mPicture, mCovered);
        mPicture.setDevicePixelRatio(1.0);
        return;
    }
    for (const Curve& curve : curves) {
        const std::vector<QLine>& lines = curve.mTrace->lines(mapping, size.width(), size.height());
        painter.setPen(penOf(curve.mColor));
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    }
}

void GUI2D_Layer::update(const GUI2D_Mapping& mapping, const QSize& size,
                         const std::vector<Curve>& curves)
{
    std::vector<Drawn> wanted;
    wanted.reserve(curves.size());
    for (const Curve& curve : curves) {
        wanted.push_back({curve.mTrace->getId(), curve.mColor});
    }
    if (mPicture.size() == size && mMapping == mapping && mCurves == wanted) {
        return;
    }
    if (mPicture.size() != size) {
        mPicture = QImage(size, QImage::Format_ARGB32_Premultiplied);
        mCovered = mPicture.rect();
    }
    clear(mPicture, mCovered);
    mCovered = {};
    for (const Curve& curve : curves) {
        const std::vector<QLine>& lines = curve.mTrace->lines(mapping, size.width(), size.height());
        drawLines(mPicture, lines, curve.mColor);
        mCovered |= boundsOf(lines);
    }
    mCovered &= mPicture.rect();
    mMapping = mapping;
    mCurves = std::move(wanted);
}
