#include "metaModel/MM_ClassText.h"

#include "common/COM_Real.h"
#include "metaModel/MM_Object.h"
#include "metaModel/MM_Parser.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr std::size_t longestInteger = 20; ///< Characters of a 64 bit integer.

template <typename Integer>
void appendInteger(std::string& text, Integer value)
{
    char digits[longestInteger];
    const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    text.append(static_cast<const char*>(digits), end);
}

void appendIdentity(std::string& text, const std::string& className, const MM_Object& object)
{
    text += className;
    text += '@';
    appendInteger(text, object.getIdentityNumber());
}

} // namespace

void MM_ClassText::clear()
{
    mText.clear();
    mFieldsNumber = 0;
}

bool MM_ClassText::has(std::string_view name) const
{
    const auto end = mFields.begin() + static_cast<std::ptrdiff_t>(mFieldsNumber);
    return std::any_of(mFields.begin(), end,
                       [name](const Field& field) { return field.mName == name; });
}

bool MM_ClassText::beginField(std::string_view name)
{
    if (!mIsWanted || has(name)) {
        return false;
    }
    if (mFieldsNumber == mFields.size()) {
        mFields.emplace_back();
    }
    Field& field = mFields[mFieldsNumber++];
    field.mName = name;
    field.mBegin = mText.size();
    mText += "\n\t\t<";
    mText += MM_Parser::FIELD_XML_TAG;
    mText += ' ';
    mText += MM_Parser::FIELD_ATTRIBUTES[0];
    mText += "=\"";
    mText += name;
    mText += "\">";
    return true;
}

void MM_ClassText::endField()
{
    mText += "\n\t\t</";
    mText += MM_Parser::FIELD_XML_TAG;
    mText += '>';
    mFields[mFieldsNumber - 1].mEnd = mText.size();
}

void MM_ClassText::addValue(const std::string& key, const std::string& value)
{
    beginValue(key);
    append(value);
    endValue();
}

void MM_ClassText::addIdentity(const MM_Object& object)
{
    beginValue();
    append(object);
    endValue();
}

void MM_ClassText::addIdentity(const std::string& key, const MM_Object& object)
{
    beginValue(key);
    append(object);
    endValue();
}

void MM_ClassText::beginValue()
{
    mText += "\n\t\t\t<";
    mText += MM_Parser::VALUE_XML_TAG;
    mText += '>';
}

void MM_ClassText::beginValue(const std::string& key)
{
    beginValue();
    if (key.empty()) {
        return;
    }
    mText.back() = ' ';
    mText += MM_Parser::VALUE_ATTRIBUTES[0];
    mText += "=\"";
    mText += key;
    mText += "\">";
}

void MM_ClassText::endValue()
{
    mText += "</";
    mText += MM_Parser::VALUE_XML_TAG;
    mText += '>';
}

void MM_ClassText::append(double value)
{
    COM_Real::append(mText, value);
}

void MM_ClassText::append(const std::complex<double>& value)
{
    mText += '(';
    append(value.real());
    mText += ',';
    append(value.imag());
    mText += ')';
}

// Values above the largest long show as COM_String shows them.
void MM_ClassText::append(unsigned long value)
{
    append(static_cast<long>(value));
}

void MM_ClassText::append(long value)
{
    appendInteger(mText, value);
}

void MM_ClassText::append(const MM_Object& object)
{
    appendIdentity(mText, object.getClassName(), object);
}

void MM_ClassText::appendTo(std::string& out, const std::string& className, const MM_Object& object)
{
    out += "\n\t<";
    out += MM_Parser::CLASS_XML_TAG;
    out += ' ';
    out += MM_Parser::CLASS_ATTRIBUTES[1];
    out += "=\"";
    appendIdentity(out, className, object);
    out += "\" ";
    out += MM_Parser::CLASS_ATTRIBUTES[0];
    out += "=\"";
    out += className;
    out += "\">";
    const auto end = mFields.begin() + static_cast<std::ptrdiff_t>(mFieldsNumber);
    std::sort(mFields.begin(), end,
              [](const Field& a, const Field& b) { return a.mName < b.mName; });
    for (auto field = mFields.begin(); field != end; ++field) {
        out.append(mText, field->mBegin, field->mEnd - field->mBegin);
    }
    out += "\n\t</";
    out += MM_Parser::CLASS_XML_TAG;
    out += '>';
}
