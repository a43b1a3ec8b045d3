#pragma once
#include "geometry/GEO_ClassFactory.h"

/// The factory of the plotters' files. It makes itself, plotters and curves, and what its base knows.
class GUI2D_ClassFactory : public GEO_ClassFactory
{
    COM_CLASS(GUI2D_ClassFactory)
public:
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

protected:
    GUI2D_ClassFactory();
    ~GUI2D_ClassFactory() override = default;
};
