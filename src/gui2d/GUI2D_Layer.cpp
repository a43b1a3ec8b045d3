#include "gui2d/GUI2D_Layer.h"

#include "gui2d/GUI2D_Trace.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPen>

#include <algorithm>
#include <utility>

namespace {

bool hasPixels(const QPainter& painter)
{
    const QPaintEngine* const engine = painter.paintEngine();
    return engine != nullptr && engine->type() == QPaintEngine::Raster;
}

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

} // namespace

void GUI2D_Layer::drawLines(QImage& picture, const std::vector<QLine>& lines, QRgb color)
{
    std::vector<QLine> others;
    for (const QLine& line : lines) {
        if (line.x1() == line.x2()) {
            fillColumn(picture, line.x1(), line.y1(), line.y2(), color);
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
        painter.drawImage(0, 0, mPicture);
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
    }
    mPicture.fill(Qt::transparent);
    for (const Curve& curve : curves) {
        drawLines(mPicture, curve.mTrace->lines(mapping, size.width(), size.height()),
                  curve.mColor);
    }
    mMapping = mapping;
    mCurves = std::move(wanted);
}
