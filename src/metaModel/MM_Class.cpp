#include "metaModel/MM_Class.h"

#include "common/COM_Guard.h"
#include "metaModel/MM_Package.h"

#include <algorithm>
#include <iostream>

namespace {

constexpr unsigned long alwaysCredible = 1000000; ///< Values that a file may lack.

}

MM_Class::MM_Class()
    : mMetaFields(COM_Map<std::string, MM_Field>::New())
{
    COM_TYPE(MM_Class);
}

MM_Class::~MM_Class()
{
    resetMetaPackage();
    mMetaFields->Delete();
}

// The other end is MM_Package::addToMetaClasses, which returns at once when the node is there.
void MM_Class::setMetaPackage(MM_Package* package)
{
    if (package == mMetaPackage) {
        return;
    }
    resetMetaPackage();
    if (package == nullptr) {
        return;
    }
    mMetaPackage = package;
    package->addToMetaClasses(*this);
    package->addReference(this);
}

void MM_Class::resetMetaPackage()
{
    if (mMetaPackage == nullptr) {
        return;
    }
    MM_Package* const package = mMetaPackage;
    mMetaPackage = nullptr;
    const COM_Guard guard(*this);
    package->removeFromMetaClasses(*this);
    package->subReference(this);
}

void MM_Class::addToMetaFields(MM_Field* field)
{
    if (field == nullptr) {
        return;
    }
    if (field->getName().empty()) {
        std::cout << "WARNING id of meta field " << field->getIdentityString()
                  << " is empty !! can not be added to the class fields.\n"
                  << "Set the id of the field to the instance class field name it refers.\n";
    }
    const bool isInText = mText != nullptr && mText->has(field->getName());
    if (!isInText && mMetaFields->get(field->getName()) == nullptr) {
        mMetaFields->put(field->getName(), field);
    }
}

void MM_Class::removeFromMetaFields(MM_Field& field)
{
    if (mMetaFields->get(field.getName()) == &field) {
        mMetaFields->remove(field.getName());
    }
}

void MM_Class::resetMetaFields()
{
    std::vector<std::string> names = mMetaFields->keys();
    std::reverse(names.begin(), names.end());
    for (const std::string& name : names) {
        mMetaFields->remove(name);
    }
}

void MM_Class::setMetaFields(const COM_Array<MM_Field>& fields)
{
    resetMetaFields();
    for (unsigned long i = 0; i < fields.size(); ++i) {
        addToMetaFields(fields.get(i));
    }
}

MM_Field* MM_Class::getAnnouncedFromMetaFields(const std::string& name) const
{
    MM_Field* const field = getFromMetaFields(name);
    if (field == nullptr) {
        std::cout << "no field of name " << name << " stored in class " << mName << ". \n";
    }
    return field;
}

bool MM_Class::isCredibleSize(unsigned long lines, unsigned long columns,
                              unsigned long stored) const
{
    const unsigned long limit = std::max(stored, alwaysCredible);
    // An empty line counts as one value: it takes its time in texts and loops.
    if (std::max(lines, 1UL) <= limit / std::max(columns, 1UL)) {
        return true;
    }
    std::cout << "size " << lines << " x " << columns << " of " << mName
              << " is too large for its values: ignored.\n";
    return false;
}

void MM_Class::addToNewParameters(const MM_Object& object)
{
    mNewParameters.push_back(object.getIdentityString());
}

void MM_Class::addAssociationToMetaFields(const std::string& name, const MM_Object* object)
{
    if (object != nullptr) {
        addAssociationToMetaFields(name, *object);
    }
}

void MM_Class::addAssociationToMetaFields(const std::string& name, const MM_Object& object)
{
    if (!isForText(name)) {
        const COM_Scoped field(MM_Field::New(name));
        addToMetaFields(*field);
        field->setMetaValues(object);
    } else if (beginText(name)) {
        mText->addIdentity(object);
        mText->endField();
    }
    describe(object);
}

MM_Object* MM_Class::getAssociationFromMetaFields(const std::string& name) const
{
    const MM_Field* const field = getFromMetaFields(name);
    if (field == nullptr) {
        return nullptr;
    }
    std::string identity;
    field->getFromMetaValue(identity);
    if (mMetaPackage == nullptr) {
        std::cout << "no associated packages \n";
        return nullptr;
    }
    return instance(identity);
}

void MM_Class::saveToMetaClass(MM_Class& metaClass) const
{
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mName", mName);
    metaClass.addAttributeToMetaFields("mId", mId);
    metaClass.addAttributeToMetaFields("mNewParameters", mNewParameters);
    metaClass.addAssociationToMetaFields("mMetaPackage", mMetaPackage);
    metaClass.addAssociationToMetaFields("mMetaFields", *mMetaFields);
}

void MM_Class::loadFromMetaClass(const MM_Class& metaClass)
{
    MM_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mName", &mName);
    metaClass.getAttributeFromMetaFields("mId", &mId);
    if (const MM_Field* const field = metaClass.getAnnouncedFromMetaFields("mNewParameters")) {
        field->getFromMetaValues(mNewParameters);
    }
    const COM_Scoped package(metaClass.getAssociationFromMetaFields("mMetaPackage"));
    if (auto* const found = dynamic_cast<MM_Package*>(package.get())) {
        setMetaPackage(found);
    }
    metaClass.getAssociationFromMetaFields("mMetaFields", *mMetaFields);
}

void MM_Class::describe(const MM_Object& object)
{
    if (mMetaPackage != nullptr) {
        mMetaPackage->describe(object);
    }
}

bool MM_Class::beginText(const std::string& name)
{
    // A field that was given whole stays in the node, and the first of a name wins.
    return getFromMetaFields(name) == nullptr && mText->beginField(name);
}

MM_Field* MM_Class::getManyFromMetaFields(const std::string& name) const
{
    if (mMetaPackage == nullptr) {
        std::cout << "no associated packages \n";
        return nullptr;
    }
    MM_Field* const field = getFromMetaFields(name);
    if (field == nullptr) {
        std::cout << "no association " << name << " stored in class " << mName << ".\n";
    }
    return field;
}

MM_Object* MM_Class::instance(const std::string& identity) const
{
    const MM_Class* const node = mMetaPackage->getFromMetaClasses(identity);
    if (node == nullptr) {
        std::cout << "no object " << identity << " stored.\n";
        return nullptr;
    }
    MM_Object* const object = mMetaPackage->NewInstanceFromMetaClass(*node);
    if (object == nullptr) {
        printNoInstance(identity);
    }
    return object;
}

void MM_Class::printNoInstance(const std::string& identity) const
{
    std::cout << "impossible to create an instance of " << identity << " from class " << mName
              << ".\n";
}

void MM_Class::printNoAttribute(const std::string& name) const
{
    std::cout << "no attribute " << name << " stored in class " << mName << ".\n";
}
