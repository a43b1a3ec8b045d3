#pragma once
#include "metaModel/MM_Package.h"

#include <string>

/// A package that makes objects from class names, and through which a file is saved and loaded.
///
/// Each library with persistent classes has a factory that derives from the factory of the library
/// beneath it: a name that one does not know falls through to its base. A name matches a class that it
/// contains, since run-time type names are decorated; so of two names where one contains the other the
/// longer is tried first. A factory serves one file and is released after it.
class MM_ClassFactory : public MM_Package
{
    COM_CLASS(MM_ClassFactory)
public:
    /// The object with the creator's reference, or null for a name that no factory knows.
    MM_Object* NewInstance(const std::string& name,
                           const COM_Array<MM_Object>& newParameters) const override;

    /// Writes the graph reached from `object`. A file that cannot be written is announced on standard
    /// output, and gives false.
    bool save(const std::string& fileName, const MM_Object& object);
    bool save(const std::string& fileName, const MM_Object* object);
    /// The root object of the file with a reference that the caller releases, or null. The factory holds
    /// references on all objects made until it is released or used again.
    MM_Object* load(const std::string& fileName);
    /// Restores into `object`, for classes that no factory makes. A file whose root is of another class
    /// leaves it untouched. Returns `object`.
    MM_Object* load(const std::string& fileName, MM_Object& object);

protected:
    MM_ClassFactory();
    ~MM_ClassFactory() override = default;

    /// True when `name` contains `className`.
    static bool matches(const std::string& name, const char* className);

private:
    void parse(const std::string& fileName);
};
