#pragma once
#include "metaModel/MM_Object.h"

/// Base of vectors and matrices.
class LA_Object : public virtual MM_Object
{
protected:
    LA_Object();
    ~LA_Object() override = default;
};
