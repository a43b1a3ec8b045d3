#pragma once
#include "common/COM_Object.h"

/// Keeps an object alive to the end of the scope, the object being its own witness.
///
/// Removing one end of a two-way link may drop the last reference that counts; a guard around both
/// halves of the removal lets the object go only when both are done.
class COM_Guard
{
public:
    explicit COM_Guard(const COM_Object& object)
        : mObject(object)
    {
        mObject.addReference(&mObject);
    }
    ~COM_Guard() { mObject.subReference(&mObject); }
    COM_Guard(const COM_Guard&) = delete;
    COM_Guard& operator=(const COM_Guard&) = delete;

private:
    const COM_Object& mObject;
};
