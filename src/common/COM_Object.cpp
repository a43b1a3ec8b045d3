#include "common/COM_Object.h"

#include <algorithm>
#include <iostream>
#include <memory>

/// One name of a chain of types, with its ancestors before it and all chains that go on from it.
/// Objects of one class share one chain, so that a type costs an object no more than a pointer.
struct COM_Object::TypeName
{
    std::string mName;
    const TypeName* mAncestor = nullptr;
    mutable std::vector<std::unique_ptr<TypeName>> mHeirs;

    const TypeName* heir(std::string_view type) const
    {
        for (const auto& known : mHeirs) {
            if (known->mName == type) {
                return known.get();
            }
        }
        mHeirs.push_back(std::make_unique<TypeName>(TypeName{std::string(type), this, {}}));
        return mHeirs.back().get();
    }
};

namespace {

/// The identity string of an object that is no more than a COM_Object: while it is being made, and when
/// all its heirs' parts are gone.
std::string rootIdentity(unsigned long number)
{
    return std::string(typeid(COM_Object).name()) + "@" + std::to_string(number);
}

} // namespace

bool COM_Object::DEBUG_FLAG = false;
unsigned long COM_Object::mObjectsNumber = 0;
std::map<unsigned long, const COM_Object*>* COM_Object::mObjects = nullptr;

COM_Object::COM_Object()
    : mIdentityNumber(++mObjectsNumber)
{
    if (DEBUG_FLAG) {
        if (mObjects == nullptr) {
            mObjects = new std::map<unsigned long, const COM_Object*>;
        }
        (*mObjects)[mIdentityNumber] = this;
        std::cout << rootIdentity(mIdentityNumber) << " is created so referenced one.\n";
    }
    setType("COM_Object");
}

COM_Object::~COM_Object()
{
    if (mReferenceCount > 0) {
        std::cout << "Trying to delete object " << rootIdentity(mIdentityNumber)
                  << " with non-zero reference count (" << mReferenceCount << ")\n";
    }
    // Whatever the flag is by now: the list must not lead to what is gone.
    if (mObjects != nullptr) {
        mObjects->erase(mIdentityNumber);
    }
}

unsigned long COM_Object::getInverseAgregatedObjectsCount() const
{
    return 0;
}

void COM_Object::resetInverseAgregatedObjects() {}

bool COM_Object::isEqualTo(const COM_Object& other) const
{
    return mIdentityNumber == other.mIdentityNumber;
}

bool COM_Object::isEqualTo(const COM_Object* other) const
{
    return other != nullptr && isEqualTo(*other);
}

void COM_Object::Delete() const
{
    subReference(nullptr);
}

std::string COM_Object::getClassName() const
{
    return typeid(*this).name();
}

void COM_Object::subReference(const COM_Object* by) const
{
    if (DEBUG_FLAG) {
        std::cout << getIdentityString();
        if (by != nullptr) {
            std::cout << " is unreferenced by " << by->getIdentityString() << "\n";
        } else {
            std::cout << " is unreferenced.\n";
        }
    }
    --mReferenceCount;
    const unsigned long inverse = getInverseAgregatedObjectsCount();
    // Read as unsigned, a negative count is huge and fails the test.
    if (static_cast<unsigned long>(mReferenceCount) > inverse || mIsDeleting) {
        return;
    }
    if (DEBUG_FLAG) {
        std::cout << "deleting " << getIdentityString() << "...\n"
                  << "reset inverse agregated objects...\n";
    }
    mIsDeleting = true;
    const_cast<COM_Object*>(this)->resetInverseAgregatedObjects();
    if (DEBUG_FLAG) {
        std::cout << "delete " << getIdentityString() << " from memory.\n";
    }
    destroy();
}

std::string COM_Object::toString() const
{
    return getIdentityString();
}

void COM_Object::addReference(const COM_Object* by) const
{
    if (DEBUG_FLAG) {
        std::cout << getIdentityString();
        if (by != nullptr) {
            std::cout << " is referenced by " << by->getIdentityString() << "\n";
        } else {
            std::cout << " is referenced.\n";
        }
    }
    ++mReferenceCount;
    if (mReferenceCount < 1) {
        Delete();
    }
}

bool COM_Object::instanceOf(std::string_view type) const
{
    for (const TypeName* link = mTypes; link != nullptr; link = link->mAncestor) {
        if (link->mName == type) {
            return true;
        }
    }
    return false;
}

std::vector<std::string> COM_Object::getTypes() const
{
    std::vector<std::string> types;
    for (const TypeName* link = mTypes; link != nullptr; link = link->mAncestor) {
        types.push_back(link->mName);
    }
    std::reverse(types.begin(), types.end());
    return types;
}

std::string COM_Object::getIdentityString() const
{
    return getClassName() + "@" + std::to_string(mIdentityNumber);
}

void COM_Object::turnOnDebugFlag()
{
    DEBUG_FLAG = true;
}

void COM_Object::turnOffDebugFlag()
{
    DEBUG_FLAG = false;
}

void COM_Object::printAllObjects()
{
    if (!DEBUG_FLAG) {
        return;
    }
    std::cout << "referenced objects:\n";
    std::map<std::string, unsigned long> numbers;
    if (mObjects != nullptr) {
        unsigned long line = 0;
        for (const auto& [number, object] : *mObjects) {
            std::cout << ++line << ":\t Objects:" << object->getIdentityString()
                      << " \t referenceCount:" << object->getReferenceCount() << "\n";
            ++numbers[object->getClassName()];
        }
    }
    std::cout << "Objects in memory:\n";
    for (const auto& [name, number] : numbers) {
        std::cout << name << "\t " << number << "\n";
    }
}

void COM_Object::setType(std::string_view type)
{
    if (mTypes != nullptr) {
        mTypes = mTypes->heir(type);
        return;
    }
    // Never freed: objects of other files may outlive any static of this one.
    static const auto* const root = new TypeName{std::string(type), nullptr, {}};
    mTypes = root;
}

void COM_Object::destroy() const
{
    delete this;
}
