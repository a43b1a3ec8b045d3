#include "gui2d/GUI2D_Mapping.h"

#include <algorithm>
#include <cmath>
#include <limits>

GUI2D_Mapping GUI2D_Mapping::scaled(double ratio) const
{
    GUI2D_Mapping mapping = *this;
    mapping.mScaleX *= ratio;
    mapping.mScaleY *= ratio;
    mapping.mGraphicsOrigin *= ratio;
    return mapping;
}

int GUI2D_Mapping::toPixel(double value)
{
    constexpr double farthest = 1e9;
    return std::isnan(value) ? 0
                             : static_cast<int>(std::clamp(std::floor(value), -farthest, farthest));
}

long GUI2D_Mapping::toLong(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    // The limit of a long is no double: the next smaller one is.
    constexpr double largest = 9223372036854774784.0;
    if (value > largest) {
        return std::numeric_limits<long>::max();
    }
    return static_cast<long>(
        std::max(value, static_cast<double>(std::numeric_limits<long>::min())));
}
