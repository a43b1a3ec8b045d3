#include "quorvexPlot/PlotOptions.h"

#include "quorvexPlot/PlotError.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Words = std::vector<std::string>;
using Numbers = std::vector<unsigned long>;
using Densities = std::vector<PlotOptions::Density>;

PlotOptions parse(Words words)
{
    words.insert(words.begin(), "quorvex-plot");
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    return PlotOptions::parse(static_cast<int>(words.size()), arguments.data());
}

/// Results and picture are given, and these words.
PlotOptions parseMore(Words words)
{
    words.insert(words.end(), {"run", "-o", "a.png"});
    return parse(words);
}

/// Why the words are refused; empty when they are not.
std::string refusal(const Words& words)
{
    try {
        parse(words);
    } catch (const PlotError& error) {
        return error.what();
    }
    return "";
}

std::string refusalOfMore(Words words)
{
    words.insert(words.end(), {"run", "-o", "a.png"});
    return refusal(words);
}

} // namespace

TEST(PlotOptions, ResultsAndPictureLeaveEverythingElseToItself)
{
    const PlotOptions options = parse({"run", "-o", "a.png"});
    EXPECT_EQ(options.mResults, "run");
    EXPECT_EQ(options.mOutput, "a.png");
    EXPECT_EQ(options.mFormat, "png");
    EXPECT_TRUE(options.mCaptors.empty());
    EXPECT_TRUE(options.isEveryField());
    EXPECT_EQ(options.mWidth, 800);
    EXPECT_EQ(options.mHeight, 500);
    EXPECT_FALSE(options.mTitle.has_value());
    EXPECT_FALSE(options.isTransformed());
    EXPECT_FALSE(options.mIsNormalized);
    EXPECT_FALSE(options.mIsHelp);
    EXPECT_FALSE(options.mIsVersion);
}

TEST(PlotOptions, CaptorsAreAskedForAgainAndAgain)
{
    EXPECT_EQ(parseMore({"--captor", "3", "--captor=1", "--captor=3"}).mCaptors, (Numbers{3, 1}));
    for (const char* text : {"0", "-1", "x", "", "1,2", "99999999999999999999"}) {
        EXPECT_EQ(refusalOfMore({"--captor", text}),
                  "--captor takes a whole number from 1 on, not \"" + std::string(text) + "\"");
    }
}

TEST(PlotOptions, FieldsAreAListOfComponents)
{
    EXPECT_EQ(parseMore({"--field", "Ey"}).mFields, Numbers{1});
    EXPECT_EQ(parseMore({"--field", "Ey,Ex"}).mFields, (Numbers{0, 1}));
    EXPECT_EQ(parseMore({"--field=Ez", "--field=Ex,Ex"}).mFields, (Numbers{0, 2}));
    EXPECT_FALSE(parseMore({"--field", "Ey"}).isEveryField());
    for (const char* text : {"", "ex", "Ex,", ",Ex", "Ex Ey", "Ew"}) {
        EXPECT_EQ(refusalOfMore({"--field", text}),
                  "--field takes Ex, Ey or Ez, joined by commas, not \"" + std::string(text)
                      + "\"");
    }
}

TEST(PlotOptions, DensitiesHaveRowColumnAndSystem)
{
    EXPECT_EQ(parseMore({"--density", "1,0"}).mDensities, (Densities{{1, 0, 0}}));
    EXPECT_EQ(parseMore({"--density=2,3:4", "--density=0,0:0", "--density=2,3:4"}).mDensities,
              (Densities{{2, 3, 4}, {0, 0, 0}}));
    EXPECT_FALSE(parseMore({"--density", "1,0"}).isEveryField());
    for (const char* text : {"", "1", "1,", ",1", "1,1:", "1,1:x", "-1,0", "1,1,1", "1;1"}) {
        EXPECT_EQ(refusalOfMore({"--density", text}),
                  "--density takes I,J or I,J:SYSTEM, each from 0 on, for instance 1,1, not \""
                      + std::string(text) + "\"");
    }
}

