#include "gui2d/GUI2D_Image.h"

#include "common/COM_FileWriter.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageWriter>

#include <algorithm>
#include <gif_lib.h>
#include <memory>
#include <vector>

namespace {

struct MapDeleter
{
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};

int writeTo(GifFileType* gif, const GifByteType* bytes, int count)
{
    auto* const device = static_cast<QIODevice*>(gif->UserData);
    return static_cast<int>(device->write(reinterpret_cast<const char*>(bytes), count));
}

} // namespace

QByteArray GUI2D_Image::formatOf(const std::string& fileName)
{
    const std::size_t point = fileName.rfind('.');
    const std::string extension = point == std::string::npos ? "" : fileName.substr(point + 1);
    if (extension == "gif" || extension == "GIF") {
        return "GIF";
    }
    if (extension == "jpg" || extension == "JPG" || extension == "jpeg" || extension == "JPEG") {
        return "JPG";
    }
    return "BMP";
}

QByteArray GUI2D_Image::contents(const QImage& image, const QByteArray& format)
{
    if (image.isNull()) {
        return {};
    }
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const bool isEncoded =
        format == "GIF" ? writeGif(image, buffer) : QImageWriter(&buffer, format).write(image);
    return isEncoded ? buffer.data() : QByteArray();
}

bool GUI2D_Image::write(const QImage& image, const std::string& fileName)
{
    const QByteArray bytes = contents(image, formatOf(fileName));
    if (bytes.isEmpty()) {
        return false;
    }
    COM_FileWriter file(fileName);
    file.stream().write(bytes.constData(), bytes.size());
    return file.commit();
}

bool GUI2D_Image::writeGif(const QImage& image, QIODevice& device)
{
    const QImage indexed =
        image.convertToFormat(QImage::Format_RGB32)
            .convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
    const QList<QRgb> colors = indexed.colorTable();
    int size = 2; // the map of the format has a power of 2
    while (size < colors.size()) {
        size *= 2;
    }
    const std::unique_ptr<ColorMapObject, MapDeleter> map(GifMakeMapObject(size, nullptr));
    int error = 0;
    GifFileType* const gif = map != nullptr ? EGifOpen(&device, writeTo, &error) : nullptr;
    if (gif == nullptr) {
        return false;
    }
    for (int i = 0; i < colors.size(); ++i) {
        map->Colors[i] = {static_cast<GifByteType>(qRed(colors[i])),
                          static_cast<GifByteType>(qGreen(colors[i])),
                          static_cast<GifByteType>(qBlue(colors[i]))};
    }
    const int width = indexed.width();
    const int height = indexed.height();
    constexpr int bitsOfColor = 8;
    bool isWritten = EGifPutScreenDesc(gif, width, height, bitsOfColor, 0, map.get()) == GIF_OK
                     && EGifPutImageDesc(gif, 0, 0, width, height, false, nullptr) == GIF_OK;
    std::vector<GifPixelType> line(static_cast<std::size_t>(width));
    for (int y = 0; isWritten && y < height; ++y) {
        // The library takes the line without const.
        std::copy_n(indexed.constScanLine(y), width, line.begin());
        isWritten = EGifPutLine(gif, line.data(), width) == GIF_OK;
    }
    return EGifCloseFile(gif, &error) == GIF_OK && isWritten;
}
