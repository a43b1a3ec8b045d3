// Reads the input as a dictionary: the language stays, every key has a text in every language, and what is
// saved loads again with the same texts.
#include "common/COM_Scoped.h"
#include "dictionary/DICO_Dictionary.h"
#include "FuzzSupport.h"

#include <vector>

namespace {

/// The texts of all keys in the current language.
std::vector<std::string> textsOf(const DICO_Dictionary& dictionary)
{
    std::vector<std::string> texts;
    for (const std::string& key : dictionary.getWords().keys()) {
        texts.push_back(dictionary.translate(key));
        require(key.empty() || !texts.back().empty(), "every key has a text");
    }
    return texts;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string file = writeScratch("input.xml", textOf(data, size));
    const COM_Scoped dictionary(DICO_Dictionary::New(file, DICO_Dictionary::LANG_IT));
    require(dictionary->getLang() == DICO_Dictionary::LANG_IT, "loading leaves the language");
    const std::string saved = scratchDirectory() + "saved.xml";
    dictionary->save(saved);
    const COM_Scoped second(DICO_Dictionary::New(saved));
    require(second->getWords().keys() == dictionary->getWords().keys(), "keys come back");
    for (unsigned char lang = 0; lang < std::size(DICO_Dictionary::STRING_LANGS); ++lang) {
        dictionary->setLang(lang);
        second->setLang(lang);
        require(textsOf(*dictionary) == textsOf(*second), "texts come back");
    }
    return 0;
}
