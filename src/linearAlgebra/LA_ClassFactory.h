#pragma once
#include "metaModel/MM_ClassFactory.h"

/// Makes vectors and matrices from class names.
class LA_ClassFactory : public MM_ClassFactory
{
    COM_CLASS(LA_ClassFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

protected:
    LA_ClassFactory();
    ~LA_ClassFactory() override = default;
};
