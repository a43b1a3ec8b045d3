#pragma once
#include <map>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// Gives a class its creating operations: one `New` for each of its constructors. `New` returns an
/// object with count 1, and that reference belongs to the caller.
#define COM_CLASS(NAME)                                                                            \
public:                                                                                            \
    template <typename... Arguments>                                                               \
    static NAME* New(Arguments&&... arguments)                                                     \
    {                                                                                              \
        return new NAME(std::forward<Arguments>(arguments)...);                                    \
    }                                                                                              \
                                                                                                   \
private:

/// First statement of each constructor: adds the class's own name to the chain of type names.
#define COM_TYPE(NAME)                                                                             \
    static_assert(std::is_same_v<std::remove_cvref_t<decltype(*this)>, NAME>);                     \
    setType(#NAME)

/// Root of every class: identity, chain of type names, and an intrusive reference count.
///
/// Whoever calls `New` holds one reference and gives it up with `Delete()`; owners add their own. An
/// object goes away inside `subReference`, when its count has fallen to the number of references that
/// its own parts hold on it (`getInverseAgregatedObjectsCount`), and nowhere else. Counting is const,
/// so that an object seen through a const reference can be held too. Not thread-safe: the program has
/// one thread. docs/ownership.md tells who counts whom.
class COM_Object
{
public:
    COM_Object(const COM_Object&) = delete;
    COM_Object& operator=(const COM_Object&) = delete;

protected:
    virtual ~COM_Object();

    /// Number of references to this object held by objects that it holds itself.
    virtual unsigned long getInverseAgregatedObjectsCount() const;
    /// Detaches the parts counted above, so that they drop their references to this object.
    virtual void resetInverseAgregatedObjects();

public:
    /// Compares identities, not contents, unless a class says otherwise.
    virtual bool isEqualTo(const COM_Object& other) const;
    virtual bool isEqualTo(const COM_Object* other) const;
    /// Gives up the caller's reference. The object goes only if this was the last one that counts.
    virtual void Delete() const;
    /// Run-time type name as the platform spells it, the class name inside: "8QV_Bloch".
    virtual std::string getClassName() const;
    /// Drops a reference; `by` is the holder or null and only shows in the trace. A count driven below
    /// zero leaves the object in memory: an over-release leaks, it never frees twice.
    virtual void subReference(const COM_Object* by) const;
    virtual std::string toString() const;

    /// Adds a reference. On a count that was negative it releases the object again.
    void addReference(const COM_Object* by) const;
    long getReferenceCount() const { return mReferenceCount; }

    /// True when `type` is one of the names in the chain of types.
    bool instanceOf(std::string_view type) const;
    /// The chain of type names, oldest ancestor first.
    std::vector<std::string> getTypes() const;

    unsigned long getIdentityNumber() const { return mIdentityNumber; }
    /// Class name, "@" and identity number: names the object in this run and in its files.
    std::string getIdentityString() const;

    /// While the flag is on, each change of a count is printed and living objects are listed.
    static void turnOnDebugFlag();
    static void turnOffDebugFlag();
    /// Prints the objects made since the flag was turned on, and their number by class.
    static void printAllObjects();

protected:
    COM_Object();

    /// Adds a name to the chain of types.
    void setType(std::string_view type);

    /// Makes `field` hold `object` with a counted reference, in place of what it held. Null releases.
    /// Returns whether the field has changed.
    template <typename T>
    bool associate(T*& field, T* object)
    {
        if (field == object) {
            return false;
        }
        dissociate(field);
        field = object;
        if (object != nullptr) {
            object->addReference(this);
        }
        return true;
    }

    /// Clears `field`, then drops the reference it held. Returns whether it held one.
    template <typename T>
    bool dissociate(T*& field)
    {
        if (field == nullptr) {
            return false;
        }
        T* const old = field;
        field = nullptr;
        old->subReference(this);
        return true;
    }

    /// The end of an object's life, the last step of `subReference`: runs the deleting destructor.
    /// Classes that live inside foreign event handlers defer it.
    virtual void destroy() const;

private:
    struct TypeName;

    static bool DEBUG_FLAG;
    static unsigned long
        mObjectsNumber; ///< Objects ever made. Never decreased, so numbers are unique.
    static std::map<unsigned long, const COM_Object*>*
        mObjects; ///< Living objects; null until traced.

    mutable bool mIsDeleting = false; ///< Set once, before the parts are detached; stops re-entry.
    mutable long mReferenceCount = 1; ///< The creator's reference.
    unsigned long mIdentityNumber;
    const TypeName* mTypes =
        nullptr; ///< Newest name of the chain; chains are shared between objects.
};
