#include "metaModel/MM_Value.h"

#include "metaModel/MM_Class.h"

MM_Value::MM_Value()
{
    COM_TYPE(MM_Value);
}

std::string MM_Value::toString() const
{
    return "key:" + mKey + " value:" + mValue + "\n";
}

void MM_Value::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mKey", mKey);
    metaClass.addAttributeToMetaFields("mValue", mValue);
}

void MM_Value::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mKey", &mKey);
    metaClass.getAttributeFromMetaFields("mValue", &mValue);
}
