#pragma once
#include <cstdio>
#include <string>

/// A text as part of a test's name: letters and digits as they are, every other byte as "x" and its two
/// hexadecimal digits, so that any text of a table gives a name that every tool can take.
inline std::string caseName(const std::string& text)
{
    std::string name;
    for (const char letter : text) {
        const auto byte = static_cast<unsigned char>(letter);
        if ((byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z')
            || (byte >= 'a' && byte <= 'z')) {
            name += letter;
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "x%02X", byte);
            name += code;
        }
    }
    return name.empty() ? "empty" : name;
}