TEST(PlotOptions, TheSizeHasBounds)
{
    EXPECT_EQ(parseMore({"--size", "1200x300"}).mWidth, 1200);
    EXPECT_EQ(parseMore({"--size", "1200x300"}).mHeight, 300);
    EXPECT_EQ(parseMore({"--size", "100x8192"}).mHeight, 8192);
    for (const char* text : {"", "800", "x", "800x", "99x500", "500x99", "8193x500", "800x500x1",
                             "800X500", "-800x500", "18446744073709551616x500"}) {
        EXPECT_EQ(refusalOfMore({"--size", text}),
                  "--size takes WIDTHxHEIGHT in pixels, each from 100 to 8192, not \""
                      + std::string(text) + "\"");
    }
}

TEST(PlotOptions, ATitleMayBeEmpty)
{
    EXPECT_EQ(parseMore({"--title", "a b"}).mTitle, "a b");
    EXPECT_EQ(parseMore({"--title="}).mTitle, "");
}

TEST(PlotOptions, LogarithmsAreOfOneOrBothAxes)
{
    const auto axes = [](const char* text) {
        const PlotOptions options = parseMore({"--log", text});
        return std::string(options.mIsLogX ? "x" : "") + (options.mIsLogY ? "y" : "");
    };
    for (const char* text : {"x", "y", "xy"}) {
        EXPECT_EQ(axes(text), text);
        EXPECT_TRUE(parseMore({"--log", text}).isTransformed());
    }
    for (const char* text : {"", "yx", "X", "z"}) {
        EXPECT_EQ(refusalOfMore({"--log", text}),
                  "--log takes x, y or xy, not \"" + std::string(text) + "\"");
    }
}

TEST(PlotOptions, FlagsSetWhatTheyName)
{
    EXPECT_TRUE(parseMore({"--fourier"}).mIsFourier);
    EXPECT_TRUE(parseMore({"--fourier"}).isTransformed());
    EXPECT_TRUE(parseMore({"--normalize"}).mIsNormalized);
    EXPECT_FALSE(parseMore({"--normalize"}).isTransformed());
}

TEST(PlotOptions, FrequenciesHaveNoLogarithm)
{
    EXPECT_TRUE(parseMore({"--fourier", "--log=y"}).mIsLogY);
    for (const char* text : {"x", "xy"}) {
        EXPECT_EQ(refusalOfMore({"--fourier", "--log", text}),
                  "one half of the frequencies of --fourier is negative; --log y is the logarithm "
                  "that goes with it");
    }
}

TEST(PlotOptions, TheFormatIsTheExtensionInSmallLetters)
{
    for (const char* name : {"png", "jpg", "jpeg", "bmp", "gif", "pdf", "svg"}) {
        EXPECT_EQ(parse({"run", "-o", std::string("d.x/a.b.") + name}).mFormat, name);
    }
    EXPECT_EQ(parse({"run", "-o", "A.Gif"}).mFormat, "gif");
    EXPECT_EQ(parse({"run", "-o", "A.PDF"}).mFormat, "pdf");
    for (const char* name : {"a", "a.", "png", ".png", "a.tiff", "a.png/", "a.png~"}) {
        EXPECT_EQ(refusal({"run", "-o", name}),
                  "the name of the picture, " + std::string(name)
                      + ", ends in none of .png, .jpg, .bmp, .gif, .pdf and .svg");
    }
}

TEST(PlotOptions, ResultsAndPictureHaveToBeGiven)
{
    EXPECT_EQ(refusal({"-o", "a.png"}), "no directory of results is given; it takes one");
    EXPECT_EQ(refusal({"", "-o", "a.png"}), "no directory of results is given; it takes one");
    EXPECT_EQ(refusal({"a", "b", "-o", "a.png"}),
              "more than one directory of results is given; it takes one");
    EXPECT_EQ(refusal({"run"}), "no file for the picture is given; -o FILE names it");
    EXPECT_EQ(refusal({"run", "-o", ""}),
              "the option --output needs a value; quorvex-plot --help lists the options");
}

TEST(PlotOptions, UnknownOptionsAreNamed)
{
    EXPECT_EQ(refusalOfMore({"--colour"}),
              "unknown or ambiguous option --colour; quorvex-plot --help lists the options");
    EXPECT_EQ(refusalOfMore({"--fourier=x"}),
              "the option --fourier takes no value; quorvex-plot --help lists the options");
}

TEST(PlotOptions, HelpAndVersionNeedNothingElse)
{
    EXPECT_TRUE(parse({"--help"}).mIsHelp);
    EXPECT_TRUE(parse({"--version", "a", "b"}).mIsVersion);
}
