#include "metaModel/MM_ClassFactory.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Parser.h"

MM_ClassFactory::MM_ClassFactory()
{
    COM_TYPE(MM_ClassFactory);
}

MM_Object* MM_ClassFactory::NewInstance(const std::string& name,
                                        const COM_Array<MM_Object>& /*newParameters*/) const
{
    if (matches(name, "MM_ClassFactory")) {
        return MM_ClassFactory::New();
    }
    if (matches(name, "MM_Class")) {
        return MM_Class::New();
    }
    if (matches(name, "MM_Field")) {
        return MM_Field::New();
    }
    if (matches(name, "MM_Value")) {
        return MM_Value::New();
    }
    return nullptr;
}

bool MM_ClassFactory::save(const std::string& fileName, const MM_Object& object)
{
    resetMetaClasses();
    resetInstanciatedClasses();
    {
        const COM_Scoped root(MM_Class::New());
        root->setId(object.getIdentityString());
        root->setName(object.getClassName());
        setRootMetaClass(*root);
        object.saveToMetaClass(*root);
    }
    return MM_Parser::generateXMLMetaModelFile(fileName, *this) == 0;
}

bool MM_ClassFactory::save(const std::string& fileName, const MM_Object* object)
{
    return object != nullptr && save(fileName, *object);
}

MM_Object* MM_ClassFactory::load(const std::string& fileName)
{
    parse(fileName);
    const MM_Class* const root = getRootMetaClass();
    return root == nullptr ? nullptr : NewInstanceFromMetaClass(*root);
}

MM_Object* MM_ClassFactory::load(const std::string& fileName, MM_Object& object)
{
    parse(fileName);
    const MM_Class* const root = getRootMetaClass();
    if (root != nullptr && root->getName() == object.getClassName()) {
        addToInstanciatedClasses(root->getId(), object);
        object.loadFromMetaClass(*root);
    }
    return &object;
}

bool MM_ClassFactory::matches(const std::string& name, const char* className)
{
    return name.rfind(className) != std::string::npos;
}

void MM_ClassFactory::parse(const std::string& fileName)
{
    resetMetaClasses();
    resetInstanciatedClasses();
    MM_Parser::parseXMLMetaModelFile(fileName, *this);
}
