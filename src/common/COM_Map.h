#pragma once
#include "common/COM_Array.h"
#include "common/COM_Object.h"

#include <map>
#include <string>
#include <vector>

/// Object pointers by key, in ascending order of the keys; values are never null.
///
/// An owning map (the default) counts a reference for each entry; a view (`New(false)`) never touches
/// counts.
template <typename K, typename T>
class COM_Map : public COM_Object
{
    COM_CLASS(COM_Map)
public:
    unsigned long size() const { return mMap.size(); }
    /// The value, or null if the key is absent.
    T* get(const K& key) const;
    /// Requires: the key is there.
    T& operator[](const K& key) const { return *get(key); }
    bool isObjectsReferenced() const { return mReferenceFlag; }

    /// Stores `object` in place of the key's present value. A null pointer is ignored and leaves the
    /// present value.
    void put(const K& key, T* object);
    void put(const K& key, T& object) { put(key, &object); }
    /// False if the key is absent.
    bool remove(const K& key);
    void clear();
    /// Puts each entry of `map`.
    void merge(const COM_Map<K, T>& map);
    std::vector<K> keys() const;
    /// Replaces the contents of `values` by the values in key order.
    void values(COM_Array<T>& values) const;

    /// One line "i:value" for each entry, i being a running number and not the key.
    std::string toString() const override;
    /// The same with the identity strings of the values.
    std::string toIdentityString() const;

protected:
    COM_Map()
        : COM_Map(true)
    {}
    explicit COM_Map(bool referenceFlag);
    /// A copy with the same flag, which references its values anew.
    COM_Map(const COM_Map<K, T>& map);
    ~COM_Map() override;

private:
    template <typename Text>
    std::string list(Text text) const;

    std::map<K, T*> mMap;       ///< Counted if the flag says so.
    bool mReferenceFlag = true; ///< True: a reference is counted for each entry.
};

#include "common/COM_Map.hpp"
