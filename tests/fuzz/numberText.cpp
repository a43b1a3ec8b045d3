// Reads the input as the text of a number, of each kind, and compares with the C library; writes the number
// that its first bytes are, and compares again.
#include "common/COM_Color.h"
#include "common/COM_Complex.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "FuzzSupport.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr int mostDigits = 40;
constexpr int exactDigits = 16; ///< Behind the point; a double then comes back as it was.

bool isSame(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

/// The C library's number, exponents written as in Fortran included, and its length.
double libraryReal(std::string text, std::size_t& length)
{
    for (char& letter : text) {
        letter = letter == 'D' ? 'E' : letter == 'd' ? 'e' : letter;
    }
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    length = static_cast<std::size_t>(end - text.c_str());
    return value;
}

/// The number between two marks, 0 unless both are there in this order.
double libraryPart(const std::string& text, std::size_t first, std::size_t last)
{
    std::size_t length = 0;
    const bool isThere = first != std::string::npos && last != std::string::npos && first < last;
    return isThere ? libraryReal(text.substr(first + 1, last - first - 1), length) : 0.0;
}

template <typename... Values>
std::string printed(const char* format, Values... values)
{
    char text[512];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

void readReal(const std::string& text)
{
    std::size_t length = 0;
    std::size_t libraryLength = 0;
    const double value = COM_Real::parseReal(text, length);
    require(isSame(value, libraryReal(text, libraryLength)), "a real is the library's");
    require(length == libraryLength, "a real ends where the library's ends");
    require(isSame(value, COM_Real::parseReal(text)), "a real is the same without its length");
}

void readInteger(const std::string& text, unsigned long base)
{
    require(COM_Integer::parseInt(text) == std::strtol(text.c_str(), nullptr, 10), "decimal");
    const bool isBase = base >= 2 && base <= 36;
    require(COM_Integer::turnIntoPBase(text, base)
                == (isBase ? std::strtol(text.c_str(), nullptr, static_cast<int>(base)) : 0),
            "an integer of another base is the library's");
}

void readComplex(const std::string& text)
{
    const std::size_t open = text.find('(');
    const std::size_t comma = text.find(',');
    const std::size_t close = text.find(')');
    const std::complex<double> value = COM_Complex::parseComplex(text);
    require(isSame(value.real(), libraryPart(text, open, comma)), "the real part");
    require(isSame(value.imag(), libraryPart(text, comma, close)), "the imaginary part");
}

void readColor(const std::string& text)
{
    std::vector<int> parts;
    std::size_t begin = text.find('[');
    while (begin != std::string::npos && parts.size() < 3) {
        const std::size_t end = text.find(',', begin + 1);
        const std::string piece = text.substr(begin + 1, end - begin - 1);
        if (!piece.empty()) {
            parts.push_back(static_cast<int>(std::strtol(piece.c_str(), nullptr, 10) & 0xFF));
        }
        begin = end;
    }
    parts.resize(3, 0);
    const COM_Scoped color(COM_Color::New(text));
    require(color->getRed() == parts[0] && color->getGreen() == parts[1]
                && color->getBlue() == parts[2] && color->getAlpha() == 255,
            "a color has the parts of its text");
    const COM_Scoped same(COM_Color::New(color->toString()));
    require(same->isEquals(*color), "a color comes back from its text");
}

void writeReal(double x, int width, int digits)
{
    const auto w = static_cast<unsigned long>(width);
    const auto p = static_cast<unsigned long>(digits);
    const std::string text = COM_Real::toString(x, w, p);
    require(text == printed("%*.*e", width, digits, x), "a real is printed as the library does");
    std::string appended = "x";
    COM_Real::append(appended, x, w, p);
    require(appended == "x" + COM_Real::toString(x, w, std::min(p, 30UL)), "and appended alike");
    require(isSame(COM_Real::parseReal(COM_Real::toString(x, 0, exactDigits)), x),
            "a real comes back from its digits");
    const std::complex<double> c(x, -x);
    const std::complex<double> read =
        COM_Complex::parseComplex(COM_Complex::toString(c, 0, exactDigits));
    require(isSame(read.real(), x) && isSame(read.imag(), -x), "so does a complex");
}

void writeInteger(long i)
{
    require(COM_Integer::toString(i) == printed("%ld", i), "an integer is the library's");
    require(COM_Integer::toHexString(i) == printed("%lx", static_cast<unsigned long>(i)), "hex");
    require(COM_Integer::parseInt(COM_Integer::toString(i)) == i, "an integer comes back");
    const std::string bits = COM_Integer::toBinString(i);
    require(static_cast<long>(std::strtoul(bits.c_str(), nullptr, 2)) == i, "so do its bits");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(textOf(data, size));
    readReal(text);
    readInteger(text, size > 0 ? data[size - 1] : 10);
    readComplex(text);
    readColor(text);
    double x = 0.0;
    if (size >= sizeof x) {
        std::memcpy(&x, data, sizeof x);
        writeReal(x, data[0] % mostDigits, data[size - 1] % mostDigits);
        long i = 0;
        std::memcpy(&i, data, sizeof i);
        writeInteger(i);
    }
    return 0;
}
