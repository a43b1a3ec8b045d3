// The shipped words against the sources: whatever goes through translate has to be there.
#include "SourceTexts.h"

#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "WordTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << path;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Every source of the program.
std::vector<std::filesystem::path> sources()
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(QUORVEX_SOURCES)) {
        const std::string extension = entry.path().extension();
        if (extension == ".cpp" || extension == ".h" || extension == ".hpp") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

/// True for a text that is given to `translate` as it stands, and for one that a function or the table of a form
/// hands on to it.
bool isTranslated(const SourceText& text)
{
    static const char* const roads[] = {"translate(", "textOf(", "word(", "entry(", ".mLabel="};
    return std::any_of(std::begin(roads), std::end(roads),
                       [&text](const char* road) { return text.follows(road); });
}

/// The texts of a source that are looked up.
std::vector<std::string> translatedTexts(const std::string& source)
{
    std::vector<std::string> result;
    if (source.find("translate") == std::string::npos) {
        return result; // no need to read it closely
    }
    for (const SourceText& text : sourceTexts(source)) {
        if (isTranslated(text)) {
            result.push_back(text.mText);
        }
    }
    return result;
}

bool isGraded(const SourceText& text)
{
    return text.follows("STOPS,") || text.follows("HARMS,") || text.follows("NOTE,");
}

bool isSentence(const std::string& text)
{
    return text.ends_with('.') && text.find(' ') != std::string::npos;
}

class SourceTextsTest : public testing::Test
{
protected:
    bool isKey(const std::string& text) const { return mWords->getWords().get(text) != nullptr; }

private:
    const COM_Scoped<DICO_Dictionary> mWords{
        DICO_Dictionary::New(std::string(QUORVEX_SOURCES "/data/linguist/dictionary.xml"))};
};

} // namespace

TEST_F(SourceTextsTest, LiteralsAreReadAsTheCompilerDoes)
{
    const std::string source =
        "// \"comment\"\n/* translate(\"no\") */\n"
        "a(translate( \"one\"\n  \"two\" // note\n \"three\"), '\"', \"\\\"q\\n\");\n"
        "const int n = 1'000; b('\\\"', \"last\");";
    std::vector<std::string> texts;
    for (const SourceText& text : sourceTexts(source)) {
        texts.push_back(text.mText);
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"onetwothree", "\"q\n", "last"}));
    EXPECT_EQ(translatedTexts(source), std::vector<std::string>{"onetwothree"});
    EXPECT_EQ(translatedTexts("Row row = {.mFlag = 1, .mLabel = \"one\", .mUnit = \"K\"};\n"
                              "show(word(\"two\"), translate(key), \"three\");"),
              (std::vector<std::string>{"one", "two"}));
}

TEST_F(SourceTextsTest, WhatIsTranslatedIsAKey)
{
    const std::vector<std::filesystem::path> paths = sources();
    ASSERT_GE(paths.size(), 100UL);
    unsigned long texts = 0;
    for (const std::filesystem::path& path : paths) {
        for (const std::string& text : translatedTexts(bytesOf(path))) {
            ++texts;
            EXPECT_TRUE(isKey(text)) << path << ": " << text;
        }
    }
    EXPECT_GE(texts, 100UL);
}

// Keys reach the dictionary on many roads: as they stand, from the tables of forms, menus and lists, as labels and
// sentences of findings. On each of them they are literals of a library that shows texts, or of the check.
TEST_F(SourceTextsTest, TheTableHoldsNoWordThatNoSourceUses)
{
    std::set<std::string> literals;
    for (const std::filesystem::path& path : sources()) {
        const std::string directory = path.parent_path().filename();
        if (directory.starts_with("gui") || directory == "quorvexGui" || directory == "quorvexPlot"
            || path.stem() == "QV_ProblemCheck") {
            for (const SourceText& text : sourceTexts(bytesOf(path))) {
                literals.insert(text.mText);
            }
        }
    }
    for (const WordRow& row : wordTable()) {
        EXPECT_TRUE(literals.contains(row.front())) << row.front();
    }
}

TEST_F(SourceTextsTest, FindingsOfTheCheckAreKeys)
{
    unsigned long labels = 0;
    unsigned long sentences = 0;
    for (const SourceText& text :
         sourceTexts(bytesOf(QUORVEX_SOURCES "/quorvex/QV_ProblemCheck.cpp"))) {
        if (isGraded(text)) {
            ++labels;
            EXPECT_TRUE(isKey(text.mText)) << text.mText;
        } else if (isSentence(text.mText)) {
            ++sentences;
            EXPECT_TRUE(isKey(text.mText)) << text.mText;
        }
    }
    EXPECT_GE(labels, 40UL);
    EXPECT_GE(sentences, 40UL);
}
