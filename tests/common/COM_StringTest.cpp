#include "common/COM_String.h"

#include "common/COM_Scoped.h"
#include "support/CaseName.h"

#include <gtest/gtest.h>

#include <complex>
#include <memory>
#include <string>
#include <vector>

namespace {

using Tokens = std::vector<std::string>;

Tokens tokensOf(COM_String& text)
{
    Tokens tokens;
    while (text.hasNextToken()) {
        tokens.push_back(text.nextToken());
    }
    return tokens;
}

struct TokenCase
{
    const char* mText;
    const char* mSeparator;
    Tokens mTokens;
};

void PrintTo(const TokenCase& row, std::ostream* out)
{
    *out << caseName(row.mText) << "At" << caseName(row.mSeparator);
}

class COM_StringTokenTest : public testing::TestWithParam<TokenCase>
{};

} // namespace

TEST(COM_String, ABoxHoldsItsText)
{
    const COM_Scoped text(COM_String::New("one"));
    EXPECT_EQ(text->getReferenceCount(), 1);
    EXPECT_EQ(text->getString(), "one");
    EXPECT_EQ(text->toString(), "one");
    text->setString(std::string("a\0b", 3));
    EXPECT_EQ(text->toString(), std::string("a\0b", 3));
    EXPECT_EQ(text->getTypes(), (std::vector<std::string>{"COM_Object", "COM_String"}));
    EXPECT_EQ(COM_Scoped(COM_String::New())->getString(), "");
}

TEST(COM_String, ACharacterArrayIsACopyOfItsOwn)
{
    const COM_Scoped text(COM_String::New("one"));
    const std::unique_ptr<char[]> copy(text->toCharArray());
    const std::unique_ptr<char[]> empty(COM_String::stringToCharArray(""));
    text->setString("two");
    EXPECT_STREQ(copy.get(), "one");
    EXPECT_STREQ(empty.get(), "");
}

TEST_P(COM_StringTokenTest, ATextIsCutAtEachSeparatorAndEmptyPiecesAreDropped)
{
    const COM_Scoped text(COM_String::New(GetParam().mText));
    text->tokenize(GetParam().mSeparator);
    EXPECT_EQ(text->tokensCount(), GetParam().mTokens.size());
    EXPECT_EQ(tokensOf(*text), GetParam().mTokens);
    EXPECT_EQ(text->getString(), GetParam().mText);
}

INSTANTIATE_TEST_SUITE_P(
    Table, COM_StringTokenTest,
    testing::Values(TokenCase{"a,b,c", ",", {"a", "b", "c"}}, TokenCase{"abc", ",", {"abc"}},
                    TokenCase{"", ",", {}}, TokenCase{"a,,b", ",", {"a", "b"}},
                    TokenCase{",a", ",", {"a"}}, TokenCase{"a,", ",", {"a"}},
                    TokenCase{",,,", ",", {}}, TokenCase{"a b", ",", {"a b"}},
                    TokenCase{" a , b ", ",", {" a ", " b "}},
                    TokenCase{"a::b:c", "::", {"a", "b:c"}}, TokenCase{"a:::b", "::", {"a", ":b"}},
                    TokenCase{"aab", "ab", {"a"}}, TokenCase{"abc", "", {"abc"}},
                    TokenCase{"", "", {}}, TokenCase{"a", "abc", {"a"}}));

TEST(COM_String, BeforeTheFirstCutThereAreNoTokens)
{
    const COM_Scoped text(COM_String::New("a,b"));
    EXPECT_EQ(text->tokensCount(), 0UL);
    EXPECT_FALSE(text->hasNextToken());
    EXPECT_EQ(text->nextToken(), "");
}

TEST(COM_String, BehindTheLastTokenThereAreEmptyTexts)
{
    const COM_Scoped text(COM_String::New("a"));
    text->tokenize(",");
    EXPECT_EQ(text->nextToken(), "a");
    EXPECT_FALSE(text->hasNextToken());
    EXPECT_EQ(text->nextToken(), "");
    EXPECT_EQ(text->nextToken(), "");
    EXPECT_EQ(text->tokensCount(), 1UL);
}

TEST(COM_String, CuttingAgainStartsAfreshWithTheLastSeparator)
{
    const COM_Scoped text(COM_String::New("a-b"));
    text->tokenize("-");
    EXPECT_EQ(text->nextToken(), "a");
    text->setString("x-y-z");
    text->tokenize();
    EXPECT_EQ(tokensOf(*text), (Tokens{"x", "y", "z"}));
    text->tokenize(",");
    EXPECT_EQ(tokensOf(*text), (Tokens{"x-y-z"}));
}

TEST(COM_String, ValuesOfEveryTypeHaveATextByTheRulesOfTheirClass)
{
    EXPECT_EQ(COM_String::toString(static_cast<unsigned char>(200)), "200");
    EXPECT_EQ(COM_String::toString(static_cast<unsigned char>('A')), "65");
    EXPECT_EQ(COM_String::toString('A'), "A");
    EXPECT_EQ(COM_String::toString(0.5), "5.000000e-01");
    EXPECT_EQ(COM_String::toString(12UL), "12");
    EXPECT_EQ(COM_String::toString(-12L), "-12");
    EXPECT_EQ(COM_String::toString(true), "1");
    EXPECT_EQ(COM_String::toString(false), "0");
    EXPECT_EQ(COM_String::toString(std::complex<double>(1.0, 2.0)), "(1.000000e+00,2.000000e+00)");
    EXPECT_EQ(COM_String::toString(std::string("text")), "text");
    EXPECT_EQ(COM_String::toString("text"), "text");
}

TEST(COM_String, UnsignedNumbersPassThroughAsSignedOnes)
{
    EXPECT_EQ(COM_String::toString(~0UL), "-1");
}
