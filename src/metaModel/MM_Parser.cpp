#include "metaModel/MM_Parser.h"

#include "common/COM_FileWriter.h"
#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "metaModel/MM_Package.h"

#include <algorithm>
#include <bitset>
#include <fstream>
#include <iostream>
#include <map>
#include <new>
#include <unordered_map>
#include <vector>

namespace {

constexpr int packageLevel = 0;
constexpr int classLevel = 1;
constexpr int fieldLevel = 2;
constexpr int valueLevel = 3;
constexpr int sameLine = -1; ///< Level of a tag that gets no line of its own.

/// A set of identity numbers. Objects of a mesh are made one after the other, so their numbers lie close
/// together: a bit for each takes less memory than any list of them.
class IdentityNumbers
{
public:
    /// False when the number is there already.
    bool insert(unsigned long number)
    {
        Page& page = mPages[number / PAGE_SIZE];
        if (page[number % PAGE_SIZE]) {
            return false;
        }
        page[number % PAGE_SIZE] = true;
        return true;
    }

private:
    static constexpr unsigned long PAGE_SIZE = 4096;
    using Page = std::bitset<PAGE_SIZE>;

    std::unordered_map<unsigned long, Page> mPages;
};

/// A package that knows the objects of a graph by identity and describes each as text when it is asked to,
/// in place of keeping all descriptions.
class Record : public MM_Package
{
    COM_CLASS(Record)
public:
    void describe(const MM_Object& object) override
    {
        const unsigned long number = object.getIdentityNumber();
        if (!mIsComplete && mKnown.insert(number)) {
            mClasses[object.getClassName() + SEPARATOR].push_back({moveLeft(number), &object});
            mWaiting.push_back(&object);
        }
    }

    /// Writes every object that can be reached from `root`, in the byte order of their identity strings.
    void write(std::ostream& f, const MM_Object& root)
    {
        // One node stands for each object in turn; its own identity shows nowhere.
        const COM_Scoped node(MM_Class::New());
        node->setId(root.getIdentityString());
        node->setMetaPackage(*this);
        node->setText(&mText);
        collect(*node, root);
        writeAll(f, *node);
        node->resetMetaPackage();
    }

protected:
    Record() { COM_TYPE(Record); }
    ~Record() override = default;

private:
    struct Entry
    {
        unsigned long mOrder; ///< The identity number's digits, moved to the left of all numbers.
        const MM_Object* mObject;
    };

    /// The byte order of the decimal digits: of two numbers of which one begins with the other, the shorter first.
    static bool isBefore(const Entry& a, const Entry& b)
    {
        return a.mOrder != b.mOrder
                   ? a.mOrder < b.mOrder
                   : a.mObject->getIdentityNumber() < b.mObject->getIdentityNumber();
    }

    /// Requires: `number` is not 0, which no identity number is.
    static unsigned long moveLeft(unsigned long number)
    {
        constexpr unsigned long nineteenDigits = 1000000000000000000;
        while (number < nineteenDigits) {
            number *= 10;
        }
        return number;
    }

    void collect(MM_Class& node, const MM_Object& root)
    {
        mText.setWanted(false);
        describe(root);
        while (!mWaiting.empty()) {
            const MM_Object* const object = mWaiting.back();
            mWaiting.pop_back();
            object->saveToMetaClass(node);
            node.resetMetaFields();
        }
        mIsComplete = true;
        std::vector<const MM_Object*>().swap(mWaiting);
        mText.setWanted(true);
    }

    void writeAll(std::ostream& f, MM_Class& node)
    {
        std::string block;
        for (auto& [key, objects] : mClasses) {
            const std::string className = key.substr(0, key.size() - 1);
            std::sort(objects.begin(), objects.end(), isBefore);
            for (const Entry& entry : objects) {
                append(block, className, *entry.mObject, node);
                if (block.size() >= BLOCK_SIZE) {
                    f.write(block.data(), static_cast<std::streamsize>(block.size()));
                    block.clear();
                }
            }
        }
        f.write(block.data(), static_cast<std::streamsize>(block.size()));
    }

    void append(std::string& block, const std::string& className, const MM_Object& object,
                MM_Class& node)
    {
        mText.clear();
        object.saveToMetaClass(node);
        appendFields(node);
        node.resetMetaFields();
        mText.appendTo(block, className, object);
    }

    /// Adds the fields that an object has made itself.
    void appendFields(const MM_Class& node)
    {
        const COM_Map<std::string, MM_Field>& fields = node.getMetaFields();
        for (const std::string& name : fields.keys()) {
            if (!mText.beginField(name)) {
                continue;
            }
            const COM_Array<MM_Value>& values = fields[name].getMetaValues();
            for (unsigned long i = 0; i < values.size(); ++i) {
                mText.addValue(values[i].getKey(), values[i].getValue());
            }
            mText.endField();
        }
    }

