#pragma once
#include "metaModel/MM_Object.h"

/// Root of the geometry. `stateChanged` is called when something that an object depends on has moved.
class GEO_Object : public virtual MM_Object
{
public:
    virtual void stateChanged();

protected:
    GEO_Object();
    ~GEO_Object() override = default;
};
