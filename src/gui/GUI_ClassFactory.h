#pragma once
#include "metaModel/MM_ClassFactory.h"

/// The factory of the preferences file. It makes itself and what its base knows; the application is loaded
/// into, not made.
class GUI_ClassFactory : public MM_ClassFactory
{
    COM_CLASS(GUI_ClassFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

protected:
    GUI_ClassFactory();
    ~GUI_ClassFactory() override = default;
};
