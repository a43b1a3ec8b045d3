#include "quorvexPlot/SavedResults.h"
#include "support/ChildProcess.h"
#include "support/RunCall.h"
#include "support/TestDirectory.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

namespace {

using Words = std::vector<std::string>;
using End = RunCall::End;

/// A call that draws, without a word, and the bytes of its picture.
std::string pictureOf(const SavedResults& saved, const std::string& name, const Words& more = {},
                      const std::function<void()>& preparation = {})
{
    Words words{"run", "-o", name};
    words.insert(words.end(), more.begin(), more.end());
    const End end = call(saved.directory(), words, preparation);
    EXPECT_EQ(end.mStatus, 0) << end.mError;
    EXPECT_EQ(end.mOut, "");
    EXPECT_EQ(end.mError, "");
    return saved.directory().read(name);
}

QImage imageOf(const std::string& bytes, const char* format)
{
    QByteArray data = QByteArray::fromStdString(bytes);
    QBuffer buffer(&data);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    const QImage image = reader.read();
    EXPECT_FALSE(image.isNull()) << format << ": " << reader.errorString().toStdString();
    return image.convertToFormat(QImage::Format_RGB32);
}

long countOf(const QImage& image, QRgb color)
{
    long number = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            number += image.pixel(x, y) == color ? 1 : 0;
        }
    }
    return number;
}

constexpr QRgb blue = 0xff5500aa; ///< Of the field at the third of three captors.

} // namespace

// ---------------------------------------------------------------- usage

TEST(PlotProgram, TheVersionIsOneLineOnStandardOutput)
{
    expectVersion(QUORVEX_VERSION);
}

TEST(PlotProgram, TheHelpNamesEveryOptionAndGoesToStandardOutput)
{
    expectHelp("usage: quorvex-plot [OPTIONS] RESULTS -o FILE\n",
               {"-o, --output FILE", "--captor N", "--field LIST", "--density I,J[:SYSTEM]",
                "--size WxH", "--title TEXT", "--log x|y|xy", "--fourier", "--normalize",
                "--version", "--help"});
}

// ---------------------------------------------------------------- pictures

TEST(PlotProgram, PicturesOfPixelsHaveTheFormatOfTheirNames)
{
    const SavedResults saved;
    struct Format
    {
        const char* mName;
        const char* mReader;
        bool mIsExact; ///< Each pixel is that of the PNG.
    };
    const QImage png = imageOf(pictureOf(saved, "a.png"), "png");
    EXPECT_EQ(png.size(), QSize(800, 500));
    EXPECT_GT(countOf(png, qRgb(255, 255, 255)), 200000); // the paper
    EXPECT_GT(countOf(png, blue), 200);
    for (const Format& format : {Format{"a.bmp", "bmp", true}, Format{"a.gif", "gif", false},
                                 Format{"a.jpg", "jpg", false}, Format{"a.jpeg", "jpg", false},
                                 Format{"b.PNG", "png", true}, Format{"b.Gif", "gif", false}}) {
        const QImage image = imageOf(pictureOf(saved, format.mName), format.mReader);
        EXPECT_EQ(image.size(), png.size()) << format.mName;
        if (format.mIsExact) {
            EXPECT_EQ(image, png) << format.mName;
        }
    }
}

TEST(PlotProgram, AnSvgIsDrawnAgainByItsReader)
{
    const SavedResults saved;
    const std::string text = pictureOf(saved, "a.svg", {"--size", "600x300", "--title", "Mine"});
    QSvgRenderer renderer(QByteArray::fromStdString(text));
    ASSERT_TRUE(renderer.isValid());
    EXPECT_EQ(renderer.viewBox(), QRect(0, 0, 600, 300));
    EXPECT_NE(text.find(">Mine<"), std::string::npos);
    EXPECT_NE(text.find("#5500aa"), std::string::npos);
}

TEST(PlotProgram, APdfIsOneWholePage)
{
    const SavedResults saved;
    const std::string text = pictureOf(saved, "a.pdf", {"--size", "960x480"});
    EXPECT_TRUE(text.starts_with("%PDF-1."));
    EXPECT_NE(text.find("%%EOF"), std::string::npos);
    EXPECT_NE(text.find("/Count 1"), std::string::npos);
    EXPECT_NE(text.find("/MediaBox [0 0 720.000000 360.000000]"), std::string::npos);
}

TEST(PlotProgram, TheSizeIsThatOfThePicture)
{
    const SavedResults saved;
    EXPECT_EQ(imageOf(pictureOf(saved, "a.png", {"--size", "1234x321"}), "png").size(),
              QSize(1234, 321));
    EXPECT_EQ(imageOf(pictureOf(saved, "a.png", {"--size=100x100"}), "png").size(),
              QSize(100, 100));
}

TEST(PlotProgram, TheScaleOfADesktopDoesNotCount)
{
    const SavedResults saved;
    const std::string picture = pictureOf(saved, "a.png", {}, [] {
        setenv("QT_SCALE_FACTOR", "2", 1);
        setenv("QT_SCREEN_SCALE_FACTORS", "2", 1);
    });
    EXPECT_EQ(imageOf(picture, "png").size(), QSize(800, 500));
}

TEST(PlotProgram, ThePictureShowsTheChosenCaptorsAlone)
{
    const SavedResults saved;
    const QImage all = imageOf(pictureOf(saved, "a.png"), "png");
    const QImage last = imageOf(pictureOf(saved, "b.png", {"--captor", "3"}), "png");
    EXPECT_GT(countOf(all, blue), 200);
    EXPECT_EQ(countOf(last, blue), 0); // the first one drawn is red
    EXPECT_GT(countOf(last, qRgb(255, 0, 0)), 200);
}

