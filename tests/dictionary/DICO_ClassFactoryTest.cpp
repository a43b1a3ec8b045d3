#include "dictionary/DICO_ClassFactory.h"

#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "support/FactoryNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class DICO_ClassFactoryNameTest : public FactoryNameTest
{};

} // namespace

TEST(DICO_ClassFactory, TheFactoryStandsOnThatOfTheMetaModel)
{
    const COM_Scoped factory(DICO_ClassFactory::New());
    EXPECT_EQ(factory->getReferenceCount(), 1);
    EXPECT_EQ(factory->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Package", "MM_ClassFactory",
                                        "DICO_ClassFactory"}));
}

TEST_P(DICO_ClassFactoryNameTest, ANameMakesTheFirstClassThatItContains)
{
    expectMade<DICO_ClassFactory>();
}

INSTANTIATE_TEST_SUITE_P(
    Table, DICO_ClassFactoryNameTest,
    testing::Values(
        FactoryName{"17DICO_ClassFactory", "17DICO_ClassFactory"},
        FactoryName{"15DICO_Dictionary", "15DICO_Dictionary"},
        FactoryName{"9DICO_Word", "9DICO_Word"}, FactoryName{"xxDICO_Word7", "9DICO_Word"},
        // The order: the factory itself, the dictionary, the word, then the factory beneath.
        FactoryName{"DICO_WordDICO_DictionaryDICO_ClassFactory", "17DICO_ClassFactory"},
        FactoryName{"DICO_WordDICO_Dictionary", "15DICO_Dictionary"},
        FactoryName{"MM_ClassFactoryDICO_Word", "9DICO_Word"},
        FactoryName{"15MM_ClassFactory", "15MM_ClassFactory"},
        FactoryName{"8MM_Class", "8MM_Class"}, FactoryName{"8MM_Field", "8MM_Field"},
        FactoryName{"8MM_Value", "8MM_Value"}, FactoryName{"13LA_RealVector", nullptr},
        FactoryName{"10MM_Package", nullptr}, FactoryName{"dico_word", nullptr},
        FactoryName{"DICO_", nullptr}, FactoryName{"", nullptr}));

TEST(DICO_ClassFactory, ADictionaryIsMadeInFrenchAndEmpty)
{
    const COM_Scoped factory(DICO_ClassFactory::New());
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    const COM_Scoped object(factory->NewInstance("15DICO_Dictionary", *parameters));
    const auto* const dictionary = dynamic_cast<DICO_Dictionary*>(object.get());
    ASSERT_NE(dictionary, nullptr);
    EXPECT_EQ(dictionary->getLang(), DICO_Dictionary::LANG_FR);
    EXPECT_EQ(dictionary->getWords().size(), 0UL);
}
