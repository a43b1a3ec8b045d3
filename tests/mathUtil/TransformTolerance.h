#pragma once
#include <cmath>
#include <limits>
#include <vector>

/// Bound of the rounding error of each value that a transform of 2^ldn inputs of this norm gives.
///
/// The transform is ldn steps, each a rotation of half of the values followed by sums and differences, that is an
/// orthogonal matrix times sqrt(2). Relative errors in the norm therefore add up over the steps (N. J. Higham,
/// Accuracy and Stability of Numerical Algorithms, chapter 24). With u half a unit in the last place, a step has
///
/// - at most 8 u from its twiddle: 1.6 u from the rounded angle, 1.1 u from sine and cosine, both doubled by the
///   doubling of the angle, which rounds twice more itself;
/// - 3 u from the rotation, two products and their sum, in the norm of two such values;
/// - u from the sum or the difference.
///
/// The conversion from Hartley to Fourier adds 3 u. No value is off by more than the norm of all errors.
inline double transformTolerance(unsigned long ldn, double norm)
{
    constexpr double u = std::numeric_limits<double>::epsilon() / 2.0;
    const double n = std::ldexp(1.0, static_cast<int>(ldn));
    return (12.0 * static_cast<double>(ldn) + 3.0) * u * std::sqrt(n) * norm;
}

inline double normOf(const std::vector<double>& values)
{
    double sum = 0.0;
    for (const double value : values) {
        sum += value * value;
    }
    return std::sqrt(sum);
}
