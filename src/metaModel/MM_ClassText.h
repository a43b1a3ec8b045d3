#pragma once
#include "common/COM_String.h"

#include <complex>
#include <string>
#include <string_view>
#include <vector>

class MM_Object;

/// The fields of one description as the text of its file, in place of a tree of fields and values.
///
/// A node that writes to a text (MM_Class::setText) keeps none of the fields that it is told by name: the
/// graph of a large mesh has a million objects, and a description of each as objects of its own costs more
/// than all the rest of its file. The bytes are those that `MM_Parser` makes of the tree.
///
/// Values stand between `beginField` and `endField`, one field at a time.
class MM_ClassText
{
public:
    /// A text that is not wanted takes no fields; the node then only passes on which objects it refers to.
    void setWanted(bool wanted) { mIsWanted = wanted; }
    /// Takes all fields away; their memory serves the next description.
    void clear();

    /// True when a field of that name was started.
    bool has(std::string_view name) const;
    /// Starts a field. False, and no values may follow, when the text is not wanted or has that field.
    bool beginField(std::string_view name);
    // Append a value to the field, with its key unless that is empty. Texts stand as they are.
    template <typename T>
    void addValue(const T& value)
    {
        beginValue();
        append(value);
        endValue();
    }
    void addValue(const std::string& key, const std::string& value);
    void addIdentity(const MM_Object& object);
    void addIdentity(const std::string& key, const MM_Object& object);
    /// Ends the field started last.
    void endField();

    /// Appends the description of `object`, whose class name it is, to `out`: its tags, and between them the
    /// fields in the order of their names. Requires: each field is ended.
    void appendTo(std::string& out, const std::string& className, const MM_Object& object);

private:
    struct Field
    {
        std::string mName;
        std::size_t mBegin = 0; ///< Its lines are those of the text from here ...
        std::size_t mEnd = 0;   ///< ... to here.
    };

    void beginValue();
    void beginValue(const std::string& key);
    void endValue();
    void append(double value);
    void append(const std::complex<double>& value);
    void append(unsigned long value);
    void append(long value);
    void append(const std::string& value) { mText += value; }
    template <typename T>
    void append(const T& value)
    {
        mText += COM_String::toString(value);
    }
    void append(const MM_Object& object);

    bool mIsWanted = true;
    std::string mText;             ///< The lines of all fields, in the order in which they came.
    std::vector<Field> mFields;    ///< In that order, until `appendTo` sorts them.
    std::size_t mFieldsNumber = 0; ///< Of `mFields`; those beyond only keep memory.
};
