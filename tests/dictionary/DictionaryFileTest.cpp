// The shipped dictionary.xml against the table that it is made from.
#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "metaModel/MM_Class.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "WordTable.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace {

constexpr const char* file = QUORVEX_SOURCES "/data/linguist/dictionary.xml";
constexpr const char* table = QUORVEX_SOURCES "/data/linguist/words.tsv";

std::string bytesOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << path;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Number of languages in which a word has a text.
unsigned long languagesOf(const DICO_Word& word)
{
    const COM_Scoped node(MM_Class::New());
    word.saveToMetaClass(*node);
    return node->getFromMetaFields("mTranslations")->getCardinality();
}

/// True when makeDictionary takes the table.
bool makesDictionary(const std::string& words, const std::string& dictionary)
{
    const std::string command =
        "'" QUORVEX_MAKE_DICTIONARY "' '" + words + "' '" + dictionary + "' 2>/dev/null";
    return std::system(command.c_str()) == 0;
}

} // namespace

TEST(DictionaryFile, LoadingIsSilent)
{
    EXPECT_EQ(printedBy([] { const COM_Scoped words(DICO_Dictionary::New(std::string(file))); }),
              "");
}

TEST(DictionaryFile, TheFileHoldsTheTableAndNothingMore)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(std::string(file)));
    ASSERT_GE(wordTable().size(), 300UL);
    EXPECT_EQ(dictionary->getWords().size(), wordTable().size());
    for (const WordRow& row : wordTable()) {
        const DICO_Word* const word = dictionary->getWords().get(row.front());
        ASSERT_NE(word, nullptr) << row.front();
        EXPECT_EQ(languagesOf(*word), row.size()) << row.front();
        for (std::size_t lang = 0; lang < row.size(); ++lang) {
            EXPECT_EQ(word->getTranslation(DICO_Dictionary::STRING_LANGS[lang]), row[lang]);
        }
    }
}

TEST(DictionaryFile, EveryKeyIsFoundInEveryLanguageThatCanBeSelected)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(std::string(file), DICO_Dictionary::LANG_FR));
    for (const WordRow& row : wordTable()) {
        EXPECT_EQ(dictionary->translate(row.front()), row[DICO_Dictionary::LANG_FR]);
    }
    for (unsigned char lang = 0; lang < std::size(DICO_Dictionary::STRING_LANGS); ++lang) {
        dictionary->setLang(lang);
        for (const WordRow& row : wordTable()) {
            EXPECT_EQ(dictionary->translate(row.front()), row[dictionary->getLang()]);
        }
    }
}

TEST(DictionaryFile, TheGeneratorMakesTheseBytes)
{
    const TestDirectory directory;
    ASSERT_TRUE(makesDictionary(table, directory.file("dictionary.xml")));
    // Not EXPECT_EQ: it would print both.
    EXPECT_TRUE(directory.read("dictionary.xml") == bytesOf(file))
        << "renew dictionary.xml: cmake --build BUILD --target dictionary_xml";
}

TEST(DictionaryFile, TheGeneratorRefusesATableThatIsNotInOrder)
{
    const TestDirectory directory;
    const std::string row = "Yes\tOui\tJa\tS\xc3\xad\t\xe6\x98\xaf\tS\xc3\xac\n";
    const std::string dictionary = directory.file("dictionary.xml");
    EXPECT_TRUE(makesDictionary(directory.write("words.tsv", row), dictionary));
    for (const std::string& wrong :
         {row + row, row + "No\tNon\n", row + "No\tNon\tNein\t\tb\tc\n",
          row + "a\"b\tNon\tNein\ta\tb\tc\n", row + "No\t</b>\tNein\ta\tb\tc\n",
          row + "No\tNon\tNein\ta\tb\tc\td\n"}) {
        EXPECT_FALSE(makesDictionary(directory.write("words.tsv", wrong), dictionary)) << wrong;
    }
    EXPECT_FALSE(makesDictionary(directory.file("none.tsv"), dictionary));
    EXPECT_FALSE(makesDictionary(directory.write("words.tsv", row), directory.file("a/b.xml")));
}
