#include "dictionary/DICO_Dictionary.h"

#include "common/COM_Scoped.h"
#include "dictionary/DICO_ClassFactory.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

const std::string frenchFile = "Fichier r\xc3\xa9serv\xc3\xa9";
const std::string chineseFile = "\xe6\x96\x87\xe4\xbb\xb6";

/// A dictionary file with these nodes, the first of which is the root.
std::string fileText(const std::string& nodes)
{
    return "<MM_PACKAGE mRootMetaClassId=\"root\">" + nodes + "</MM_PACKAGE>";
}

std::string nodeText(const std::string& id, const std::string& name, const std::string& fields)
{
    return "<MM_CLASS mId=\"" + id + "\" mName=\"" + name + "\">" + fields + "</MM_CLASS>";
}

std::string fieldText(const std::string& name, const std::string& values)
{
    return "<MM_FIELD mName=\"" + name + "\">" + values + "</MM_FIELD>";
}

std::string valueText(const std::string& key, const std::string& value)
{
    return "<MM_VALUE mKey=\"" + key + "\">" + value + "</MM_VALUE>";
}

const std::string germanLang = fieldText("mLang", "<MM_VALUE>2</MM_VALUE>");
const std::string oneWord = fieldText("mWords", valueText("File", "word"));
const std::string wordNode =
    nodeText("word", "9DICO_Word", fieldText("mTranslations", valueText("French", "Fichier")));

/// The object that the file describes, as a dictionary. The caller releases it.
DICO_Dictionary* objectOf(const std::string& file)
{
    const COM_Scoped factory(DICO_ClassFactory::New());
    return dynamic_cast<DICO_Dictionary*>(factory->load(file));
}

class DICO_DictionaryLangTest : public testing::TestWithParam<std::pair<int, int>>
{};

} // namespace

TEST(DICO_Dictionary, ADictionaryStartsInEnglishAndEmpty)
{
    const COM_Scoped dictionary(DICO_Dictionary::New());
    EXPECT_EQ(dictionary->getReferenceCount(), 1);
    EXPECT_EQ(dictionary->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "DICO_Dictionary"}));
    EXPECT_EQ(dictionary->getLang(), DICO_Dictionary::LANG_EN);
    EXPECT_EQ(dictionary->getWords().size(), 0UL);
    EXPECT_EQ(dictionary->getWords().getReferenceCount(), 1);
    EXPECT_TRUE(dictionary->getWords().isObjectsReferenced());
}

