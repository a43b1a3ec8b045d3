#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "common/COM_String.h"
#include "metaModel/MM_Object.h"
#include "metaModel/MM_Value.h"

#include <complex>
#include <string>
#include <vector>

/// One stored member of a described object: its name and its values in order.
class MM_Field : public virtual MM_Object
{
    COM_CLASS(MM_Field)
public:
    void setName(const std::string& name) { mName = name; }
    const std::string& getName() const { return mName; }
    /// Number of values.
    unsigned long getCardinality() const { return mMetaValues->size(); }

    /// A value that the field holds already is ignored, and so is a null pointer.
    void addToMetaValues(MM_Value* value);
    void addToMetaValues(MM_Value& value) { addToMetaValues(&value); }
    /// Appends a new value, without the search that a known one asks for.
    void addToMetaValues(const std::string& key, const std::string& text);
    void removeFromMetaValues(MM_Value& value);
    void resetMetaValues();
    const COM_Array<MM_Value>& getMetaValues() const { return *mMetaValues; }

    /// Appends one value for each element; present values stay.
    template <typename T>
    void setMetaValues(const std::vector<T>& values);
    /// Appends the object's identity.
    void setMetaValues(const MM_Object& object);
    /// Appends the identity of each element; null slots are passed over.
    template <typename T>
    void setMetaValues(const COM_Array<T>& objects);
    /// Appends the identity of each value in key order, with the text of its key.
    template <typename K, typename T>
    void setMetaValues(const COM_Map<K, T>& objects);

    /// Copies the first value's text; without values `value` stays.
    void getFromMetaValue(std::string& value) const;
    /// Replaces the contents of `values` by every value, turned into T.
    template <typename T>
    void getFromMetaValues(std::vector<T>& values) const;
    void getFromMetaValues(COM_Array<COM_String>& values) const;

    /// What a value's text stands for. Numbers are read as `COM_Real` and `COM_Integer` read them; a
    /// boolean is true when its number is not 0.
    template <typename T>
    static T cast(const std::string& text);

    void saveToMetaClass(MM_Class& metaClass) const override;
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    explicit MM_Field(const std::string& name = {});
    ~MM_Field() override;

private:
    static void castValue(const std::string& text, std::string& value);
    static void castValue(const std::string& text, bool& value);
    static void castValue(const std::string& text, int& value);
    static void castValue(const std::string& text, unsigned char& value);
    static void castValue(const std::string& text, unsigned long& value);
    static void castValue(const std::string& text, long& value);
    static void castValue(const std::string& text, double& value);
    static void castValue(const std::string& text, std::complex<double>& value);

    std::string mName;                ///< The member's name in its class.
    COM_Array<MM_Value>* mMetaValues; ///< Counted, never null.
};

#include "metaModel/MM_Field.hpp"
