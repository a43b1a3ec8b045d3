#include "common/COM_Out.h"

#include "common/COM_Real.h"

#include <iostream>
#include <utility>

COM_Out::COM_Out()
{
    COM_TYPE(COM_Out);
}

void COM_Out::printInt(int value)
{
    std::cout << value;
}

void COM_Out::printReal(double value)
{
    std::cout << COM_Real::toString(value);
}

void COM_Out::printString(const std::string& text)
{
    std::cout << text;
}

void COM_Out::print(unsigned long value)
{
    if (std::in_range<int>(value)) {
        printInt(static_cast<int>(value));
    } else {
        printString(std::to_string(value));
    }
}

void COM_Out::print(long value)
{
    if (std::in_range<int>(value)) {
        printInt(static_cast<int>(value));
    } else {
        printString(std::to_string(value));
    }
}
