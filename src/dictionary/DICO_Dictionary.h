#pragma once
#include "common/COM_Map.h"
#include "dictionary/DICO_Word.h"
#include "metaModel/MM_Object.h"

#include <string>

/// The visible texts of the program by their English key, and the language in which they are shown.
///
/// Keys are compared byte by byte. A word that is missing, or has no text in the current language, is
/// shown as its key: the program is usable in English without any file. The shared dictionary is made
/// and loaded before `main`, so nothing here needs a static of another file that has to be constructed.
class DICO_Dictionary : public virtual MM_Object
{
    COM_CLASS(DICO_Dictionary)
public:
    static constexpr unsigned char LANG_EN = 0;
    static constexpr unsigned char LANG_FR = 1;
    static constexpr unsigned char LANG_GE = 2;
    static constexpr unsigned char LANG_SP = 3;
    static constexpr unsigned char LANG_CH = 4;
    static constexpr unsigned char LANG_IT = 5;
    /// Language names by number. The files hold them as they are spelled here.
    static constexpr const char* STRING_LANGS[6] = {"English", "French",  "German",
                                                    "Spanish", "Chenese", "Italian"};

    /// Replaces the words by those of a file, without those it lacks; the language stays. A file that
    /// cannot be opened is announced on standard output; then, and for a file that holds no dictionary,
    /// the words stay as they were.
    virtual void load(const std::string& fileName);
    /// A file that cannot be written is announced on standard output.
    virtual void save(const std::string& fileName) const;

    /// Spanish is shown in German, and a number that is no language stands for English.
    void setLang(unsigned char lang);
    unsigned char getLang() const { return mLang; }

    /// Sets the text of a word in the current language. A new word gets its key as its English text
    /// first.
    void addWord(const std::string& key, const std::string& translation);
    /// Shares `words` with whoever else holds them.
    void setWords(COM_Map<std::string, DICO_Word>& words);
    /// The words by key.
    COM_Map<std::string, DICO_Word>& getWords() const { return *mWords; }

    /// The text of `key` in the current language, or `key` itself.
    std::string translate(const std::string& key) const;

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;

protected:
    /// Without words.
    explicit DICO_Dictionary(unsigned char lang = LANG_EN);
    /// With the words of a file.
    explicit DICO_Dictionary(const std::string& fileName, const unsigned char& lang = LANG_EN);
    ~DICO_Dictionary() override;

private:
    unsigned char mLang = LANG_EN; ///< Index into `STRING_LANGS`, one that `setLang` gives.
    COM_Map<std::string, DICO_Word>* mWords; ///< By English key. Counted, never null.
};

inline std::string DICO_Dictionary::translate(const std::string& key) const
{
    const DICO_Word* const word = mWords->get(key);
    if (word == nullptr) {
        return key;
    }
    const std::string translation = word->getTranslation(STRING_LANGS[mLang]);
    return translation.empty() ? key : translation;
}