    static constexpr std::size_t BLOCK_SIZE = 1 << 18; ///< Bytes given to the file at once.
    static constexpr char SEPARATOR = '@';             ///< Between class name and number.

    bool mIsComplete = false; ///< True when all objects are known, and only texts are asked for.
    IdentityNumbers mKnown;
    /// By class name and separator, in the order of identity strings. Objects are borrowed.
    std::map<std::string, std::vector<Entry>> mClasses;
    std::vector<const MM_Object*> mWaiting; ///< Not asked yet for what they refer to. Borrowed.
    MM_ClassText mText;
};

int cannotBeCreated(const std::string& fileName)
{
    std::cout << "ERROR:" << fileName << " can not be created !! \n";
    return -1;
}

} // namespace

MM_Parser::MM_Parser()
{
    COM_TYPE(MM_Parser);
}

int MM_Parser::generateXMLMetaModelFile(const std::string& fileName, const MM_Package& package)
{
    COM_FileWriter file(fileName);
    if (!file.isOpen()) {
        return cannotBeCreated(fileName);
    }
    std::ostream& f = file.stream();
    const MM_Class* const root = package.getRootMetaClass();
    writeTag(f, packageLevel, PACKAGE_XML_TAG,
             {{PACKAGE_ATTRIBUTES[0], root != nullptr ? root->getId() : std::string()}});
    const COM_Scoped metaClasses(COM_Array<MM_Class>::New());
    package.getMetaClasses(*metaClasses);
    for (unsigned long i = 0; i < metaClasses->size(); ++i) {
        writeClass(f, (*metaClasses)[i]);
    }
    writeEndTag(f, packageLevel, PACKAGE_XML_TAG);
    return file.commit() ? 0 : cannotBeCreated(fileName);
}

int MM_Parser::generateXMLMetaModelFile(const std::string& fileName, const MM_Object& root)
{
    COM_FileWriter file(fileName);
    if (!file.isOpen()) {
        return cannotBeCreated(fileName);
    }
    std::ostream& f = file.stream();
    writeTag(f, packageLevel, PACKAGE_XML_TAG, {{PACKAGE_ATTRIBUTES[0], root.getIdentityString()}});
    COM_Scoped(Record::New())->write(f, root);
    writeEndTag(f, packageLevel, PACKAGE_XML_TAG);
    return file.commit() ? 0 : cannotBeCreated(fileName);
}

void MM_Parser::writeClass(std::ostream& f, const MM_Class& metaClass)
{
    writeTag(
        f, classLevel, CLASS_XML_TAG,
        {{CLASS_ATTRIBUTES[0], metaClass.getName()}, {CLASS_ATTRIBUTES[1], metaClass.getId()}});
    const COM_Map<std::string, MM_Field>& fields = metaClass.getMetaFields();
    for (const std::string& name : fields.keys()) {
        writeTag(f, fieldLevel, FIELD_XML_TAG, {{FIELD_ATTRIBUTES[0], fields[name].getName()}});
        const COM_Array<MM_Value>& values = fields[name].getMetaValues();
        for (unsigned long i = 0; i < values.size(); ++i) {
            Attributes attributes;
            if (!values[i].getKey().empty()) {
                attributes[VALUE_ATTRIBUTES[0]] = values[i].getKey();
            }
            writeTag(f, valueLevel, VALUE_XML_TAG, attributes);
            writeEndTag(f, sameLine, VALUE_XML_TAG, values[i].getValue());
        }
        writeEndTag(f, fieldLevel, FIELD_XML_TAG, {});
    }
    writeEndTag(f, classLevel, CLASS_XML_TAG);
}

void MM_Parser::writeTag(std::ostream& f, int n, const std::string& tagName,
                         const Attributes& attributes)
{
    f << indent(n) << "<" << tagName;
    for (const auto& [name, value] : attributes) {
        f << " " << name << "=\"" << value << "\"";
    }
    f << ">";
}

void MM_Parser::writeEndTag(std::ostream& f, int n, const std::string& tagName,
                            const std::string& value)
{
    f << value << indent(n) << "</" << tagName << ">";
}

void MM_Parser::writeEndTag(std::ostream& f, int n, const std::string& tagName)
{
    writeEndTag(f, n, tagName, {});
}

std::string MM_Parser::indent(int n)
{
    return n < 0 ? std::string() : "\n" + std::string(static_cast<std::size_t>(n), '\t');
}

int MM_Parser::parseXMLMetaModelFile(const std::string& fileName, MM_Package& package)
{
    std::ifstream f(fileName, std::ios::binary);
    // A directory can be opened, but not read.
    if (!f.is_open() || (f.peek() == std::ifstream::traits_type::eof() && f.bad())) {
        std::cout << "ERROR:" << fileName << " can not be opened !! \n";
        return -1;
    }
    try {
        readPackage(f, package);
    } catch (const std::bad_alloc&) {
        return 0; // more nodes than memory
    }
    return 0;
}

