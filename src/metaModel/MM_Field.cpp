#include "metaModel/MM_Field.h"

#include "common/COM_Complex.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"

MM_Field::MM_Field(const std::string& name)
    : mName(name)
    , mMetaValues(COM_Array<MM_Value>::New())
{
    COM_TYPE(MM_Field);
}

MM_Field::~MM_Field()
{
    mMetaValues->Delete();
}

void MM_Field::addToMetaValues(MM_Value* value)
{
    if (value != nullptr && !mMetaValues->exists(value)) {
        mMetaValues->add(value);
    }
}

void MM_Field::addToMetaValues(const std::string& key, const std::string& text)
{
    const COM_Scoped value(MM_Value::New());
    value->setKey(key);
    value->setValue(text);
    mMetaValues->add(*value);
}

void MM_Field::removeFromMetaValues(MM_Value& value)
{
    mMetaValues->remove(value);
}

void MM_Field::resetMetaValues()
{
    mMetaValues->setSize(0);
}

void MM_Field::setMetaValues(const MM_Object& object)
{
    addToMetaValues({}, object.getIdentityString());
}

void MM_Field::getFromMetaValue(std::string& value) const
{
    if (mMetaValues->size() > 0) {
        value = mMetaValues->get(0)->getValue();
    }
}

void MM_Field::getFromMetaValues(COM_Array<COM_String>& values) const
{
    values.setSize(0);
    for (unsigned long i = 0; i < mMetaValues->size(); ++i) {
        const COM_Scoped text(COM_String::New(mMetaValues->get(i)->getValue()));
        values.add(*text);
    }
}

void MM_Field::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mName", mName);
    metaClass.addAssociationToMetaFields("mValues", *mMetaValues);
}

void MM_Field::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mName", &mName);
    metaClass.getAssociationFromMetaFields("mValues", *mMetaValues);
}

void MM_Field::castValue(const std::string& text, std::string& value)
{
    value = text;
}

void MM_Field::castValue(const std::string& text, bool& value)
{
    value = COM_Integer::parseInt(text) != 0;
}

void MM_Field::castValue(const std::string& text, int& value)
{
    value = static_cast<int>(COM_Integer::parseInt(text));
}

void MM_Field::castValue(const std::string& text, unsigned char& value)
{
    value = static_cast<unsigned char>(COM_Integer::parseInt(text));
}

void MM_Field::castValue(const std::string& text, unsigned long& value)
{
    value = static_cast<unsigned long>(COM_Integer::parseInt(text));
}

void MM_Field::castValue(const std::string& text, long& value)
{
    value = COM_Integer::parseInt(text);
}

void MM_Field::castValue(const std::string& text, double& value)
{
    value = COM_Real::parseReal(text);
}

void MM_Field::castValue(const std::string& text, std::complex<double>& value)
{
    value = COM_Complex::parseComplex(text);
}
