#pragma once
#include <string>

class GUI2D_Plotter;
class LA_RealVector;

/// Logarithms and Fourier transforms of all curves of a plotter.
struct GUI2D_Transform
{
    /// Decimal logarithm of the X values, after their Fourier transform if both are set.
    bool mIsLogX = false;
    bool mIsLogY = false;
    bool mIsFFTX = false; ///< Modulus of the Fourier transform of the last 2^n X values.
    bool mIsFFTY = false;
    int mPower = 0;        ///< n
    double mPeriodX = 1.0; ///< Sampling periods.
    double mPeriodY = 1.0;

    /// Shows the transformed curves in a new plotter window, a child of the main window, at the place and
    /// size of that of `source`, which stays as it was.
    void show(const GUI2D_Plotter& source) const;
    /// Gives a plotter the transformed curves of `source`, and a title and labels that tell what was done.
    void draw(const GUI2D_Plotter& source, GUI2D_Plotter& target) const;

    /// Transforms the values of one curve. Where one axis alone is Fourier transformed, frequency 0 stands in
    /// the middle and the other axis becomes that of the angular frequencies 2 pi k / (2^n period), from
    /// k = -2^(n - 1) on.
    void apply(LA_RealVector& x, LA_RealVector& y) const;
    /// What is done to each axis, "LOG(FFT(X)) - FFT(Y)" for instance; empty when nothing is.
    std::string getDescription() const;

private:
    /// The description behind a dash, or nothing.
    std::string suffix() const;
};
