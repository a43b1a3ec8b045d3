#pragma once
#include "common/COM_Object.h"

#include <string>

/// A boxed integer, and the texts of integers in forms and files. No operation depends on the locale.
class COM_Integer : public COM_Object
{
    COM_CLASS(COM_Integer)
public:
    void setInteger(long value) { mInteger = value; }
    long getInteger() const { return mInteger; }

    /// Decimal.
    std::string toString() const override;
    static std::string toString(long value);
    /// Decimal, with zeros put in front until `width` characters are reached; a sign stays where it
    /// was, behind the zeros.
    static std::string toString(int width, long value);
    /// Base 16 and base 2; negative values show all digits of their two's complement.
    static std::string toHexString(long value);
    static std::string toBinString(long value);

    /// Reads a decimal number as the C library does: blanks and a sign may stand in front, reading stops
    /// at the first foreign character, no number gives 0, too large a number the nearest limit.
    static long parseInt(const std::string& text);
    /// The same in base 2 to 36; another base gives 0.
    static long turnIntoPBase(const std::string& text, unsigned long base);

protected:
    explicit COM_Integer(long value = 0);
    ~COM_Integer() override = default;

private:
    static void ltoa(long value, char* text, int base);

    long mInteger;
};
