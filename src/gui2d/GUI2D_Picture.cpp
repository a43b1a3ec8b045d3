#include "gui2d/GUI2D_Picture.h"

#include "gui2d/GUI2D_DrawPanel.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

namespace {

constexpr double pointsPerInch = 72.0;

bool paint(GUI2D_DrawPanel& panel, QPaintDevice& device)
{
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    painter.setFont(panel.font());
    painter.fillRect(panel.rect(), panel.getBackgroundColor());
    panel.drawInPainter(painter);
    return painter.end();
}

// Both have the resolution of the screen, so that a pixel of the panel is a unit of the page and the fonts
// keep their proportions.

bool writePdf(GUI2D_DrawPanel& panel, QIODevice& out)
{
    QPdfWriter writer(&out);
    writer.setResolution(panel.logicalDpiX());
    const QSizeF size = QSizeF(panel.size()) * pointsPerInch / panel.logicalDpiX();
    writer.setPageSize(QPageSize(size, QPageSize::Point, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    writer.setTitle(GUI_Object::toQString(panel.getTitle()));
    return paint(panel, writer);
}

bool writeSvg(GUI2D_DrawPanel& panel, QIODevice& out)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&out);
    generator.setResolution(panel.logicalDpiX());
    generator.setSize(panel.size());
    generator.setViewBox(panel.rect());
    generator.setTitle(GUI_Object::toQString(panel.getTitle()));
    return paint(panel, generator);
}

} // namespace

QImage GUI2D_Picture::image(GUI2D_DrawPanel& panel)
{
    return panel.grab().toImage();
}

QByteArray GUI2D_Picture::file(GUI2D_DrawPanel& panel, const QString& format)
{
    // Margins grow while they are painted: a page takes them from the picture painted before it.
    const QImage picture = image(panel);
    if (picture.isNull()) {
        return {};
    }
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    bool isWritten = false;
    if (format == "pdf") {
        isWritten = writePdf(panel, out);
    } else if (format == "svg") {
        isWritten = writeSvg(panel, out);
    } else if (format == "png") {
        isWritten = picture.save(&out, "PNG");
    }
    return isWritten ? out.data() : QByteArray();
}
