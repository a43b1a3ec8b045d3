#include "gui2d/GUI2D_Graduation.h"

#include "common/COM_Real.h"

#include <cmath>

GUI2D_Graduation GUI2D_Graduation::between(double min, double max, long exponent)
{
    GUI2D_Graduation graduation;
    const double step = power(exponent);
    if (!std::isfinite(min) || !std::isfinite(max) || !std::isfinite(step) || step <= 0.0) {
        return graduation;
    }
    // Far from 0 the first multiple may exceed every integer type.
    const double first = std::floor(min / step - 1.0);
    const double count = std::floor(1.0 + max / step) - first;
    for (int k = 0; k <= count && k < MAX_TICKS; ++k) {
        const double tick = step * (k + first);
        graduation.mLast = tick;
        graduation.mIsEmpty = false;
        if (tick > max) {
            break;
        }
        if (tick >= min) {
            graduation.mTicks.push_back(tick);
        }
    }
    return graduation;
}

long GUI2D_Graduation::exponentFor(double extent)
{
    const double logarithm = std::log10(extent);
    if (!std::isfinite(logarithm)) {
        return 0;
    }
    long exponent = COM_Real::toLong(std::floor(logarithm));
    if (std::abs(logarithm - static_cast<double>(exponent)) < std::log10(5.0)) {
        --exponent;
    }
    if (std::abs(logarithm - static_cast<double>(exponent)) > std::log10(20.0)) {
        ++exponent;
    }
    return exponent;
}

double GUI2D_Graduation::power(long exponent)
{
    return exponent < 0 ? 1.0 / std::pow(10.0, static_cast<double>(-exponent))
                        : std::pow(10.0, static_cast<double>(exponent));
}
