#pragma once
#include "linearAlgebra/LA_ClassFactory.h"

/// Makes the solver's objects from class names.
class QV_ClassFactory : public LA_ClassFactory
{
    COM_CLASS(QV_ClassFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

protected:
    QV_ClassFactory();
    ~QV_ClassFactory() override = default;
};
