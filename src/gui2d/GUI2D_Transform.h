#pragma once

class GUI2D_Plotter;

/// Logarithms and Fourier transforms of all curves of a plotter.
struct GUI2D_Transform
{
    bool mIsLogX =
        false; ///< Decimal logarithm of the X values, after their Fourier transform if both are set.
    bool mIsLogY = false;
    bool mIsFFTX = false; ///< Modulus of the Fourier transform of the last 2^n X values.
    bool mIsFFTY = false;
    int mPower = 0;        ///< n
    double mPeriodX = 1.0; ///< Sampling periods.
    double mPeriodY = 1.0;

    /// Shows the transformed curves in a new plotter window, a child of the main window, at the place and
    /// size of that of `source`, which stays as it was.
    void show(const GUI2D_Plotter& source) const;
};
