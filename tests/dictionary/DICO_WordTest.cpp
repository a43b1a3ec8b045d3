#include "dictionary/DICO_Word.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// Language names and texts of a node's field, in its order.
std::vector<std::string> storedIn(const MM_Class& node)
{
    std::vector<std::string> texts;
    const MM_Field* const field = node.getFromMetaFields("mTranslations");
    for (unsigned long i = 0; field != nullptr && i < field->getCardinality(); ++i) {
        texts.push_back(field->getMetaValues()[i].getKey());
        texts.push_back(field->getMetaValues()[i].getValue());
    }
    return texts;
}

} // namespace

TEST(DICO_Word, AWordStartsWithoutTranslations)
{
    const COM_Scoped word(DICO_Word::New());
    EXPECT_EQ(word->getReferenceCount(), 1);
    EXPECT_EQ(word->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "DICO_Word"}));
    EXPECT_EQ(word->getTranslation("English"), "");
    EXPECT_EQ(word->getTranslation(""), "");
}

TEST(DICO_Word, ATranslationReplacesThatOfItsLanguageAlone)
{
    const COM_Scoped word(DICO_Word::New());
    word->setTranslation("French", "Fichier");
    word->setTranslation("German", "Datei");
    word->setTranslation("French", "Dossier");
    EXPECT_EQ(word->getTranslation("French"), "Dossier");
    EXPECT_EQ(word->getTranslation("German"), "Datei");
    EXPECT_EQ(word->getTranslation("french"), "");
}

TEST(DICO_Word, AskingForALanguageDoesNotAddIt)
{
    const COM_Scoped word(DICO_Word::New());
    EXPECT_EQ(word->getTranslation("French"), "");
    const COM_Scoped node(MM_Class::New());
    word->saveToMetaClass(*node);
    EXPECT_EQ(node->getMetaFields().keys(), std::vector<std::string>{"mTranslations"});
    EXPECT_EQ(storedIn(*node), std::vector<std::string>());
}

TEST(DICO_Word, ANodeHoldsAValueForEachLanguageWithItsNameAsKey)
{
    const COM_Scoped word(DICO_Word::New());
    word->setTranslation("Italian", "File");
    word->setTranslation("Chenese", "\xe6\x96\x87\xe4\xbb\xb6");
    const COM_Scoped node(MM_Class::New());
    word->saveToMetaClass(*node);
    EXPECT_EQ(node->getMetaFields().keys(), std::vector<std::string>{"mTranslations"});
    EXPECT_EQ(storedIn(*node),
              (std::vector<std::string>{"Chenese", "\xe6\x96\x87\xe4\xbb\xb6", "Italian", "File"}));
    const COM_Scoped read(DICO_Word::New());
    read->loadFromMetaClass(*node);
    EXPECT_EQ(read->getTranslation("Chenese"), "\xe6\x96\x87\xe4\xbb\xb6");
    EXPECT_EQ(read->getTranslation("Italian"), "File");
}

TEST(DICO_Word, LoadingReplacesAllTranslations)
{
    const COM_Scoped stored(DICO_Word::New());
    stored->setTranslation("French", "Fichier");
    const COM_Scoped node(MM_Class::New());
    stored->saveToMetaClass(*node);
    const COM_Scoped word(DICO_Word::New());
    word->setTranslation("French", "Dossier");
    word->setTranslation("German", "Datei");
    word->loadFromMetaClass(*node);
    EXPECT_EQ(word->getTranslation("French"), "Fichier");
    EXPECT_EQ(word->getTranslation("German"), "");
}

TEST(DICO_Word, ANodeWithoutTranslationsIsAnnouncedAndLeavesTheWord)
{
    const COM_Scoped node(MM_Class::New());
    node->setName("9DICO_Word");
    const COM_Scoped word(DICO_Word::New());
    word->setTranslation("French", "Fichier");
    EXPECT_EQ(printedBy([&] { word->loadFromMetaClass(*node); }),
              "no field of name mTranslations stored in class 9DICO_Word. \n");
    EXPECT_EQ(word->getTranslation("French"), "Fichier");
}
