#include "dictionary/DICO_Word.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"

DICO_Word::DICO_Word()
{
    COM_TYPE(DICO_Word);
}

std::string DICO_Word::getTranslation(const std::string& lang) const
{
    const auto translation = mTranslations.find(lang);
    return translation == mTranslations.end() ? std::string() : translation->second;
}

void DICO_Word::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    const MM_Field* const field = metaClass.getAnnouncedFromMetaFields("mTranslations");
    if (field == nullptr) {
        return;
    }
    mTranslations.clear();
    const COM_Array<MM_Value>& values = field->getMetaValues();
    for (unsigned long i = 0; i < values.size(); ++i) {
        setTranslation(values[i].getKey(), values[i].getValue());
    }
}

void DICO_Word::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    const COM_Scoped field(MM_Field::New("mTranslations"));
    for (const auto& [lang, translation] : mTranslations) {
        field->addToMetaValues(lang, translation);
    }
    metaClass.addToMetaFields(*field);
}
