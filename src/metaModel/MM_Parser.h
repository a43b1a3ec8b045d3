#pragma once
#include "metaModel/MM_Object.h"

#include <istream>
#include <map>
#include <ostream>
#include <string>

class MM_Class;
class MM_Package;

/// Writes a package as a text file and reads such a file back.
///
/// The file looks like XML but has a grammar of its own (docs/file-formats.md): four tags, no prolog, no
/// comments, no entities, nothing escaped, no conversion of bytes. All operations are static.
class MM_Parser : public virtual MM_Object
{
    COM_CLASS(MM_Parser)
public:
    static constexpr const char* PACKAGE_XML_TAG = "MM_PACKAGE";
    static constexpr const char* CLASS_XML_TAG = "MM_CLASS";
    static constexpr const char* FIELD_XML_TAG = "MM_FIELD";
    static constexpr const char* VALUE_XML_TAG = "MM_VALUE";
    static constexpr const char* PACKAGE_ATTRIBUTES[1] = {"mRootMetaClassId"};
    /// The third is neither written nor read: constructor parameters stay in memory.
    static constexpr const char* CLASS_ATTRIBUTES[3] = {"mName", "mId", "mNewParameters"};
    static constexpr const char* FIELD_ATTRIBUTES[1] = {"mName"};
    /// The second is never an attribute: a value is the text between its tags.
    static constexpr const char* VALUE_ATTRIBUTES[2] = {"mKey", "mValue"};

    /// Replaces the file whole. 0, or -1 after a line on standard output when it cannot be written; the
    /// old file is then as it was.
    static int generateXMLMetaModelFile(const std::string& fileName, const MM_Package& package);
    /// The same for a graph of any size: describes the objects reached from `root` one by one, so that
    /// no more than one description is in memory. The bytes are those of the whole tree. Requires:
    /// every object stays alive and describes itself alike when it is asked twice.
    static int generateXMLMetaModelFile(const std::string& fileName, const MM_Object& root);
    /// Adds the file's nodes to `package`. 0, also for a file that yields nothing, or -1 after a line on
    /// standard output when it cannot be opened. What cannot be understood ends the reading silently.
    static int parseXMLMetaModelFile(const std::string& fileName, MM_Package& package);

protected:
    MM_Parser();
    ~MM_Parser() override = default;

private:
    using Attributes = std::map<std::string, std::string>;

    static void writeClass(std::ostream& f, const MM_Class& metaClass);
    static void writeTag(std::ostream& f, int n, const std::string& tagName,
                         const Attributes& attributes);
    static void writeEndTag(std::ostream& f, int n, const std::string& tagName,
                            const std::string& value);
    static void writeEndTag(std::ostream& f, int n, const std::string& tagName);
    static std::string indent(int n);

    static void readPackage(std::istream& f, MM_Package& package);
    static void readClass(std::istream& f, std::string& tagName, Attributes& attributes,
                          MM_Package& package);
    static void readField(std::istream& f, std::string& tagName, Attributes& attributes,
                          MM_Class& metaClass);
    static bool getNextTag(std::istream& f, std::string& tagName, Attributes& attributes);
    static bool getNextEndTag(std::istream& f, const std::string& tagName, std::string& value);
    static bool readUntil(std::istream& f, char ch);
    static bool readWhiteSpace(std::istream& f, char& ch);
    static bool readName(std::istream& f, char& ch, std::string& name);
    static bool readBetweenQuote(std::istream& f, std::string& value);
    static bool isWhiteSpace(char ch);
    static bool isSpecialChar(char ch);
};
