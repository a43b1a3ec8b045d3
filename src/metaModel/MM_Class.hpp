#pragma once
#include "metaModel/MM_Class.h"

template <typename T>
void MM_Class::addAttributeToMetaFields(const std::string& name, const T& value)
{
    addAttributeToMetaFields(name, std::vector<T>{value});
}

template <typename T>
void MM_Class::addAttributeToMetaFields(const std::string& name, const std::vector<T>& values)
{
    const COM_Scoped field(MM_Field::New(name));
    addToMetaFields(*field);
    field->setMetaValues(values);
}

template <typename T>
void MM_Class::getAttributeFromMetaFields(const std::string& name, T* value) const
{
    const MM_Field* const field = getFromMetaFields(name);
    if (field == nullptr) {
        printNoAttribute(name);
    } else if (field->getCardinality() > 0) {
        *value = MM_Field::cast<T>(field->getMetaValues()[0].getValue());
    }
}

template <typename T>
void MM_Class::getAttributeFromMetaFields(const std::string& name, std::vector<T>& values) const
{
    const MM_Field* const field = getFromMetaFields(name);
    if (field == nullptr) {
        printNoAttribute(name);
    } else {
        field->getFromMetaValues(values);
    }
}

template <typename T>
void MM_Class::addAssociationToMetaFields(const std::string& name, const COM_Array<T>& objects)
{
    const COM_Scoped field(MM_Field::New(name));
    addToMetaFields(*field);
    field->setMetaValues(objects);
    for (unsigned long i = 0; i < objects.size(); ++i) {
        if (objects.get(i) != nullptr) {
            describe(objects[i]);
        }
    }
}

template <typename K, typename T>
void MM_Class::addAssociationToMetaFields(const std::string& name, const COM_Map<K, T>& objects)
{
    const COM_Scoped field(MM_Field::New(name));
    addToMetaFields(*field);
    field->setMetaValues(objects);
    for (const K& key : objects.keys()) {
        describe(objects[key]);
    }
}

template <typename T>
void MM_Class::getAssociationFromMetaFields(const std::string& name, COM_Array<T>& objects) const
{
    objects.setSize(0);
    const MM_Field* const field = getManyFromMetaFields(name);
    if (field == nullptr) {
        return;
    }
    for (unsigned long i = 0; i < field->getCardinality(); ++i) {
        const std::string identity = field->getMetaValues()[i].getValue();
        const COM_Scoped object(instance(identity));
        if (auto* const element = dynamic_cast<T*>(object.get())) {
            objects.add(element);
        } else if (object) {
            printNoInstance(identity);
        }
    }
}

template <typename K, typename T>
void MM_Class::getAssociationFromMetaFields(const std::string& name, COM_Map<K, T>& objects) const
{
    objects.clear();
    const MM_Field* const field = getManyFromMetaFields(name);
    if (field == nullptr) {
        return;
    }
    for (unsigned long i = 0; i < field->getCardinality(); ++i) {
        const std::string identity = field->getMetaValues()[i].getValue();
        const std::string key = field->getMetaValues()[i].getKey();
        const COM_Scoped object(instance(identity));
        if (auto* const element = dynamic_cast<T*>(object.get())) {
            objects.put(MM_Field::cast<K>(key), element);
        } else if (object) {
            printNoInstance(identity);
        }
    }
}
