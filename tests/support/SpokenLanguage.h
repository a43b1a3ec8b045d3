#pragma once
#include "dictionary/DICO_Dictionary.h"
#include "gui/GUI_Object.h"

#include <functional>
#include <string>

/// While it lives, the English texts are those of another language, so that windows which a test makes in English
/// speak it. This way there is Spanish too, which no program can be set to.
class SpokenLanguage
{
public:
    /// A language by its number.
    explicit SpokenLanguage(unsigned char lang)
        : SpokenLanguage([lang](const std::string& key) {
            return words()[key].getTranslation(DICO_Dictionary::STRING_LANGS[lang]);
        })
    {}
    /// The text of each key.
    explicit SpokenLanguage(const std::function<std::string(const std::string& key)>& textOf)
    {
        for (const std::string& key : words().keys()) {
            words()[key].setTranslation(DICO_Dictionary::STRING_LANGS[DICO_Dictionary::LANG_EN],
                                        textOf(key));
        }
    }
    ~SpokenLanguage()
    {
        const std::string file = GUI_Object::getDictionaryFile();
        GUI_Object::setDictionaryFile(file);
    }
    SpokenLanguage(const SpokenLanguage&) = delete;
    SpokenLanguage& operator=(const SpokenLanguage&) = delete;

private:
    static COM_Map<std::string, DICO_Word>& words()
    {
        return GUI_Object::getDictionary()->getWords();
    }
};
