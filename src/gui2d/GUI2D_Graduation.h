#pragma once
#include <vector>

/// The graduations of an axis: steps that are powers of ten.
struct GUI2D_Graduation
{
    static constexpr int MAX_TICKS = 1000; ///< No scale has more, whatever its limits.

    std::vector<double> mTicks; ///< Ascending, within the limits.
    double mLast = 0.0;   ///< The value that was looked at last, which may lie above the limits.
    bool mIsEmpty = true; ///< No value was looked at: `mLast` means nothing.

    /// The multiples of 10^`exponent` between both limits. Limits that are not finite have none.
    static GUI2D_Graduation between(double min, double max, long exponent);
    /// The exponent of the step for a visible extent: an extent of m 10^k, 1 <= m < 10, has 10 to 20
    /// graduations for m below 2, else 2 to 10. An extent without logarithm has 0.
    static long exponentFor(double extent);
    /// 10 to the power `exponent`; for a negative one, 1 over the positive power.
    static double power(long exponent);
};
