#include "metaModel/MM_Object.h"

MM_Object::MM_Object()
{
    COM_TYPE(MM_Object);
}

void MM_Object::loadFromMetaClass(const MM_Class& /*metaClass*/) {}

void MM_Object::saveToMetaClass(MM_Class& /*metaClass*/) const {}
