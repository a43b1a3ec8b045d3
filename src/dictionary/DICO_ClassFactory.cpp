#include "dictionary/DICO_ClassFactory.h"

#include "dictionary/DICO_Dictionary.h"

DICO_ClassFactory::DICO_ClassFactory()
{
    COM_TYPE(DICO_ClassFactory);
}

MM_Object* DICO_ClassFactory::NewInstance(const std::string& name,
                                          const COM_Array<MM_Object>& newParameters) const
{
    if (matches(name, "DICO_ClassFactory")) {
        return DICO_ClassFactory::New();
    }
    if (matches(name, "DICO_Dictionary")) {
        return DICO_Dictionary::New(DICO_Dictionary::LANG_FR);
    }
    if (matches(name, "DICO_Word")) {
        return DICO_Word::New();
    }
    return MM_ClassFactory::NewInstance(name, newParameters);
}
