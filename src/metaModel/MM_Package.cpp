#include "metaModel/MM_Package.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"

#include <algorithm>
#include <iostream>

namespace {

constexpr unsigned long deepest = 1000; ///< Objects nested in a file; real graphs stay below ten.

void removeAll(COM_Map<std::string, MM_Object>& map)
{
    std::vector<std::string> keys = map.keys();
    std::reverse(keys.begin(), keys.end());
    for (const std::string& key : keys) {
        map.remove(key);
    }
}

} // namespace

MM_Package::MM_Package()
    : mMetaClasses(COM_Map<std::string, MM_Class>::New())
    , mInstanciatedClasses(COM_Map<std::string, MM_Object>::New())
{
    COM_TYPE(MM_Package);
}

MM_Package::~MM_Package()
{
    mMetaClasses->Delete();
    removeAll(*mInstanciatedClasses);
    mInstanciatedClasses->Delete();
}

std::string MM_Package::toString() const
{
    return "root:" + mRootMetaClassId + "\n" + mMetaClasses->toIdentityString();
}

MM_Object* MM_Package::NewInstanceFromMetaClass(const MM_Class& metaClass)
{
    if (MM_Object* const known = getFromInstanciatedClasses(metaClass.getId())) {
        known->addReference(this);
        return known;
    }
    if (mDepth >= deepest) {
        return nullptr;
    }
    ++mDepth;
    MM_Object* const object = newParameterizedInstance(metaClass);
    if (object != nullptr) {
        addToInstanciatedClasses(metaClass.getId(), *object);
        object->loadFromMetaClass(metaClass);
    }
    --mDepth;
    return object;
}

MM_Object* MM_Package::newParameterizedInstance(const MM_Class& metaClass)
{
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    if (!metaClass.getNewParameters().empty()) {
        if (!mParametersInWork.insert(metaClass.getId()).second) {
            mParametersInWork.clear(); // no node that waits for this circle can be made
            return nullptr;
        }
        for (const std::string& identity : metaClass.getNewParameters()) {
            if (const MM_Class* const node = getFromMetaClasses(identity)) {
                const COM_Scoped parameter(NewInstanceFromMetaClass(*node));
                if (!mParametersInWork.contains(metaClass.getId())) {
                    return nullptr;
                }
                parameters->add(parameter.get());
            }
        }
        mParametersInWork.erase(metaClass.getId());
    }
    return NewInstance(metaClass.getName(), *parameters);
}

MM_Object* MM_Package::NewInstance(const std::string& /*name*/,
                                   const COM_Array<MM_Object>& /*newParameters*/) const
{
    return nullptr;
}

void MM_Package::describe(const MM_Object& object)
{
    const COM_Scoped node(MM_Class::New());
    node->setId(object.getIdentityString());
    node->setName(object.getClassName());
    if (addToMetaClasses(*node)) {
        object.saveToMetaClass(*node);
    }
}

// The other end is MM_Class::setMetaPackage, which returns at once when the link is there.
bool MM_Package::addToMetaClasses(MM_Class& metaClass)
{
    if (metaClass.getId().empty()) {
        std::cout << "WARNING id of meta class " << metaClass.getIdentityString()
                  << " is empty !! can not be added to the package.\n"
                  << "Set the id of the class to the instance class id it refers.\n";
    }
    if (mMetaClasses->get(metaClass.getId()) != nullptr) {
        return false;
    }
    mMetaClasses->put(metaClass.getId(), metaClass);
    metaClass.setMetaPackage(*this);
    return true;
}

void MM_Package::removeFromMetaClasses(MM_Class& metaClass)
{
    if (mMetaClasses->get(metaClass.getId()) != &metaClass) {
        return;
    }
    const COM_Guard guard(metaClass);
    mMetaClasses->remove(metaClass.getId());
    metaClass.resetMetaPackage();
}

void MM_Package::resetMetaClasses()
{
    mRootMetaClassId.clear();
    std::vector<std::string> ids = mMetaClasses->keys();
    std::reverse(ids.begin(), ids.end());
    for (const std::string& id : ids) {
        MM_Class* const metaClass = mMetaClasses->get(id);
        const COM_Guard guard(*metaClass);
        mMetaClasses->remove(id);
        metaClass->resetMetaPackage();
    }
}

void MM_Package::setRootMetaClass(MM_Class& metaClass)
{
    addToMetaClasses(metaClass);
    mRootMetaClassId = metaClass.getId();
}

void MM_Package::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAssociationToMetaFields("mMetaClasses", *mMetaClasses);
}

void MM_Package::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    const COM_Scoped metaClasses(COM_Map<std::string, MM_Class>::New());
    metaClass.getAssociationFromMetaFields("mMetaClasses", *metaClasses);
    resetMetaClasses();
    for (const std::string& id : metaClasses->keys()) {
        addToMetaClasses((*metaClasses)[id]);
    }
}

void MM_Package::addToInstanciatedClasses(const std::string& id, MM_Object& object)
{
    mInstanciatedClasses->put(id, object);
}

void MM_Package::removeFromInstanciatedClasses(const std::string& id)
{
    mInstanciatedClasses->remove(id);
}

void MM_Package::resetInstanciatedClasses()
{
    removeAll(*mInstanciatedClasses);
}

MM_Object* MM_Package::getFromInstanciatedClasses(const std::string& id) const
{
    return mInstanciatedClasses->get(id);
}
