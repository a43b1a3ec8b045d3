#pragma once
#include "common/COM_Object.h"

#include <string>
#include <vector>

/// A sequence of object pointers, null slots allowed.
///
/// An owning array (the default) counts a reference for each slot; a view (`New(false)`) stores plain
/// pointers and never touches counts. Indices are not checked unless an operation says so.
template <typename T>
class COM_Array : public COM_Object
{
    COM_CLASS(COM_Array)
public:
    unsigned long size() const { return mVector.size(); }
    unsigned long getSize() const { return mVector.size(); }
    T* get(unsigned long index) const { return mVector[index]; }
    T& operator[](unsigned long index) const { return *mVector[index]; }
    bool isObjectsReferenced() const { return mReferenceFlag; }

    /// Appends; a null pointer is ignored.
    void add(T* object);
    void add(T& object) { add(&object); }
    /// Stores in slot `index`, growing the array with null slots if need be. The old element is
    /// released before the new one is referenced, so an array that alone holds an object must not be
    /// given it again. Always true.
    bool set(unsigned long index, T* object);
    bool set(unsigned long index, T& object) { return set(index, &object); }
    /// Inserts before slot `index`, which may be the size. Always true.
    bool insert(unsigned long index, T* object);
    bool insert(unsigned long index, T& object) { return insert(index, &object); }
    bool exists(const T* object) const;
    bool exists(const T& object) const { return exists(&object); }
    /// Removes every occurrence; true if there was one.
    bool remove(T* object);
    bool remove(T& object) { return remove(&object); }
    /// Removes slot `index`; false past the end.
    bool remove(unsigned long index);
    /// Removes the last slot; false when there is none.
    bool remove();
    /// Cuts the array, releasing what is cut off, or grows it by null slots.
    void setSize(unsigned long size);
    void clear() { setSize(0); }
    /// Adds each element of `array`; null slots are passed over.
    void merge(const COM_Array<T>& array);
    void reverse();
    /// The first element of that identity number, or null.
    T* getId(unsigned long identityNumber) const;

    /// One line "i:element" for each slot, "i:null" for an empty one.
    std::string toString() const override;
    /// The same with the identity strings of the elements.
    std::string toIdentityString() const;

protected:
    COM_Array()
        : COM_Array(true)
    {}
    explicit COM_Array(bool referenceFlag)
        : COM_Array(referenceFlag, 0)
    {}
    /// An array of `size` null slots.
    COM_Array(bool referenceFlag, unsigned long size);
    /// A copy with the same flag, which references its elements anew.
    COM_Array(const COM_Array<T>& array);
    ~COM_Array() override;

private:
    void reference(T* object) const;
    void release(T* object) const;
    template <typename Text>
    std::string list(Text text) const;

    bool mReferenceFlag = true; ///< True: a reference is counted for each slot.
    std::vector<T*> mVector;    ///< Counted if the flag says so.
};

#include "common/COM_Array.hpp"
