#pragma once
#include "metaModel/MM_Object.h"

/// Base of vectors and matrices.
class LA_Object : public virtual MM_Object
{
protected:
    LA_Object();
    ~LA_Object() override = default;

    /// True when a file that carries `stored` values may ask for `lines` times `columns` of them. A size
    /// far beyond the values that came with it is a damaged file's; it is refused with a line on standard
    /// output before any memory is asked for.
    bool isCredibleSize(unsigned long lines, unsigned long columns, unsigned long stored) const;
};
