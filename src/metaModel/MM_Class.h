#pragma once
#include "common/COM_Map.h"
#include "common/COM_Scoped.h"
#include "metaModel/MM_ClassText.h"
#include "metaModel/MM_Field.h"
#include "metaModel/MM_Object.h"

#include <string>
#include <vector>

class MM_Package;

/// The description of one object: class name, identity, and its stored members by name.
///
/// The templates are the vocabulary of every `saveToMetaClass` and `loadFromMetaClass`. An association
/// stores identities; the objects meant are described beside this one in the same package, each once,
/// which keeps shared references shared and lets cycles end. A node holds its package with a counted
/// back reference.
class MM_Class : public virtual MM_Object
{
    COM_CLASS(MM_Class)
public:
    void setName(const std::string& name) { mName = name; }
    void setId(const std::string& id) { mId = id; }
    const std::string& getName() const { return mName; }
    const std::string& getId() const { return mId; }

    /// Two-way link with `MM_Package::addToMetaClasses` and `removeFromMetaClasses`.
    void setMetaPackage(MM_Package* package);
    void setMetaPackage(MM_Package& package) { setMetaPackage(&package); }
    void resetMetaPackage();
    MM_Package* getMetaPackage() const { return mMetaPackage; }

    /// The first field of a name wins: a second one is dropped. A field without name is announced and
    /// stored all the same.
    void addToMetaFields(MM_Field* field);
    void addToMetaFields(MM_Field& field) { addToMetaFields(&field); }
    void removeFromMetaFields(MM_Field& field);
    void resetMetaFields();
    void setMetaFields(const COM_Array<MM_Field>& fields);
    const COM_Map<std::string, MM_Field>& getMetaFields() const { return *mMetaFields; }
    void getMetaFields(COM_Array<MM_Field>& fields) const { mMetaFields->values(fields); }
    /// The field, or null.
    MM_Field* getFromMetaFields(const std::string& name) const { return mMetaFields->get(name); }
    /// The field, or null after a line on standard output: for members that may not be missing.
    MM_Field* getAnnouncedFromMetaFields(const std::string& name) const;

    /// True when an object that brings `stored` values may ask for `lines` times `columns` of them. A size
    /// far beyond the values that came with it is a damaged file's; it is refused with a line on standard
    /// output, before any memory is asked for.
    bool isCredibleSize(unsigned long lines, unsigned long columns, unsigned long stored) const;

    /// Identities of objects that a factory gets as constructor parameters; kept in memory only.
    void addToNewParameters(const MM_Object& object);
    void removeNewParameters() { mNewParameters.clear(); }
    std::vector<std::string> getNewParameters() const { return mNewParameters; }

    /// Fields told by name go to `text` from now on, in place of this node, and cannot be asked for here.
    /// Null: they stay here.
    void setText(MM_ClassText* text) { mText = text; }

    // A field of that name, with one value or with several in order.
    template <typename T>
    void addAttributeToMetaFields(const std::string& name, const T& value);
    template <typename T>
    void addAttributeToMetaFields(const std::string& name, const std::vector<T>& values);
    /// The same for `count` values that lie side by side.
    template <typename T>
    void addAttributeToMetaFields(const std::string& name, const T* values, unsigned long count);
    /// The first value of the field. A missing field is announced; without field or value `*value` stays.
    template <typename T>
    void getAttributeFromMetaFields(const std::string& name, T* value) const;
    /// Every value of the field. A missing field is announced, and `values` stays.
    template <typename T>
    void getAttributeFromMetaFields(const std::string& name, std::vector<T>& values) const;

    /// Null writes no field.
    void addAssociationToMetaFields(const std::string& name, const MM_Object* object);
    void addAssociationToMetaFields(const std::string& name, const MM_Object& object);
    template <typename T>
    void addAssociationToMetaFields(const std::string& name, const COM_Array<T>& objects);
    template <typename K, typename T>
    void addAssociationToMetaFields(const std::string& name, const COM_Map<K, T>& objects);
    /// The associated object with a reference that the caller releases, or null; a missing field is
    /// silent, a broken reference is announced.
    MM_Object* getAssociationFromMetaFields(const std::string& name) const;
    /// Replaces the contents of the container; elements that cannot be made are announced and skipped.
    template <typename T>
    void getAssociationFromMetaFields(const std::string& name, COM_Array<T>& objects) const;
    template <typename K, typename T>
    void getAssociationFromMetaFields(const std::string& name, COM_Map<K, T>& objects) const;

    void saveToMetaClass(MM_Class& metaClass) const override;
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    MM_Class();
    ~MM_Class() override;

private:
    /// Describes `object` in this node's package, unless it is described there already.
    void describe(const MM_Object& object);
    /// The field of an association of many, or null after the line that says what is missing.
    MM_Field* getManyFromMetaFields(const std::string& name) const;
    /// The object of that identity with a reference for the caller, or null after a line that says why.
    MM_Object* instance(const std::string& identity) const;
    void printNoInstance(const std::string& identity) const;
    void printNoAttribute(const std::string& name) const;
    /// True when a field of that name goes to the text. One without name is announced by the node.
    bool isForText(const std::string& name) const { return mText != nullptr && !name.empty(); }
    /// Starts a field in the text; false, and no values may follow, when it is not to be written.
    bool beginText(const std::string& name);
    /// Requires: `isForText(name)`.
    template <typename Iterator>
    void addAttributeToText(const std::string& name, Iterator first, Iterator last);

    std::string mName; ///< `getClassName()` of the object described.
    std::string mId;   ///< Its identity string.
    std::vector<std::string> mNewParameters;
    MM_Package* mMetaPackage = nullptr;          ///< Counted back reference.
    COM_Map<std::string, MM_Field>* mMetaFields; ///< By field name. Counted, never null.
    MM_ClassText* mText = nullptr;               ///< Borrowed; null: fields stay in the node.
};

#include "metaModel/MM_Class.hpp"
