#include "dictionary/DICO_Dictionary.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "dictionary/DICO_ClassFactory.h"
#include "metaModel/MM_Class.h"

#include <iostream>

DICO_Dictionary::DICO_Dictionary(unsigned char lang)
    : mWords(COM_Map<std::string, DICO_Word>::New())
{
    COM_TYPE(DICO_Dictionary);
    setLang(lang);
}

DICO_Dictionary::DICO_Dictionary(const std::string& fileName, const unsigned char& lang)
    : DICO_Dictionary(lang)
{
    DICO_Dictionary::load(fileName);
}

DICO_Dictionary::~DICO_Dictionary()
{
    mWords->Delete();
}

void DICO_Dictionary::load(const std::string& fileName)
{
    // Before main the streams of the files that announce something may not be set up yet.
    const std::ios_base::Init streams;
    const COM_Scoped factory(DICO_ClassFactory::New());
    const COM_Scoped object(factory->load(fileName));
    if (const auto* const dictionary = dynamic_cast<DICO_Dictionary*>(object.get())) {
        setWords(dictionary->getWords());
    }
}

void DICO_Dictionary::save(const std::string& fileName) const
{
    const COM_Scoped factory(DICO_ClassFactory::New());
    factory->save(fileName, *this);
}

void DICO_Dictionary::setLang(unsigned char lang)
{
    switch (lang) {
    case LANG_FR:
    case LANG_GE:
    case LANG_CH:
    case LANG_IT:
        mLang = lang;
        break;
    case LANG_SP: // has texts in the files, which nobody gets to see this way
        mLang = LANG_GE;
        break;
    default:
        mLang = LANG_EN;
    }
}

void DICO_Dictionary::addWord(const std::string& key, const std::string& translation)
{
    if (mWords->get(key) == nullptr) {
        const COM_Scoped word(DICO_Word::New());
        word->setTranslation(STRING_LANGS[LANG_EN], key);
        mWords->put(key, *word);
    }
    (*mWords)[key].setTranslation(STRING_LANGS[mLang], translation);
}

void DICO_Dictionary::setWords(COM_Map<std::string, DICO_Word>& words)
{
    const COM_Guard guard(words); // it may be the map that is held
    mWords->Delete();
    mWords = &words;
    mWords->addReference(this);
}

void DICO_Dictionary::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    unsigned char lang = mLang;
    metaClass.getAttributeFromMetaFields("mLang", &lang);
    setLang(lang);
    metaClass.getAssociationFromMetaFields("mWords", *mWords);
}

void DICO_Dictionary::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mLang", mLang);
    metaClass.addAssociationToMetaFields("mWords", *mWords);
}
