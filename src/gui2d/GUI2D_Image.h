#pragma once
#include <string>

class QByteArray;
class QImage;
class QIODevice;

/// Writes pictures to files, GIF included, for which Qt has a reader alone.
class GUI2D_Image
{
public:
    /// "BMP", "GIF" or "JPG", by what follows the last point of the name: in one of the spellings "gif",
    /// "jpg", "jpeg" or their capitals. Everything else is "BMP".
    static QByteArray formatOf(const std::string& fileName);
    /// The contents of a file in one of these formats; empty when there are none.
    static QByteArray contents(const QImage& image, const QByteArray& format);
    /// Writes the file whole or not at all. False: the file is as it was.
    static bool write(const QImage& image, const std::string& fileName);

private:
    /// Up to 256 colours stay exact.
    static bool writeGif(const QImage& image, QIODevice& device);
};
