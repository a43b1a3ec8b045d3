#pragma once
#include "common/COM_Object.h"

#include <string>

/// A sink for progress and output, here the standard output. Heirs redirect everything by overriding
/// the three virtual operations. Nothing is appended to what is printed.
class COM_Out : public virtual COM_Object
{
    COM_CLASS(COM_Out)
public:
    virtual void printInt(int value);
    /// Seven significant digits.
    virtual void printReal(double value);
    virtual void printString(const std::string& text);

    void print(const std::string& text) { printString(text); }
    /// Integers that an int cannot hold are printed as text.
    void print(unsigned long value);
    void print(long value);
    void print(double value) { printReal(value); }

protected:
    COM_Out();
    ~COM_Out() override = default;
};
