#include "geometry/GEO_ClassFactory.h"

#include "geometry/GEO_Box.h"
#include "geometry/GEO_Point.h"

GEO_ClassFactory::GEO_ClassFactory()
{
    COM_TYPE(GEO_ClassFactory);
}

MM_Object* GEO_ClassFactory::NewInstance(const std::string& name,
                                         const COM_Array<MM_Object>& newParameters) const
{
    if (matches(name, "GEO_ClassFactory")) {
        return GEO_ClassFactory::New();
    }
    if (matches(name, "GEO_Box")) {
        return GEO_Box::New();
    }
    if (matches(name, "GEO_Point")) {
        return GEO_Point::New();
    }
    return LA_ClassFactory::NewInstance(name, newParameters);
}
