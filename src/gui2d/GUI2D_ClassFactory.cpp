#include "gui2d/GUI2D_ClassFactory.h"

#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"

GUI2D_ClassFactory::GUI2D_ClassFactory()
{
    COM_TYPE(GUI2D_ClassFactory);
}

MM_Object* GUI2D_ClassFactory::NewInstance(const std::string& name,
                                           const COM_Array<MM_Object>& newParameters) const
{
    if (matches(name, "GUI2D_ClassFactory")) {
        return GUI2D_ClassFactory::New();
    }
    if (matches(name, "GUI2D_Plotter")) {
        return GUI2D_Plotter::New();
    }
    if (matches(name, "GUI2D_Curve")) {
        return GUI2D_Curve::New();
    }
    return GEO_ClassFactory::NewInstance(name, newParameters);
}