TEST(DICO_Dictionary, LanguagesHaveNumbersAndNames)
{
    const std::vector<std::string> names(std::begin(DICO_Dictionary::STRING_LANGS),
                                         std::end(DICO_Dictionary::STRING_LANGS));
    EXPECT_EQ(names, (std::vector<std::string>{"English", "French", "German", "Spanish", "Chenese",
                                               "Italian"}));
    const std::vector<int> numbers{DICO_Dictionary::LANG_EN, DICO_Dictionary::LANG_FR,
                                   DICO_Dictionary::LANG_GE, DICO_Dictionary::LANG_SP,
                                   DICO_Dictionary::LANG_CH, DICO_Dictionary::LANG_IT};
    EXPECT_EQ(numbers, (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST_P(DICO_DictionaryLangTest, ANumberSelectsALanguage)
{
    const auto lang = static_cast<unsigned char>(GetParam().first);
    const auto selected = static_cast<unsigned char>(GetParam().second);
    for (const unsigned char before : {DICO_Dictionary::LANG_EN, DICO_Dictionary::LANG_IT}) {
        const COM_Scoped dictionary(DICO_Dictionary::New(before));
        dictionary->setLang(lang);
        EXPECT_EQ(dictionary->getLang(), selected);
    }
    const COM_Scoped made(DICO_Dictionary::New(lang));
    EXPECT_EQ(made->getLang(), selected);
}

INSTANTIATE_TEST_SUITE_P(Table, DICO_DictionaryLangTest,
                         testing::Values(std::pair{0, 0}, std::pair{1, 1}, std::pair{2, 2},
                                         std::pair{3, 2}, std::pair{4, 4}, std::pair{5, 5},
                                         std::pair{6, 0}, std::pair{9, 0}, std::pair{255, 0}));

TEST(DICO_Dictionary, ANewWordGetsItsKeyInEnglishAndItsTextInTheCurrentLanguage)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("File", frenchFile);
    ASSERT_NE(dictionary->getWords().get("File"), nullptr);
    const DICO_Word& word = dictionary->getWords()["File"];
    EXPECT_EQ(word.getReferenceCount(), 1);
    EXPECT_EQ(word.getTranslation("English"), "File");
    EXPECT_EQ(word.getTranslation("French"), frenchFile);
    EXPECT_EQ(word.getTranslation("German"), "");
}

TEST(DICO_Dictionary, AKnownWordGetsANewTextInTheCurrentLanguageAlone)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("File", "Dossier");
    const DICO_Word* const word = dictionary->getWords().get("File");
    word->addReference(nullptr);
    dictionary->addWord("File", frenchFile);
    dictionary->setLang(DICO_Dictionary::LANG_GE);
    dictionary->addWord("File", "Datei");
    EXPECT_EQ(dictionary->getWords().get("File"), word);
    EXPECT_EQ(dictionary->getWords().size(), 1UL);
    EXPECT_EQ(word->getTranslation("English"), "File");
    EXPECT_EQ(word->getTranslation("French"), frenchFile);
    EXPECT_EQ(word->getTranslation("German"), "Datei");
    word->Delete();
}

TEST(DICO_Dictionary, InEnglishTheTextTakesThePlaceOfTheKey)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_EN));
    dictionary->addWord("Criterium", "Criterion");
    EXPECT_EQ(dictionary->getWords()["Criterium"].getTranslation("English"), "Criterion");
    EXPECT_EQ(dictionary->translate("Criterium"), "Criterion");
    dictionary->setLang(DICO_Dictionary::LANG_FR);
    EXPECT_EQ(dictionary->translate("Criterium"), "Criterium");
}

TEST(DICO_Dictionary, TranslationFollowsTheLanguage)
{
    const COM_Scoped dictionary(DICO_Dictionary::New());
    const COM_Scoped word(DICO_Word::New());
    for (const char* const lang : DICO_Dictionary::STRING_LANGS) {
        word->setTranslation(lang, std::string("in ") + lang);
    }
    dictionary->getWords().put("key", *word);
    const char* const expected[] = {"in English", "in French",  "in German",
                                    "in German",  "in Chenese", "in Italian"};
    for (unsigned char lang = 0; lang < std::size(expected); ++lang) {
        dictionary->setLang(lang);
        EXPECT_EQ(dictionary->translate("key"), expected[lang]);
    }
}

TEST(DICO_Dictionary, AMissingOrEmptyTranslationFallsBackToTheKey)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    EXPECT_EQ(dictionary->translate("Unknown"), "Unknown");
    EXPECT_EQ(dictionary->translate(""), "");
    dictionary->addWord("File", "");
    EXPECT_EQ(dictionary->translate("File"), "File");
    dictionary->setLang(DICO_Dictionary::LANG_GE);
    EXPECT_EQ(dictionary->translate("File"), "File");
    EXPECT_EQ(dictionary->getWords().size(), 1UL);
}

TEST(DICO_Dictionary, KeysAreComparedByBytes)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("Save As", "Enregistrer sous");
    EXPECT_EQ(dictionary->translate("Save As"), "Enregistrer sous");
    for (const char* const other : {"save as", "Save  As", "Save As ", " Save As", "Save &As"}) {
        EXPECT_EQ(dictionary->translate(other), other);
    }
}

