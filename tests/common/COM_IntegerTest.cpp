#include "common/COM_Integer.h"

#include "common/COM_Scoped.h"
#include "support/CaseName.h"
#include "support/Locales.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr long lowest = std::numeric_limits<long>::min();
constexpr long highest = std::numeric_limits<long>::max();

std::string printed(const char* format, long value)
{
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

struct WidthCase
{
    int mWidth;
    long mValue;
    const char* mText;
};

void PrintTo(const WidthCase& row, std::ostream* out)
{
    *out << row.mValue << "In" << row.mWidth;
}

class COM_IntegerWidthTest : public testing::TestWithParam<WidthCase>
{};

struct BaseCase
{
    long mValue;
    const char* mHex;
    const char* mBinary;
};

void PrintTo(const BaseCase& row, std::ostream* out)
{
    *out << row.mHex;
}

class COM_IntegerBaseTest : public testing::TestWithParam<BaseCase>
{};

/// What a reader may meet, and what it makes of it.
struct TextCase
{
    const char* mText;
    long mValue;
};

void PrintTo(const TextCase& row, std::ostream* out)
{
    *out << caseName(row.mText);
}

class COM_IntegerTextTest : public testing::TestWithParam<TextCase>
{};

} // namespace

TEST(COM_Integer, ABoxHoldsItsValue)
{
    const COM_Scoped box(COM_Integer::New(-12));
    EXPECT_EQ(box->getReferenceCount(), 1);
    EXPECT_EQ(box->getInteger(), -12);
    EXPECT_EQ(box->toString(), "-12");
    box->setInteger(highest);
    EXPECT_EQ(box->toString(), "9223372036854775807");
    EXPECT_EQ(box->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Integer"}));
}

TEST(COM_Integer, ANewBoxHoldsZero)
{
    const COM_Scoped box(COM_Integer::New());
    EXPECT_EQ(box->getInteger(), 0);
    EXPECT_EQ(box->toString(), "0");
}

TEST(COM_Integer, TheDecimalTextIsThatOfPrintf)
{
    std::mt19937_64 random(1);
    for (const long value : {0L, 1L, -1L, 9L, 10L, 999999L, 1000000L, -1000000L, lowest, highest}) {
        EXPECT_EQ(COM_Integer::toString(value), printed("%ld", value));
    }
    for (int i = 0; i < 10000; ++i) {
        const long value = static_cast<long>(random()) >> (i % 64);
        ASSERT_EQ(COM_Integer::toString(value), printed("%ld", value));
    }
}

TEST_P(COM_IntegerWidthTest, ZerosStandInFrontUpToTheWidth)
{
    EXPECT_EQ(COM_Integer::toString(GetParam().mWidth, GetParam().mValue), GetParam().mText);
}

INSTANTIATE_TEST_SUITE_P(Table, COM_IntegerWidthTest,
                         testing::Values(WidthCase{2, 7, "07"}, WidthCase{2, 123, "123"},
                                         WidthCase{2, 12, "12"}, WidthCase{5, 0, "00000"},
                                         WidthCase{0, 7, "7"}, WidthCase{-3, 7, "7"},
                                         WidthCase{4, -7, "00-7"}, WidthCase{2, -7, "-7"},
                                         WidthCase{21, lowest, "0-9223372036854775808"}));

TEST(COM_Integer, AWidthBeyondAnyBufferIsPrintedWhole)
{
    EXPECT_EQ(COM_Integer::toString(1000, 1), std::string(999, '0') + "1");
}

TEST_P(COM_IntegerBaseTest, HexadecimalAndBinaryTextsShowTheBits)
{
    EXPECT_EQ(COM_Integer::toHexString(GetParam().mValue), GetParam().mHex);
    EXPECT_EQ(COM_Integer::toBinString(GetParam().mValue), GetParam().mBinary);
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_IntegerBaseTest,
    testing::Values(BaseCase{0, "0", "0"}, BaseCase{1, "1", "1"}, BaseCase{10, "a", "1010"},
                    BaseCase{255, "ff", "11111111"}, BaseCase{4096, "1000", "1000000000000"},
                    BaseCase{-1, "ffffffffffffffff",
                             "1111111111111111111111111111111111111111111111111111111111111111"},
                    BaseCase{-2, "fffffffffffffffe",
                             "1111111111111111111111111111111111111111111111111111111111111110"},
                    BaseCase{highest, "7fffffffffffffff",
                             "111111111111111111111111111111111111111111111111111111111111111"},
                    BaseCase{lowest, "8000000000000000",
                             "1000000000000000000000000000000000000000000000000000000000000000"}));

TEST_P(COM_IntegerTextTest, TextsAreReadAsTheCLibraryReadsThem)
{
    EXPECT_EQ(COM_Integer::parseInt(GetParam().mText), GetParam().mValue);
    EXPECT_EQ(std::strtol(GetParam().mText, nullptr, 10), GetParam().mValue);
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_IntegerTextTest,
    testing::Values(
        TextCase{"", 0}, TextCase{"12", 12}, TextCase{"-12", -12}, TextCase{"+12", 12},
        TextCase{" \t\n\v\f\r12", 12}, TextCase{"0012", 12}, TextCase{"12abc", 12},
        TextCase{"12.9", 12}, TextCase{"1e3", 1}, TextCase{"12]", 12}, TextCase{"abc", 0},
        TextCase{"- 5", 0}, TextCase{"--5", 0}, TextCase{"+-5", 0}, TextCase{"0x10", 0},
        TextCase{"1,234", 1}, TextCase{"1 234", 1}, TextCase{"-", 0}, TextCase{"\240 5", 0},
        TextCase{"9223372036854775807", highest}, TextCase{"9223372036854775808", highest},
        TextCase{"-9223372036854775808", lowest}, TextCase{"-99999999999999999999999", lowest}));

TEST(COM_Integer, ReadingStopsAtAZeroByte)
{
    EXPECT_EQ(COM_Integer::parseInt(std::string("12\0003", 4)), 12);
}

TEST(COM_Integer, EveryNumberComesBackFromItsText)
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 10000; ++i) {
        const long value = static_cast<long>(random()) >> (i % 64);
        ASSERT_EQ(COM_Integer::parseInt(COM_Integer::toString(value)), value);
        ASSERT_EQ(COM_Integer::parseInt(COM_Integer::toString(30, value < 0 ? 0 : value)),
                  value < 0 ? 0 : value);
    }
}

