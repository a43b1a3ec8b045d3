#include "geometry/GEO_Object.h"

GEO_Object::GEO_Object()
{
    COM_TYPE(GEO_Object);
}

void GEO_Object::stateChanged() {}
