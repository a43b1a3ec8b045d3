#pragma once
#include "metaModel/MM_Class.h"

template <typename T>
void MM_Class::addAttributeToMetaFields(const std::string& name, const T& value)
{
    addAttributeToMetaFields(name, &value, 1);
}

template <typename T>
void MM_Class::addAttributeToMetaFields(const std::string& name, const std::vector<T>& values)
{
    if (isForText(name)) {
        addAttributeToText(name, values.begin(), values.end());
        return;
    }
    const COM_Scoped field(MM_Field::New(name));
    addToMetaFields(*field);
    field->setMetaValues(values);
}

template <typename T>
void MM_Class::addAttributeToMetaFields(const std::string& name, const T* values,
                                        unsigned long count)
{
    if (isForText(name)) {
        addAttributeToText(name, values, values + count);
        return;
    }
    addAttributeToMetaFields(name, std::vector<T>(values, values + count));
}

template <typename Iterator>
void MM_Class::addAttributeToText(const std::string& name, Iterator first, Iterator last)
{
    if (!beginText(name)) {
        return;
    }
    for (; first != last; ++first) {
        mText->addValue(*first);
    }
    mText->endField();
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
    if (!isForText(name)) {
        const COM_Scoped field(MM_Field::New(name));
        addToMetaFields(*field);
        field->setMetaValues(objects);
    } else if (beginText(name)) {
        for (unsigned long i = 0; i < objects.size(); ++i) {
            if (objects.get(i) != nullptr) {
                mText->addIdentity(objects[i]);
            }
        }
        mText->endField();
    }
    for (unsigned long i = 0; i < objects.size(); ++i) {
        if (objects.get(i) != nullptr) {
            describe(objects[i]);
        }
    }
}

template <typename K, typename T>
void MM_Class::addAssociationToMetaFields(const std::string& name, const COM_Map<K, T>& objects)
{
    const COM_Scoped values(COM_Array<T>::New(false));
    objects.values(*values);
    if (!isForText(name)) {
        const COM_Scoped field(MM_Field::New(name));
        addToMetaFields(*field);
        field->setMetaValues(objects);
    } else if (beginText(name)) {
        unsigned long i = 0;
        for (const K& key : objects.keys()) {
            mText->addIdentity(COM_String::toString(key), (*values)[i++]);
        }
        mText->endField();
    }
    for (unsigned long i = 0; i < values->size(); ++i) {
        describe((*values)[i]);
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
