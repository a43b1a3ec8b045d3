#include "gui2d/GUI2D_Mapping.h"

#include <algorithm>
#include <cmath>

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
