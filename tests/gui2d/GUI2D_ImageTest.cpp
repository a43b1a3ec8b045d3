#include "gui2d/GUI2D_Image.h"

#include "support/TestDirectory.h"

#include <QImage>
#include <QImageReader>

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

QImage noise(int width, int height, int colors)
{
    std::mt19937 random(7);
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto color = static_cast<unsigned>(random() % static_cast<unsigned>(colors));
            image.setPixel(x, y,
                           qRgb(static_cast<int>(color * 7 % 256), static_cast<int>(color), 255));
        }
    }
    return image;
}

QImage readBack(const TestDirectory& directory, const std::string& name, const char* format)
{
    QImageReader reader(QString::fromStdString(directory.file(name)), format);
    reader.setAutoDetectImageFormat(false);
    const QImage image = reader.read();
    EXPECT_FALSE(image.isNull()) << name << ": " << reader.errorString().toStdString();
    return image.convertToFormat(QImage::Format_RGB32);
}

struct Name
{
    const char* mName;
    const char* mFormat;
    const char* mFirst; ///< First bytes of such a file.
};

void PrintTo(const Name& row, std::ostream* out)
{
    *out << row.mName;
}

class GUI2D_ImageNameTest : public testing::TestWithParam<Name>
{};

} // namespace

TEST_P(GUI2D_ImageNameTest, TheExtensionChoosesTheFormat)
{
    const Name& row = GetParam();
    EXPECT_EQ(GUI2D_Image::formatOf(row.mName).toStdString(), row.mFormat);
    const TestDirectory directory;
    ASSERT_TRUE(GUI2D_Image::write(noise(9, 5, 4), directory.file(row.mName)));
    const std::string first = row.mFirst;
    EXPECT_EQ(directory.read(row.mName).substr(0, first.size()), first);
}

INSTANTIATE_TEST_SUITE_P(
    Table, GUI2D_ImageNameTest,
    testing::Values(Name{"a.bmp", "BMP", "BM"}, Name{"a.BMP", "BMP", "BM"},
                    Name{"a.gif", "GIF", "GIF8"}, Name{"a.GIF", "GIF", "GIF8"},
                    Name{"a.jpeg", "JPG", "\xff\xd8\xff"}, Name{"a.JPEG", "JPG", "\xff\xd8\xff"},
                    Name{"a.jpg", "JPG", "\xff\xd8\xff"}, Name{"a.JPG", "JPG", "\xff\xd8\xff"},
                    Name{"a.Gif", "BMP", "BM"}, Name{"a.png", "BMP", "BM"}, Name{"a.", "BMP", "BM"},
                    Name{"plain", "BMP", "BM"}, Name{"gif", "BMP", "BM"},
                    Name{"a.gif.bmp", "BMP", "BM"}, Name{"a.bmp.gif", "GIF", "GIF8"}));

TEST(GUI2D_Image, UpTo256ColorsComeBackExactly)
{
    const TestDirectory directory;
    for (const int colors : {1, 2, 3, 17, 128, 256}) {
        for (const QSize size : {QSize(1, 1), QSize(37, 11), QSize(301, 200)}) {
            const QImage image = noise(size.width(), size.height(), colors);
            ASSERT_TRUE(GUI2D_Image::write(image, directory.file("a.gif")));
            EXPECT_EQ(readBack(directory, "a.gif", "gif"), image) << colors << " " << size.width();
            ASSERT_TRUE(GUI2D_Image::write(image, directory.file("a.bmp")));
            EXPECT_EQ(readBack(directory, "a.bmp", "bmp"), image) << colors << " " << size.width();
        }
    }
}

TEST(GUI2D_Image, AJpegHasTheSizeOfThePicture)
{
    const TestDirectory directory;
    ASSERT_TRUE(GUI2D_Image::write(noise(40, 30, 8), directory.file("a.jpg")));
    EXPECT_EQ(readBack(directory, "a.jpg", "jpg").size(), QSize(40, 30));
}

TEST(GUI2D_Image, WhatCannotBeWrittenIsFalse)
{
    const TestDirectory directory;
    const QImage image = noise(4, 4, 4);
    for (const char* const name : {"none/a.bmp", "none/a.gif", "none/a.jpg"}) {
        EXPECT_FALSE(GUI2D_Image::write(image, directory.file(name)));
    }
    EXPECT_FALSE(GUI2D_Image::write(image, ""));
    EXPECT_FALSE(GUI2D_Image::write(QImage(), directory.file("a.bmp")));
    EXPECT_FALSE(std::filesystem::exists(directory.file("a.bmp")));
}

TEST(GUI2D_Image, AFullDeviceIsFalse)
{
    const TestDirectory directory;
    for (const char* const name : {"a.bmp", "a.gif", "a.jpg"}) {
        std::filesystem::create_symlink("/dev/full", directory.path() / name);
        EXPECT_FALSE(GUI2D_Image::write(noise(300, 300, 256), directory.file(name))) << name;
        ASSERT_TRUE(std::filesystem::is_character_file("/dev/full"));
    }
}

TEST(GUI2D_Image, AFileThatIsThereIsReplacedWhole)
{
    const TestDirectory directory;
    const std::string name = directory.write("a.gif", std::string(100000, 'x'));
    const QImage image = noise(20, 10, 4);
    ASSERT_TRUE(GUI2D_Image::write(image, name));
    EXPECT_EQ(readBack(directory, "a.gif", "gif"), image);
    EXPECT_LT(directory.read("a.gif").size(), 2000U);
}

TEST(GUI2D_Image, ContentsAreThoseOfTheFile)
{
    const TestDirectory directory;
    const QImage image = noise(20, 10, 4);
    for (const char* const name : {"a.bmp", "a.gif", "a.jpg"}) {
        ASSERT_TRUE(GUI2D_Image::write(image, directory.file(name)));
        EXPECT_EQ(GUI2D_Image::contents(image, GUI2D_Image::formatOf(name)).toStdString(),
                  directory.read(name));
    }
    EXPECT_TRUE(GUI2D_Image::contents(QImage(), "GIF").isEmpty());
    EXPECT_TRUE(GUI2D_Image::contents(image, "none").isEmpty());
}
