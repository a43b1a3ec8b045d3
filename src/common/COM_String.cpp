#include "common/COM_String.h"

#include "common/COM_Complex.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"

COM_String::COM_String(const std::string& text)
    : mString(text)
    , mTokenizer(COM_Array<COM_String>::New())
{
    COM_TYPE(COM_String);
}

COM_String::~COM_String()
{
    mTokenizer->Delete();
}

char* COM_String::stringToCharArray(const std::string& text)
{
    char* const copy = new char[text.size() + 1];
    text.copy(copy, text.size());
    copy[text.size()] = '\0';
    return copy;
}

void COM_String::tokenize(const std::string& separator)
{
    mSeparator = separator;
    tokenize();
}

void COM_String::tokenize()
{
    mTokenizer->clear();
    mTokenIndex = 0;
    std::size_t begin = 0;
    while (begin < mString.size()) {
        std::size_t end = mSeparator.empty() ? std::string::npos : mString.find(mSeparator, begin);
        if (end == std::string::npos) {
            end = mString.size();
        }
        if (end > begin) {
            const COM_Scoped token(COM_String::New(mString.substr(begin, end - begin)));
            mTokenizer->add(*token);
        }
        begin = end + mSeparator.size();
    }
}

bool COM_String::hasNextToken() const
{
    return static_cast<unsigned long>(mTokenIndex) < mTokenizer->size();
}

std::string COM_String::nextToken()
{
    if (!hasNextToken()) {
        return {};
    }
    return mTokenizer->get(static_cast<unsigned long>(mTokenIndex++))->getString();
}

std::string COM_String::toString(unsigned char value)
{
    return COM_Integer::toString(static_cast<long>(value));
}

std::string COM_String::toString(unsigned long value)
{
    return COM_Integer::toString(static_cast<long>(value));
}

std::string COM_String::toString(long value)
{
    return COM_Integer::toString(value);
}

std::string COM_String::toString(double value)
{
    return COM_Real::toString(value);
}

std::string COM_String::toString(const std::complex<double>& value)
{
    return COM_Complex::toString(value);
}

std::string COM_String::toString(bool value)
{
    return COM_Integer::toString(value ? 1L : 0L);
}

std::string COM_String::toString(char value)
{
    return {value};
}
