#pragma once
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

/// The two halves of a discrete transform, summed as they are defined and in long double, whose rounding is of no
/// account beside that of double: cosine[k] = sum over m of f[m] cos(2 pi m k / n), sine[k] alike.
struct DirectSum
{
    using Number = std::complex<long double>;

    explicit DirectSum(const std::vector<std::complex<double>>& f)
        : cosine(f.size())
        , sine(f.size())
    {
        const unsigned long n = f.size();
        std::vector<long double> c(n);
        std::vector<long double> s(n);
        for (unsigned long m = 0; m < n; ++m) {
            const long double angle =
                2.0L * std::numbers::pi_v<long double> * static_cast<long double>(m)
                / static_cast<long double>(n);
            c[m] = std::cos(angle);
            s[m] = std::sin(angle);
        }
        for (unsigned long k = 0; k < n; ++k) {
            long double sums[4] = {};
            for (unsigned long m = 0; m < n; ++m) {
                const unsigned long turn = m * k % n;
                const long double re = f[m].real();
                const long double im = f[m].imag();
                sums[0] += re * c[turn];
                sums[1] += im * c[turn];
                sums[2] += re * s[turn];
                sums[3] += im * s[turn];
            }
            cosine[k] = {sums[0], sums[1]};
            sine[k] = {sums[2], sums[3]};
        }
    }

    std::vector<Number> cosine;
    std::vector<Number> sine;
};
