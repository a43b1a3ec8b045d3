#pragma once
#include "common/COM_Object.h"

#include <string>

/// A color of 8 bits a part: alpha in bits 31 to 24 of the value, then red, green, blue.
///
/// Parts outside 0..255 are cut to their low 8 bits, with a line on standard output that names them.
class COM_Color : public COM_Object
{
    COM_CLASS(COM_Color)
public:
    static constexpr double FACTOR = 0.7; ///< Ratio of two neighbouring shades.

    int getRed() const { return (mValue >> 16) & 0xFF; }
    int getGreen() const { return (mValue >> 8) & 0xFF; }
    int getBlue() const { return mValue & 0xFF; }
    int getAlpha() const { return (mValue >> 24) & 0xFF; }
    int getRGB() const { return mValue; }
    /// Red, green, blue in a new array of 3 bytes that the caller frees with delete[].
    unsigned char* getRGBToArray() const;

    void setColor(int red, int green, int blue);
    void setColor(const COM_Color& color) { mValue = color.mValue; }
    /// Mixes each part: t * c1 + (1 - t) * c2.
    void setColor(const COM_Color& c1, const COM_Color& c2, float t);

    /// The next lighter shade: each part divided by `FACTOR`, up to 255. Parts so dark that the division
    /// would not move them are raised first, and black becomes the darkest grey.
    void brighter(COM_Color& out) const;
    /// The next darker shade: each part times `FACTOR`.
    void darker(COM_Color& out) const;

    bool isEquals(const COM_Color& color) const { return mValue == color.mValue; }
    /// "Color[red,green,blue]", which the constructor from a text reads.
    std::string toString() const override;

protected:
    /// Opaque black.
    COM_Color()
        : COM_Color(0, 0, 0)
    {}
    COM_Color(int red, int green, int blue)
        : COM_Color(red, green, blue, 255)
    {}
    COM_Color(int red, int green, int blue, int alpha);
    /// Red, green and blue from `rgb`, opaque.
    explicit COM_Color(int rgb);
    /// Reads the form of `toString`; a text without "[" is black.
    explicit COM_Color(const std::string& text);
    COM_Color(const COM_Color& color);
    ~COM_Color() override = default;

private:
    void setParts(int red, int green, int blue, int alpha);
    static void testColorValueRange(int red, int green, int blue, int alpha);

    int mValue = 0;
};