TEST(DICO_Dictionary, WordsAreSharedWithTheOtherHoldersOfTheMap)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("File", "Fichier");
    const COM_Scoped old(&dictionary->getWords());
    old->addReference(nullptr);
    const COM_Scoped words(COM_Map<std::string, DICO_Word>::New());
    dictionary->setWords(*words);
    EXPECT_EQ(&dictionary->getWords(), words.get());
    EXPECT_EQ(words->getReferenceCount(), 2);
    EXPECT_EQ(old->getReferenceCount(), 1);
    EXPECT_EQ(dictionary->translate("File"), "File");
    const COM_Scoped word(DICO_Word::New());
    word->setTranslation("French", "Dossier");
    words->put("File", *word);
    EXPECT_EQ(dictionary->translate("File"), "Dossier");
}

TEST(DICO_Dictionary, TheMapThatIsHeldCanBeSetAgain)
{
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("File", "Fichier");
    dictionary->setWords(dictionary->getWords());
    EXPECT_EQ(dictionary->getWords().getReferenceCount(), 1);
    EXPECT_EQ(dictionary->translate("File"), "Fichier");
}

TEST(DICO_Dictionary, AFileHoldsTheLanguageTheWordsAndANodeForEach)
{
    const TestDirectory directory;
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("&File", "&Fichier");
    dictionary->addWord("Quit", "Quitter");
    const std::string root = dictionary->getIdentityString();
    const std::string file = dictionary->getWords()["&File"].getIdentityString();
    const std::string quit = dictionary->getWords()["Quit"].getIdentityString();
    EXPECT_EQ(printedBy([&] { dictionary->save(directory.file("words.xml")); }), "");
    const std::string start = "\n<MM_PACKAGE mRootMetaClassId=\"" + root + "\">\n\t<MM_CLASS mId=\""
                              + root
                              + "\" mName=\"15DICO_Dictionary\">"
                                "\n\t\t<MM_FIELD mName=\"mLang\">"
                                "\n\t\t\t<MM_VALUE>1</MM_VALUE>\n\t\t</MM_FIELD>"
                                "\n\t\t<MM_FIELD mName=\"mWords\">"
                                "\n\t\t\t<MM_VALUE mKey=\"&File\">"
                              + file + "</MM_VALUE>\n\t\t\t<MM_VALUE mKey=\"Quit\">" + quit
                              + "</MM_VALUE>\n\t\t</MM_FIELD>\n\t</MM_CLASS>";
    const auto word = [](const std::string& id, const char* key, const char* french) {
        return "\n\t<MM_CLASS mId=\"" + id
               + "\" mName=\"9DICO_Word\">\n\t\t<MM_FIELD mName=\"mTranslations\">"
                 "\n\t\t\t<MM_VALUE mKey=\"English\">"
               + key + "</MM_VALUE>\n\t\t\t<MM_VALUE mKey=\"French\">" + french
               + "</MM_VALUE>\n\t\t</MM_FIELD>\n\t</MM_CLASS>";
    };
    const std::string fileNode = word(file, "&File", "&Fichier");
    const std::string quitNode = word(quit, "Quit", "Quitter");
    EXPECT_EQ(directory.read("words.xml"),
              start + (file < quit ? fileNode + quitNode : quitNode + fileNode)
                  + "\n</MM_PACKAGE>");
    EXPECT_EQ(dictionary->getReferenceCount(), 1);
    EXPECT_EQ(dictionary->getWords()["Quit"].getReferenceCount(), 1);
}

