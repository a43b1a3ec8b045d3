#pragma once
#include "metaModel/MM_ClassFactory.h"

/// Makes dictionaries and their words from class names.
class DICO_ClassFactory : public virtual MM_ClassFactory
{
    COM_CLASS(DICO_ClassFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

protected:
    DICO_ClassFactory();
    ~DICO_ClassFactory() override = default;
};
