#pragma once
#include <complex>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

/// Numbers between -1 and 1 that depend on the seed alone.
class TestNumbers
{
public:
    explicit TestNumbers(unsigned long seed)
        : mEngine(seed)
    {}
    double next() { return static_cast<double>(mEngine() >> 11) * 0x1p-52 - 1.0; }
    std::complex<double> nextComplex()
    {
        const double re = next();
        return {re, next()};
    }
    /// A number that vector units may treat in a way of their own.
    double nextOdd()
    {
        constexpr double smallest = std::numeric_limits<double>::denorm_min();
        const double odd[] = {0.0, -0.0, smallest, -smallest, 1e-310, -1e-310, 1e-160, next()};
        return odd[mEngine() % std::size(odd)];
    }

private:
    std::mt19937_64 mEngine;
};

/// So many of them, with their number as the seed.
inline std::vector<double> randomNumbers(unsigned long n)
{
    TestNumbers numbers(n);
    std::vector<double> values(n);
    for (double& value : values) {
        value = numbers.next();
    }
    return values;
}
