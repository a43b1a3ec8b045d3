#pragma once
#include "metaModel/MM_Field.h"

template <typename T>
void MM_Field::setMetaValues(const std::vector<T>& values)
{
    for (const T& value : values) {
        addToMetaValues({}, COM_String::toString(value));
    }
}

template <typename T>
void MM_Field::setMetaValues(const COM_Array<T>& objects)
{
    for (unsigned long i = 0; i < objects.size(); ++i) {
        if (objects.get(i) != nullptr) {
            addToMetaValues({}, objects.get(i)->getIdentityString());
        }
    }
}

template <typename K, typename T>
void MM_Field::setMetaValues(const COM_Map<K, T>& objects)
{
    for (const K& key : objects.keys()) {
        addToMetaValues(COM_String::toString(key), objects.get(key)->getIdentityString());
    }
}

template <typename T>
void MM_Field::getFromMetaValues(std::vector<T>& values) const
{
    values.clear();
    values.reserve(mMetaValues->size());
    for (unsigned long i = 0; i < mMetaValues->size(); ++i) {
        values.push_back(cast<T>(mMetaValues->get(i)->getValue()));
    }
}

template <typename T>
T MM_Field::cast(const std::string& text)
{
    T value{};
    castValue(text, value);
    return value;
}
