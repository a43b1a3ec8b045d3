#include "common/COM_Color.h"

#include "common/COM_Scoped.h"
#include "support/CaseName.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using Parts = std::vector<int>;

/// Red, green, blue, alpha.
Parts partsOf(const COM_Color& color)
{
    return {color.getRed(), color.getGreen(), color.getBlue(), color.getAlpha()};
}

const std::string outside = "COLOR ERROR:Color parameter outside of expected range:";

struct RangeCase
{
    Parts mGiven;
    const char* mNames;
    Parts mHeld;
};

void PrintTo(const RangeCase& row, std::ostream* out)
{
    *out << (row.mNames == nullptr ? "None" : caseName(row.mNames));
}

class COM_ColorRangeTest : public testing::TestWithParam<RangeCase>
{};

struct ShadeCase
{
    Parts mColor;
    Parts mBrighter;
    Parts mDarker;
};

void PrintTo(const ShadeCase& row, std::ostream* out)
{
    *out << row.mColor[0] << "And" << row.mColor[1] << "And" << row.mColor[2];
}

class COM_ColorShadeTest : public testing::TestWithParam<ShadeCase>
{};

struct TextCase
{
    const char* mText;
    Parts mParts;
};

void PrintTo(const TextCase& row, std::ostream* out)
{
    *out << caseName(row.mText);
}

class COM_ColorTextTest : public testing::TestWithParam<TextCase>
{};

} // namespace

TEST(COM_Color, ThreePartsMakeAnOpaqueColor)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    EXPECT_EQ(color->getReferenceCount(), 1);
    EXPECT_EQ(partsOf(*color), (Parts{1, 2, 3, 255}));
    EXPECT_EQ(static_cast<unsigned>(color->getRGB()), 0xFF010203U);
    EXPECT_EQ(color->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Color"}));
}

TEST(COM_Color, TheFourthPartIsAlpha)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3, 4));
    EXPECT_EQ(partsOf(*color), (Parts{1, 2, 3, 4}));
    EXPECT_EQ(color->getRGB(), 0x04010203);
}

TEST(COM_Color, ANewColorIsOpaqueBlack)
{
    EXPECT_EQ(partsOf(*COM_Scoped(COM_Color::New())), (Parts{0, 0, 0, 255}));
}

TEST(COM_Color, AColorFromOneNumberIsOpaqueWhateverItsHighBitsAre)
{
    EXPECT_EQ(partsOf(*COM_Scoped(COM_Color::New(0x00102030))), (Parts{16, 32, 48, 255}));
    EXPECT_EQ(partsOf(*COM_Scoped(COM_Color::New(0x7F102030))), (Parts{16, 32, 48, 255}));
    EXPECT_EQ(partsOf(*COM_Scoped(COM_Color::New(-1))), (Parts{255, 255, 255, 255}));
    EXPECT_EQ(partsOf(*COM_Scoped(COM_Color::New(0))), (Parts{0, 0, 0, 255}));
}

TEST(COM_Color, ACopyHasAllFourParts)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3, 4));
    const COM_Scoped copy(COM_Color::New(*color));
    EXPECT_EQ(partsOf(*copy), (Parts{1, 2, 3, 4}));
    EXPECT_EQ(copy->getReferenceCount(), 1);
    EXPECT_TRUE(copy->isEquals(*color));
    EXPECT_FALSE(copy->isEqualTo(*color));
}

TEST(COM_Color, ThreeHundredIsAnnouncedAndHeldAs44)
{
    testing::internal::CaptureStdout();
    const COM_Scoped color(COM_Color::New(300, 0, 0));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), outside + " Red\n");
    EXPECT_EQ(color->getRed(), 44);
}

TEST_P(COM_ColorRangeTest, PartsOutsideAreNamedAndCutToTheirLowBits)
{
    const Parts& given = GetParam().mGiven;
    testing::internal::CaptureStdout();
    const COM_Scoped color(COM_Color::New(given[0], given[1], given[2], given[3]));
    const std::string printed = testing::internal::GetCapturedStdout();
    EXPECT_EQ(printed, GetParam().mNames == nullptr ? "" : outside + GetParam().mNames + "\n");
    EXPECT_EQ(partsOf(*color), GetParam().mHeld);
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_ColorRangeTest,
    testing::Values(RangeCase{{0, 255, 0, 255}, nullptr, {0, 255, 0, 255}},
                    RangeCase{{0, 256, 0, 255}, " Green", {0, 0, 0, 255}},
                    RangeCase{{0, 0, -1, 255}, " Blue", {0, 0, 255, 255}},
                    RangeCase{{0, 0, 0, 1000}, " Alpha", {0, 0, 0, 232}},
                    RangeCase{{-1, 256, -256, 256}, " Alpha Red Green Blue", {255, 0, 0, 0}},
                    RangeCase{{512, 3, 257, 7}, " Red Blue", {0, 3, 1, 7}}));

TEST(COM_Color, NewPartsReplaceTheOldOnesAndAreOpaque)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3, 4));
    color->setColor(5, 6, 7);
    EXPECT_EQ(partsOf(*color), (Parts{5, 6, 7, 255}));
    EXPECT_EQ(printedBy([&color] { color->setColor(0, 0, 300); }), outside + " Blue\n");
    EXPECT_EQ(partsOf(*color), (Parts{0, 0, 44, 255}));
}

TEST(COM_Color, AnotherColorsValueIsTakenWhole)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    const COM_Scoped other(COM_Color::New(5, 6, 7, 8));
    color->setColor(*other);
    EXPECT_EQ(partsOf(*color), (Parts{5, 6, 7, 8}));
}