TEST(COM_Integer, OtherBasesAreReadToo)
{
    EXPECT_EQ(COM_Integer::turnIntoPBase("ff", 16), 255);
    EXPECT_EQ(COM_Integer::turnIntoPBase("0xFF", 16), 255);
    EXPECT_EQ(COM_Integer::turnIntoPBase("1012", 2), 5);
    EXPECT_EQ(COM_Integer::turnIntoPBase("-101", 2), -5);
    EXPECT_EQ(COM_Integer::turnIntoPBase("778", 8), 63);
    EXPECT_EQ(COM_Integer::turnIntoPBase("Zz", 36), 35 * 36 + 35);
    EXPECT_EQ(COM_Integer::turnIntoPBase("12", 10), 12);
    EXPECT_EQ(COM_Integer::turnIntoPBase("", 16), 0);
}

TEST(COM_Integer, ABaseThatNoNumberHasGivesZero)
{
    EXPECT_EQ(COM_Integer::turnIntoPBase("11", 1), 0);
    EXPECT_EQ(COM_Integer::turnIntoPBase("11", 37), 0);
    EXPECT_EQ(COM_Integer::turnIntoPBase("11", (1UL << 32) + 10), 0);
}

TEST(COM_Integer, NoLocaleChangesATextOrItsReading)
{
    const CommaLocale locale;
    EXPECT_EQ(COM_Integer::toString(1234567), "1234567");
    EXPECT_EQ(COM_Integer::toString(9, 1234567), "001234567");
    EXPECT_EQ(COM_Integer::parseInt("1.234.567"), 1);
    EXPECT_EQ(COM_Integer::parseInt("1234567"), 1234567);
}
