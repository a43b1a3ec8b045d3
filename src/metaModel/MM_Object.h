#pragma once
#include "common/COM_Object.h"

class MM_Class;

/// Base of the classes that persist.
///
/// `saveToMetaClass` describes the object's members in a node of the meta model, `loadFromMetaClass`
/// restores them; both call the base class first. The keys are the members' names, prefix included, and
/// form the file format. A key that a file lacks leaves its member as it is.
class MM_Object : public virtual COM_Object
{
public:
    virtual void loadFromMetaClass(const MM_Class& metaClass);
    virtual void saveToMetaClass(MM_Class& metaClass) const;

protected:
    MM_Object();
    ~MM_Object() override = default;
};