void MM_Parser::readPackage(std::istream& f, MM_Package& package)
{
    std::string tagName;
    Attributes attributes;
    getNextTag(f, tagName, attributes);
    if (tagName != PACKAGE_XML_TAG) {
        return;
    }
    const std::string rootId = attributes[PACKAGE_ATTRIBUTES[0]];
    getNextTag(f, tagName, attributes);
    while (tagName == CLASS_XML_TAG) {
        readClass(f, tagName, attributes, package);
    }
    if (MM_Class* const root = package.getFromMetaClasses(rootId)) {
        package.setRootMetaClass(*root);
    }
}

void MM_Parser::readClass(std::istream& f, std::string& tagName, Attributes& attributes,
                          MM_Package& package)
{
    const COM_Scoped metaClass(MM_Class::New());
    metaClass->setName(attributes[CLASS_ATTRIBUTES[0]]);
    metaClass->setId(attributes[CLASS_ATTRIBUTES[1]]);
    package.addToMetaClasses(*metaClass);
    getNextTag(f, tagName, attributes);
    while (tagName == FIELD_XML_TAG) {
        readField(f, tagName, attributes, *metaClass);
    }
}

void MM_Parser::readField(std::istream& f, std::string& tagName, Attributes& attributes,
                          MM_Class& metaClass)
{
    const COM_Scoped field(MM_Field::New(attributes[FIELD_ATTRIBUTES[0]]));
    metaClass.addToMetaFields(*field);
    getNextTag(f, tagName, attributes);
    while (tagName == VALUE_XML_TAG) {
        const std::string key = attributes[VALUE_ATTRIBUTES[0]];
        std::string text;
        try {
            if (!getNextEndTag(f, VALUE_XML_TAG, text)) {
                text.clear();
            }
        } catch (const std::bad_alloc&) {
            // A value longer than memory ends the reading like the end of the file.
            text = std::string();
            f.setstate(std::ios::eofbit);
        }
        field->addToMetaValues(key, text);
        getNextTag(f, tagName, attributes);
    }
}

// A stream that ends leaves no tag, so that every loop over tags ends with it. End tags are passed over
// without a look at their names.
bool MM_Parser::getNextTag(std::istream& f, std::string& tagName, Attributes& attributes)
{
    char ch = '\0';
    do {
        tagName.clear();
        attributes.clear();
        if (!readUntil(f, '<') || !readName(f, ch, tagName)) {
            tagName.clear();
            return false;
        }
    } while (tagName.starts_with('/'));
    while (ch != '>') {
        std::string name;
        if (!readName(f, ch, name)) {
            tagName.clear();
            return false;
        }
        if (ch == '>') {
            break; // a name without a value is dropped
        }
        std::string value;
        if (!readBetweenQuote(f, value)) {
            tagName.clear();
            return false;
        }
        attributes[name] = value;
    }
    return true;
}

// A lone "<" stays in the value. An end tag of another name is swallowed, and the value goes on behind it.
bool MM_Parser::getNextEndTag(std::istream& f, const std::string& tagName, std::string& value)
{
    value.clear();
    char c = '\0';
    bool isRead = static_cast<bool>(f.get(c));
    while (isRead) {
        if (c != '<') {
            value += c;
            isRead = static_cast<bool>(f.get(c));
            continue;
        }
        if (!f.get(c)) {
            return false;
        }
        if (c != '/') {
            value += '<';
            continue;
        }
        std::string name;
        if (!readName(f, c, name)) {
            return false;
        }
        if (name == tagName) {
            return true;
        }
        isRead = static_cast<bool>(f.get(c));
    }
    return false;
}

bool MM_Parser::readUntil(std::istream& f, char ch)
{
    char c = '\0';
    while (f.get(c)) {
        if (c == ch) {
            return true;
        }
    }
    return false;
}

bool MM_Parser::readWhiteSpace(std::istream& f, char& ch)
{
    while (f.get(ch)) {
        if (!isWhiteSpace(ch)) {
            return true;
        }
    }
    return false;
}

bool MM_Parser::readName(std::istream& f, char& ch, std::string& name)
{
    bool isRead = readWhiteSpace(f, ch);
    name.clear();
    while (isRead && !isSpecialChar(ch)) {
        name += ch;
        isRead = static_cast<bool>(f.get(ch));
    }
    return isRead;
}

bool MM_Parser::readBetweenQuote(std::istream& f, std::string& value)
{
    if (!readUntil(f, '"')) {
        return false;
    }
    value.clear();
    char c = '\0';
    while (f.get(c)) {
        if (c == '"') {
            return true;
        }
        value += c;
    }
    return false;
}

// A carriage return is an ordinary byte.
bool MM_Parser::isWhiteSpace(char ch)
{
    return ch == ' ' || ch == '\n' || ch == '\t';
}

bool MM_Parser::isSpecialChar(char ch)
{
    return ch == '=' || ch == '"' || ch == '<' || ch == '>' || isWhiteSpace(ch);
}
