#include "gui/GUI_CellValue.h"

#include "common/COM_Complex.h"
#include "common/COM_Real.h"

std::string GUI_CellValue::toString(double value)
{
    return COM_Real::toString(value);
}

std::string GUI_CellValue::toString(const std::complex<double>& value)
{
    return COM_Complex::toString(value, 7, 6);
}

std::string GUI_CellValue::toString(unsigned long value)
{
    return std::to_string(value);
}