TEST(DICO_Dictionary, WordsComeBackFromTheirFileByteForByte)
{
    const TestDirectory directory;
    {
        const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
        dictionary->addWord("&File", frenchFile);
        dictionary->addWord("Latin-1", "\xe9t\xe9");
        dictionary->addWord("a < b & c", "a < b & c > d \"e\"");
        dictionary->setLang(DICO_Dictionary::LANG_CH);
        dictionary->addWord("&File", chineseFile);
        dictionary->save(directory.file("words.xml"));
    }
    const COM_Scoped dictionary(DICO_Dictionary::New());
    EXPECT_EQ(printedBy([&] { dictionary->load(directory.file("words.xml")); }), "");
    EXPECT_EQ(dictionary->getWords().keys(),
              (std::vector<std::string>{"&File", "Latin-1", "a < b & c"}));
    EXPECT_EQ(dictionary->getWords().getReferenceCount(), 1);
    EXPECT_EQ(dictionary->getWords()["&File"].getReferenceCount(), 1);
    EXPECT_EQ(dictionary->getWords()["&File"].getTranslation("English"), "&File");
    dictionary->setLang(DICO_Dictionary::LANG_FR);
    EXPECT_EQ(dictionary->translate("&File"), frenchFile);
    EXPECT_EQ(dictionary->translate("Latin-1"), "\xe9t\xe9");
    EXPECT_EQ(dictionary->translate("a < b & c"), "a < b & c > d \"e\"");
    dictionary->setLang(DICO_Dictionary::LANG_CH);
    EXPECT_EQ(dictionary->translate("&File"), chineseFile);
}

TEST(DICO_Dictionary, LoadingReplacesTheWordsAndLeavesTheLanguage)
{
    const TestDirectory directory;
    const std::string file = directory.write(
        "words.xml",
        fileText(nodeText("root", "15DICO_Dictionary", germanLang + oneWord) + wordNode));
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("Quit", "Quitter");
    EXPECT_EQ(printedBy([&] { dictionary->load(file); }), "");
    EXPECT_EQ(dictionary->getLang(), DICO_Dictionary::LANG_FR);
    EXPECT_EQ(dictionary->getReferenceCount(), 1);
    EXPECT_EQ(dictionary->translate("File"), "Fichier");
    EXPECT_EQ(dictionary->translate("Quit"), "Quit");
    EXPECT_EQ(dictionary->getWords().size(), 1UL);
}

TEST(DICO_Dictionary, ADictionaryCanBeMadeFromAFile)
{
    const TestDirectory directory;
    const std::string file = directory.write(
        "words.xml",
        fileText(nodeText("root", "15DICO_Dictionary", germanLang + oneWord) + wordNode));
    const COM_Scoped english(DICO_Dictionary::New(file));
    EXPECT_EQ(english->getReferenceCount(), 1);
    EXPECT_EQ(english->getLang(), DICO_Dictionary::LANG_EN);
    EXPECT_EQ(english->getWords().size(), 1UL);
    const COM_Scoped french(DICO_Dictionary::New(file, DICO_Dictionary::LANG_FR));
    EXPECT_EQ(french->getLang(), DICO_Dictionary::LANG_FR);
    EXPECT_EQ(french->translate("File"), "Fichier");
    const COM_Scoped spanish(DICO_Dictionary::New(file, DICO_Dictionary::LANG_SP));
    EXPECT_EQ(spanish->getLang(), DICO_Dictionary::LANG_GE);
}

TEST(DICO_Dictionary, AMissingFileIsAnnouncedAndLeavesTheWords)
{
    const TestDirectory directory;
    const std::string file = directory.file("none.xml");
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("File", "Fichier");
    EXPECT_EQ(printedBy([&] { dictionary->load(file); }),
              "ERROR:" + file + " can not be opened !! \n");
    EXPECT_EQ(dictionary->translate("File"), "Fichier");
    EXPECT_EQ(dictionary->getLang(), DICO_Dictionary::LANG_FR);
}

TEST(DICO_Dictionary, AFileWithoutADictionaryLeavesTheWords)
{
    const TestDirectory directory;
    const std::string files[] = {
        directory.write("empty.xml", ""),
        directory.write("text.xml", "no dictionary"),
        directory.write("rootless.xml", fileText(wordNode)),
        directory.write("foreign.xml", fileText(nodeText("root", "13LA_RealVector", oneWord))),
        directory.write("value.xml", fileText(nodeText("root", "8MM_Class", ""))),
    };
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("File", "Fichier");
    for (const std::string& file : files) {
        testing::internal::CaptureStdout();
        dictionary->load(file);
        testing::internal::GetCapturedStdout();
        EXPECT_EQ(dictionary->translate("File"), "Fichier") << file;
        EXPECT_EQ(dictionary->getWords().size(), 1UL) << file;
    }
}

