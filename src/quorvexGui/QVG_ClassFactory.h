#pragma once
#include "metaModel/MM_ClassFactory.h"

/// The factory of the project file. It makes itself and what its base knows; the main window is loaded into,
/// not made.
class QVG_ClassFactory : public MM_ClassFactory
{
    COM_CLASS(QVG_ClassFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

protected:
    QVG_ClassFactory();
    ~QVG_ClassFactory() override = default;
};
