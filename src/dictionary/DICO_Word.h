#pragma once
#include "metaModel/MM_Object.h"

#include <map>
#include <string>

/// One visible text in several languages: translations by language name, as UTF-8.
class DICO_Word : public virtual MM_Object
{
    COM_CLASS(DICO_Word)
public:
    /// Sets the text of a language, in place of its present one.
    void setTranslation(const std::string& lang, const std::string& translation)
    {
        mTranslations[lang] = translation;
    }
    /// The text of a language, or the empty string if the word has none.
    std::string getTranslation(const std::string& lang) const;

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;

protected:
    DICO_Word();
    ~DICO_Word() override = default;

private:
    std::map<std::string, std::string> mTranslations; ///< By language name.
};