TEST(DICO_Dictionary, AFileWithoutLanguageIsAnnouncedAndGivesFrench)
{
    const TestDirectory directory;
    const std::string file = directory.write(
        "words.xml", fileText(nodeText("root", "15DICO_Dictionary", oneWord) + wordNode));
    testing::internal::CaptureStdout();
    const COM_Scoped object(objectOf(file));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "no attribute mLang stored in class 15DICO_Dictionary.\n");
    ASSERT_TRUE(object);
    EXPECT_EQ(object->getLang(), DICO_Dictionary::LANG_FR);
    EXPECT_EQ(object->translate("File"), "Fichier");
}

TEST(DICO_Dictionary, AFileCannotBringALanguageThatNobodyCouldSelect)
{
    const TestDirectory directory;
    const std::pair<const char*, int> rows[] = {{"0", 0}, {"2", 2},   {"3", 2}, {"5", 5},
                                                {"6", 0}, {"200", 0}, {"x", 0}};
    for (const auto& [text, lang] : rows) {
        const std::string attribute = "<MM_VALUE>" + std::string(text) + "</MM_VALUE>";
        const std::string file = directory.write(
            "words.xml",
            fileText(nodeText("root", "15DICO_Dictionary", fieldText("mLang", attribute) + oneWord)
                     + wordNode));
        const COM_Scoped object(objectOf(file));
        ASSERT_TRUE(object) << text;
        EXPECT_EQ(object->getLang(), lang) << text;
        EXPECT_NE(object->translate("File"), "") << text;
    }
}

TEST(DICO_Dictionary, AFileWithoutWordsIsAnnouncedAndGivesNone)
{
    const TestDirectory directory;
    const std::string file =
        directory.write("words.xml", fileText(nodeText("root", "15DICO_Dictionary", germanLang)));
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    dictionary->addWord("File", "Fichier");
    EXPECT_EQ(printedBy([&] { dictionary->load(file); }),
              "no association mWords stored in class 15DICO_Dictionary.\n");
    EXPECT_EQ(dictionary->getWords().size(), 0UL);
}

TEST(DICO_Dictionary, AWordThatTheFileLacksIsAnnouncedAndLeftOut)
{
    const TestDirectory directory;
    const std::string words =
        fieldText("mWords", valueText("File", "word") + valueText("Lost", "lost")
                                + valueText("Other", "root") + valueText("Twin", "word"));
    const std::string file = directory.write(
        "words.xml",
        fileText(nodeText("root", "15DICO_Dictionary", germanLang + words) + wordNode));
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    EXPECT_EQ(printedBy([&] { dictionary->load(file); }),
              "no object lost stored.\n"
              "impossible to create an instance of root from class 15DICO_Dictionary.\n");
    EXPECT_EQ(dictionary->getWords().keys(), (std::vector<std::string>{"File", "Twin"}));
    EXPECT_EQ(dictionary->getWords().get("File"), dictionary->getWords().get("Twin"));
    EXPECT_EQ(dictionary->translate("Twin"), "Fichier");
}

TEST(DICO_Dictionary, AFileThatCannotBeWrittenIsAnnounced)
{
    const TestDirectory directory;
    const std::string file = directory.file("missing/words.xml");
    const COM_Scoped dictionary(DICO_Dictionary::New(DICO_Dictionary::LANG_FR));
    EXPECT_EQ(printedBy([&] { dictionary->save(file); }),
              "ERROR:" + file + " can not be created !! \n");
    EXPECT_EQ(dictionary->getReferenceCount(), 1);
}
