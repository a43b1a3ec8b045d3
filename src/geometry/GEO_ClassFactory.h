#pragma once
#include "linearAlgebra/LA_ClassFactory.h"

/// Makes boxes and points from class names.
class GEO_ClassFactory : public LA_ClassFactory
{
    COM_CLASS(GEO_ClassFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

protected:
    GEO_ClassFactory();
    ~GEO_ClassFactory() override = default;
};
