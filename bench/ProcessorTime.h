#pragma once
#include <ctime>

/// Processor time of this process so far, s: other programs show less in it than on a clock.
inline double processorTime()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}
