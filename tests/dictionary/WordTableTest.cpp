#include "WordTable.h"

#include "dictionary/DICO_Dictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr std::size_t languages = std::size(DICO_Dictionary::STRING_LANGS);

/// Bytes that follow the first one of a character in UTF-8, or -1 for a byte that begins none.
int followersOf(unsigned char first)
{
    if (first < 0x80) {
        return 0;
    }
    if (first >= 0xc2 && first < 0xe0) {
        return 1;
    }
    if (first >= 0xe0 && first < 0xf0) {
        return 2;
    }
    return first >= 0xf0 && first < 0xf5 ? 3 : -1;
}

bool isUtf8(const std::string& text)
{
    int open = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isFollower = byte >= 0x80 && byte < 0xc0;
        if (isFollower != (open > 0)) {
            return false;
        }
        open = isFollower ? open - 1 : followersOf(byte);
        if (open < 0) {
            return false;
        }
    }
    return open == 0;
}

bool hasControl(const std::string& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

/// The places for numbers in a sentence, "%1" and so on, sorted.
std::vector<char> placesOf(const std::string& text)
{
    std::vector<char> places;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] == '%' && text[i + 1] >= '0' && text[i + 1] <= '9') {
            places.push_back(text[i + 1]);
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

} // namespace

TEST(WordTable, EveryRowHasATextInSixLanguages)
{
    ASSERT_GE(wordTable().size(), 300UL);
    for (const WordRow& row : wordTable()) {
        ASSERT_EQ(row.size(), languages) << row.front();
        for (const std::string& text : row) {
            EXPECT_FALSE(text.empty()) << row.front();
        }
    }
}

TEST(WordTable, NoKeyStandsTwice)
{
    std::set<std::string> keys;
    for (const WordRow& row : wordTable()) {
        EXPECT_TRUE(keys.insert(row.front()).second) << row.front();
    }
}

TEST(WordTable, TextsAreUtf8WithoutControlCharactersOrBlanksAround)
{
    for (const WordRow& row : wordTable()) {
        for (const std::string& text : row) {
            EXPECT_TRUE(isUtf8(text)) << text;
            EXPECT_FALSE(hasControl(text)) << text;
            EXPECT_FALSE(text.starts_with(' ') || text.ends_with(' ')) << text;
        }
    }
}

TEST(WordTable, TextsAreSuchThatAFileCanHoldThem)
{
    for (const WordRow& row : wordTable()) {
        EXPECT_EQ(row.front().find('"'), std::string::npos) << row.front();
        for (const std::string& text : row) {
            EXPECT_EQ(text.find("</"), std::string::npos) << text;
        }
    }
}

TEST(WordTable, AKeyWithAMnemonicHasOneInEveryLanguage)
{
    unsigned long mnemonics = 0;
    for (const WordRow& row : wordTable()) {
        const unsigned long marks = countOf(row.front(), "&");
        mnemonics += marks;
        for (const std::string& text : row) {
            ASSERT_EQ(countOf(text, "&"), marks) << row.front() << ": " << text;
            const char letter = mnemonicOf(text);
            EXPECT_EQ(letter >= 'A' && letter <= 'Z', marks == 1) << row.front() << ": " << text;
        }
    }
    EXPECT_GT(mnemonics, 30UL);
}

// As all Chinese desktops have it: no letter of the key is in the text.
TEST(WordTable, AChineseMnemonicStandsInParenthesesAtTheEnd)
{
    for (const WordRow& row : wordTable()) {
        const std::string& text = row[DICO_Dictionary::LANG_CH];
        if (countOf(text, "&") > 0) {
            EXPECT_EQ(text.substr(text.find('&') - 1, 2), "(&") << text;
            EXPECT_EQ(text.find('&') + 3, text.size()) << text;
            EXPECT_TRUE(text.ends_with(')')) << text;
        }
    }
}

TEST(WordTable, ASentenceHasPlacesForTheSameNumbersInEveryLanguage)
{
    unsigned long sentences = 0;
    for (const WordRow& row : wordTable()) {
        const std::vector<char> places = placesOf(row.front());
        sentences += places.empty() ? 0 : 1;
        for (const std::string& text : row) {
            EXPECT_EQ(placesOf(text), places) << text;
        }
    }
    EXPECT_GT(sentences, 25UL);
}

// The list of curves finds the densities by this word inside a label.
TEST(WordTable, DensitiesAreCalledRhoInEveryLanguage)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        EXPECT_NE(wordIn("Rho Fields", lang).find("Rho"), std::string::npos) << lang;
    }
}

// Curves are normalized by the component that their name contains.
TEST(WordTable, TheWordsBeforeACaptorNameNoComponent)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        const std::string text = wordIn("at Captor", lang);
        ASSERT_NE(text, "");
        for (const char* const component : {"Ex", "Ey", "Ez"}) {
            EXPECT_EQ(text.find(component), std::string::npos) << text;
        }
    }
}

// One dialog serves both and tells from its caption what is asked for.
TEST(WordTable, SavingAndCreatingAProjectHaveCaptionsOfTheirOwn)
{
    for (std::size_t lang = 0; lang < languages; ++lang) {
        EXPECT_NE(wordIn("Save As Project", lang), "");
        EXPECT_NE(wordIn("Save As Project", lang), wordIn("Create a New Project", lang));
    }
}