TEST(COM_Color, AMixtureTakesTOfTheFirstColorAndTheRestOfTheSecond)
{
    const COM_Scoped color(COM_Color::New());
    const COM_Scoped one(COM_Color::New(200, 100, 0, 40));
    const COM_Scoped other(COM_Color::New(100, 200, 50, 80));
    color->setColor(*one, *other, 1.0F);
    EXPECT_EQ(partsOf(*color), (Parts{200, 100, 0, 40}));
    color->setColor(*one, *other, 0.0F);
    EXPECT_EQ(partsOf(*color), (Parts{100, 200, 50, 80}));
    color->setColor(*one, *other, 0.25F);
    EXPECT_EQ(partsOf(*color), (Parts{125, 175, 37, 70}));
}

TEST(COM_Color, AMixtureBeyondItsTwoColorsIsAnnounced)
{
    const COM_Scoped color(COM_Color::New());
    const COM_Scoped one(COM_Color::New(200, 0, 0));
    const COM_Scoped other(COM_Color::New(100, 0, 0));
    EXPECT_EQ(printedBy([&] { color->setColor(*one, *other, 2.0F); }), outside + " Red\n");
    EXPECT_EQ(color->getRed(), 300 - 256);
}

TEST(COM_Color, TheTextShowsRedGreenAndBlue)
{
    EXPECT_EQ(COM_Scoped(COM_Color::New(1, 20, 255, 7))->toString(), "Color[1,20,255]");
}

TEST_P(COM_ColorTextTest, ATextIsReadBehindItsFirstBracket)
{
    EXPECT_EQ(partsOf(*COM_Scoped(COM_Color::New(std::string(GetParam().mText)))),
              GetParam().mParts);
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_ColorTextTest,
    testing::Values(TextCase{"Color[1,20,255]", {1, 20, 255, 255}},
                    TextCase{"[ 1, 2,\t3]", {1, 2, 3, 255}}, TextCase{"[1,2,3", {1, 2, 3, 255}},
                    TextCase{"[1,2]", {1, 2, 0, 255}}, TextCase{"[1,,3]", {1, 3, 0, 255}},
                    TextCase{"[", {0, 0, 0, 255}}, TextCase{"[1,2,3,4]", {1, 2, 3, 255}},
                    TextCase{"[x,2,3]", {0, 2, 3, 255}}, TextCase{"Color", {0, 0, 0, 255}},
                    TextCase{"1,2,3]", {0, 0, 0, 255}}, TextCase{"", {0, 0, 0, 255}}));

TEST(COM_Color, EveryColorComesBackFromItsText)
{
    for (int part = 0; part < 256; ++part) {
        const COM_Scoped color(COM_Color::New(part, 255 - part, (part * 7) % 256));
        const COM_Scoped read(COM_Color::New(color->toString()));
        ASSERT_TRUE(read->isEquals(*color)) << color->toString();
    }
}

TEST(COM_Color, ATextWithPartsOutsideIsAnnounced)
{
    const std::string printed = printedBy([] {
        const COM_Scoped color(COM_Color::New("Color[1,300,-1]"));
        EXPECT_EQ(partsOf(*color), (Parts{1, 44, 255, 255}));
    });
    EXPECT_EQ(printed, outside + " Green Blue\n");
}

TEST(COM_Color, TheBytesAreANewArrayOfRedGreenBlue)
{
    const COM_Scoped color(COM_Color::New(1, 128, 255));
    const std::unique_ptr<unsigned char[]> bytes(color->getRGBToArray());
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[1], 128);
    EXPECT_EQ(bytes[2], 255);
}

TEST_P(COM_ColorShadeTest, NeighbouringShadesAreTheFactorApart)
{
    const Parts& parts = GetParam().mColor;
    const COM_Scoped color(COM_Color::New(parts[0], parts[1], parts[2]));
    const COM_Scoped out(COM_Color::New(9, 9, 9, 9));
    color->brighter(*out);
    EXPECT_EQ(partsOf(*out), GetParam().mBrighter);
    color->darker(*out);
    EXPECT_EQ(partsOf(*out), GetParam().mDarker);
    EXPECT_EQ(partsOf(*color), (Parts{parts[0], parts[1], parts[2], 255}));
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_ColorShadeTest,
    testing::Values(ShadeCase{{0, 0, 0}, {3, 3, 3, 255}, {0, 0, 0, 255}},
                    ShadeCase{{1, 2, 3}, {4, 4, 4, 255}, {0, 1, 2, 255}},
                    ShadeCase{{0, 0, 1}, {0, 0, 4, 255}, {0, 0, 0, 255}},
                    ShadeCase{{100, 0, 200}, {142, 0, 255, 255}, {70, 0, 140, 255}},
                    ShadeCase{{255, 179, 178}, {255, 255, 254, 255}, {178, 125, 124, 255}}));

TEST(COM_Color, AShadeMayReplaceTheColorItself)
{
    const COM_Scoped color(COM_Color::New(100, 50, 0));
    color->darker(*color);
    EXPECT_EQ(partsOf(*color), (Parts{70, 35, 0, 255}));
    color->brighter(*color);
    EXPECT_EQ(partsOf(*color), (Parts{100, 50, 0, 255}));
}

TEST(COM_Color, ColorsAreEqualWhenAllFourPartsAre)
{
    const COM_Scoped color(COM_Color::New(1, 2, 3));
    EXPECT_TRUE(color->isEquals(*COM_Scoped(COM_Color::New(1, 2, 3))));
    EXPECT_FALSE(color->isEquals(*COM_Scoped(COM_Color::New(1, 2, 4))));
    EXPECT_FALSE(color->isEquals(*COM_Scoped(COM_Color::New(1, 2, 3, 4))));
}

TEST(COM_Color, TheFactorIsSevenTenths)
{
    EXPECT_EQ(COM_Color::FACTOR, 0.7);
}
