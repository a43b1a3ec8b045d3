#pragma once
#include "common/COM_Array.h"

#include <algorithm>

template <typename T>
COM_Array<T>::COM_Array(bool referenceFlag, unsigned long size)
    : mReferenceFlag(referenceFlag)
    , mVector(size, nullptr)
{
    COM_TYPE(COM_Array);
}

template <typename T>
COM_Array<T>::COM_Array(const COM_Array<T>& array)
    : COM_Array(array.mReferenceFlag, 0)
{
    mVector = array.mVector;
    for (T* object : mVector) {
        reference(object);
    }
}

template <typename T>
COM_Array<T>::~COM_Array()
{
    setSize(0);
}

template <typename T>
void COM_Array<T>::add(T* object)
{
    if (object == nullptr) {
        return;
    }
    mVector.push_back(object);
    reference(object);
}

template <typename T>
bool COM_Array<T>::set(unsigned long index, T* object)
{
    if (index >= mVector.size()) {
        mVector.resize(index + 1, nullptr);
    }
    if (mReferenceFlag && mVector[index] != nullptr) {
        T* const old = mVector[index];
        mVector[index] = nullptr;
        old->subReference(nullptr);
    }
    mVector[index] = object;
    reference(object);
    return true;
}

template <typename T>
bool COM_Array<T>::insert(unsigned long index, T* object)
{
    mVector.insert(mVector.begin() + static_cast<std::ptrdiff_t>(index), object);
    reference(object);
    return true;
}

template <typename T>
bool COM_Array<T>::exists(const T* object) const
{
    return std::find(mVector.begin(), mVector.end(), object) != mVector.end();
}

template <typename T>
bool COM_Array<T>::remove(T* object)
{
    if (object == nullptr) {
        return false;
    }
    reference(object); // keeps the object while it leaves its slots
    bool removed = false;
    for (auto slot = std::find(mVector.begin(), mVector.end(), object); slot != mVector.end();
         slot = std::find(mVector.begin(), mVector.end(), object)) {
        mVector.erase(slot);
        release(object);
        removed = true;
    }
    release(object);
    return removed;
}

template <typename T>
bool COM_Array<T>::remove(unsigned long index)
{
    if (index >= mVector.size()) {
        return false;
    }
    T* const object = mVector[index];
    mVector.erase(mVector.begin() + static_cast<std::ptrdiff_t>(index));
    release(object);
    return true;
}

template <typename T>
bool COM_Array<T>::remove()
{
    return !mVector.empty() && remove(mVector.size() - 1);
}

template <typename T>
void COM_Array<T>::setSize(unsigned long size)
{
    // The slots still hold their pointers while the elements are released.
    for (unsigned long i = size; i < mVector.size(); ++i) {
        release(mVector[i]);
    }
    mVector.resize(size, nullptr);
}

template <typename T>
void COM_Array<T>::merge(const COM_Array<T>& array)
{
    const unsigned long count = array.size(); // fixed first: an array may be merged into itself
    mVector.reserve(mVector.size() + count);
    for (unsigned long i = 0; i < count; ++i) {
        add(array.get(i));
    }
}

template <typename T>
void COM_Array<T>::reverse()
{
    std::reverse(mVector.begin(), mVector.end());
}

template <typename T>
T* COM_Array<T>::getId(unsigned long identityNumber) const
{
    for (T* object : mVector) {
        if (object != nullptr && object->getIdentityNumber() == identityNumber) {
            return object;
        }
    }
    return nullptr;
}

template <typename T>
std::string COM_Array<T>::toString() const
{
    return list([](const T& object) { return object.toString(); });
}

template <typename T>
std::string COM_Array<T>::toIdentityString() const
{
    return list([](const T& object) { return object.getIdentityString(); });
}

template <typename T>
void COM_Array<T>::reference(T* object) const
{
    if (mReferenceFlag && object != nullptr) {
        object->addReference(nullptr);
    }
}

template <typename T>
void COM_Array<T>::release(T* object) const
{
    if (mReferenceFlag && object != nullptr) {
        object->subReference(nullptr);
    }
}

template <typename T>
template <typename Text>
std::string COM_Array<T>::list(Text text) const
{
    std::string lines;
    for (unsigned long i = 0; i < mVector.size(); ++i) {
        lines +=
            std::to_string(i) + ":" + (mVector[i] != nullptr ? text(*mVector[i]) + "\n" : "null\n");
    }
    return lines;
}
