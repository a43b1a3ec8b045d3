#pragma once
#include "metaModel/MM_Object.h"

#include <string>

/// One value of a field, as text: a number, a string, or the identity of another described object.
class MM_Value : public virtual MM_Object
{
    COM_CLASS(MM_Value)
public:
    void setKey(const std::string& key) { mKey = key; }
    void setValue(const std::string& value) { mValue = value; }
    const std::string& getKey() const { return mKey; }
    const std::string& getValue() const { return mValue; }

    /// "key:", the key, " value:", the value and a line end.
    std::string toString() const override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    MM_Value();
    ~MM_Value() override = default;

private:
    std::string mKey; ///< The key of a map's entry; empty in other fields.
    std::string mValue;
};
