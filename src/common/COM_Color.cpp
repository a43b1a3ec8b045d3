#include "common/COM_Color.h"

#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "common/COM_String.h"

#include <algorithm>
#include <iostream>

namespace {

constexpr int opaque = 255;
constexpr int limit = 255;

bool isOutside(int part)
{
    return part < 0 || part > limit;
}

} // namespace

COM_Color::COM_Color(int red, int green, int blue, int alpha)
{
    COM_TYPE(COM_Color);
    setParts(red, green, blue, alpha);
}

COM_Color::COM_Color(int rgb)
    : mValue(static_cast<int>(static_cast<unsigned>(rgb) | 0xFF000000U))
{
    COM_TYPE(COM_Color);
}

COM_Color::COM_Color(const std::string& text)
{
    COM_TYPE(COM_Color);
    int parts[3] = {0, 0, 0};
    const std::size_t open = text.find('[');
    if (open != std::string::npos) {
        const COM_Scoped tokens(COM_String::New(text.substr(open + 1)));
        tokens->tokenize(",");
        for (int& part : parts) {
            part = static_cast<int>(COM_Integer::parseInt(tokens->nextToken()));
        }
    }
    setParts(parts[0], parts[1], parts[2], opaque);
}

COM_Color::COM_Color(const COM_Color& color)
    : COM_Color(color.getRed(), color.getGreen(), color.getBlue(), color.getAlpha())
{}

unsigned char* COM_Color::getRGBToArray() const
{
    return new unsigned char[3]{static_cast<unsigned char>(getRed()),
                                static_cast<unsigned char>(getGreen()),
                                static_cast<unsigned char>(getBlue())};
}

void COM_Color::setColor(int red, int green, int blue)
{
    setParts(red, green, blue, opaque);
}

void COM_Color::setColor(const COM_Color& c1, const COM_Color& c2, float t)
{
    const auto mix = [t](int a, int b) {
        return static_cast<int>(t * static_cast<float>(a) + (1.0F - t) * static_cast<float>(b));
    };
    setParts(mix(c1.getRed(), c2.getRed()), mix(c1.getGreen(), c2.getGreen()),
             mix(c1.getBlue(), c2.getBlue()), mix(c1.getAlpha(), c2.getAlpha()));
}

void COM_Color::brighter(COM_Color& out) const
{
    constexpr int darkest = static_cast<int>(1.0 / (1.0 - FACTOR));
    if (getRed() == 0 && getGreen() == 0 && getBlue() == 0) {
        out.setColor(darkest, darkest, darkest);
        return;
    }
    const auto lighter = [](int part) {
        if (part > 0 && part < darkest) {
            part = darkest;
        }
        return std::min(static_cast<int>(part / FACTOR), limit);
    };
    out.setColor(lighter(getRed()), lighter(getGreen()), lighter(getBlue()));
}

void COM_Color::darker(COM_Color& out) const
{
    const auto shade = [](int part) { return std::max(static_cast<int>(part * FACTOR), 0); };
    out.setColor(shade(getRed()), shade(getGreen()), shade(getBlue()));
}

std::string COM_Color::toString() const
{
    return "Color[" + COM_Integer::toString(getRed()) + "," + COM_Integer::toString(getGreen())
           + "," + COM_Integer::toString(getBlue()) + "]";
}

void COM_Color::setParts(int red, int green, int blue, int alpha)
{
    const auto bits = [](int part, unsigned shift) {
        return (static_cast<unsigned>(part) & 0xFFU) << shift;
    };
    mValue = static_cast<int>(bits(alpha, 24) | bits(red, 16) | bits(green, 8) | bits(blue, 0));
    testColorValueRange(red, green, blue, alpha);
}

void COM_Color::testColorValueRange(int red, int green, int blue, int alpha)
{
    std::string names;
    names += isOutside(alpha) ? " Alpha" : "";
    names += isOutside(red) ? " Red" : "";
    names += isOutside(green) ? " Green" : "";
    names += isOutside(blue) ? " Blue" : "";
    if (!names.empty()) {
        std::cout << "COLOR ERROR:Color parameter outside of expected range:" << names << "\n";
    }
}
