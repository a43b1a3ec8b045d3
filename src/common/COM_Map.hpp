#pragma once
#include "common/COM_Map.h"

template <typename K, typename T>
COM_Map<K, T>::COM_Map(bool referenceFlag)
    : mReferenceFlag(referenceFlag)
{
    COM_TYPE(COM_Map);
}

template <typename K, typename T>
COM_Map<K, T>::COM_Map(const COM_Map<K, T>& map)
    : COM_Map(map.mReferenceFlag)
{
    merge(map);
}

template <typename K, typename T>
COM_Map<K, T>::~COM_Map()
{
    clear();
}

template <typename K, typename T>
T* COM_Map<K, T>::get(const K& key) const
{
    const auto entry = mMap.find(key);
    return entry == mMap.end() ? nullptr : entry->second;
}

template <typename K, typename T>
void COM_Map<K, T>::put(const K& key, T* object)
{
    if (object == nullptr) {
        return;
    }
    remove(key);
    mMap.emplace(key, object);
    if (mReferenceFlag) {
        object->addReference(nullptr);
    }
}

template <typename K, typename T>
bool COM_Map<K, T>::remove(const K& key)
{
    const auto entry = mMap.find(key);
    if (entry == mMap.end()) {
        return false;
    }
    T* const object = entry->second;
    mMap.erase(entry);
    if (mReferenceFlag) {
        object->subReference(nullptr);
    }
    return true;
}

template <typename K, typename T>
void COM_Map<K, T>::clear()
{
    for (const K& key : keys()) {
        remove(key);
    }
}

template <typename K, typename T>
void COM_Map<K, T>::merge(const COM_Map<K, T>& map)
{
    if (&map == this) {
        return;
    }
    for (const auto& [key, object] : map.mMap) {
        put(key, object);
    }
}

template <typename K, typename T>
std::vector<K> COM_Map<K, T>::keys() const
{
    std::vector<K> keys;
    keys.reserve(mMap.size());
    for (const auto& entry : mMap) {
        keys.push_back(entry.first);
    }
    return keys;
}

template <typename K, typename T>
void COM_Map<K, T>::values(COM_Array<T>& values) const
{
    values.setSize(0);
    values.setSize(mMap.size());
    unsigned long i = 0;
    for (const auto& entry : mMap) {
        values.set(i++, entry.second);
    }
}

template <typename K, typename T>
std::string COM_Map<K, T>::toString() const
{
    return list([](const T& object) { return object.toString(); });
}

template <typename K, typename T>
std::string COM_Map<K, T>::toIdentityString() const
{
    return list([](const T& object) { return object.getIdentityString(); });
}

template <typename K, typename T>
template <typename Text>
std::string COM_Map<K, T>::list(Text text) const
{
    std::string lines;
    unsigned long i = 0;
    for (const auto& entry : mMap) {
        lines += std::to_string(i++) + ":" + text(*entry.second) + "\n";
    }
    return lines;
}
