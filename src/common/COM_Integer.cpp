#include "common/COM_Integer.h"

#include <charconv>
#include <cstdlib>

namespace {

constexpr int textSize = 66; ///< Sign, 64 binary digits, final zero.

}

COM_Integer::COM_Integer(long value)
    : mInteger(value)
{
    COM_TYPE(COM_Integer);
}

std::string COM_Integer::toString() const
{
    return toString(mInteger);
}

std::string COM_Integer::toString(long value)
{
    char text[textSize];
    ltoa(value, text, 10);
    return text;
}

std::string COM_Integer::toString(int width, long value)
{
    std::string text = toString(value);
    if (width > 0 && text.size() < static_cast<std::size_t>(width)) {
        text.insert(0, static_cast<std::size_t>(width) - text.size(), '0');
    }
    return text;
}

std::string COM_Integer::toHexString(long value)
{
    char text[textSize];
    ltoa(value, text, 16);
    return text;
}

std::string COM_Integer::toBinString(long value)
{
    char text[textSize];
    ltoa(value, text, 2);
    return text;
}

long COM_Integer::parseInt(const std::string& text)
{
    return std::strtol(text.c_str(), nullptr, 10);
}

long COM_Integer::turnIntoPBase(const std::string& text, unsigned long base)
{
    if (base < 2 || base > 36) {
        return 0;
    }
    return std::strtol(text.c_str(), nullptr, static_cast<int>(base));
}

void COM_Integer::ltoa(long value, char* text, int base)
{
    char* const end = text + textSize - 1;
    // Only decimal numbers have a sign; the other bases show the bits.
    const auto result = base == 10
                            ? std::to_chars(text, end, value, base)
                            : std::to_chars(text, end, static_cast<unsigned long>(value), base);
    *result.ptr = '\0';
}