TEST(PlotProgram, EachOptionChangesThePicture)
{
    const SavedResults saved(3, 2, 2);
    const std::string plain = pictureOf(saved, "a.png");
    EXPECT_EQ(pictureOf(saved, "b.png"), plain);
    for (const Words& words : {Words{"--captor=2"},
                               {"--field=Ey"},
                               {"--density=1,1"},
                               {"--size=801x500"},
                               {"--title=Mine"},
                               {"--log=x"},
                               {"--log=y"},
                               {"--fourier"},
                               {"--normalize"}}) {
        EXPECT_NE(pictureOf(saved, "b.png", words), plain) << words[0];
    }
    EXPECT_NE(pictureOf(saved, "b.png", {"--density=1,1:1"}),
              pictureOf(saved, "c.png", {"--density=1,1:0"}));
}

TEST(PlotProgram, APictureThatIsThereIsReplaced)
{
    const SavedResults saved;
    saved.directory().write("a.png", std::string(1000000, 'x'));
    EXPECT_EQ(imageOf(pictureOf(saved, "a.png"), "png").size(), QSize(800, 500));
    EXPECT_EQ(namesIn(saved.directory().path()), (Words{"a.png", "run"}));
}

TEST(PlotProgram, ANoteTellsOfAFileThatEndsBeforeTheOthers)
{
    const SavedResults saved(1);
    saved.write("E_at_10.res", "0 1 \n1 2 \n");
    const End end = call(saved.directory(), {"run", "-o", "a.png"});
    EXPECT_EQ(end.mStatus, 0);
    EXPECT_EQ(end.mError,
              "note: the file run/E_at_10.res holds 2 of 12 steps, and its curves end there\n");
    EXPECT_FALSE(imageOf(saved.directory().read("a.png"), "png").isNull());
}

// ---------------------------------------------------------------- bad usage, bad input, bad places

TEST(PlotProgram, BadUsageAndInputWriteNothing)
{
    const SavedResults saved;
    const SavedResults damaged;
    damaged.remove("E_at_20.res");
    struct Bad
    {
        Words mWords;
        const char* mComplaint;
    };
    for (const Bad& bad :
         {Bad{{"run"}, "no file for the picture is given; -o FILE names it"},
          {{"-o", "a.png"}, "no directory of results is given; it takes one"},
          {{"nowhere", "-o", "a.png"}, "there is no directory nowhere"},
          {{"run", "-o", "a.xyz"},
           "the name of the picture, a.xyz, ends in none of .png, .jpg, .bmp, .gif, .pdf and .svg"},
          {{"run", "-o", "a.png", "--captor=9"},
           "there is no captor 9; the results have captors 1 to 3 (at the nodes 10, 20, 30)"},
          {{"run", "-o", "a.png", "--field=Ey"},
           "the run has saved Ex alone at captor 1, and no Ey"},
          {{"run", "-o", "a.png", "--size=0x0"},
           "--size takes WIDTHxHEIGHT in pixels, each from 100 to 8192, not \"0x0\""},
          {{"run", "-o", "a.png", "--none"},
           "unknown or ambiguous option --none; quorvex-plot --help lists the options"}}) {
        const End end = call(saved.directory(), bad.mWords);
        EXPECT_EQ(end.mStatus, 2) << end.mError;
        EXPECT_EQ(end.mOut, "");
        EXPECT_EQ(end.mComplaint, bad.mComplaint);
    }
    EXPECT_EQ(namesIn(saved.directory().path()), Words{"run"});
    const End end = call(damaged.directory(), {"run", "-o", "a.png"});
    EXPECT_EQ(end.mStatus, 2);
    EXPECT_EQ(end.mComplaint, "the file run/E_at_20.res is missing");
    EXPECT_EQ(namesIn(damaged.directory().path()), Words{"run"});
}

TEST(PlotProgram, ASpectrumOfOneStepIsBadInput)
{
    const SavedResults saved(1, 1, 1, 2, 1);
    const End end = call(saved.directory(), {"run", "-o", "a.png", "--fourier"});
    EXPECT_EQ(end.mStatus, 2);
    EXPECT_EQ(end.mComplaint, "--fourier needs two steps at least, and the run has one");
    EXPECT_EQ(namesIn(saved.directory().path()), Words{"run"});
}

TEST(PlotProgram, APictureThatCannotBeWrittenIsAFailure)
{
    const SavedResults saved;
    std::filesystem::create_directory(saved.directory().path() / "d.png");
    for (const char* name : {"nowhere/a.png", "nowhere/a.gif", "nowhere/a.svg", "d.png"}) {
        const End end = call(saved.directory(), {"run", "-o", name});
        EXPECT_EQ(end.mStatus, 1) << end.mError;
        EXPECT_EQ(end.mComplaint, "the picture " + std::string(name) + " cannot be written");
    }
    EXPECT_EQ(namesIn(saved.directory().path()), (Words{"d.png", "run"}));
}

TEST(PlotProgram, AFullDiskLeavesTheFormerPicture)
{
    const SavedResults saved;
    for (const char* name : {"a.png", "a.bmp", "a.pdf"}) {
        saved.directory().write(name, "former");
        const End end = call(saved.directory(), {"run", "-o", name}, [] {
            const rlimit limit{2048, 2048};
            setrlimit(RLIMIT_FSIZE, &limit);
        });
        EXPECT_EQ(end.mStatus, 1) << end.mError;
        EXPECT_EQ(end.mComplaint, "the picture " + std::string(name) + " cannot be written");
        EXPECT_EQ(saved.directory().read(name), "former");
    }
    EXPECT_EQ(namesIn(saved.directory().path()), (Words{"a.bmp", "a.pdf", "a.png", "run"}));
}
